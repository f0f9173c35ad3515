#include "comparison/connectivity.h"

#include <set>

#include "comparison/attachments.h"
#include "comparison/shapes.h"
#include "comparison/text.h"

namespace comparison {
namespace {

template <class Object, class Owner>
std::vector<const Object*> listOf(const oa::oaCollection<Object, Owner>& collection) {
    std::vector<const Object*> list;
    oa::oaIter<Object> all(collection);
    while (const Object* object = all.getNext())
        list.push_back(object);
    return list;
}

template <class Object, class Owner>
Named<Object> byName(const oa::oaCollection<Object, Owner>& collection) {
    Named<Object> named;
    for (const Object* object : listOf(collection))
        named[nameOf(*object)] = object;
    return named;
}

std::string termNames(const oa::oaNet& net) {
    std::set<std::string> names;
    for (const oa::oaTerm* term : listOf(net.getTerms(oa::oacTermIterAll)))
        names.insert(nameOf(*term));
    std::string text;
    for (const std::string& name : names)
        text += name + '\n';
    return text;
}

/// The instances and shapes on a net; empty when there are none.
std::string drawnContent(const oa::oaNet& net, const Labels& labels) {
    std::set<std::string> names;
    for (const oa::oaInstTerm* term : listOf(net.getInstTerms(oa::oacInstTermIterAll)))
        names.insert(nameOf(*term->getInst()));
    std::string text;
    for (const std::string& name : names)
        text += name + '\n';
    std::vector<const oa::oaPinFig*> drawn;
    const auto shapes = net.getShapes(oa::oacShapeIterNetOnly | oa::oacShapeIterNetPins);
    for (const oa::oaShape* shape : listOf(shapes))
        drawn.push_back(shape);
    for (const oa::oaVia* via : listOf(net.getVias(oa::oacViaIterNetOnly | oa::oacViaIterNetPins)))
        drawn.push_back(via);
    return drawn.empty() ? text : text + numberText(digestOf(drawn, labels));
}

std::vector<const oa::oaPinFig*> drawnOf(const oa::oaPin& pin) {
    std::vector<const oa::oaPinFig*> drawn;
    for (const oa::oaPinFig* figure : listOf(pin.getFigs()))
        if (figure->isShape() || figure->isVia())
            drawn.push_back(figure);
    return drawn;
}

std::string pinLabel(const oa::oaPin& pin, const Labels& labels) {
    return "pin " + quoted(plainNameOf(pin)) + " of " + labels.labelOf(*pin.getTerm());
}

/// Gives each pair and each object without a partner a label.
template <class Object, class LabelOf>
void label(const Matching<Object>& matching, Labels& labels, LabelOf labelOf) {
    for (const auto* pairs : {&matching.both, &matching.renamed})
        for (const auto& [was, is] : *pairs)
            labels.pair(was, is, labelOf(*was));
    for (const Object* object : matching.removed)
        labels.pair(object, nullptr, labelOf(*object));
    for (const Object* object : matching.added)
        labels.pair(nullptr, object, labelOf(*object));
}

template <class Object, class NameOf, class FieldsOf, class IsTold>
void tell(const Place& place, const Labels& labels, const Matching<Object>& matching, NameOf nameIn,
          FieldsOf fieldsOf, IsTold isTold) {
    for (const auto& [was, is] : matching.both)
        compareFields(place, labels.labelOf(*was), fieldsOf(*was), fieldsOf(*is));
    for (const auto& [was, is] : matching.renamed) {
        place.renamed(labels.labelOf(*was), quoted(nameIn(*is)));
        compareFields(place, labels.labelOf(*was), fieldsOf(*was), fieldsOf(*is));
    }
    for (const Object* object : matching.removed)
        if (isTold(*object))
            place.removed(labels.labelOf(*object));
    for (const Object* object : matching.added)
        if (isTold(*object))
            place.added(labels.labelOf(*object));
}

Fields fieldsOf(const oa::oaNet& net) {
    Fields fields;
    fields.set("signal type", enumText(net.getSigType()));
    fields.set("global", yesOrNo(net.isGlobal()));
    fields.set("implicit", yesOrNo(net.isImplicit()));
    addAttachments(fields, net);
    return fields;
}

Fields fieldsOf(const oa::oaTerm& term, const Labels& labels) {
    Fields fields;
    const oa::oaUInt4 position = term.getPosition();
    fields.set("net", labels.nameOf(*term.getNet()));
    fields.set("type", enumText(term.getTermType()));
    fields.set("position", position == oa::oacNullIndex ? "" : numberText(position));
    fields.set("interface", yesOrNo(term.isInterface()));
    addAttachments(fields, term);
    return fields;
}

std::string directionsText(oa::oaUInt4 directions) {
    std::string text;
    for (const auto& [bit, name] : {std::pair(oa::oacTop, "top"),
                                    {oa::oacBottom, "bottom"},
                                    {oa::oacLeft, "left"},
                                    {oa::oacRight, "right"}})
        if ((directions & bit) != 0)
            text += (text.empty() ? "" : ", ") + std::string(name);
    return text;
}

Fields fieldsOf(const oa::oaPin& pin) {
    Fields fields;
    fields.set("access", directionsText(pin.getAccessDir()));
    fields.set("placement", enumText(pin.getPlacementStatus()));
    fields.set("type", enumText(pin.getPinType()));
    addAttachments(fields, pin);
    return fields;
}

} // namespace

Connectivity::Connectivity(const oa::oaBlock& was, const oa::oaBlock& is, Labels& labels)
    : labels_(labels) {
    matchNets(was, is);
    matchTerms(was, is);
    matchPins(was, is);
}

void Connectivity::matchNets(const oa::oaBlock& was, const oa::oaBlock& is) {
    nets_ =
        matchByName(byName(was.getNets(oa::oacNetIterAll)), byName(is.getNets(oa::oacNetIterAll)));
    matchByContent<oa::oaNet>(nets_, [this](const oa::oaNet& net) {
        return "with " + termNames(net) + drawnContent(net, labels_);
    });
    matchByContent<oa::oaNet>(nets_, termNames);
    matchByContent<oa::oaNet>(nets_,
                              [this](const oa::oaNet& net) { return drawnContent(net, labels_); });
    label(nets_, labels_, [](const oa::oaNet& net) { return "net " + quoted(nameOf(net)); });
}

void Connectivity::matchTerms(const oa::oaBlock& was, const oa::oaBlock& is) {
    terms_ = matchByName(byName(was.getTerms(oa::oacTermIterAll)),
                         byName(is.getTerms(oa::oacTermIterAll)));
    matchByContent<oa::oaTerm>(terms_, [this](const oa::oaTerm& term) {
        std::vector<const oa::oaPinFig*> drawn;
        for (const oa::oaPin* pin : listOf(term.getPins()))
            for (const oa::oaPinFig* figure : drawnOf(*pin))
                drawn.push_back(figure);
        return numberText(labels_.numberOf(term.getNet())) + " " + enumText(term.getTermType()) +
               " " + numberText(digestOf(drawn, labels_));
    });
    label(terms_, labels_,
          [](const oa::oaTerm& term) { return "terminal " + quoted(nameOf(term)); });
}

void Connectivity::matchPins(const oa::oaBlock& was, const oa::oaBlock& is) {
    const auto named = [this](const oa::oaBlock& block) {
        Named<oa::oaPin> pins;
        for (const oa::oaPin* pin : listOf(block.getPins()))
            pins[numberText(labels_.numberOf(pin->getTerm())) + " " + plainNameOf(*pin)] = pin;
        return pins;
    };
    pins_ = matchByName(named(was), named(is));
    matchByContent<oa::oaPin>(pins_, [this](const oa::oaPin& pin) {
        return numberText(labels_.numberOf(pin.getTerm())) + " " +
               numberText(digestOf(drawnOf(pin), labels_));
    });
    label(pins_, labels_, [this](const oa::oaPin& pin) { return pinLabel(pin, labels_); });
}

void Connectivity::compare(const Place& place) const {
    const auto always = [](const auto&) { return true; };
    const auto name = [](const auto& object) { return nameOf(object); };
    tell(
        place, labels_, nets_, name, [](const oa::oaNet& net) { return fieldsOf(net); }, always);
    tell(
        place, labels_, terms_, name,
        [this](const oa::oaTerm& term) { return fieldsOf(term, labels_); }, always);
    // A pin comes and goes with its terminal.
    tell(
        place, labels_, pins_, [](const oa::oaPin& pin) { return plainNameOf(pin); },
        [](const oa::oaPin& pin) { return fieldsOf(pin); },
        [this](const oa::oaPin& pin) { return labels_.hasPartner(pin.getTerm()); });
}

} // namespace comparison
