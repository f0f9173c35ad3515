#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <oa/oaDesignDB.h>

#include "evaluation/identity.h"

namespace evaluation {

/// The directory of evaluated submasters beside a top library definition list.
class Cache {
public:
    explicit Cache(const std::string& listPath);

    const std::string& directory() const { return directory_; }

    /// Where the entry of this identity is, or would be.
    std::string pathOf(const std::string& hash) const;
    bool has(const std::string& hash) const;

    struct Entry {
        std::string name;
        std::uint64_t size = 0;
        /// It is no file with the name of an identity.
        bool isForeign = false;
    };

    /// Everything in the directory, sorted by name; nothing when there is no directory.
    std::vector<Entry> entries() const;

    /// Stores the content of a design as the entry of this identity, in one step: a reader sees the
    /// old entry or the new one.
    /// @throws oa::oaException          the content could not be written
    /// @throws platform::SystemFailure  the directory or the file could not be made
    void put(const std::string& hash, oa::oaDesign& content) const;

private:
    std::string directory_;
};

/// An instance of a pcell that is served from the cache.
struct CacheUse {
    DesignName placedIn;
    std::string instance;
    DesignName pcell;
    oa::oaParamArray params; ///< all of them, defaults included
    std::string hash;

    std::string place() const { return placedIn.text() + ":" + instance; }
};

/// Every such instance in the designs of these libraries, in the order of their names. What cannot
/// be looked at is added to `remarks`, one text each.
std::vector<CacheUse> cacheUses(const std::vector<oa::oaLib*>& libraries,
                                std::vector<std::string>& remarks);

/// Reads cache entries through, into a design of its own.
class EntryReader {
public:
    /// @throws ovalis::Exception  the temporary library could not be made
    EntryReader();
    EntryReader(const EntryReader&) = delete;
    EntryReader& operator=(const EntryReader&) = delete;
    ~EntryReader();

    /// Why the file is no entry that can be used; empty when it is one. Every submaster that it
    /// holds is read.
    std::string damageOf(const std::string& path);

private:
    std::string directory_;
    oa::oaLib* library_ = nullptr;
    oa::oaDesign* design_ = nullptr;
};

} // namespace evaluation
