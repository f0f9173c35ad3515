#pragma once

#include "tech_tests.h"

#include "support/places.h"
#include "support/run_program.h"

#include <stdexcept>

namespace ovalis::test {

/// A library that another process has made, see foreign_tech.cpp. It is open while the object
/// lives.
class ForeignLibrary {
public:
    ForeignLibrary() {
        const ProgramResult made = runProgram(builtProgram("foreign_tech"), {path()});
        if (made.exitCode != 0)
            throw std::runtime_error(made.output);
        lib_ = oa::oaLib::open(name("foreign"), path().c_str());
    }
    ~ForeignLibrary() { lib_->close(); }
    ForeignLibrary(const ForeignLibrary&) = delete;
    ForeignLibrary& operator=(const ForeignLibrary&) = delete;

    oa::oaTech* open() const { return oa::oaTech::open(lib_); }

private:
    std::string path() const { return directory_.str() + "/foreign"; }

    TemporaryDirectory directory_;
    oa::oaLib* lib_ = nullptr;
};

} // namespace ovalis::test
