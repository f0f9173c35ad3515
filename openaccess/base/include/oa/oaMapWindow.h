#pragma once

#include "oaPackedData.h"

namespace OpenAccess_4 {

namespace impl {
struct MapWindowAccess;
}

/// A view on part of the data of a database. It owns nothing.
class OA_API oaMapWindow {
public:
    /// The bytes of the view, from position 0 on.
    const oaPackedData& data() const { return data_; }
    oaUInt4 getSize() const { return data_.size(); }
    /// Where the view begins within the whole.
    oaUInt8 getOffset() const { return offset_; }
    /// The position in the view of what lies at `offset` within the whole.
    oaUInt4 getLoc(oaUInt8 offset) const { return static_cast<oaUInt4>(offset - offset_); }
    /// Always true: a view has its bytes from its making on.
    oaBoolean isMapped() const { return true; }
    /// Whether the `size` bytes at `offset` within the whole lie in the view; `loc` becomes their
    /// position there, and stays as it is when they do not.
    oaBoolean isMapped(oaUInt4 size, oaUInt8 offset, oaUInt4& loc) const {
        if (offset < offset_ || offset - offset_ > getSize() ||
            size > getSize() - (offset - offset_))
            return false;
        loc = getLoc(offset);
        return true;
    }

protected:
    oaMapWindow(oaByte* data, oaUInt4 size, oaUInt8 offset) : data_(data, size), offset_(offset) {}
    ~oaMapWindow() = default;

private:
    oaPackedData data_;
    oaUInt8 offset_;
};

/// The view that a pcell evaluator gets to read and write the data of its definition.
class OA_API oaMapFileWindow : public oaMapWindow {
public:
    /// Whether the bytes of each value stand in the other order than on this machine.
    oaBoolean getSwap() const { return data().swap(); }

private:
    friend struct impl::MapWindowAccess;

    oaMapFileWindow(oaByte* data, oaUInt4 size) : oaMapWindow(data, size, 0) {}
};

} // namespace OpenAccess_4
