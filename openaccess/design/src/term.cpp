#include "oa/oaTerm.h"

#include "base/src/source.h"
#include "design/src/names.h"
#include "design/src/shape_edit.h"
#include "oa/oaBlock.h"
#include "oa/oaDesignException.h"
#include "oa/oaNet.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

void requireOneBit(const oaName& name) {
    if (!name.getVector() && !name.getBundle())
        return;
    oaString text;
    name.get(text);
    throw oaDesignError(oacInvalidTermName, static_cast<const oaChar*>(text),
                        name.getBundle() ? "it is the name of a bundle"
                                         : "it is the name of a vector");
}

void requireFreeName(DesignDatabase& database, std::string_view name) {
    if (name.empty())
        throw oaDesignError(oacInvalidTermName, "", "it is empty");
    if (database.connectivity.termNames.find(name) != kNone)
        throw oaDesignError(oacTermExists, std::string(name).c_str());
}

oaScalarTerm* createTerm(oaNet* net, std::string_view name, oaTermType termType,
                         oaBlockDomainVisibility view) {
    DesignDatabase& database = designDatabaseOf(net);
    requireFreeName(database, name);
    database.edit();
    TermRecord term;
    term.name = database.strings.intern(name);
    term.net = slotOf(net);
    term.termType = std::uint8_t(termType);
    term.visibility = std::uint8_t(view);
    Table<TermRecord>& terms = database.connectivity.terms;
    return static_cast<oaScalarTerm*>(terms.handle(terms.add(term)));
}

oaScalarTerm* termAt(Connectivity& connectivity, std::uint32_t slot) {
    return slot == kNone ? nullptr : static_cast<oaScalarTerm*>(connectivity.terms.handle(slot));
}

oaScalarTerm* findTerm(const oaBlock* block, std::string_view name) {
    Connectivity& connectivity = designDatabaseOf(block).connectivity;
    return termAt(connectivity, connectivity.termNames.find(name));
}

const char* nameOf(const oaTerm* term) {
    return databaseOf(term).strings.chars(recordOf<TermRecord>(term).name);
}

void changePosition(oaTerm* term, std::uint32_t position) {
    Connectivity& connectivity = edited(term).connectivity;
    connectivity.termPositions.remove(slotOf(term));
    recordOf<TermRecord>(term).position = position;
    connectivity.termPositions.insert(slotOf(term));
}

} // namespace

oaTerm* oaTerm::create(oaNet* net, const oaName& name, oaTermType termType,
                       oaBlockDomainVisibility view) {
    requireOneBit(name);
    return createTerm(net, internalName(name), termType, view);
}

oaTerm* oaTerm::find(const oaBlock* block, const oaName& name) {
    return findTerm(block, internalName(name));
}

oaTerm* oaTerm::find(const oaBlock* block, oaUInt4 position) {
    Connectivity& connectivity = designDatabaseOf(block).connectivity;
    return termAt(connectivity, connectivity.termPositions.find(position));
}

oaUInt4 oaTerm::getMaxPosition(const oaBlock* block) {
    oaUInt4 last = oacNullIndex;
    designDatabaseOf(block).connectivity.terms.forEach([&](std::uint32_t, const TermRecord& term) {
        if (term.position != kNone && (last == oacNullIndex || term.position > last))
            last = term.position;
    });
    return last;
}

oaBoolean oaTerm::isValidName(const oaNet* net, const oaName& name) {
    return name.getNumBits() == 1 && name.getType() != oacEmptyNameType &&
           !find(net->getBlock(), name);
}

void oaTerm::getName(oaName& name) const {
    name = simpleName(nameOf(this));
}

void oaTerm::getName(const oaNameSpace& ns, oaString& name) const {
    spellSimple(nameOf(this), ns, name);
}

oaNet* oaTerm::getNet() const {
    return static_cast<oaNet*>(
        databaseOf(this).handle({kNetTable, recordOf<TermRecord>(this).net}));
}

oaUInt4 oaTerm::getNumBits() const {
    slotOf(this);
    return 1;
}

oaTermType oaTerm::getTermType() const {
    return oaTermTypeEnum(recordOf<TermRecord>(this).termType);
}

oaUInt4 oaTerm::getPosition() const {
    return recordOf<TermRecord>(this).position;
}

oaBoolean oaTerm::isInterface() const {
    return recordOf<TermRecord>(this).isInterface;
}

oaBoolean oaTerm::isImplicit() const {
    slotOf(this);
    return false;
}

oaCollection<oaPin, oaTerm> oaTerm::getPins() const {
    Connectivity& connectivity = designDatabaseOf(this).connectivity;
    std::vector<oaObject*> pins;
    for (const std::uint32_t pin : connectivity.termPins.of(slotOf(this)))
        pins.push_back(connectivity.pins.handle(pin));
    return collectionOf<oaCollection<oaPin, oaTerm>>(std::move(pins));
}

void oaTerm::setTermType(oaTermType termType) {
    edited(this);
    recordOf<TermRecord>(this).termType = std::uint8_t(termType);
}

void oaTerm::setPosition(oaUInt4 position) {
    Connectivity& connectivity = designDatabaseOf(this).connectivity;
    const std::uint32_t holder =
        position == oacNullIndex ? kNone : connectivity.termPositions.find(position);
    if (holder != kNone && holder != slotOf(this))
        throw oaDesignError(oacTermPositionAlreadyTaken, position,
                            nameOf(termAt(connectivity, holder)));
    changePosition(this, position);
}

void oaTerm::unsetPosition() {
    changePosition(this, kNone);
}

void oaTerm::setIsInterface(oaBoolean isInterface) {
    edited(this);
    recordOf<TermRecord>(this).isInterface = isInterface != 0;
}

void oaTerm::moveToNet(oaNet* net) {
    DesignDatabase& database = designDatabaseOf(this);
    if (&databaseOf(net) != &database)
        throw oaDesignError(oacTermAndNetNotInSameBlock, nameOf(this));
    database.edit();
    database.connectivity.netTerms.remove(slotOf(this));
    recordOf<TermRecord>(this).net = slotOf(net);
    database.connectivity.netTerms.insert(slotOf(this));
}

void oaTerm::destroy() {
    edited(this).connectivity.destroyTerm(slotOf(this));
}

oaScalarTerm* oaScalarTerm::create(oaBitNet* net, const oaScalarName& name, oaTermType termType,
                                   oaBlockDomainVisibility view) {
    return createTerm(net, internalName(name), termType, view);
}

oaScalarTerm* oaScalarTerm::find(const oaBlock* block, const oaScalarName& name) {
    return findTerm(block, internalName(name));
}

oaBoolean oaScalarTerm::isValidName(const oaBlock* block, const oaScalarName& name) {
    return !name.isEmpty() && !find(block, name);
}

void oaScalarTerm::getName(oaScalarName& name) const {
    name = scalarNameOf(nameOf(this));
}

void oaScalarTerm::setName(const oaScalarName& name) {
    DesignDatabase& database = designDatabaseOf(this);
    const InternalName text = internalName(name);
    if (std::string_view(text) == nameOf(this))
        return;
    requireFreeName(database, text);
    database.edit();
    database.connectivity.termNames.remove(slotOf(this));
    recordOf<TermRecord>(this).name = database.strings.intern(text);
    database.connectivity.termNames.insert(slotOf(this));
    database.noteGarbage();
}

} // namespace OpenAccess_4
