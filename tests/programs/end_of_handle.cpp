// Says "ready", lets a scoped handle give back what was given back before, and says "went on" when
// that did not end the process, which then has the exit status 10.

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include <ovalis/diagnostics.h>
#include <ovalis/library.h>
#include <platform/text.h>

using namespace ovalis;

namespace {

oa::oaDMFile& newFile(oa::oaLib& lib) {
    lib.getAccess(oa::oacWriteLibAccess);
    return *oa::oaDMFile::create(&lib, "notes.txt");
}

void closedLibrary(LibPtr lib) {
    const SharedOaLib shared(lib.get());
    lib.release()->close();
}

void closedOwnLibrary(LibPtr lib) {
    lib->close();
}

void releasedAccess(LibPtr lib) {
    const ScopedLibAccess access(*lib, oa::oaLibAccess(oa::oacReadLibAccess), 0);
    lib->releaseAccess();
}

void releasedLock(LibPtr lib) {
    oa::oaDMFile& file = newFile(*lib);
    const ScopedDMFileLock lock(file);
    file.releaseLock();
}

void releasedTryLock(LibPtr lib) {
    oa::oaDMFile& file = newFile(*lib);
    const ScopedDMFileTryLock lock(file);
    file.releaseLock();
}

/// Keeps designs from being saved.
class Refusal : public oa::oaVersionedObserver<oa::oaDesign> {
public:
    Refusal() : oa::oaVersionedObserver<oa::oaDesign>(0) {}
    void onPreSave(oa::oaDesign*) override { throw std::runtime_error("not now"); }
};

void unsavedDesign(LibPtr lib) {
    const Refusal refusal;
    const OaDesignSAC design(openDesignWithView(*lib, "cell", "layout", oa::oacMaskLayout, true));
    oa::oaBlock::create(design.get());
}

} // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    if (arguments.size() != 3) {
        return 2;
    }
    std::set_terminate([] { std::_Exit(10); });
    const std::string& name = arguments[2];
    LibPtr lib = createLib(arguments[1], "lib");
    std::cout << "ready" << std::endl;
    if (name == "shared") {
        closedLibrary(std::move(lib));
    } else if (name == "owned") {
        closedOwnLibrary(std::move(lib));
    } else if (name == "access") {
        releasedAccess(std::move(lib));
    } else if (name == "lock") {
        releasedLock(std::move(lib));
    } else if (name == "try-lock") {
        releasedTryLock(std::move(lib));
    } else if (name == "design") {
        unsavedDesign(std::move(lib));
    } else {
        return 2;
    }
    std::cout << "went on\n";
    return 0;
}
