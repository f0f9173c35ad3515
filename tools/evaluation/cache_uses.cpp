#include <algorithm>
#include <map>
#include <memory>

#include <ovalis/library.h>

#include "evaluation/cache.h"
#include "evaluation/parameters.h"
#include "evaluation/pcell.h"

namespace evaluation {
namespace {

bool isDesignType(const std::string& viewType) {
    constexpr const char* types[] = {"maskLayout", "schematic", "schematicSymbol", "netlist",
                                     "hierDesign"};
    return std::find(std::begin(types), std::end(types), viewType) != std::end(types);
}

std::string nameOf(const oa::oaLib& library) {
    oa::oaString name;
    library.getName(oa::oaNativeNS(), name);
    return ovalis::fromOa(name);
}

/// Walks designs and remembers the masters that their instances name.
class UseFinder {
public:
    UseFinder(const std::vector<oa::oaLib*>& libraries, std::vector<std::string>& remarks)
        : remarks_(remarks) {
        for (oa::oaLib* library : libraries)
            libraries_[nameOf(*library)] = library;
    }

    std::vector<CacheUse> find() {
        // Masters may lie in any of the libraries, so that all of them are held.
        for (const auto& [name, library] : libraries_)
            if (!library->getAccess(oa::oacReadLibAccess, 0))
                throw std::runtime_error("Could not obtain access to library " + name);
        for (const auto& [name, library] : libraries_)
            walk(name, *library);
        for (const auto& [name, library] : libraries_)
            library->releaseAccess();
        std::sort(uses_.begin(), uses_.end(), [](const CacheUse& a, const CacheUse& b) {
            return std::tie(a.placedIn, a.instance) < std::tie(b.placedIn, b.instance);
        });
        return std::move(uses_);
    }

private:
    void walk(const std::string& name, oa::oaLib& library) {
        for (const ovalis::TStringTriplet& view : ovalis::getCellViewNamesAndTypes(library)) {
            const DesignName design{name, view.get<0>(), view.get<1>()};
            if (isDesignType(view.get<2>()) &&
                ovalis::existsDesign(design.library.c_str(), design.cell.c_str(),
                                     design.view.c_str()))
                walk(library, design);
        }
    }

    void walk(oa::oaLib& library, const DesignName& name) {
        try {
            const OpenDesign design(ovalis::openDesign(library, name.cell, name.view, false));
            oa::oaBlock* block = design->getTopBlock();
            if (block == nullptr)
                return;
            oa::oaIter<oa::oaInst> insts(block->getInsts());
            while (const oa::oaInst* inst = insts.getNext())
                add(name, *inst);
        } catch (const std::runtime_error& error) {
            remarks_.push_back(name.text() + ": " + error.what());
        } catch (const oa::oaException& error) {
            remarks_.push_back(name.text() + ": " + ovalis::fromOa(error.getMsg()));
        }
    }

    void add(const DesignName& placedIn, const oa::oaInst& inst) {
        const DesignName master = masterNameOf(inst);
        const Pcell* pcell = pcellNamed(master);
        if (pcell == nullptr)
            return;
        oa::oaParamArray given;
        inst.getParams(given);
        oa::oaString instance;
        inst.getName(oa::oaNativeNS(), instance);
        const oa::oaParamArray params = effectiveParams(pcell->defaults(), given);
        uses_.push_back(
            {placedIn, ovalis::fromOa(instance), master, params,
             ovalis::identifySubmaster(master.library, master.cell, master.view, params).hash});
    }

    /// The pcell of that name when it is served from the cache, else null.
    const Pcell* pcellNamed(const DesignName& name) {
        const auto [found, isNew] = pcells_.try_emplace(name);
        const auto library = libraries_.find(name.library);
        if (isNew && library != libraries_.end()) {
            try {
                auto pcell = std::make_unique<Pcell>(*library->second, name.cell, name.view);
                if (pcell->isCached())
                    found->second = std::move(pcell);
            } catch (const std::runtime_error&) {
                // No pcell, or none that can be opened: nothing for the cache.
            }
        }
        return found->second.get();
    }

    std::map<std::string, oa::oaLib*> libraries_;
    std::vector<std::string>& remarks_;
    std::map<DesignName, std::unique_ptr<Pcell>> pcells_;
    std::vector<CacheUse> uses_;
};

} // namespace

std::vector<CacheUse> cacheUses(const std::vector<oa::oaLib*>& libraries,
                                std::vector<std::string>& remarks) {
    return UseFinder(libraries, remarks).find();
}

} // namespace evaluation
