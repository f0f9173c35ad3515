#include "diagnosis/type_choice.h"

#include <algorithm>
#include <stdexcept>

#include "broker/error_report.h"
#include "broker/start.h"
#include "diagnosis/broker_dialogue.h"
#include "diagnosis/plug_in_search.h"

namespace diagnosis {
namespace {

using pcellBrokerClient::BrokerConnection;
using pcellBrokerClient::BrokeredType;
using pcellBrokerClient::Brokers;
using pcellBrokerClient::Command;

constexpr std::uint32_t ownApiVersion = 6;

void append(Faults& faults, const Faults& more) {
    for (const Fault& fault : more)
        if (std::find(faults.begin(), faults.end(), fault) == faults.end())
            faults.push_back(fault);
}

/// The attempts of one type.
class Choice {
public:
    Choice(const BrokeredType& type, Brokers& brokers, std::chrono::milliseconds patience,
           TypeReport& report)
        : type_(type), brokers_(brokers), patience_(patience), report_(report) {}

    void make() {
        try {
            findVersions();
            for (const std::uint32_t version : report_.versions)
                if ((version == ownApiVersion && type_.allowNative && tryNative()) ||
                    tryBroker(version))
                    break;
        } catch (const std::exception&) {
            // An error ends the choice; it has been noted.
        }
        if (!report_.evaluator.empty())
            report_.faults.clear(); // what failed on the way does no harm
    }

private:
    void findVersions() {
        pcellBrokerClient::BrokerConfig& config = brokers_.config;
        if (config.forcedOaApiVersion != 0) {
            report_.versions = {config.forcedOaApiVersion};
            return;
        }
        try {
            probeOaApiVersion(config, *brokers_.system);
        } catch (const std::exception& error) {
            report_.faults.push_back(
                {withoutLineEnd(error.what()), "run " + config.probeExe +
                                                   " by hand: its exit code is to be 5 or "
                                                   "6; or force a version"});
            throw;
        }
        if (config.probedOaApiVersion == 5)
            report_.versions = {5, 6};
        else
            report_.versions = {6, 5};
    }

    bool tryNative() {
        Attempt attempt{ownApiVersion, "native", "", true, "the plug-in was loaded"};
        try {
            const oaCommon::SPtr<oa::IPcell> plugIn(type_.typeName.c_str());
            report_.evaluator = "the plug-in '" + type_.typeName + "' in this process";
        } catch (...) {
            attempt.works = false;
            attempt.answer = pcellBrokerClient::currentMessage().value_or("unknown error");
            // Without a description the plug-in is none for this process, which is no fault.
            const PlugInPlaces places = ownPlugInPlaces();
            if (isDescribed(type_.typeName, places))
                append(report_.faults, faultsOfPlugIn(type_.typeName, places));
        }
        report_.attempts.push_back(attempt);
        return attempt.works;
    }

    bool tryBroker(std::uint32_t version) {
        BrokerConnection& connection = brokers_.connections.at({version, type_.useExternalOaLibs});
        Attempt attempt{version,
                        std::string("through broker using ") +
                            pcellBrokerClient::libsName(type_.useExternalOaLibs) + " OA libs",
                        connection.exePath, false, ""};
        try {
            attempt.works = takesType(connection);
            attempt.answer = attempt.works ? "takes the type" : "does not take the type";
        } catch (const std::exception& error) {
            attempt.answer = withoutLineEnd(error.what());
            report_.attempts.push_back(attempt);
            throw;
        }
        report_.attempts.push_back(attempt);
        if (attempt.works)
            report_.evaluator = connection.displayName();
        else
            noteRefusal(connection);
        return attempt.works;
    }

    bool takesType(BrokerConnection& connection) {
        if (!connection.isStarted())
            start(connection);
        requireLife(connection);
        requireSilence(connection);
        const Reply reply = ask(connection, Command::canEvaluate, &type_.typeName, patience_);
        if (reply.kind == Reply::Kind::byte)
            return reply.byte != 0;
        if (reply.kind == Reply::Kind::silent)
            fail(connection, "does not answer the question for '" + type_.typeName + "'");
        noteFailure(connection, "ended when it was asked for '" + type_.typeName + "'");
        throw std::runtime_error(reply.failure);
    }

    void start(BrokerConnection& connection) {
        try {
            startBroker(connection, *brokers_.system);
        } catch (const std::exception& error) {
            report_.faults.push_back(
                {withoutLineEnd(error.what()),
                 "see the faults of BROKER_EXE_" + std::to_string(connection.key.apiVersion)});
            throw;
        }
    }

    void requireLife(BrokerConnection& connection) {
        if (!connection.alive)
            fail(connection, "is broken since a type before");
        requireSilence(connection);
        const Reply reply = ask(connection, Command::liveness, nullptr, patience_);
        if (reply.kind == Reply::Kind::silent)
            fail(connection, "does not show that it is alive");
        if (reply.kind == Reply::Kind::ended)
            fail(connection, "ended before it showed that it is alive");
        if (reply.byte != pcellBrokerClient::livenessAnswer)
            fail(connection, "shows that it is alive with the byte " + std::to_string(reply.byte) +
                                 " instead of ':'");
    }

    void requireSilence(BrokerConnection& connection) {
        if (connection.fromBroker->in_avail() > 0)
            fail(connection, "has sent what nobody asked for");
    }

    [[noreturn]] void fail(BrokerConnection& connection, const std::string& what) {
        noteFailure(connection, what);
        failForBroken(connection);
    }

    void noteFailure(BrokerConnection& connection, const std::string& what) {
        connection.alive = false;
        std::string path = connection.libDirs[0];
        if (!connection.libDirs[1].empty())
            path += (path.empty() ? "" : " and ") + connection.libDirs[1];
        report_.faults.push_back({connection.displayName() + " " + what,
                                  "see what " + connection.exePath +
                                      " says on standard error; it needs its OpenAccess "
                                      "libraries" +
                                      (path.empty() ? "" : " in " + path) +
                                      " and has to speak the "
                                      "protocol (docs/broker.md)"});
    }

    void noteRefusal(const BrokerConnection& connection) {
        const Faults found = faultsOfPlugIn(type_.typeName, plugInPlacesOf(connection));
        append(report_.faults, found);
        report_.faults.push_back(
            {connection.displayName() + " does not take the type '" + type_.typeName + "'",
             found.empty() ? "its plug-in is there: see what the broker says on standard error"
                           : "give it the plug-in"});
    }

    static std::string withoutLineEnd(std::string text) {
        while (text.ends_with('\n') || text.ends_with('\r'))
            text.pop_back();
        return text;
    }

    const BrokeredType& type_;
    Brokers& brokers_;
    std::chrono::milliseconds patience_;
    TypeReport& report_;
};

} // namespace

void chooseEvaluator(const BrokeredType& type, Brokers& brokers, std::chrono::milliseconds patience,
                     TypeReport& report) {
    Choice(type, brokers, patience, report).make();
}

} // namespace diagnosis
