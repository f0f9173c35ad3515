#pragma once

#include <string>

#include <gtest/gtest.h>

#include <ovalis/library.h>

#include "support/temporary_directory.h"

namespace ovalis::test {

/// Text of what `action` throws as a plain failure of the library, a marked one otherwise.
template <class Action>
std::string failureOf(Action action) {
    try {
        action();
    } catch (const Exception& error) {
        return std::string("database: ") + error.what();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing thrown";
}

/// Number of the database's message that `action` ends in; -1 when it ends otherwise.
template <class Action>
int messageIdOf(Action action) {
    try {
        action();
    } catch (const Exception& error) {
        return error.msgId();
    } catch (const std::runtime_error&) {
    }
    return -1;
}

/// The native spelling of a name of a database object.
template <class Object>
std::string nameOf(const Object* object) {
    oa::oaString name;
    object->getName(oa::oaNativeNS(), name);
    return fromOa(name);
}

/// Gives each test a folder of its own, with a non-ASCII name in it.
class FolderTest : public ::testing::Test {
protected:
    std::string pathOf(const std::string& name) const { return folder_.str() + "/größe_" + name; }

    std::filesystem::path filePath(const std::string& name) const {
        const std::string path = pathOf(name);
        return std::filesystem::path(std::u8string(path.begin(), path.end()));
    }

    FolderTest() { initOa(); }

private:
    TemporaryDirectory folder_;
};

/// Gives each test a fresh library "lib" with write access.
class LibraryTest : public FolderTest {
protected:
    LibraryTest() : lib_(createLib(pathOf("lib"), "lib")) {
        lib_->getAccess(oa::oacWriteLibAccess);
    }

    oa::oaLib& lib() { return *lib_; }

    /// Opens a new or existing design of the library.
    oa::oaDesign& design(const std::string& cell, const std::string& view, char mode,
                         oa::oaReservedViewTypeEnum type = oa::oacMaskLayout) {
        const oa::oaNativeNS ns;
        return *oa::oaDesign::open(oa::oaScalarName(ns, "lib"), oa::oaScalarName(ns, cell.c_str()),
                                   oa::oaScalarName(ns, view.c_str()), oa::oaViewType::get(type),
                                   mode);
    }

    /// Closes the library and opens it again, so that everything comes from disk.
    void reopen() {
        lib_.reset();
        lib_ = openLib(pathOf("lib"), true, "lib");
    }

    void closeLibrary() { lib_.reset(); }

private:
    LibPtr lib_;
};

} // namespace ovalis::test
