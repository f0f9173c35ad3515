#pragma once

#include "oa/oaTechEnums.h"

namespace OpenAccess_4 {

/// The kind of a range, whatever its bounds are.
class oaRangeBase {
public:
    oaRangeType getType() const { return type_; }
    void setType(oaRangeType type) { type_ = type; }

protected:
    explicit oaRangeBase(oaRangeType type) : type_(type) {}

private:
    oaRangeTypeEnum type_;
};

/// Values between two bounds, or on one side of one; a bound that the type does not name is kept
/// and means nothing.
template <class T>
class oaRange : public oaRangeBase {
public:
    /// From 0 to 0, both included.
    oaRange() : oaRangeBase(oacClosedRangeType) {}
    oaRange(oaRangeType type, T value) : oaRangeBase(type), lower_(value), upper_(value) {}
    oaRange(oaRangeType type, T lowerBound, T upperBound)
        : oaRangeBase(type), lower_(lowerBound), upper_(upperBound) {}

    T getLowerBound() const { return lower_; }
    T getUpperBound() const { return upper_; }
    void setLowerBound(T lowerBound) { lower_ = lowerBound; }
    void setUpperBound(T upperBound) { upper_ = upperBound; }
    void setBounds(T lowerBound, T upperBound) {
        lower_ = lowerBound;
        upper_ = upperBound;
    }

private:
    T lower_{};
    T upper_{};
};

using oaIntRange = oaRange<oaInt4>;
using oaUInt8Range = oaRange<oaUInt8>;

} // namespace OpenAccess_4
