#pragma once

#include <string>
#include <vector>

#include <ovalis/pcell.h>

namespace evaluation {

/// The names of a design, in the database's own spelling.
struct DesignName {
    std::string library;
    std::string cell;
    std::string view;

    std::string text() const { return library + "/" + cell + "/" + view; }

    friend auto operator<=>(const DesignName&, const DesignName&) = default;
};

DesignName nameOf(const oa::oaDesign& design);

/// The design that an instance names as its master, whether or not there is one.
DesignName masterNameOf(const oa::oaInst& inst);

/// One piece of the bytes that identify a submaster.
struct IdentityField {
    std::string label; ///< what it is: "library", "parameter 1 type" ...
    std::string bytes;
    std::string text; ///< its value as people read it

    friend bool operator==(const IdentityField&, const IdentityField&) = default;
};

/// Takes the bytes of an identity apart, field by field from the first to the last byte.
/// @throws std::runtime_error  they do not have that form
std::vector<IdentityField> fieldsOf(const std::string& bytes);

} // namespace evaluation
