#include <algorithm>
#include <charconv>
#include <cmath>
#include <iomanip>
#include <sstream>

#include <nlohmann/json.hpp>

#include "cli/collect.h"
#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/pcell_target.h"
#include "cli/svg_file.h"
#include "evaluation/parameters.h"
#include "platform/file.h"

namespace cli {
namespace {

using evaluation::Evaluation;
using evaluation::Source;
using Json = nlohmann::ordered_json;

std::string numberText(double value) {
    char text[32];
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, value);
    return {text, result.ptr};
}

/// The box in user units: left, bottom, right, top.
std::vector<double> sidesOf(const Evaluation& result) {
    const oa::oaBox& box = *result.box;
    const double perUnit = result.submaster->getTopBlock()->getDBUPerUU();
    return {box.left() / perUnit, box.bottom() / perUnit, box.right() / perUnit,
            box.top() / perUnit};
}

std::string unitOf(const Evaluation& result) {
    return ovalis::fromOa(result.submaster->getTopBlock()->getUserUnits().getName());
}

const char* librariesOf(const Source& source) {
    return source.useExternalOaLibs ? "external" : "internal";
}

std::string textOf(const Source& source) {
    switch (source.kind) {
    case Source::Kind::cacheFile:
        return "cache file " + source.path;
    case Source::Kind::plugIn:
        return "plug-in " + source.path;
    case Source::Kind::broker:
        return "broker " + source.path + " (version " + std::to_string(source.apiVersion) + ", " +
               librariesOf(source) + " OA libs)";
    case Source::Kind::process:
        return "an evaluator of this process";
    default:
        return "nothing";
    }
}

bool isServed(const Evaluation& result) {
    return result.errors.empty() && result.submaster != nullptr;
}

/// The submaster is there, and what failed are others that it places.
bool onlyPlacedFail(const Evaluation& result) {
    return result.submaster != nullptr &&
           std::none_of(result.errors.begin(), result.errors.end(),
                        [&](const evaluation::PcellError& error) { return result.isOwn(error); });
}

void writeTable(std::ostream& out, const PcellTarget& target, const Evaluation& result) {
    const auto row = [&](const char* label, const std::string& text) {
        out << std::left << std::setw(13) << label << text << '\n';
    };
    row("pcell", target.pcell.name().text());
    row("parameters", evaluation::textOf(result.params));
    row("evaluator", target.pcell.evaluator());
    row("identity", result.hash);
    row("served by", textOf(result.source));
    row("shapes", std::to_string(result.shapes));
    std::string box = "nothing to enclose";
    if (result.box) {
        box.clear();
        for (const double side : sidesOf(result))
            box += numberText(side) + " ";
        box += "(left, bottom, right, top; " + unitOf(result) + ")";
    }
    row("box", box);
    row("time", numberText(std::round(result.time.count() * 1000) / 1000) + " ms");
}

/// JSON has no number for what is none, or infinite: the text that `--param` takes stands for it.
Json jsonOf(double value, const oa::oaParam& param) {
    return std::isfinite(value) ? Json(value) : Json(evaluation::valueOf(param));
}

Json jsonOf(const oa::oaParam& param) {
    switch (param.getType()) {
    case oa::oacIntParamType:
        return param.getIntVal();
    case oa::oacFloatParamType:
        return jsonOf(param.getFloatVal(), param);
    case oa::oacDoubleParamType:
        return jsonOf(param.getDoubleVal(), param);
    case oa::oacBooleanParamType:
        return param.getBooleanVal() != 0;
    case oa::oacTimeParamType:
        return param.getTimeVal();
    default:
        return evaluation::valueOf(param);
    }
}

Json jsonOf(const oa::oaParamArray& params) {
    Json list = Json::array();
    for (oa::oaUInt4 at = 0; at < params.getNumElements(); ++at)
        list.push_back({{"name", evaluation::nameOf(params[at])},
                        {"type", evaluation::typeOf(params[at])},
                        {"value", jsonOf(params[at])}});
    return list;
}

Json jsonOf(const Source& source) {
    constexpr const char* kinds[] = {"cache file", "plug-in", "broker", "process", "none"};
    Json json{{"kind", kinds[static_cast<int>(source.kind)]}};
    json["path"] = source.path.empty() ? Json() : Json(source.path);
    if (source.kind == Source::Kind::broker) {
        json["version"] = source.apiVersion;
        json["libraries"] = librariesOf(source);
    }
    if (!source.tried.empty())
        json["tried"] = source.tried;
    return json;
}

void writeJson(std::ostream& out, const PcellTarget& target, const Evaluation& result) {
    const evaluation::DesignName& name = target.pcell.name();
    Json errors = Json::array();
    for (const evaluation::PcellError& error : result.errors)
        errors.push_back({{"kind", error.kind},
                          {"message", error.message},
                          {"design", error.design.text()},
                          {"parameters", jsonOf(error.params)}});
    Json json{{"library", name.library},
              {"cell", name.cell},
              {"view", name.view},
              {"parameters", jsonOf(result.params)},
              {"evaluator", target.pcell.evaluator()},
              {"identity", result.hash},
              {"evaluated", isServed(result)},
              {"source", jsonOf(result.source)},
              {"shapes", result.shapes}};
    json["box"] = result.box ? Json(sidesOf(result)) : Json();
    json["unit"] = result.box ? Json(unitOf(result)) : Json();
    json["milliseconds"] = result.time.count();
    json["errors"] = errors;
    json["warnings"] = target.libraries.warnings();
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

/// What is known of a failure, for people.
void tellFailure(std::ostream& talk, const PcellTarget& target, const Evaluation& result) {
    const bool isThere = onlyPlacedFail(result);
    talk << "ovalis: " << target.pcell.name().text()
         << (isThere ? " is evaluated by \"" : " cannot be evaluated by \"")
         << target.pcell.evaluator() << (isThere ? "\", but not all that it places\n" : "\"\n");
    for (const evaluation::PcellError& error : result.errors) {
        talk << "  " << error.kind << " of " << error.design.text();
        if (!result.isOwn(error))
            talk << " (" << evaluation::textOf(error.params) << ")";
        talk << ": " << error.message << '\n';
    }
    talk << "  parameters: " << evaluation::textOf(result.params) << '\n';
    talk << "  identity: " << result.hash << '\n';
    if (!result.source.tried.empty())
        talk << "  brokers: OA APIs tried: " << result.source.tried << '\n';
    if (result.source.kind == Source::Kind::broker)
        talk << "  broker: " << result.source.path << '\n';
    if (result.source.kind != Source::Kind::cacheFile)
        return;
    if (result.source.path.empty())
        talk << "  cache: there is no top library list, beside which it would be\n";
    else if (isThere)
        talk << "  cache: " << result.source.path << '\n';
    else
        talk << "  cache: " << result.source.path
             << (platform::exists(result.source.path) ? " cannot be used\n" : " is not there\n");
    for (const std::string& warning : target.libraries.warnings())
        talk << "  library list: " << warning << '\n';
}

void drawPicture(const EvaluateOptions& options, const PcellTarget& target,
                 const Evaluation& result, Console& console) {
    drawing::Picture picture = collect(*result.submaster);
    const evaluation::DesignName& name = target.pcell.name();
    picture.title = name.library + " / " + name.cell + " / " + name.view;
    if (target.given.getNumElements() > 0)
        picture.title += " (" + evaluation::textOf(target.given) + ")";
    writeSvgFile(options.pictureFile, picture);
    console.talk << "wrote " << options.pictureFile << '\n';
}

} // namespace

int evaluateCommand(const EvaluateOptions& options, Console& console) {
    return calling([&] {
        // What fails while the master is opened belongs to the failure too.
        const evaluation::PcellErrorLog opening;
        const PcellTarget target(options.target);
        Evaluation result =
            evaluation::evaluate(target.pcell, target.given, target.cacheDirectory());
        result.errors = opening.errors();
        if (options.json)
            writeJson(console.out, target, result);
        if (!isServed(result)) {
            tellFailure(console.talk, target, result);
            console.errorsAreTold = true;
            return somethingMissing;
        }
        if (!options.json)
            writeTable(console.out, target, result);
        if (!options.pictureFile.empty())
            drawPicture(options, target, result, console);
        return success;
    });
}

} // namespace cli
