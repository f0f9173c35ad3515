#include <ovalis/core.h>
#include <ovalis/ports.h>

#include "core/boundary.h"
#include "core/statics.h"

namespace ovalis {

namespace {

oa::oaName nativeNameOf(const std::string& text) {
    return oa::oaName(nativeNameSpace, text.c_str());
}

oa::oaName netName(std::size_t index) {
    return nativeNameOf("net_ovalis_" + std::to_string(index));
}

void requireWriteable(const oa::oaDesign& design) {
    if (!design.isValid()) {
        throw std::runtime_error("Invalid design given.");
    }
    if (design.getMode() != 'w' && design.getMode() != 'a') {
        throw std::runtime_error("Design is not writeable.");
    }
}

oa::oaBlock* topBlock(oa::oaDesign& design) {
    oa::oaBlock* block = design.getTopBlock();
    return block != nullptr ? block : oa::oaBlock::create(&design);
}

void destroyWithFigures(oa::oaPin* pin) {
    oa::oaIter<oa::oaPinFig> figures(pin->getFigs());
    while (oa::oaPinFig* figure = figures.getNext()) {
        figure->destroy();
    }
    pin->destroy();
}

template <class Owner>
void destroyPins(const Owner& owner) {
    oa::oaIter<oa::oaPin> pins(owner.getPins());
    while (oa::oaPin* pin = pins.getNext()) {
        destroyWithFigures(pin);
    }
}

void destroyWithPins(oa::oaTerm* term) {
    destroyPins(*term);
    term->destroy();
}

oa::oaNet* foundOrCreatedNet(oa::oaBlock* block, std::size_t index) {
    oa::oaNet* net = oa::oaNet::find(block, netName(index));
    return net != nullptr ? net : oa::oaNet::create(block, netName(index));
}

std::vector<oa::oaNet*> netsFor(oa::oaBlock* block, std::size_t count, bool shared) {
    std::vector<oa::oaNet*> nets(count, shared ? foundOrCreatedNet(block, 0) : nullptr);
    for (std::size_t i = 0; i < count && !shared; ++i) {
        nets[i] = foundOrCreatedNet(block, i);
    }
    return nets;
}

oa::oaTerm* newTerm(oa::oaBlock* block, oa::oaNet* net, const Port& port, std::size_t position) {
    const oa::oaName name = nativeNameOf(port.name());
    if (oa::oaTerm* old = oa::oaTerm::find(block, name)) {
        destroyWithPins(old);
    }
    oa::oaTerm* term = oa::oaTerm::create(net, name, oa::oacInputOutputTermType);
    term->setIsInterface(true);
    term->setPosition(static_cast<oa::oaUInt4>(position));
    return term;
}

oa::oaPin* newPin(oa::oaTerm* term, const Port& port) {
    const oa::oaString name = toOa(port.name());
    if (oa::oaPin* old = oa::oaPin::find(term, name)) {
        old->destroy();
    }
    oa::oaPin* pin = oa::oaPin::create(term, name, oa::oacNone);
    vexPinAngle->set(pin, port.angle());
    return pin;
}

oa::oaPinFig* newFigure(oa::oaBlock* block, const Port& port) {
    const oa::oaPointArray& outline = port.shapeOutline();
    switch (outline.getNumElements()) {
    case 0:
        // No blank before "does": readers of the message know it so.
        throw std::runtime_error("Port " + port.name() + "does not have a shape");
    case 1:
        return oa::oaDot::create(block, port.layerNum(), port.purposeNum(), outline[0], 0, 0);
    case 2:
        return oa::oaLine::create(block, port.layerNum(), port.purposeNum(), outline);
    default:
        return oa::oaPolygon::create(block, port.layerNum(), port.purposeNum(), outline);
    }
}

void addPort(oa::oaBlock* block, oa::oaNet* net, const Port& port, std::size_t position) {
    oa::oaTerm* term = newTerm(block, net, port, position);
    oa::oaPin* pin = newPin(term, port);
    newFigure(block, port)->addToPin(pin);
    for (const auto& [key, value] : port.properties()) {
        oa::oaStringProp::create(term, toOa(key), toOa(value));
        oa::oaStringProp::create(pin, toOa(key), toOa(value));
    }
}

} // namespace

void addPorts(oa::oaDesign& design, const std::vector<Port>& ports, bool sharedNet) {
    atBoundary([&] {
        initOa();
        requireWriteable(design);
        if (ports.empty() && sharedNet) {
            return;
        }
        oa::oaBlock* block = topBlock(design);
        if (block == nullptr) {
            throw std::runtime_error("Can not create top level block in design.");
        }
        const std::vector<oa::oaNet*> nets = netsFor(block, ports.size(), sharedNet);
        for (std::size_t i = 0; i < ports.size(); ++i) {
            addPort(block, nets[i], ports[i], i);
        }
    });
}

void removePorts(oa::oaDesign& design) {
    atBoundary([&] {
        initOa();
        requireWriteable(design);
        oa::oaBlock* block = topBlock(design);
        if (block == nullptr) {
            return;
        }
        for (std::size_t i = 0; oa::oaNet* net = oa::oaNet::find(block, netName(i)); ++i) {
            oa::oaIter<oa::oaTerm> terms(net->getTerms(oa::oacTermIterNotImplicit));
            while (oa::oaTerm* term = terms.getNext()) {
                destroyWithPins(term);
            }
            destroyPins(*net);
        }
    });
}

} // namespace ovalis
