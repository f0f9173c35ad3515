#include "design/src/pcell_links.h"

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
    if (find(name))
        throw oaDesignError(oacPcellLinkExists, static_cast<const oaChar*>(name));
    return PcellLinks::instance().add(name, evaluator);
}

oaPcellLink* oaPcellLink::find(const oaString& name) {
    return PcellLinks::instance().find(name);
}

oaPcellDef* oaPcellLink::getPcellDef(const oaString& name) {
    const oaPcellLink* link = find(name);
    if (!link)
        throw oaDesignError(oacPcellEvaluatorNotFound, static_cast<const oaChar*>(name));
    return link->getIPcell()->getPcellDef();
}

IPcell* oaPcellLink::getIPcell() const {
    return evaluator_.getRef();
}

void oaPcellLink::destroy() {
    PcellLinks::instance().remove(this);
}

} // namespace OpenAccess_4
