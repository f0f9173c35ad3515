#pragma once

#include "oa/oaDM.h"
#include "platform/child_process.h"
#include "platform/file.h"
#include "support/files.h"
#include "support/places.h"
#include "support/run_program.h"
#include "support/temporary_directory.h"

#include <chrono>
#include <gmock/gmock.h>
#include <string>
#include <thread>
#include <vector>

namespace ovalis::test {

inline OpenAccess_4::oaScalarName scalarName(const char* text) {
    return OpenAccess_4::oaScalarName(OpenAccess_4::oaNativeNS(), text);
}

/// The id and the text of the error that a call throws.
struct Thrown {
    OpenAccess_4::oaUInt4 id = 0;
    std::string text;
};

template <class Call>
Thrown thrownBy(Call call) {
    try {
        call();
    } catch (const OpenAccess_4::oaException& error) {
        return {error.getMsgId(), static_cast<const char*>(error.getMsg())};
    }
    return {0, "nothing thrown"};
}

template <class Object>
std::string nameOf(const Object* object) {
    OpenAccess_4::oaString name;
    object->getName(OpenAccess_4::oaNativeNS(), name);
    return static_cast<const char*>(name);
}

inline std::string nameOf(const OpenAccess_4::oaDMFile* file) {
    OpenAccess_4::oaString name;
    file->getName(name);
    return static_cast<const char*>(name);
}

inline std::string pathOf(const OpenAccess_4::oaDMFile* file) {
    OpenAccess_4::oaString path;
    file->getPath(path);
    return static_cast<const char*>(path);
}

template <class Member, class Owner>
std::vector<std::string> namesIn(const OpenAccess_4::oaCollection<Member, Owner>& collection) {
    std::vector<std::string> names;
    OpenAccess_4::oaIter<Member> walk(collection);
    while (const Member* member = walk.getNext())
        names.push_back(nameOf(member));
    return names;
}

/// Libraries in a directory of the test's own; those still open at the end are closed.
class DMTest : public testing::Test {
protected:
    DMTest() { OpenAccess_4::oaDMInit(); }
    ~DMTest() override {
        std::vector<OpenAccess_4::oaLib*> open;
        OpenAccess_4::oaIter<OpenAccess_4::oaLib> walk(OpenAccess_4::oaLib::getOpenLibs());
        while (OpenAccess_4::oaLib* lib = walk.getNext())
            open.push_back(lib);
        for (OpenAccess_4::oaLib* lib : open)
            lib->close();
    }

    std::string path(const std::string& name) const { return directory.str() + "/" + name; }
    void put(const std::string& name, const std::string& text) { writeText(path(name), text); }
    std::string get(const std::string& name) { return readText(path(name)); }

    std::vector<std::string> namesOnDisk(const std::string& name) const {
        std::vector<std::string> names;
        for (const platform::DirectoryEntry& entry : platform::listDirectory(path(name)))
            names.push_back(entry.name);
        return names;
    }

    OpenAccess_4::oaLib* create(const char* name) {
        return OpenAccess_4::oaLib::create(scalarName(name), path(name).c_str());
    }
    OpenAccess_4::oaLib* createFor(const char* name, const char* fileSystem) {
        OpenAccess_4::oaDMAttrArray attributes;
        attributes.append(OpenAccess_4::oaDMAttr("origFileSystem", fileSystem));
        return OpenAccess_4::oaLib::create(scalarName(name), path(name).c_str(),
                                           OpenAccess_4::oacSharedLibMode, "oaDMFileSys",
                                           &attributes);
    }
    OpenAccess_4::oaLib* open(const char* name, const char* directoryName) {
        return OpenAccess_4::oaLib::open(scalarName(name), path(directoryName).c_str());
    }
    OpenAccess_4::oaLib* createWritable(const char* name) {
        OpenAccess_4::oaLib* lib = create(name);
        EXPECT_TRUE(lib->getAccess(OpenAccess_4::oacWriteLibAccess));
        return lib;
    }

    /// A cell view of view type `type`, made with what it needs.
    OpenAccess_4::oaCellView* make(OpenAccess_4::oaLib* lib, const char* cell, const char* view,
                                   OpenAccess_4::oaReservedViewTypeEnum type) {
        return OpenAccess_4::oaCellView::get(lib, scalarName(cell), scalarName(view),
                                             OpenAccess_4::oaViewType::get(type));
    }

    /// The exit status of the child that did `action` to a path.
    int child(const std::string& action, const std::string& target) {
        return runProgram(builtProgram("dm_child"), {action, path(target)}).exitCode;
    }

    const TemporaryDirectory directory;
};

/// A child that does `action` to a path and waits to be killed.
class WaitingChild {
public:
    WaitingChild(const std::string& action, const std::string& target, const std::string& ready)
        : process(utf8(builtProgram("dm_child")), {action, target, ready}) {
        for (int i = 0; i < 2000 && !platform::exists(ready); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    void kill() {
        process.kill();
        process.wait();
    }

private:
    platform::ChildProcess process;
};

} // namespace ovalis::test
