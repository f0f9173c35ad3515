#include <chrono>
#include <iomanip>

#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "diagnosis/diagnose.h"

namespace cli {
namespace {

using diagnosis::Attempt;
using diagnosis::Fault;
using diagnosis::Report;
using diagnosis::Setting;
using diagnosis::TypeReport;
using Json = nlohmann::ordered_json;

// A broker that loads a large installation may take its time.
constexpr std::chrono::seconds patience(30);

void writeRow(std::ostream& out, const std::string& label, const std::string& text) {
    std::string line = text;
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
        line.pop_back();
    out << std::left << std::setw(15) << label << line << '\n';
}

std::string textOf(const Setting& setting) {
    return setting.origin.empty() ? "none" : "'" + setting.value + "' from " + setting.origin;
}

std::string optionsOf(const TypeReport& type) {
    return std::string(type.allowNative ? "a plug-in in this process before a broker of version 6"
                                        : "brokers only (X)") +
           (type.useExternalOaLibs ? "; external OA libs (E)" : "; internal OA libs");
}

std::string textOf(const std::vector<std::uint32_t>& versions) {
    std::string text;
    for (const std::uint32_t version : versions)
        text += (text.empty() ? "" : ", then ") + std::to_string(version);
    return text.empty() ? "none" : text;
}

void writeFaults(std::ostream& out, const diagnosis::Faults& faults) {
    for (const Fault& fault : faults) {
        writeRow(out, "fault", fault.text);
        writeRow(out, "  cure", fault.cure);
    }
}

void writeType(std::ostream& out, const TypeReport& type) {
    out << '\n';
    writeRow(out, "type", type.name);
    writeRow(out, "  options", optionsOf(type));
    writeRow(out, "  versions", textOf(type.versions));
    for (const Attempt& attempt : type.attempts) {
        writeRow(out, "  tried",
                 std::to_string(attempt.apiVersion) + " (" + attempt.way + ")" +
                     (attempt.program.empty() ? "" : ": " + attempt.program));
        writeRow(out, "    answer", attempt.answer);
    }
    writeRow(out, "  evaluator", type.evaluator.empty() ? "none" : type.evaluator);
    writeFaults(out, type.faults);
}

void writeText(std::ostream& out, const Report& report) {
    writeRow(out, "configuration",
             report.file.empty() ? "none" : report.file + " from PCELLBROKER_HOME");
    if (!report.refusal.empty())
        writeRow(out, "refused", report.refusal);
    writeRow(out, "types", textOf(report.configString));
    writeRow(out, "forced version", textOf(report.forcedVersion));
    if (report.refusal.empty())
        writeRow(out, "probe", report.probe + ": " + report.probeAnswer);
    writeFaults(out, report.faults);
    for (const TypeReport& type : report.types)
        writeType(out, type);
}

Json textOrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

Json jsonOf(const Setting& setting) {
    return {{"value", textOrNull(setting.value)}, {"origin", textOrNull(setting.origin)}};
}

Json jsonOf(const diagnosis::Faults& faults) {
    Json list = Json::array();
    for (const Fault& fault : faults)
        list.push_back({{"fault", fault.text}, {"cure", fault.cure}});
    return list;
}

Json jsonOf(const TypeReport& type) {
    Json attempts = Json::array();
    for (const Attempt& attempt : type.attempts)
        attempts.push_back({{"version", attempt.apiVersion},
                            {"way", attempt.way},
                            {"program", textOrNull(attempt.program)},
                            {"works", attempt.works},
                            {"answer", attempt.answer}});
    return {{"type", type.name},
            {"native", type.allowNative},
            {"libraries", type.useExternalOaLibs ? "external" : "internal"},
            {"versions", type.versions},
            {"attempts", attempts},
            {"evaluator", textOrNull(type.evaluator)},
            {"faults", jsonOf(type.faults)}};
}

void writeJson(std::ostream& out, const Report& report) {
    Json types = Json::array();
    for (const TypeReport& type : report.types)
        types.push_back(jsonOf(type));
    const Json json{
        {"home", textOrNull(report.directory)},
        {"file", textOrNull(report.file)},
        {"refusal", textOrNull(report.refusal)},
        {"types", jsonOf(report.configString)},
        {"forcedVersion", jsonOf(report.forcedVersion)},
        {"probe",
         {{"program", textOrNull(report.probe)}, {"answer", textOrNull(report.probeAnswer)}}},
        {"faults", jsonOf(report.faults)},
        {"evaluators", types}};
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace

int brokersCommand(const BrokersOptions& options, Console& console) {
    return calling([&] {
        const Report report = diagnosis::diagnoseBrokers(patience);
        if (options.json)
            writeJson(console.out, report);
        else
            writeText(console.out, report);
        return report.isSound() ? success : somethingMissing;
    });
}

} // namespace cli
