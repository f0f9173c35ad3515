#pragma once

#include <oa/oaDesignDB.h>

#include "comparison/difference.h"
#include "comparison/labels.h"
#include "comparison/matching.h"

namespace comparison {

/// The nets, terminals and pins of two blocks.
class Connectivity {
public:
    /// Finds out which are the same, and labels all.
    Connectivity(const oa::oaBlock& was, const oa::oaBlock& is, Labels& labels);

    /// Tells what differs; the instances have labels by now.
    void compare(const Place& place) const;

private:
    void matchNets(const oa::oaBlock& was, const oa::oaBlock& is);
    void matchTerms(const oa::oaBlock& was, const oa::oaBlock& is);
    void matchPins(const oa::oaBlock& was, const oa::oaBlock& is);

    Labels& labels_;
    Matching<oa::oaNet> nets_;
    Matching<oa::oaTerm> terms_;
    Matching<oa::oaPin> pins_;
};

} // namespace comparison
