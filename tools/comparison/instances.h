#pragma once

#include <string>

#include <oa/oaDesignDB.h>

#include "comparison/difference.h"
#include "comparison/labels.h"
#include "comparison/matching.h"

namespace comparison {

/// The names of the two libraries. What refers to its own library means the same on both sides.
struct LibraryNames {
    std::string was;
    std::string is;

    /// How the first side calls what the second one calls `name`.
    const std::string& shared(const std::string& name) const { return name == is ? was : name; }
};

/// The instances of two blocks and their terminals.
class Instances {
public:
    /// Finds out which are the same, and labels all.
    Instances(const oa::oaBlock& was, const oa::oaBlock& is, const LibraryNames& libraries,
              Labels& labels);

    /// Tells what differs; nets, terminals and pins have labels by now.
    void compare(const Place& place) const;

private:
    void matchInsts(const oa::oaBlock& was, const oa::oaBlock& is);
    void matchInstTerms(const oa::oaBlock& was, const oa::oaBlock& is);
    std::string masterOf(const oa::oaInst& inst, bool isSecond) const;
    std::string contentOf(const oa::oaInst& inst, bool isSecond) const;
    std::string instTermLabel(const oa::oaInstTerm& term) const;

    void compareInsts(const Place& place) const;
    void compareInst(const Place& place, const oa::oaInst& was, const oa::oaInst& is) const;
    void compareInstTerms(const Place& place) const;

    LibraryNames libraries_;
    Labels& labels_;
    Matching<oa::oaInst> insts_;
    Matching<oa::oaInstTerm> terms_;
};

} // namespace comparison
