// The other process of the library tests: does what its first argument says to the path that its
// second names. Exit status 0: done, 1: refused, 2: failed,
// 10 and more: the lock status that was asked for. An action that begins with "hold" or
// "briefly" makes the file that the third argument names, and waits to be killed or for a second.

#include "dm/src/edit_lock.h"
#include "oa/oaAppDef.h"
#include "oa/oaDM.h"
#include "platform/file.h"
#include "platform/text.h"

#include <chrono>
#include <iostream>
#include <thread>

using namespace OpenAccess_4;

namespace {

oaLib* openLibrary(const std::string& path) {
    return oaLib::open(oaScalarName(oaNativeNS(), "child"), path.c_str());
}

/// Saves data that hold a value of kind float named "disputed".
bool saveData(const std::string& path) {
    oaDMData* data = oaDMData::open(openLibrary(path), 'w');
    oaFloatAppDef<oaDMData>::get("disputed")->set(data, 0.5f);
    data->save();
    return true;
}

int tell(bool granted, const std::vector<std::string>& arguments) {
    if (!granted)
        return 1;
    const bool holds = arguments[1].starts_with("hold");
    if (!holds && !arguments[1].starts_with("briefly"))
        return 0;
    platform::File(arguments.at(3), platform::OpenMode::write).close();
    std::this_thread::sleep_for(holds ? std::chrono::seconds(120) : std::chrono::seconds(1));
    return holds ? 2 : 0;
}

/// The file of a library that a path names.
oaDMFile* fileAt(const std::string& path) {
    oaLib* lib = openLibrary(platform::parentPath(path));
    lib->getAccess(oacReadLibAccess);
    return oaDMFile::find(lib, platform::fileName(path).c_str());
}

bool openData(const std::string& path) {
    try {
        oaDMData::open(openLibrary(path), 'a');
        return true;
    } catch (const oaDMError& error) {
        if (error.getMsgId() != oacCannotLockDatabase)
            throw;
        return false;
    }
}

int run(const std::vector<std::string>& arguments) {
    const std::string& action = arguments.at(1);
    const std::string& path = arguments.at(2);
    if (action.ends_with("edit")) {
        const auto lock = impl::EditLock::tryAcquire(path);
        return tell(lock.has_value(), arguments);
    }
    if (action == "status-of-file")
        return 10 + fileAt(path)->getLockStatus();
    if (action.ends_with("file"))
        return tell(fileAt(path)->getLock(), arguments);
    if (action == "save-data")
        return tell(saveData(path), arguments);
    if (action.ends_with("data"))
        return tell(openData(path), arguments);
    const bool write = action.ends_with("write");
    return tell(openLibrary(path)->getAccess(write ? oacWriteLibAccess : oacReadLibAccess),
                arguments);
}

} // namespace

int main(int count, char** values) {
    try {
        oaDMInit();
        return run(platform::utf8Arguments(count, values));
    } catch (const oaException& error) {
        std::cerr << error.getMsg() << '\n';
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
    return 2;
}
