#pragma once

#include "support/temporary_directory.h"

#include <oa/oaTechDB.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ovalis::test {

inline oa::oaScalarName name(const std::string& text) {
    return oa::oaScalarName(oa::oaNativeNS(), text.c_str());
}

/// An empty library in a folder of its own, open while the object lives.
class NewLibrary {
public:
    explicit NewLibrary(const std::string& libName = "lib")
        : lib_(oa::oaLib::create(name(libName), path().c_str())) {}
    ~NewLibrary() {
        if (lib_->isValid())
            lib_->close();
    }
    NewLibrary(const NewLibrary&) = delete;
    NewLibrary& operator=(const NewLibrary&) = delete;

    oa::oaLib* lib() const { return lib_; }
    std::string path() const { return directory_.str() + "/lib"; }
    std::string techFile() const { return path() + "/tech.db"; }

    /// Closes and opens it again, so that everything comes from disk.
    void reopen() {
        const std::string libName = nameOf(*lib_);
        lib_->close();
        lib_ = oa::oaLib::open(name(libName), path().c_str());
    }

private:
    static std::string nameOf(const oa::oaLib& lib) {
        oa::oaString text;
        lib.getName(oa::oaNativeNS(), text);
        return std::string(text);
    }

    TemporaryDirectory directory_;
    oa::oaLib* lib_;
};

/// A library with a technology that is open for writing.
class NewTech : public NewLibrary {
public:
    explicit NewTech(const std::string& libName = "lib")
        : NewLibrary(libName), tech_(oa::oaTech::create(lib())) {}

    oa::oaTech* operator->() const { return tech_; }
    operator oa::oaTech*() const { return tech_; }

    /// Saves, closes the library, and opens everything again from disk.
    void saveAndReopen(oa::oaChar mode = 'r') {
        tech_->save();
        reopen();
        tech_ = oa::oaTech::open(lib(), mode);
    }

private:
    oa::oaTech* tech_;
};

/// What `body` throws: its text, or "nothing".
template <class Error, class Body>
std::string thrown(oa::oaUInt4 id, Body body) {
    try {
        body();
    } catch (const Error& error) {
        const std::string text(error.getMsg());
        return error.getMsgId() == id ? text : "message " + std::to_string(error.getMsgId());
    }
    return "nothing";
}

/// The names of the objects of a collection.
template <class T, class O>
std::vector<std::string> namesOf(const oa::oaCollection<T, O>& objects) {
    std::vector<std::string> names;
    oa::oaIter<T> iter(objects);
    while (T* object = iter.getNext()) {
        oa::oaString text;
        object->getName(text);
        names.emplace_back(text);
    }
    return names;
}

template <class T>
std::string nameOf(const T* object) {
    oa::oaString text;
    object->getName(text);
    return std::string(text);
}

} // namespace ovalis::test
