#include "tech/src/tech_refs.h"

#include "base/src/source.h"
#include "oa/oaException.h"
#include "oa/oaLib.h"
#include "oa/oaName.h"
#include "oa/oaTechException.h"
#include "oa/oaTechHeader.h"
#include "oa/oaTechObserver.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_conflicts.h"
#include "tech/src/tech_database.h"
#include "tech/src/tech_graph.h"

#include <algorithm>
#include <utility>

namespace OpenAccess_4 {

using namespace impl;
using Observer = oaVersionedObserver<oaTech, 2>;

namespace impl {

namespace {

TechRecord& recordOf(const oaTech* tech) {
    return impl::recordOf<TechRecord>(tech);
}

/// The open library that a reference names, or null.
oaLib* libOf(const oaTechHeader* header) {
    oaScalarName name;
    header->getRefLibName(name);
    return oaLib::find(name);
}

/// Opens what a reference names; null when it cannot be.
oaTech* openRef(const oaTechHeader* header) {
    const oaLib* lib = libOf(header);
    if (!lib || !lib->isValid())
        return nullptr;
    try {
        return openOwnTech(lib, 'r');
    } catch (const oaException&) {
        return nullptr; // the observers hear of it as of any other that cannot be reached
    }
}

std::vector<oaTechHeader*> headersOf(const oaTech* tech) {
    std::vector<oaTechHeader*> headers;
    TechDatabase& database = techDatabaseOf(tech);
    database.refs.forEach([&](std::uint32_t slot, const TechRefRecord&) {
        headers.push_back(static_cast<oaTechHeader*>(database.refs.handle(slot)));
    });
    return headers;
}

void requireRef(const oaTech* tech, const oaTechArray& refs, oaUInt4 index) {
    const auto refuse = [&](const oaChar* reason) {
        throw oaTechError(oacInvalidTechRef, nameOf(tech->getLib()).c_str(),
                          nameOf(refs[index]->getLib()).c_str(), reason);
    };
    if (refs.find(refs[index]) != index)
        refuse("it is named twice");
    const std::vector<oaTech*> graph = graphOf(refs[index]);
    if (std::ranges::find(graph, tech) != graph.end())
        refuse("it would refer to itself that way");
}

/// Marks a technology while those that it refers to are opened.
class OpeningMark {
public:
    explicit OpeningMark(TechRecord& tech) : tech_(tech) { tech_.opening = true; }
    ~OpeningMark() { tech_.opening = false; }
    OpeningMark(const OpeningMark&) = delete;
    OpeningMark& operator=(const OpeningMark&) = delete;

private:
    TechRecord& tech_;
};

void release(const std::vector<oaTech*>& held) {
    for (oaTech* ref : held)
        if (ref->isValid())
            ref->close();
}

} // namespace

void openRefs(oaTech* tech) {
    const std::vector<oaTechHeader*> headers = headersOf(tech);
    if (headers.empty())
        return;
    const OpeningMark mark(recordOf(tech));
    Observer::notifyPreOpenRefsObservers(tech);
    for (oaTechHeader* header : headers) {
        oaTech* open = header->getRefTech();
        if (open && recordOf(open).opening)
            continue; // a circle, which files can make: nobody could close it if it held itself
        if (oaTech* ref = openRef(header))
            recordOf(tech).heldRefs.push_back(ref);
        else
            Observer::notifyUnboundRefObservers(tech, header);
    }
    Observer::notifyPostOpenRefsObservers(tech);
}

void releaseRefs(TechRecord& tech) {
    release(std::exchange(tech.heldRefs, {}));
}

void setRefs(oaTech* tech, const oaTechArray& refs, oaTechModTypeEnum modType) {
    TechDatabase& database = techDatabaseOf(tech);
    database.requireEditable();
    for (oaUInt4 i = 0; i < refs.getNumElements(); ++i)
        requireRef(tech, refs, i);
    Observer::notifyPreModifyObservers(tech, modType);
    database.edit();
    for (const oaTechHeader* header : headersOf(tech)) {
        database.forgetAttachments({kTechRefTable, slotOf(header)});
        database.refs.destroy(slotOf(header));
    }
    TechRecord& record = recordOf(tech);
    const std::vector<oaTech*> before = std::exchange(record.heldRefs, {});
    for (oaUInt4 i = 0; i < refs.getNumElements(); ++i) {
        database.refs.add({database.strings.intern(nameOf(refs[i]->getLib()))});
        ++recordOf(refs[i]).refCount;
        record.heldRefs.push_back(refs[i]);
    }
    release(before);
    Observer::notifyPostModifyObservers(tech, modType);
    reportConflicts(tech);
    for (const oaTech* above : techsAbove(tech))
        reportConflicts(above);
}

} // namespace impl

oaTechHeader* oaTechHeader::find(const oaTech* tech, const oaScalarName& refLibName) {
    for (oaTechHeader* header : headersOf(tech)) {
        oaScalarName name;
        header->getRefLibName(name);
        if (name == refLibName)
            return header;
    }
    return nullptr;
}

oaTechHeader* oaTechHeader::find(const oaTech* tech, const oaTech* refTech) {
    for (oaTechHeader* header : headersOf(tech))
        if (header->getRefTech() == refTech)
            return header;
    return nullptr;
}

void oaTechHeader::getRefLibName(oaScalarName& refLibName) const {
    const Database& tech = databaseOf(this);
    refLibName.init(oaNativeNS(), tech.strings.chars(impl::recordOf<TechRefRecord>(this).libName));
}

void oaTechHeader::getRefLibName(const oaNameSpace& ns, oaString& refLibName) const {
    oaScalarName name;
    getRefLibName(name);
    name.get(ns, refLibName);
}

oaTech* oaTechHeader::getRefTech() const {
    const oaLib* lib = libOf(this);
    oaTech* tech = lib ? findOpenTech(lib) : nullptr;
    return tech && recordOf(tech).content ? tech : nullptr;
}

oaBoolean oaTechHeader::isBound() const {
    return getRefTech() != nullptr;
}

void oaTech::setRefs(const oaTechArray& refs) {
    impl::setRefs(this, refs, oacSetRefsTechModType);
}

void oaTech::unsetRefs() {
    impl::setRefs(this, oaTechArray(), oacUnsetRefsTechModType);
}

void oaTech::getTechHeaders(oaTechHeaderArray& refHeaders, oaBoolean local) const {
    refHeaders.setNumElements(0);
    for (const oaTech* tech : local ? std::vector{const_cast<oaTech*>(this)} : graphOf(this))
        for (oaTechHeader* header : headersOf(tech))
            refHeaders.append(header);
}

oaBoolean oaTech::hasUnboundRefs() const {
    oaTechHeaderArray headers;
    getTechHeaders(headers);
    for (oaUInt4 i = 0; i < headers.getNumElements(); ++i)
        if (!headers[i]->isBound())
            return true;
    return false;
}

oaCollection<oaTechHeader, oaTech> oaTech::getUsedIn() const {
    std::vector<oaObject*> headers;
    openTechs().forEach([&](std::uint32_t slot, const TechRecord& record) {
        if (record.content)
            if (oaTechHeader* header =
                    oaTechHeader::find(static_cast<oaTech*>(openTechs().handle(slot)), this))
                headers.push_back(header);
    });
    return collectionOf<oaCollection<oaTechHeader, oaTech>>(std::move(headers));
}

oaBoolean oaTech::validate() const {
    const bool sound = reportConflicts(this);
    return sound && !hasUnboundRefs();
}

} // namespace OpenAccess_4
