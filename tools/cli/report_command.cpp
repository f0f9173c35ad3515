#include <optional>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include <ovalis/diagnostics.h>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "evaluation/open_libraries.h"
#include "platform/environment.h"

namespace cli {
namespace {

/// Gives the collectors that are made while it lives the origins asked for.
class Origins {
public:
    explicit Origins(const std::string& origins)
        : before_(platform::environmentVariable(variable)) {
        if (!origins.empty())
            platform::setEnvironmentVariable(variable, origins);
    }
    Origins(const Origins&) = delete;
    Origins& operator=(const Origins&) = delete;
    ~Origins() {
        if (before_)
            platform::setEnvironmentVariable(variable, *before_);
        else
            platform::unsetEnvironmentVariable(variable);
    }

private:
    static constexpr const char* variable = "TESSA_OAINFO";

    std::optional<std::string> before_;
};

void openTech(oa::oaLib& lib) {
    calling([&] {
        oa::oaScalarName name;
        lib.getName(name);
        if (oa::oaTech::exists(name))
            oa::oaTech::open(name, 'r')->close();
    });
}

/// Opens a design with everything placed in it, which evaluates the pcells among that.
void openAll(oa::oaLib& lib, const std::string& cell, const std::string& view) {
    const OpenDesign design(ovalis::openDesign(lib, cell, view, false));
    calling([&] { design->openHier(); });
}

/// Opens the designs that are asked for. One of a whole library that cannot be opened is told, and
/// the others are opened all the same; answers whether all could be.
bool openDesigns(oa::oaLib& lib, const ReportOptions& options, std::ostream& talk) {
    if (!options.cell.empty()) {
        openAll(lib, options.cell, options.view);
        return true;
    }
    oa::oaString name;
    lib.getName(oa::oaNativeNS(), name);
    bool allOpened = true;
    for (const ovalis::TStringPair& view : ovalis::getCellViewNames(lib)) {
        const std::string& cell = view.get<0>();
        try {
            if (ovalis::existsDesign(name, cell.c_str(), view.get<1>().c_str()))
                openAll(lib, cell, view.get<1>());
        } catch (const std::runtime_error& error) {
            talk << cell << '/' << view.get<1>() << ": " << error.what() << '\n';
            allOpened = false;
        }
    }
    return allOpened;
}

void writeJson(std::ostream& out, const ovalis::msgCollector& collector) {
    auto messages = nlohmann::ordered_json::array();
    for (const std::string& origin : collector.getAvailableChapterKeys_ordered())
        for (const std::string& key : collector.getAvailableParagraphKeys(origin))
            for (const std::string& line : collector.getLines(origin, key))
                messages.push_back({{"origin", origin}, {"key", key}, {"line", line}});
    out << messages.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

} // namespace

int reportCommand(const ReportOptions& options, Console& console) {
    if (options.cell.empty() != options.view.empty())
        throw std::runtime_error("a design is named by its cell and its view");
    ovalis::initOa(); // so that the evaluators of pcells are there
    const Origins origins(options.origins);
    const ovalis::msgCollector collector; // made first: opening is what it observes
    const evaluation::OpenLibraries libraries(directoryOf(options.library), nameOf(options.library),
                                              "");
    openTech(libraries.library());
    const bool allOpened = openDesigns(libraries.library(), options, console.talk);
    if (options.json)
        writeJson(console.out, collector);
    else
        console.out << collector.getMessageLog("all-wh");
    return allOpened && !collector.containsErrors() ? success : somethingMissing;
}

} // namespace cli
