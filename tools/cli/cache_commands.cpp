#include <algorithm>
#include <map>
#include <optional>
#include <stdexcept>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/pcell_target.h"
#include "evaluation/cache.h"
#include "evaluation/parameters.h"

namespace cli {
namespace {

using evaluation::Cache;
using evaluation::CacheUse;
using evaluation::OpenLibraries;

Cache cacheOf(const OpenLibraries& libraries) {
    if (libraries.listPath().empty())
        throw std::runtime_error("there is no top library list: the library has no lib.defs, and "
                                 "--libs is not given");
    return Cache(libraries.listPath());
}

/// The libraries of a list, and the cache beside it.
struct OpenCache {
    explicit OpenCache(const CacheOptions& options)
        : libraries(options.library.path.empty() ? "" : directoryOf(options.library),
                    options.library.path.empty() ? "" : nameOf(options.library), options.libs),
          cache(cacheOf(libraries)) {}

    OpenLibraries libraries;
    Cache cache;
};

/// Tells the libraries and designs that cannot be looked at.
std::vector<CacheUse> usesIn(const OpenLibraries& libraries, Console& console) {
    std::vector<std::string> remarks = libraries.unopened();
    std::vector<CacheUse> uses = evaluation::cacheUses(libraries.all(), remarks);
    for (const std::string& remark : remarks)
        console.talk << "remark: " << remark << '\n';
    return uses;
}

void writeEntry(std::ostream& out, const Cache::Entry& entry, const std::vector<CacheUse>& uses) {
    out << entry.name << "  " << entry.size << " bytes";
    const char* separator = "; in ";
    for (const CacheUse& use : uses)
        if (use.hash == entry.name) {
            if (separator[0] == ';')
                out << "  " << use.pcell.text() << ": " << evaluation::textOf(use.params);
            out << separator << use.place();
            separator = ", ";
        }
    out << '\n';
}

std::string foreignText(const Cache::Entry& entry) {
    return "foreign: " + entry.name + " is no file with the name of an identity\n";
}

/// How many parameters of two sets differ.
std::size_t differencesOf(const oa::oaParamArray& asked, const oa::oaParamArray& has) {
    std::size_t count = 0;
    for (oa::oaUInt4 at = 0; at < asked.getNumElements(); ++at) {
        oa::oaParam other;
        if (!has.find(ovalis::toOa(evaluation::nameOf(asked[at])), other) || other != asked[at])
            ++count;
    }
    return count;
}

/// The use with an entry whose parameters differ the least; none when no entry of the pcell can be
/// attributed.
std::optional<CacheUse> nearestOf(const PcellTarget& target, const Cache& cache,
                                  const std::vector<CacheUse>& uses) {
    const oa::oaParamArray asked = target.params();
    std::optional<CacheUse> nearest;
    for (const CacheUse& use : uses)
        if (use.pcell == target.pcell.name() && cache.has(use.hash) &&
            (!nearest || differencesOf(asked, use.params) < differencesOf(asked, nearest->params)))
            nearest = use;
    return nearest;
}

void writeDifferences(std::ostream& out, const oa::oaParamArray& asked, const CacheUse& nearest) {
    out << "the nearest entry " << nearest.hash << ", which " << nearest.place()
        << " uses, differs:\n";
    for (oa::oaUInt4 at = 0; at < asked.getNumElements(); ++at) {
        const std::string name = evaluation::nameOf(asked[at]);
        oa::oaParam other;
        if (nearest.params.find(ovalis::toOa(name), other) && other == asked[at])
            continue;
        out << "  " << name << ": asked for " << evaluation::valueOf(asked[at])
            << ", the entry has " << evaluation::valueOf(other) << '\n';
    }
}

/// Opens the design that directory, cell and view name; it has a content.
OpenDesign contentOf(const std::vector<std::string>& from, OpenLibraries& libraries) {
    const LibraryOptions library{from[0], ""};
    try {
        oa::oaLib& lib = libraries.open(directoryOf(library), nameOf(library));
        OpenDesign content(evaluation::openExisting(lib, from[1], from[2]));
        if (content->getTopBlock() == nullptr)
            throw std::runtime_error(from[1] + "/" + from[2] + " has no contents");
        return content;
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(directoryOf(library) + ": " + error.what());
    }
}

void requireCached(const PcellTarget& target) {
    if (!target.pcell.isCached())
        throw std::runtime_error(target.pcell.name().text() + ": the evaluator \"" +
                                 target.pcell.evaluator() + "\" does not use the cache");
}

int explainEntry(const std::string& path, Console& console) {
    const std::string damage = evaluation::EntryReader().damageOf(path);
    if (damage.empty()) {
        console.out << "is served by " << path << '\n';
        return success;
    }
    console.out << "has an entry that cannot be read: " << damage << '\n';
    return somethingMissing;
}

} // namespace

int cacheListCommand(const CacheOptions& options, Console& console) {
    return calling([&] {
        const OpenCache open(options);
        const std::vector<CacheUse> uses = usesIn(open.libraries, console);
        for (const Cache::Entry& entry : open.cache.entries())
            if (entry.isForeign)
                console.out << foreignText(entry);
            else
                writeEntry(console.out, entry, uses);
        return success;
    });
}

int cacheVerifyCommand(const CacheOptions& options, Console& console) {
    return calling([&] {
        const OpenCache open(options);
        std::vector<std::string> unread = open.libraries.unopened();
        const std::vector<CacheUse> uses = evaluation::cacheUses(open.libraries.all(), unread);
        const std::vector<Cache::Entry> entries = open.cache.entries();
        // What a library or design needs that cannot be opened may be missing too.
        for (const std::string& reason : unread)
            console.out << "unread: " << reason << '\n';
        std::size_t findings = unread.size();
        if (!entries.empty()) {
            evaluation::EntryReader reader;
            for (const Cache::Entry& entry : entries) {
                const std::string damage =
                    entry.isForeign ? "" : reader.damageOf(open.cache.pathOf(entry.name));
                if (entry.isForeign)
                    console.out << foreignText(entry);
                else if (!damage.empty())
                    console.out << "damaged: " << damage << '\n';
                findings += entry.isForeign || !damage.empty();
            }
        }
        for (const CacheUse& use : uses)
            if (!open.cache.has(use.hash)) {
                console.out << "missing: " << use.hash << "  " << use.pcell.text() << ": "
                            << evaluation::textOf(use.params) << "; in " << use.place() << '\n';
                ++findings;
            }
        console.talk << "looked at " << entries.size() << " entries and " << uses.size()
                     << " instances\n";
        return findings == 0 ? success : somethingMissing;
    });
}

int cachePutCommand(const CachePutOptions& options, Console& console) {
    return calling([&] {
        PcellTarget target(options.target);
        requireCached(target);
        const Cache cache = cacheOf(target.libraries);
        const std::string hash = target.identity().hash;
        const bool replaces = cache.has(hash);
        const OpenDesign content = contentOf(options.from, target.libraries);
        cache.put(hash, *content);
        console.talk << (replaces ? "replaced " : "stored ") << target.pcell.name().text() << ": "
                     << evaluation::textOf(target.params()) << '\n';
        console.out << cache.pathOf(hash) << '\n';
        return success;
    });
}

int cacheExplainCommand(const PcellOptions& options, Console& console) {
    return calling([&] {
        const PcellTarget target(options);
        requireCached(target);
        const Cache cache = cacheOf(target.libraries);
        const std::string hash = target.identity().hash;
        console.out << target.pcell.name().text() << ": " << evaluation::textOf(target.params())
                    << '\n';
        if (cache.has(hash))
            return explainEntry(cache.pathOf(hash), console);
        console.out << "has no entry " << hash << '\n';
        const std::vector<CacheUse> uses = usesIn(target.libraries, console);
        if (const std::optional<CacheUse> nearest = nearestOf(target, cache, uses))
            writeDifferences(console.out, target.params(), *nearest);
        else
            console.out << "no instance uses an entry of this pcell\n";
        return somethingMissing;
    });
}

} // namespace cli
