#include "oa/oaNet.h"

#include "base/src/source.h"
#include "design/src/names.h"
#include "design/src/shape_edit.h"
#include "oa/oaDesignException.h"
#include "oa/oaTerm.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

// Room for what all nets have in common.
struct NetValues {
    oaSigType sigType;
    oaBoolean isGlobal;
    oaBlockDomainVisibility view;
};

void requireOneBit(const oaName& name) {
    if (!name.getVector() && !name.getBundle())
        return;
    oaString text;
    name.get(text);
    throw oaDesignError(oacInvalidNetName, static_cast<const oaChar*>(text),
                        name.getBundle() ? "it is the name of a bundle"
                                         : "it is the name of a vector");
}

void requireFreeName(DesignDatabase& database, std::string_view name) {
    if (name.empty())
        throw oaDesignError(oacInvalidNetName, "", "it is empty");
    if (database.connectivity.netNames.find(name) != kNone)
        throw oaDesignError(oacNetExists, std::string(name).c_str());
}

oaScalarNet* createNet(oaBlock* block, std::string_view name, const NetValues& values) {
    DesignDatabase& database = designDatabaseOf(block);
    requireFreeName(database, name);
    database.edit();
    NetRecord net;
    net.name = database.strings.intern(name);
    net.sigType = std::uint8_t(values.sigType);
    net.isGlobal = values.isGlobal != 0;
    net.visibility = std::uint8_t(values.view);
    Table<NetRecord>& nets = database.connectivity.nets;
    return static_cast<oaScalarNet*>(nets.handle(nets.add(net)));
}

oaScalarNet* findNet(const oaBlock* block, std::string_view name) {
    Connectivity& connectivity = designDatabaseOf(block).connectivity;
    const std::uint32_t slot = connectivity.netNames.find(name);
    return slot == kNone ? nullptr : static_cast<oaScalarNet*>(connectivity.nets.handle(slot));
}

const char* nameOf(const oaNet* net) {
    return databaseOf(net).strings.chars(recordOf<NetRecord>(net).name);
}

bool liesOnLayer(const ObjectRef& fig) {
    return fig.table >= kFirstVariableTable;
}

} // namespace

oaNet* oaNet::create(oaBlock* block, const oaName& name, oaSigType sigType, oaBoolean isGlobal,
                     oaBlockDomainVisibility view) {
    requireOneBit(name);
    return createNet(block, internalName(name), {sigType, isGlobal, view});
}

oaNet* oaNet::find(const oaBlock* block, const oaName& name) {
    return findNet(block, internalName(name));
}

oaBoolean oaNet::isValidName(const oaBlock* block, const oaName& name) {
    return name.getNumBits() == 1 && name.getType() != oacEmptyNameType && !find(block, name);
}

void oaNet::getName(oaName& name) const {
    name = simpleName(nameOf(this));
}

void oaNet::getName(const oaNameSpace& ns, oaString& name) const {
    spellSimple(nameOf(this), ns, name);
}

oaUInt4 oaNet::getNumBits() const {
    slotOf(this);
    return 1;
}

oaSigType oaNet::getSigType() const {
    return oaSigTypeEnum(recordOf<NetRecord>(this).sigType);
}

oaBoolean oaNet::isGlobal() const {
    return recordOf<NetRecord>(this).isGlobal;
}

oaBoolean oaNet::isImplicit() const {
    slotOf(this);
    return false;
}

oaBoolean oaNet::isEmpty() const {
    DesignDatabase& database = designDatabaseOf(this);
    Connectivity& connectivity = database.connectivity;
    return !connectivity.netTerms.any(slotOf(this)) && !connectivity.netFigs.owns(slotOf(this)) &&
           !database.instances.terms.ofNet.any(slotOf(this));
}

void oaNet::setSigType(const oaSigType& sigType) {
    edited(this);
    recordOf<NetRecord>(this).sigType = std::uint8_t(sigType);
}

void oaNet::setGlobal(oaBoolean isGlobal) {
    edited(this);
    recordOf<NetRecord>(this).isGlobal = isGlobal != 0;
}

oaCollection<oaTerm, oaNet> oaNet::getTerms(oaUInt4 filterFlags) const {
    Connectivity& connectivity = designDatabaseOf(this).connectivity;
    std::vector<oaObject*> terms;
    // All terminals are scalar ones, made by the application.
    if (!(filterFlags & oacTermIterBundle))
        for (const std::uint32_t term : connectivity.netTerms.of(slotOf(this)))
            terms.push_back(connectivity.terms.handle(term));
    return collectionOf<oaCollection<oaTerm, oaNet>>(std::move(terms));
}

oaCollection<oaPin, oaNet> oaNet::getPins() const {
    Connectivity& connectivity = designDatabaseOf(this).connectivity;
    std::vector<oaObject*> pins;
    for (const std::uint32_t term : connectivity.netTerms.of(slotOf(this)))
        for (const std::uint32_t pin : connectivity.termPins.of(term))
            pins.push_back(connectivity.pins.handle(pin));
    return collectionOf<oaCollection<oaPin, oaNet>>(std::move(pins));
}

oaCollection<oaShape, oaNet> oaNet::getShapes(oaUInt4 filterFlags) const {
    const Database& database = databaseOf(this);
    Connectivity& connectivity = designDatabaseOf(this).connectivity;
    std::vector<oaObject*> shapes;
    const auto collect = [&](const std::vector<ObjectRef>& figs) {
        for (const ObjectRef& fig : figs)
            if (liesOnLayer(fig))
                shapes.push_back(database.handle(fig));
    };
    if (filterFlags & oacShapeIterNetOnly)
        collect(connectivity.netFigs.figsOf(slotOf(this)));
    if (filterFlags & oacShapeIterNetPins)
        for (const std::uint32_t term : connectivity.netTerms.of(slotOf(this)))
            for (const std::uint32_t pin : connectivity.termPins.of(term))
                collect(connectivity.pinFigs.figsOf(pin));
    return collectionOf<oaCollection<oaShape, oaNet>>(std::move(shapes));
}

oaBoolean oaNet::hasDefaultConstraintGroup() const {
    slotOf(this); // a net that is gone answers nothing
    return false;
}

void oaNet::destroy() {
    edited(this).connectivity.destroyNet(slotOf(this));
}

oaScalarNet* oaScalarNet::create(oaBlock* block, const oaScalarName& name, oaSigType sigType,
                                 oaBoolean isGlobal, oaBlockDomainVisibility view) {
    return createNet(block, internalName(name), {sigType, isGlobal, view});
}

oaScalarNet* oaScalarNet::create(oaBlock* block, oaSigType sigType, oaBoolean isGlobal,
                                 oaBlockDomainVisibility view) {
    const std::string name = designDatabaseOf(block).connectivity.netNames.automaticName("N__");
    return createNet(block, name, {sigType, isGlobal, view});
}

oaScalarNet* oaScalarNet::find(const oaBlock* block, const oaScalarName& name) {
    return findNet(block, internalName(name));
}

oaBoolean oaScalarNet::isValidName(const oaBlock* block, const oaScalarName& name) {
    return !name.isEmpty() && !find(block, name);
}

void oaScalarNet::getName(oaScalarName& name) const {
    name = scalarNameOf(nameOf(this));
}

void oaScalarNet::setName(const oaScalarName& name) {
    DesignDatabase& database = designDatabaseOf(this);
    const InternalName text = internalName(name);
    if (std::string_view(text) == nameOf(this))
        return;
    requireFreeName(database, text);
    database.edit();
    Connectivity& connectivity = database.connectivity;
    connectivity.netNames.remove(slotOf(this));
    recordOf<NetRecord>(this).name = database.strings.intern(text);
    connectivity.netNames.insert(slotOf(this));
    database.noteGarbage();
}

} // namespace OpenAccess_4
