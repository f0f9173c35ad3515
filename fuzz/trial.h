#pragma once

#include "oa/oaDesignDB.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>

namespace oa = OpenAccess_4;

namespace fuzz {

/// A library whose design and technology get their files from the fuzzer.
class Trial {
public:
    /// Makes the library in that directory, which must be new or empty.
    explicit Trial(const std::string& directory);
    ~Trial();
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    /// Reads the bytes as a database file of the kind that their header names, and answers whether
    /// they were accepted. Everything in what is accepted is visited; it is saved and must then be
    /// the same. Of a design one half is destroyed and the rest saved in the same way. Ends the
    /// process when something is not as it must be.
    bool run(std::span<const std::byte> bytes);

    /// What is said on opening a file of these bytes; empty when they are accepted.
    std::string refusalOf(std::span<const std::byte> bytes);

    /// The file of an empty design or technology after `change`.
    std::string designFile(const std::function<void(oa::oaDesign*)>& change);
    std::string techFile(const std::function<void(oa::oaTech*)>& change);

private:
    bool runDesign(std::span<const std::byte> bytes);
    bool runTech(std::span<const std::byte> bytes);
    std::string designPath() const;
    std::string techPath() const;

    std::string directory_;
    oa::oaLib* lib_;
    std::string emptyTech_; // the file of a technology without anything
};

} // namespace fuzz
