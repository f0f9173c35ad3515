#pragma once

#include "oa/oaOccInst.h"

namespace OpenAccess_4 {

/// How oaOccTraverser walks, joined with `|`.
inline constexpr oaUInt4 oavOccTraversePostOrder = 1; ///< what is below an instance comes before it
inline constexpr oaUInt4 oavOccTraverseDesigns = 2;   ///< into the masters of instances as well
inline constexpr oaUInt4 oavOccTraverseImplicit = 4;  ///< implicit objects as well

/// Walks through the hierarchy below an occurrence and calls what a derived class overrides.
///
/// Without flags, the explicit instances of the occurrence itself are processed, each before what
/// is below it. What was made while the walk is in the same block may be left out.
class OA_API oaOccTraverser {
public:
    explicit oaOccTraverser(oaOccurrence* topOcc);
    oaOccTraverser(const oaOccTraverser&) = delete;
    oaOccTraverser& operator=(const oaOccTraverser&) = delete;
    virtual ~oaOccTraverser();

    void traverse();
    /// Ends the walk: nothing is called any more.
    void abort();
    oaUInt4& flags();
    oaOccurrence* getTopOccurrence() const;

protected:
    /// False keeps the walk out of the occurrence.
    virtual oaBoolean startOccurrence(oaOccurrence* occurrence);
    virtual void endOccurrence(oaOccurrence* occurrence);
    /// Asked before the walk goes below an instance, which binds its master; false keeps it out.
    virtual oaBoolean startInst(oaOccInst* inst);
    /// The walk is back from below the instance.
    virtual void endInst(oaOccInst* inst);
    virtual void processOccurrence(oaOccurrence* occurrence);
    virtual void processInst(oaOccInst* inst);

private:
    void walk(oaOccurrence* occurrence);
    void walkInsts(oaOccurrence* occurrence);
    void visit(oaOccInst* inst);
    void walkBelow(oaOccInst* inst);
    bool has(oaUInt4 flag) const { return (flags_ & flag) != 0; }

    oaOccurrence* top_;
    oaUInt4 flags_ = 0;
    bool aborted_ = false;
};

} // namespace OpenAccess_4

// Clients use these names without a qualifier and without a using-directive.
using OpenAccess_4::oavOccTraverseDesigns;
using OpenAccess_4::oavOccTraverseImplicit;
using OpenAccess_4::oavOccTraversePostOrder;
