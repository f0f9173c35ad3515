#pragma once

#include <regex>
#include <string>
#include <vector>

#include "support/environment_override.h"
#include "workplace.h"

namespace cli::test {

/// Where the example plug-ins of this build are.
inline std::string pluginDirectory() {
    return ovalis::test::utf8(ovalis::test::builtProgram("ovalis").parent_path().parent_path() /
                              "plugins");
}

/// A workplace with the exported pcell "coil", whose one parameter is N = 2.
class PcellPlace : public Workplace {
public:
    PcellPlace() { exportIt(); }

    /// Runs a command on the pcell, for example {"cache", "put"}.
    Outcome onCoil(std::vector<std::string> command, const std::vector<std::string>& more = {}) {
        command.insert(command.end(), {library(), "coil", "layout"});
        command.insert(command.end(), more.begin(), more.end());
        return ovalisHere(command);
    }

    Outcome put(const std::vector<std::string>& more = {}) {
        std::vector<std::string> from = {"--from", library(), "coil", "layout"};
        from.insert(from.end(), more.begin(), more.end());
        return onCoil({"cache", "put"}, from);
    }

    Outcome place(const std::string& name, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = {"place",   library(), "top",   "layout",
                                              name,      "0",       "-50.5", "--master",
                                              library(), "coil",    "layout"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ovalisHere(arguments);
    }

    /// Makes the pcell "spiral" in a library of its own.
    Outcome makeSpiral() {
        return ovalisHere({"pcell",
                           path("coils"),
                           "spiral",
                           "layout",
                           "spiral",
                           "--param",
                           "shape:string=square",
                           "--param",
                           "turns:int=2",
                           "--param",
                           "width:double=10",
                           "--param",
                           "spacing:double=5",
                           "--param",
                           "innerDiameter:double=100",
                           "--param",
                           "layer:int=8",
                           "--param",
                           "viaLayer:int=7",
                           "--param",
                           "underpassLayer:int=6"});
    }

    Outcome evaluateSpiral(const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments = {"evaluate", path("coils"), "spiral", "layout"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ovalisHere(arguments);
    }
};

/// The identity of the exported pcell for N = 2 and for N = 3.
inline const std::string identityOf2 =
    "cc8a7d8dc3a118b1ce830cb853ef90f4c339ba35761e74893a2234c4ccd3fc7b";
inline const std::string identityOf3 =
    "2f495a30a39a3f8563389862c0475306b6a035272df6b5544b39a265fc1ea023";

/// The text with the time, which differs, as "T".
inline std::string withoutTime(const std::string& text) {
    return std::regex_replace(text, std::regex("(time +)[0-9.e-]+"), "$1T");
}

/// The path of a cache entry as the command writes it, which ends in the system's own separators.
inline std::string entryPath(const Outcome& put) {
    return put.out.substr(0, put.out.size() - 1);
}

} // namespace cli::test
