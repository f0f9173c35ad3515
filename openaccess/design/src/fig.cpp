#include "oa/oaFig.h"

#include "design/src/instance_edit.h"
#include "design/src/new_inst.h"
#include "design/src/shape_edit.h"
#include "design/src/via_edit.h"
#include "oa/oaBlock.h"
#include "oa/oaDesign.h"
#include "oa/oaDesignException.h"
#include "oa/oaNet.h"
#include "oa/oaPin.h"
#include "oa/oaShape.h"
#include "oa/oaTransform.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

bool isInstance(const oaFig* fig) {
    return tableOf(fig).id().number == kInstTable;
}

oaFig* copyShape(const oaFig* fig, const oaTransform& xform, DesignDatabase& to) {
    const DesignDatabase& from = designDatabaseOf(fig);
    const auto* shape = static_cast<const oaShape*>(fig);
    const std::uint32_t pair = to.shapes.pair(shape->getLayerNum(), shape->getPurposeNum());
    return withShapeRecord(tableOf(fig).id().kind, [&]<class Record>() {
        const Record record = recordOf<Record>(fig);
        return static_cast<oaFig*>(to.shapes.add(pair, moved(ShapeMove{from, to, xform}, record)));
    });
}

oaBlock* blockOf(const oaDesign* design) {
    oaBlock* block = designDatabaseOf(design).block();
    if (!block) {
        const DesignNames& names = designDatabaseOf(design).names();
        throw oaDesignError(oacDesignHasNoBlock, names.lib.c_str(), names.cell.c_str(),
                            names.view.c_str());
    }
    return block;
}

} // namespace

void oaFig::getBBox(oaBox& bBox) const {
    const std::uint32_t kind = tableOf(this).id().kind;
    if (kind == kRectKind) { // most figures are rectangles
        bBox = recordOf<RectRecord>(this).box;
        return;
    }
    DesignDatabase& database = designDatabaseOf(this);
    if (isInstance(this))
        bBox = database.instances.boxOf(slotOf(this));
    else if (isVia())
        bBox = database.vias.boxOf(slotOf(this));
    else
        bBox = withShapeRecord(
            kind, [&]<class Record>() { return boxOf(database, recordOf<Record>(this)); });
}

oaBoolean oaFig::overlaps(const oaBox& box) const {
    oaBox own;
    getBBox(own);
    return !own.isInverted() && own.overlaps(box);
}

void oaFig::move(const oaTransform& xform) {
    if (isInstance(this)) {
        moveInst(this, xform);
        return;
    }
    if (isVia()) {
        moveVia(this, xform);
        return;
    }
    DesignDatabase& database = designDatabaseOf(this);
    withShapeRecord(tableOf(this).id().kind, [&]<class Record>() {
        changeShape<Record>(this, [&](Record& record) {
            record = moved(ShapeMove{database, database, xform}, record);
        });
    });
    database.noteGarbage();
}

oaFig* oaFig::move(const oaTransform& xform, oaBlock* block) {
    if (&designDatabaseOf(block) == &designDatabaseOf(this)) {
        move(xform);
        return this;
    }
    designDatabaseOf(this).requireEditable();
    if (isInstance(this))
        requireExplicitInst(this);
    oaFig* fig = copy(xform, block);
    destroy();
    return fig;
}

oaFig* oaFig::move(const oaTransform& xform, oaDesign* design) {
    return move(xform, blockOf(design));
}

oaFig* oaFig::copy(const oaTransform& xform) const {
    return copy(xform, getBlock());
}

oaFig* oaFig::copy(const oaTransform& xform, oaBlock* block) const {
    DesignDatabase& to = edited(block);
    oaFig* fig = isInstance(this) ? copyInst(this, xform, to)
                 : isVia()        ? copyVia(this, xform, to)
                                  : copyShape(this, xform, to);
    copyProperties(this, fig);
    return fig;
}

oaFig* oaFig::copy(const oaTransform& xform, oaDesign* design) const {
    return copy(xform, blockOf(design));
}

void oaFig::destroy() {
    if (isInstance(this))
        requireExplicitInst(this);
    edited(this).destroyFig(locationOf(this).ref);
}

void oaConnFig::addToNet(oaNet* net) {
    const Location fig = locationOf(this);
    DesignDatabase& database = designDatabaseOf(this);
    const NetRecord& record = recordOf<NetRecord>(net);
    const char* name = designDatabaseOf(net).strings.chars(record.name);
    if (&databaseOf(net) != &database)
        throw oaDesignError(oacNetAndFigNotInSameBlock, name);
    if (database.connectivity.pinFigs.ownerOf(fig.ref) != kNone)
        throw oaDesignError(oacCannotAddPinFigToNet, name);
    database.edit();
    database.connectivity.netFigs.set(fig.ref, slotOf(net));
}

void oaConnFig::removeFromNet() {
    edited(this).connectivity.netFigs.remove(locationOf(this).ref);
}

oaNet* oaConnFig::getNet() const {
    Connectivity& connectivity = designDatabaseOf(this).connectivity;
    const std::uint32_t net = connectivity.netFigs.ownerOf(locationOf(this).ref);
    return net == kNone ? nullptr : static_cast<oaNet*>(connectivity.nets.handle(net));
}

oaBoolean oaConnFig::hasNet() const {
    return getNet() != nullptr;
}

void oaPinFig::addToPin(oaPin* pin) {
    const Location fig = locationOf(this);
    DesignDatabase& database = designDatabaseOf(this);
    const PinRecord& record = recordOf<PinRecord>(pin);
    const char* name = designDatabaseOf(pin).strings.chars(record.name);
    if (&databaseOf(pin) != &database)
        throw oaDesignError(oacPinAndFigNotInSameBlock, name);
    if (database.connectivity.netFigs.ownerOf(fig.ref) != kNone)
        throw oaDesignError(oacCannotAddNetFigToPin, name);
    database.edit();
    database.connectivity.pinFigs.set(fig.ref, slotOf(pin));
}

void oaPinFig::removeFromPin() {
    edited(this).connectivity.pinFigs.remove(locationOf(this).ref);
}

oaPin* oaPinFig::getPin() const {
    Connectivity& connectivity = designDatabaseOf(this).connectivity;
    const std::uint32_t pin = connectivity.pinFigs.ownerOf(locationOf(this).ref);
    return pin == kNone ? nullptr : static_cast<oaPin*>(connectivity.pins.handle(pin));
}

oaBoolean oaPinFig::hasPin() const {
    return getPin() != nullptr;
}

} // namespace OpenAccess_4
