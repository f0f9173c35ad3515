#include "oa/oaInstTerm.h"

#include "base/src/source.h"
#include "design/src/names.h"
#include "design/src/new_inst.h"
#include "design/src/shape_edit.h"
#include "oa/oaBlock.h"
#include "oa/oaDesign.h"
#include "oa/oaDesignException.h"
#include "oa/oaNet.h"
#include "oa/oaTerm.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

InstTerms& termsOf(const oaObject* object) {
    return designDatabaseOf(object).instances.terms;
}

oaInstTerm* instTermAt(InstTerms& terms, std::uint32_t slot) {
    return slot == kNone ? nullptr : static_cast<oaInstTerm*>(terms.table.handle(slot));
}

void requireSameBlock(const oaInst* inst, const oaNet* net) {
    if (net && &databaseOf(net) != &databaseOf(inst))
        throw oaDesignError(oacInstTermNotInSameBlock, nameOf(inst));
}

/// What an instance terminal goes by: a name, or a position.
struct TermChoice {
    std::string name;
    oaUInt4 position = oacNullIndex;

    std::string text() const { return name.empty() ? std::to_string(position) : name; }
};

std::uint32_t findChoice(InstTerms& terms, std::uint32_t inst, const TermChoice& choice) {
    return choice.name.empty() ? terms.find(inst, choice.position)
                               : terms.find(inst, std::string_view(choice.name));
}

oaInstTerm* createInstTerm(oaNet* net, oaInst* inst, const TermChoice& choice,
                           oaBlockDomainVisibility view) {
    DesignDatabase& database = designDatabaseOf(inst);
    InstTerms& terms = database.instances.terms;
    const std::uint32_t instSlot = slotOf(inst);
    requireSameBlock(inst, net);
    if (choice.name.empty() && choice.position == oacNullIndex)
        throw oaDesignError(oacInvalidTermName, "", "it is empty");
    if (terms.ofInst.any(instSlot) && terms.usesPositions(instSlot) != choice.name.empty())
        throw oaDesignError(oacInstTermsGoAnotherWay, nameOf(inst),
                            choice.name.empty() ? "position" : "name", choice.text().c_str());
    if (findChoice(terms, instSlot, choice) != kNone)
        throw oaDesignError(oacInstTermExists, nameOf(inst), choice.text().c_str());
    database.edit();
    InstTermRecord record;
    record.net = net ? slotOf(net) : kNone;
    record.inst = instSlot;
    record.name = database.strings.intern(choice.name);
    record.position = choice.position;
    record.visibility = std::uint8_t(view);
    return instTermAt(terms, terms.table.add(record));
}

/// How the instance would go to that terminal.
TermChoice choiceOf(const oaInst* inst, const oaTerm* term) {
    TermChoice choice;
    if (termsOf(inst).usesPositions(slotOf(inst))) {
        choice.position = term->getPosition();
        return choice;
    }
    oaName name;
    term->getName(name);
    choice.name = std::string_view(internalName(name));
    return choice;
}

bool isOfMaster(const oaTerm* term, const oaInst* inst) {
    Instances& instances = designDatabaseOf(inst).instances;
    return designDatabaseOf(term).names() == instances.namesOf(recordOf<InstRecord>(inst).master);
}

/// The terminal in a master, or null.
oaTerm* termIn(const oaDesign* master, const oaInstTerm* instTerm) {
    if (!master)
        return nullptr;
    const InstTermRecord& record = recordOf<InstTermRecord>(instTerm);
    Connectivity& connectivity = designDatabaseOf(master).connectivity;
    const std::uint32_t slot =
        record.name == 0
            ? connectivity.termPositions.find(record.position)
            : connectivity.termNames.find(databaseOf(instTerm).strings.text(record.name));
    return slot == kNone ? nullptr : static_cast<oaTerm*>(connectivity.terms.handle(slot));
}

} // namespace

oaInstTerm* oaInstTerm::create(oaNet* net, oaInst* inst, oaTerm* term,
                               oaBlockDomainVisibility view) {
    if (!isOfMaster(term, inst)) {
        oaString name;
        term->getName(oaNativeNS(), name);
        throw oaDesignError(oacTermNotInInstMaster, static_cast<const oaChar*>(name), nameOf(inst));
    }
    return createInstTerm(net, inst, choiceOf(inst, term), view);
}

oaInstTerm* oaInstTerm::create(oaNet* net, oaInst* inst, const oaName& termName,
                               oaBlockDomainVisibility view) {
    TermChoice choice;
    choice.name = std::string_view(internalName(termName));
    return createInstTerm(net, inst, choice, view);
}

oaInstTerm* oaInstTerm::create(oaNet* net, oaInst* inst, oaUInt4 termPosition,
                               oaBlockDomainVisibility view) {
    TermChoice choice;
    choice.position = termPosition;
    return createInstTerm(net, inst, choice, view);
}

oaInstTerm* oaInstTerm::find(const oaInst* inst, const oaTerm* term) {
    InstTerms& terms = termsOf(inst);
    if (!isOfMaster(term, inst))
        return nullptr;
    return instTermAt(terms, findChoice(terms, slotOf(inst), choiceOf(inst, term)));
}

oaInstTerm* oaInstTerm::find(const oaInst* inst, const oaName& termName) {
    InstTerms& terms = termsOf(inst);
    return instTermAt(terms, terms.find(slotOf(inst), std::string_view(internalName(termName))));
}

oaInstTerm* oaInstTerm::find(const oaInst* inst, oaUInt4 termPosition) {
    InstTerms& terms = termsOf(inst);
    return instTermAt(terms, terms.find(slotOf(inst), termPosition));
}

oaInst* oaInstTerm::getInst() const {
    return static_cast<oaInst*>(
        databaseOf(this).handle({kInstTable, recordOf<InstTermRecord>(this).inst}));
}

oaNet* oaInstTerm::getNet() const {
    const std::uint32_t net = recordOf<InstTermRecord>(this).net;
    return net == kNone ? nullptr : static_cast<oaNet*>(databaseOf(this).handle({kNetTable, net}));
}

oaTerm* oaInstTerm::getTerm() const {
    Instances& instances = designDatabaseOf(this).instances;
    return termIn(instances.masterOf(recordOf<InstTermRecord>(this).inst), this);
}

oaBoolean oaInstTerm::isBound() const {
    Instances& instances = designDatabaseOf(this).instances;
    return termIn(instances.boundMasterOf(recordOf<InstTermRecord>(this).inst), this) != nullptr;
}

void oaInstTerm::getTermName(oaName& name) const {
    if (!usesTermPosition())
        name = simpleName(databaseOf(this).strings.chars(recordOf<InstTermRecord>(this).name));
    else if (const oaTerm* term = getTerm())
        term->getName(name);
    else
        name = oaName();
}

void oaInstTerm::getTermName(const oaNameSpace& ns, oaString& name) const {
    oaName termName;
    getTermName(termName);
    termName.get(ns, name);
}

oaUInt4 oaInstTerm::getTermPosition() const {
    if (usesTermPosition())
        return recordOf<InstTermRecord>(this).position;
    const oaTerm* term = getTerm();
    return term ? term->getPosition() : oacNullIndex;
}

oaBoolean oaInstTerm::usesTermPosition() const {
    return recordOf<InstTermRecord>(this).name == 0;
}

oaUInt4 oaInstTerm::getNumBits() const {
    const StringId name = recordOf<InstTermRecord>(this).name;
    const oaUInt4 bits =
        name == 0 ? 1 : simpleName(databaseOf(this).strings.chars(name)).getNumBits();
    return bits * getInst()->getNumBits();
}

oaBoolean oaInstTerm::isImplicit() const {
    slotOf(this);
    return false;
}

void oaInstTerm::addToNet(oaNet* net) {
    requireSameBlock(getInst(), net);
    edited(this).instances.terms.setNet(slotOf(this), slotOf(net));
}

void oaInstTerm::removeFromNet() {
    edited(this).instances.terms.setNet(slotOf(this), kNone);
}

void oaInstTerm::destroy() {
    edited(this).instances.terms.destroy(slotOf(this));
}

oaCollection<oaInstTerm, oaBlock> oaBlock::getInstTerms(oaUInt4 /*filterFlags*/) const {
    // All of them were made by the application.
    return collectionOf<oaCollection<oaInstTerm, oaBlock>>(
        std::vector<TableBase*>{&termsOf(this).table});
}

oaCollection<oaInstTerm, oaNet> oaNet::getInstTerms(oaUInt4 /*filterFlags*/) const {
    InstTerms& terms = termsOf(this);
    std::vector<oaObject*> own;
    for (const std::uint32_t slot : terms.ofNet.of(slotOf(this)))
        own.push_back(terms.table.handle(slot));
    return collectionOf<oaCollection<oaInstTerm, oaNet>>(std::move(own));
}

} // namespace OpenAccess_4
