#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace diagnosis {

/// Something that is wrong, and what to do about it.
struct Fault {
    std::string text;
    std::string cure;

    friend bool operator==(const Fault&, const Fault&) = default;
};

using Faults = std::vector<Fault>;

/// A value and where it comes from: a variable, or a key and its line. Both are empty without one.
struct Setting {
    std::string value;
    std::string origin;
};

/// One way to evaluate a type that was tried.
struct Attempt {
    std::uint32_t apiVersion = 0;
    std::string way;     ///< "native", "through broker using internal OA libs"
    std::string program; ///< the broker; empty for a native one
    bool works = false;
    std::string answer;
};

/// What becomes of one item of the configuration string.
struct TypeReport {
    std::string name;
    bool allowNative = true;
    bool useExternalOaLibs = false;
    std::vector<std::uint32_t> versions; ///< in the order in which they are tried
    std::vector<Attempt> attempts;
    std::string evaluator; ///< empty when there is none
    Faults faults;
};

struct Report {
    std::string directory; ///< the value of PCELLBROKER_HOME
    std::string file;      ///< empty without a directory
    /// What the client says to a configuration that it cannot use; empty for a good one.
    std::string refusal;
    Setting configString;
    Setting forcedVersion;
    std::string probe; ///< the program
    std::string probeAnswer;
    std::vector<TypeReport> types;
    Faults faults; ///< of no single type

    /// The configuration can be used, and each type that it names has an evaluator.
    bool isSound() const;
};

} // namespace diagnosis
