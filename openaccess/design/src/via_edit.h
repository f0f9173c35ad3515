#pragma once

#include "design/src/design_database.h"

namespace OpenAccess_4 {
class oaFig;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

oaTransform viaTransform(const ViaRecord& via);
void placeVia(ViaRecord& via, const oaTransform& xform);

/// Moves a via within its block.
void moveVia(oaObject* via, const oaTransform& xform);

/// Makes a via of the same definition and parameters, moved, in a block that may be another one's.
oaFig* copyVia(const oaObject* via, const oaTransform& xform, DesignDatabase& to);

/// What the members of oaRefHeader answer for the header of vias.
class ViaHeaderView {
public:
    explicit ViaHeaderView(const oaObject* header);

    static bool isOne(const oaObject* object) {
        const std::uint32_t table = tableOf(object).id().number;
        return table == kViaHeaderTable || table == kViaSubHeaderTable;
    }

    bool isSub() const { return isSub_; }
    oaDesign* master() const;
    oaDesign* boundMaster() const;
    oaBox box() const;
    /// The slot of the header of which this is a sub header, or itself.
    std::uint32_t superHeader() const;
    std::vector<std::uint32_t> vias() const;

private:
    Vias& vias_;
    bool isSub_;
    std::uint32_t slot_;
};

} // namespace OpenAccess_4::impl
