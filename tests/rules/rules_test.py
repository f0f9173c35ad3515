#!/usr/bin/env python3
"""The checking scripts find what they are for."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parent.parent.parent / "scripts"


def run(script, *arguments):
    result = subprocess.run([SCRIPTS / script, *arguments], capture_output=True, text=True)
    return result.returncode, result.stdout.splitlines()


class Rule(unittest.TestCase):
    def setUp(self):
        self.tree = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.tree)

    def write(self, name, text):
        path = self.tree / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)


class Layers(Rule):
    def setUp(self):
        super().setUp()
        self.write("platform/include/platform/file.h", "#include <string>\n")
        self.write("openaccess/base/include/oa/oaString.h", "#include <cstddef>\n")
        self.write("openaccess/base/include/oa/oaInner.h", "")
        self.write("openaccess/dm/src/lib_table.h", "")
        self.write("include/ovalis/core.h", "#include <oa/oaString.h>\n")
        self.write("include/ovalis/pcell.h", "#include <ovalis/core.h>\n")

    def expect(self, name, text, *findings):
        self.write(name, text)
        expected = (1 if findings else 0, [f"{name}: {finding}" for finding in findings])
        self.assertEqual(run("check-layers", self.tree), expected)

    def test_what_looks_down_is_accepted(self):
        self.expect("src/pcell/master.cpp", '#include <ovalis/pcell.h>\n#include "platform/file.h"\n')

    def test_a_package_may_not_look_up(self):
        self.expect("openaccess/base/src/string.cpp", '#include "dm/src/lib_table.h"\n',
                    "base includes the room dm above or beside it: dm/src/lib_table.h")

    def test_rooms_of_the_library_may_not_look_beside(self):
        self.expect("src/ports/ports.cpp", "#include <ovalis/pcell.h>\n",
                    "ports includes the room pcell above or beside it: ovalis/pcell.h")

    def test_only_the_start_up_sequence_looks_up(self):
        self.expect("src/core/init.cpp", "#include <ovalis/pcell.h>\n")
        self.expect("src/core/text.cpp", "#include <ovalis/pcell.h>\n",
                    "core includes the room pcell above or beside it: ovalis/pcell.h")

    def test_system_headers_stand_in_platform(self):
        self.expect("platform/posix/file.cpp", "#include <unistd.h>\n")
        self.expect("tools/cli/main.cpp", "#include <unistd.h>\n",
                    "system or unknown header outside platform/: unistd.h")

    def test_platform_conditionals_stand_in_platform_and_export_headers(self):
        self.expect("include/ovalis/export.h", "#if defined(_WIN32)\n#endif\n")
        self.expect("src/core/text.cpp", "#ifdef _WIN32\n#endif\n",
                    "platform conditional outside platform/: #ifdef _WIN32")

    def test_the_library_sees_only_headers_of_an_installed_openaccess(self):
        self.expect("src/core/text.cpp", '#include "dm/src/lib_table.h"\n#include <oa/oaInner.h>\n',
                    "not a header of an installed OpenAccess: dm/src/lib_table.h",
                    "not a header of an installed OpenAccess: oa/oaInner.h")

    def test_third_party_headers_stay_in_their_rooms(self):
        self.expect("tools/cli/main.cpp", "#include <CLI/CLI.hpp>\n")
        self.expect("src/core/text.cpp", "#include <nlohmann/json.hpp>\n",
                    "third-party header in core: nlohmann/json.hpp")


class Exports(Rule):
    def setUp(self):
        super().setUp()
        self.write("a.cpp", "namespace n { void a() {} void b() {} }\n")
        self.library = self.tree / "liba.so"
        self.list = self.tree / "list.txt"
        subprocess.run([sys.argv[1], "-shared", "-fPIC", "-o", self.library, self.tree / "a.cpp"],
                       check=True)

    def test_an_equal_list_passes(self):
        self.list.write_text("n::a()\nn::b()\n")
        self.assertEqual(run("check-exports", self.library, self.list), (0, []))

    def test_a_symbol_too_few_and_one_too_many_are_named(self):
        self.list.write_text("n::b()\nn::c()\n")
        status, lines = run("check-exports", self.library, self.list)
        self.assertEqual((status, [line for line in lines if line[1:] in ("n::a()", "n::c()")]),
                         (1, ["+n::a()", "-n::c()"]))

    def test_an_update_writes_the_list(self):
        self.assertEqual(run("check-exports", "--update", self.library, self.list), (0, []))
        self.assertEqual(self.list.read_text(), "n::a()\nn::b()\n")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
