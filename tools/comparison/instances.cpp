#include "comparison/instances.h"

#include "comparison/attachments.h"
#include "comparison/text.h"

namespace comparison {
namespace {

Named<oa::oaInst> instsOf(const oa::oaBlock& block) {
    Named<oa::oaInst> named;
    oa::oaIter<oa::oaInst> insts(block.getInsts(oa::oacInstIterAll));
    while (const oa::oaInst* inst = insts.getNext())
        named[nameOf(*inst)] = inst;
    return named;
}

oa::oaPoint originOf(const oa::oaInst& inst) {
    oa::oaPoint origin;
    inst.getOrigin(origin);
    return origin;
}

/// A bit of a vector has everything but this from the vector.
void addOwn(Fields& fields, const oa::oaInst& inst, const Labels& labels) {
    addAttachments(fields, inst);
    if (inst.hasPin())
        fields.set("pin", labels.nameOf(*inst.getPin()));
    else if (inst.hasNet())
        fields.set("net", labels.nameOf(*inst.getNet()));
}

void addArray(Fields& fields, const oa::oaArrayInst& array) {
    fields.set("rows", numberText(array.getNumRows()));
    fields.set("columns", numberText(array.getNumCols()));
    fields.set("distance of columns", numberText(array.getDX()));
    fields.set("distance of rows", numberText(array.getDY()));
}

Fields fieldsOf(const oa::oaInst& inst, const std::string& master) {
    Fields fields;
    fields.set("kind", enumText(inst.getType()));
    fields.set("master", master);
    fields.set("orientation", enumText(inst.getOrient()));
    fields.set("placement", enumText(inst.getPlacementStatus()));
    fields.set("terminals by position", yesOrNo(inst.usesTermPositions()));
    oa::oaParamArray params;
    inst.getParams(params);
    addParams(fields, params);
    if (inst.getType() == oa::oacArrayInstType)
        addArray(fields, static_cast<const oa::oaArrayInst&>(inst));
    return fields;
}

std::string termName(const oa::oaInstTerm& term) {
    oa::oaString name;
    if (term.usesTermPosition())
        return numberText(term.getTermPosition());
    term.getTermName(oa::oaNativeNS(), name);
    return quoted(name);
}

} // namespace

Instances::Instances(const oa::oaBlock& was, const oa::oaBlock& is, const LibraryNames& libraries,
                     Labels& labels)
    : libraries_(libraries), labels_(labels) {
    matchInsts(was, is);
    matchInstTerms(was, is);
}

std::string Instances::masterOf(const oa::oaInst& inst, bool isSecond) const {
    static const oa::oaNativeNS ns;
    oa::oaString library;
    oa::oaString cell;
    oa::oaString view;
    inst.getLibName(ns, library);
    inst.getCellName(ns, cell);
    inst.getViewName(ns, view);
    const std::string named = ovalis::fromOa(library);
    return (isSecond ? libraries_.shared(named) : named) + "/" + ovalis::fromOa(cell) + "/" +
           ovalis::fromOa(view);
}

std::string Instances::contentOf(const oa::oaInst& inst, bool isSecond) const {
    if (inst.isImplicit())
        return "";
    return textOf(originOf(inst)) + textOf(fieldsOf(inst, masterOf(inst, isSecond)));
}

void Instances::matchInsts(const oa::oaBlock& was, const oa::oaBlock& is) {
    const Named<oa::oaInst> second = instsOf(is);
    insts_ = matchByName(instsOf(was), second);
    matchByContent<oa::oaInst>(insts_, [&is, this](const oa::oaInst& inst) {
        return contentOf(inst, inst.getBlock() == &is);
    });
    const auto label = [this](const oa::oaInst* first, const oa::oaInst* other) {
        const oa::oaInst& named = first != nullptr ? *first : *other;
        labels_.pair(first, other, "instance " + quoted(nameOf(named)));
    };
    for (const auto* pairs : {&insts_.both, &insts_.renamed})
        for (const auto& [first, other] : *pairs)
            label(first, other);
    for (const oa::oaInst* inst : insts_.removed)
        label(inst, nullptr);
    for (const oa::oaInst* inst : insts_.added)
        label(nullptr, inst);
}

std::string Instances::instTermLabel(const oa::oaInstTerm& term) const {
    return "terminal " + termName(term) + " of " + labels_.labelOf(*term.getInst());
}

void Instances::matchInstTerms(const oa::oaBlock& was, const oa::oaBlock& is) {
    const auto named = [this](const oa::oaBlock& block) {
        Named<oa::oaInstTerm> terms;
        oa::oaIter<oa::oaInstTerm> all(block.getInstTerms(oa::oacInstTermIterAll));
        while (const oa::oaInstTerm* term = all.getNext())
            terms[numberText(labels_.numberOf(term->getInst())) + " " + termName(*term)] = term;
        return terms;
    };
    terms_ = matchByName(named(was), named(is));
    for (const auto& [first, other] : terms_.both)
        labels_.pair(first, other, instTermLabel(*first));
    for (const oa::oaInstTerm* term : terms_.removed)
        labels_.pair(term, nullptr, instTermLabel(*term));
    for (const oa::oaInstTerm* term : terms_.added)
        labels_.pair(nullptr, term, instTermLabel(*term));
}

void Instances::compareInst(const Place& place, const oa::oaInst& was, const oa::oaInst& is) const {
    const std::string label = labels_.labelOf(was);
    Fields first;
    Fields second;
    if (!was.isImplicit() || !is.isImplicit()) {
        const oa::oaPoint way = originOf(is) - originOf(was);
        if (way != oa::oaPoint())
            place.moved(label, textOf(way));
        first = fieldsOf(was, masterOf(was, false));
        second = fieldsOf(is, masterOf(is, true));
    }
    addOwn(first, was, labels_);
    addOwn(second, is, labels_);
    compareFields(place, label, first, second);
}

void Instances::compareInsts(const Place& place) const {
    for (const auto& [was, is] : insts_.both)
        compareInst(place, *was, *is);
    for (const auto& [was, is] : insts_.renamed) {
        place.renamed(labels_.labelOf(*was), quoted(nameOf(*is)));
        compareInst(place, *was, *is);
    }
    // Bits come and go with their vector.
    for (const oa::oaInst* inst : insts_.removed)
        if (!inst->isImplicit())
            place.removed(labels_.labelOf(*inst));
    for (const oa::oaInst* inst : insts_.added)
        if (!inst->isImplicit())
            place.added(labels_.labelOf(*inst));
}

void Instances::compareInstTerms(const Place& place) const {
    const auto fieldsOfTerm = [this](const oa::oaInstTerm& term) {
        Fields fields;
        const oa::oaNet* const net = term.getNet();
        fields.set("net", net == nullptr ? "" : labels_.nameOf(*net));
        addAttachments(fields, term);
        return fields;
    };
    for (const auto& [was, is] : terms_.both)
        compareFields(place, labels_.labelOf(*was), fieldsOfTerm(*was), fieldsOfTerm(*is));
    for (const oa::oaInstTerm* term : terms_.removed)
        if (labels_.hasPartner(term->getInst()))
            place.removed(labels_.labelOf(*term));
    for (const oa::oaInstTerm* term : terms_.added)
        if (labels_.hasPartner(term->getInst()))
            place.added(labels_.labelOf(*term));
}

void Instances::compare(const Place& place) const {
    compareInsts(place);
    compareInstTerms(place);
}

} // namespace comparison
