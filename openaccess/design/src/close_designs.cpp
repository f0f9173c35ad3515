#include "design/src/design_database.h"
#include "design/src/design_files.h"
#include "design/src/open_designs.h"
#include "design/src/submasters.h"
#include "oa/oaDesignObserver.h"
#include "oa/oaTech.h"

#include <iterator>

namespace OpenAccess_4::impl {

using DesignObserver = oaVersionedObserver<oaDesign>;

namespace {

/// The content of a design that may have been closed meanwhile, or null.
DesignDatabase* contentOf(const oaDesign* design) {
    return design->isValid() ? recordFor(design).content.get() : nullptr;
}

/// The designs that instances and vias are, or were, bound to.
std::vector<oaDesign*> mastersOf(const DesignDatabase& design) {
    std::vector<oaDesign*> masters = design.instances.boundMasters();
    const std::vector<oaDesign*> ofVias = design.vias.boundMasters();
    masters.insert(masters.end(), ofVias.begin(), ofVias.end());
    return masters;
}

bool isBinder(const oaDesign* binder, const oaDesign* design) {
    DesignDatabase* content = contentOf(binder);
    return content && (content->instances.isBoundTo(design) || content->vias.isBoundTo(design));
}

bool isBusy(const OpenDesignRecord& record) {
    return record.evaluations > 0 ||
           (record.origin && record.origin->state != EvaluationState::Done);
}

/// Whether a design would be missed, without a look at each of many binders.
bool isReferredTo(const oaDesign* design) {
    OpenDesignRecord& record = recordFor(design);
    if (record.openings > 0 || record.submasters.opened > 0)
        return true;
    for (auto binder = record.binders.begin(); binder != record.binders.end();) {
        if (isBinder(*binder, design))
            return true;
        DesignDatabase* content = contentOf(*binder);
        const bool mayBindAgain =
            content && (content->instances.knows(design) || content->vias.knows(design));
        binder = mayBindAgain ? std::next(binder) : record.binders.erase(binder);
    }
    return false;
}

bool isUnused(const oaDesign* design) {
    return design->isValid() && !isBusy(recordFor(design)) && !isReferredTo(design);
}

/// Takes back what was made on disk for a design that was never saved.
void removeFromDisk(const OpenDesignRecord& design) {
    if (!design.place.cellViewIsNew || hasContent(design.path))
        return;
    try {
        const DesignAccess access(design.lib, design.names, oacWriteLibAccess);
        removeUnsaved(design.place);
    } catch (const oaException&) {
        // An empty cell view is left behind. Closing a design does not fail for it.
    }
}

void forgetSubmaster(Submasters& submasters, const oaDesign* submaster) {
    const OpenDesignRecord& record = recordFor(submaster);
    submasters.made.erase(slotOf(submaster));
    if (record.openings > 0)
        --submasters.opened;
    const auto known = submasters.byKey.find(record.origin->key);
    if (known != submasters.byKey.end() && known->second == submaster)
        submasters.byKey.erase(known);
}

void append(std::vector<oaDesign*>& designs, const std::vector<oaDesign*>& more) {
    designs.insert(designs.end(), more.begin(), more.end());
}

/// Takes a design out of memory, with its submasters. Answers the designs that it may have been the
/// last to refer to.
std::vector<oaDesign*> drop(oaDesign* design) {
    DesignObserver::notifyPurgeObservers(design);
    OpenDesignRecord& record = recordFor(design);
    std::vector<oaDesign*> referred = mastersOf(*record.content);
    while (!record.submasters.made.empty())
        append(referred, drop(std::prev(record.submasters.made.end())->second));
    record.content->pcell.unbind();
    if (record.origin) {
        oaDesign* superMaster = record.origin->superMaster;
        forgetSubmaster(recordFor(superMaster).submasters, design);
        referred.push_back(superMaster);
    }
    if (record.viaOrigin)
        forgetViaMaster(record);
    record.lock.reset();
    removeFromDisk(record);
    oaTech* tech = record.tech;
    auto& designs = static_cast<Table<OpenDesignRecord>&>(tableOf(design));
    designs.destroy(slotOf(design));
    if (tech && tech->isValid())
        tech->close();
    return referred;
}

} // namespace

void addOpening(oaDesign* submaster) {
    OpenDesignRecord& record = recordFor(submaster);
    if (++record.openings == 1)
        ++recordFor(record.origin->superMaster).submasters.opened;
}

void noteBinder(oaDesign* design, oaDesign* binder) {
    if (binder != design)
        recordFor(design).binders.insert(binder);
}

void closeDesign(oaDesign* design) {
    OpenDesignRecord& record = recordFor(design);
    if (record.openings > 0 && --record.openings == 0 && record.origin)
        --recordFor(record.origin->superMaster).submasters.opened;
    purgeUnused({design});
}

void purgeDesign(oaDesign* design) {
    requireNotEvaluated(design);
    purgeUnused(drop(design));
}

void purgeUnused(std::vector<oaDesign*> designs) {
    while (!designs.empty()) {
        oaDesign* design = designs.back();
        designs.pop_back();
        if (isUnused(design))
            append(designs, drop(design));
    }
}

void replaceContent(OpenDesignRecord& design, std::unique_ptr<DesignDatabase> content) {
    std::vector<oaDesign*> masters;
    if (design.content) {
        design.content->pcell.unbind();
        masters = mastersOf(*design.content);
        std::erase(masters, design.content->design());
    }
    design.content = std::move(content);
    purgeUnused(masters);
}

std::uint32_t refCountOf(const oaDesign* design) {
    const OpenDesignRecord& record = recordFor(design);
    std::uint32_t count = record.openings + record.submasters.opened;
    for (const oaDesign* binder : record.binders)
        count += isBinder(binder, design) ? 1 : 0;
    return count;
}

} // namespace OpenAccess_4::impl
