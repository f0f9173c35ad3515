#pragma once

#include <cstdint>
#include <string>

namespace evaluation {

class Pcell;

/// What serves the evaluations of a pcell.
struct Source {
    enum class Kind { cacheFile, plugIn, broker, process, none };

    Kind kind = Kind::none;
    /// Of the cache file, which may be missing, of the plug-in's description, or of the broker.
    std::string path{};
    /// Of a broker.
    std::uint32_t apiVersion = 0;
    bool useExternalOaLibs = false;
    /// For a type that is configured for brokers and that nothing evaluates: what was tried.
    std::string tried{};

    friend bool operator==(const Source&, const Source&) = default;
};

/// Looks at the evaluator that the database uses, and loads it when that has not happened yet.
/// @param hash            of the submaster
/// @param cacheDirectory  where cached submasters lie; empty when there is no such place
Source sourceOf(const Pcell& pcell, const std::string& hash, const std::string& cacheDirectory);

} // namespace evaluation
