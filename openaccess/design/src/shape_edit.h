#pragma once

#include "design/src/design_database.h"
#include "design/src/shape_geometry.h"
#include "oa/oaPointArray.h"

#include <span>
#include <vector>

/// What the public shape classes share.
namespace OpenAccess_4::impl {

/// The points of a shape as a client gave them.
std::span<const oaPoint> spanOf(const oaPointArray& points);

/// Adds a shape to a block, which must be editable.
template <class Record>
typename Record::Handle* addShape(oaBlock* block, oaLayerNum layer, oaPurposeNum purpose,
                                  const Record& record) {
    ShapeTables& shapes = designDatabaseOf(block).shapes;
    return static_cast<typename Record::Handle*>(shapes.add(shapes.pair(layer, purpose), record));
}

/// Checks that a block may be changed, and answers its database.
inline DesignDatabase& edited(const oaObject* object) {
    DesignDatabase& database = designDatabaseOf(object);
    database.edit();
    return database;
}

/// Adds a shape of type `Record` that begins with `points`, which are put near those of the other
/// shapes of its pair; `rest` are its other fields.
template <class Record, class... Rest>
typename Record::Handle* addOutline(oaBlock* block, oaLayerNum layer, oaPurposeNum purpose,
                                    const oaPointArray& points, Rest... rest) {
    DesignDatabase& database = edited(block);
    const std::uint32_t pair = database.shapes.pair(layer, purpose);
    const Record record{database.points.add(spanOf(points), pair), rest...};
    return static_cast<typename Record::Handle*>(database.shapes.add(pair, record));
}

/// Lets `change` set fields of a shape's record that its bounding box follows.
template <class Record, class Change>
void changeShape(oaObject* shape, Change change) {
    DesignDatabase& database = edited(shape);
    const TableBase& table = tableOf(shape);
    const std::uint32_t slot = slotOf(shape);
    database.shapes.shrink(table, slot);
    change(recordOf<Record>(shape));
    database.shapes.grow(table, slot);
}

/// Moves the net, the pin and the properties of one figure to another.
void takeOver(DesignDatabase& database, const ObjectRef& from, const ObjectRef& to);

/// Puts a shape in the place of another, on its pair, net and pin and with its properties, and
/// destroys that one.
template <class Record>
typename Record::Handle* replaceShape(oaObject* old, const Record& record) {
    DesignDatabase& database = edited(old);
    const ObjectRef from = locationOf(old).ref;
    oaObject* shape = database.shapes.add(database.shapes.pairOf(from), record);
    takeOver(database, from, locationOf(shape).ref);
    database.destroyFig(from);
    return static_cast<typename Record::Handle*>(shape);
}

/// Copies the properties of an object, with the properties that they have.
void copyProperties(const oaObject* from, oaObject* to);

/// The number of points, not counting those that repeat their predecessor.
oaUInt4 countDifferent(const oaPointArray& points);

} // namespace OpenAccess_4::impl
