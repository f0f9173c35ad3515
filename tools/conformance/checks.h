#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace conformance {

/// A pcell that the broker under test is able to evaluate.
struct KnownPcell {
    std::string type;
    std::string library;
    std::string cell;
    std::string view;
    std::string workingDirectory;
    std::string definitions; ///< the file of library definitions
};

/// What is checked.
struct Subject {
    std::string broker; ///< the program
    std::chrono::milliseconds longestAnswer = std::chrono::seconds(60);
    std::optional<KnownPcell> pcell;
};

struct Verdict {
    std::string rule;   ///< what every broker has to do
    std::string breach; ///< how this one does not; empty when it does

    friend bool operator==(const Verdict&, const Verdict&) = default;
};

/// Holds a broker against the rules, each time with a process of its own. Without a pcell the rules
/// on results are left out.
std::vector<Verdict> check(const Subject& subject);

} // namespace conformance
