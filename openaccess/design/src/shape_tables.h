#pragma once

#include "base/src/flat_map.h"
#include "design/src/fig_owners.h"
#include "design/src/records.h"
#include "design/src/shape_records.h"

#include <algorithm>
#include <array>
#include <climits>
#include <vector>

namespace OpenAccess_4::impl {

class DesignDatabase;

/// A box without extent, which every other one enlarges.
inline oaBox emptyBox() {
    return oaBox(INT_MAX, INT_MAX, INT_MIN, INT_MIN);
}

inline void enlarge(oaBox& box, const oaBox& by) {
    box.left() = std::min(box.left(), by.left());
    box.bottom() = std::min(box.bottom(), by.bottom());
    box.right() = std::max(box.right(), by.right());
    box.top() = std::max(box.top(), by.top());
}

/// The shapes of a block: those of one kind on one layer-purpose pair lie together in one table.
class ShapeTables {
public:
    explicit ShapeTables(DesignDatabase& database);

    /// The slot of a header, or kNone when there was never a shape on it.
    std::uint32_t findLayer(oaLayerNum layer);
    std::uint32_t findPair(oaLayerNum layer, oaPurposeNum purpose);
    /// The slot of the header of a pair, which is made when it is new.
    std::uint32_t pair(oaLayerNum layer, oaPurposeNum purpose);
    oaLayerNum layerOf(std::uint32_t pair) const;
    oaPurposeNum purposeOf(std::uint32_t pair) const;
    bool isPairUsed(std::uint32_t pair);
    bool isLayerUsed(std::uint32_t layerHeader);

    /// Adds a shape and answers its public object.
    template <class Record>
    oaObject* add(std::uint32_t pair, const Record& record) {
        TableBase& table = tableOf(pair, Record::kKind);
        const std::uint32_t slot = static_cast<Table<Record>&>(table).add(record);
        grow(table, slot);
        return table.handle(slot);
    }

    /// The table of shapes of a kind on a pair for the reader; null when it cannot be.
    TableBase* make(const TableId& id);

    /// The pair of a shape.
    std::uint32_t pairOf(const ObjectRef& shape);
    void setPair(const ObjectRef& shape, std::uint32_t pair);
    /// To be called before a shape is destroyed.
    void forget(const ObjectRef& shape) { moved_.remove(shape); }

    std::vector<TableBase*> all() const;
    /// The tables of a pair; with shapes that came from other pairs or went there it is not the
    /// whole truth, and shapesOf() is to be asked.
    std::vector<TableBase*> tablesOf(std::uint32_t pair) const;
    /// The tables of shapes that show something of other objects.
    const std::vector<TableBase*>& displayTables() const { return displayTables_; }
    bool anyMoved() const { return !moved_.isEmpty(); }
    std::vector<oaObject*> shapesOf(std::uint32_t pair);

    /// The smallest box around the shapes of all tables, and around those of a pair.
    oaBox extent();
    oaBox extentOf(std::uint32_t pair);
    /// The box of one shape.
    oaBox boxOf(const TableBase& table, std::uint32_t slot) const;

    /// To be called when a shape is about to lose a box: changes, or is destroyed.
    void shrink(const TableBase& table, std::uint32_t slot);
    /// To be called when a shape has a new box.
    void grow(const TableBase& table, std::uint32_t slot);

    /// Destroys the headers of pairs and layers that nothing is drawn on any more.
    void dropUnusedHeaders();
    bool isSound();

private:
    /// The box around the shapes of a table, kept as long as it is known.
    struct Extent {
        oaBox box = emptyBox();
        bool known = true;
    };

    static std::uint64_t keyOf(const LPPHeaderRecord& pair) {
        return std::uint64_t(pair.layerHeader) << 32 | pair.purpose;
    }

    TableBase& tableOf(std::uint32_t pair, std::uint32_t kind);
    TableBase* addTable(const TableId& id);
    Extent& extentEntry(const TableBase& table);
    const oaBox& extentOfTable(const TableBase& table);
    void catchUp();
    bool isPairNeeded(std::uint32_t pair);
    std::uint32_t countOf(std::uint32_t pair);

    DesignDatabase& database_;
    Table<LayerHeaderRecord>& layers_;
    Table<LPPHeaderRecord>& pairs_;
    Table<MovedShapeRecord>& movedTable_;
    FigOwners<MovedShapeRecord> moved_;
    FlatMap<std::uint32_t> layerSlots_;                       // by number
    FlatMap<std::uint32_t> pairSlots_;                        // by keyOf() the pair
    std::vector<std::array<TableBase*, kShapeKinds>> tables_; // by pair and kind
    std::vector<TableBase*> displayTables_;
    std::vector<Extent> extents_;     // by table
    std::uint32_t indexedLayers_ = 0; // slots that the maps know
    std::uint32_t indexedPairs_ = 0;
    std::uint32_t lastPair_ = kNone; // neighbouring shapes tend to lie on one pair
};

} // namespace OpenAccess_4::impl
