#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <map>
#include <memory>
#include <streambuf>
#include <string>

namespace pcellBrokerClient {

/// Which broker: the version of the OpenAccess interface, then the set of libraries.
struct BrokerKey {
    std::uint32_t apiVersion;
    bool useExternalOaLibs;

    friend auto operator<=>(const BrokerKey&, const BrokerKey&) = default;
};

/// "external" or "internal", as messages name a set of libraries.
const char* libsName(bool useExternalOaLibs);

/// What a broker answers. `in_avail` asks the pipe for what has arrived, which costs a call of the
/// system.
class AnswerStream : public std::streambuf {
public:
    /// True when more was read than has been taken.
    bool holdsUnread() const { return gptr() != egptr(); }
};

/// One broker: how it is started, and the two pipes to it once it runs.
struct BrokerConnection {
    BrokerKey key{};
    std::string exePath;
    std::array<std::string, 2> libDirs;
    std::array<std::string, 2> pluginDirs;
    std::string tclLibDir;

    /// Both are there from a successful start on.
    std::unique_ptr<AnswerStream> fromBroker;
    std::unique_ptr<std::streambuf> toBroker;
    /// Set by a successful start. Once cleared it stays so: what may be left in the pipes would be
    /// taken for the answer to something else.
    bool alive = false;
    /// The broker does not know the present directory and library definitions.
    bool setUpNeeded = true;

    bool isStarted() const { return toBroker != nullptr; }

    /// "pcellBroker6 using internal OA libs", for example.
    std::string displayName() const;
};

using BrokerConnections = std::map<BrokerKey, BrokerConnection>;

/// The four brokers there can be, none of them started.
BrokerConnections makeConnections();

/// Makes every broker learn directory and library definitions anew before its next evaluation.
void requireSetUp(BrokerConnections& connections);

/// Throws for a connection that is broken.
[[noreturn]] void failForBroken(const BrokerConnection& connection);

} // namespace pcellBrokerClient
