#include "design/src/pcell_links.h"

#include "design/src/pcell_observers.h"
#include "oa/oaCommonIException.h"
#include "oa/oaDesignException.h"

#include <algorithm>

namespace OpenAccess_4 {

namespace impl {

PcellLinks& PcellLinks::instance() {
    // Never destroyed: evaluators live until the process ends.
    static PcellLinks& links = *new PcellLinks;
    return links;
}

oaPcellLink* PcellLinks::add(const oaString& name, IPcell* evaluator) {
    links_.reserve(links_.size() + 1);
    links_.push_back(new oaPcellLink(name, evaluator)); // deleted by remove()
    return links_.back();
}

oaPcellLink* PcellLinks::find(const oaString& name) const {
    const auto link = std::find_if(links_.begin(), links_.end(),
                                   [&](const oaPcellLink* each) { return each->name_ == name; });
    return link == links_.end() ? nullptr : *link;
}

oaPcellLink* PcellLinks::findOrLoad(const oaString& name) {
    if (oaPcellLink* const known = find(name))
        return known;
    const oaCommon::SPtr<IPcell> evaluator(name);
    // A module may make its evaluators known while it is being loaded.
    oaPcellLink* const known = find(name);
    return known ? known : add(name, evaluator.getRef());
}

void PcellLinks::remove(oaPcellLink* link) {
    std::erase(links_, link);
    delete link;
}

std::vector<oaString> PcellLinks::names() const {
    std::vector<oaString> names;
    for (const oaPcellLink* link : links_)
        names.push_back(link->name_);
    return names;
}

} // namespace impl

using namespace impl;

oaPcellLink::oaPcellLink(const oaString& name, IPcell* evaluator)
    : name_(name), evaluator_(evaluator) {}

oaPcellLink::~oaPcellLink() = default;

oaPcellLink* oaPcellLink::create(IPcell* evaluator) {
    if (!evaluator)
        return nullptr;
    oaString name;
    evaluator->getName(name);
    if (PcellLinks::instance().find(name))
        throw oaDesignError(oacPcellLinkExists, static_cast<const oaChar*>(name));
    return PcellLinks::instance().add(name, evaluator);
}

oaPcellLink* oaPcellLink::find(const oaString& name) {
    try {
        return PcellLinks::instance().findOrLoad(name);
    } catch (const oaCommon::IException&) {
        return nullptr;
    }
}

oaPcellDef* oaPcellLink::getPcellDef(const oaString& name) {
    oaPcellLink* link = nullptr;
    try {
        link = PcellLinks::instance().findOrLoad(name);
    } catch (const oaCommon::IException&) {
        throw oaDesignError(oacPcellEvaluatorNotFound, static_cast<const oaChar*>(name),
                            static_cast<const oaChar*>(textOfFailure()));
    }
    return link->getIPcell()->getPcellDef();
}

IPcell* oaPcellLink::getIPcell() const {
    return evaluator_.getRef();
}

void oaPcellLink::destroy() {
    PcellLinks::instance().remove(this);
}

} // namespace OpenAccess_4
