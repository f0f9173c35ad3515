#include <stdexcept>

#include <ovalis/xml.h>

#include "cli/commands.h"
#include "cli/description_stream.h"
#include "cli/library_access.h"
#include "cli/progress_bar.h"
#include "evaluation/open_libraries.h"

namespace cli {
namespace {

const oa::oaCell& cellOf(const oa::oaLib& lib, const DescribeOptions& options) {
    const oa::oaScalarName name(oa::oaNativeNS(), options.cell.c_str());
    const oa::oaCell* cell = calling([&] { return oa::oaCell::find(&lib, name); });
    if (cell == nullptr)
        throw std::runtime_error(directoryOf(options.library) + ": no cell \"" + options.cell +
                                 "\"");
    return *cell;
}

void describe(oa::oaLib& lib, const DescribeOptions& options, std::ostream& out) {
    if (options.cell.empty()) {
        ovalis::xmlWrite(lib, out);
        return;
    }
    const oa::oaCell& cell = cellOf(lib, options);
    if (options.view.empty()) {
        ovalis::xmlWrite(cell, out);
        return;
    }
    const oa::oaCellView* view = ovalis::getCellView(lib, options.cell, options.view);
    if (view == nullptr)
        throw std::runtime_error(directoryOf(options.library) + ": no cell view \"" + options.cell +
                                 "/" + options.view + "\"");
    ovalis::xmlWrite(*view, out);
}

/// Describes with a bar that counts cells.
void describeWatched(oa::oaLib& lib, const DescribeOptions& options, DescriptionStream& out,
                     Console& console) {
    const std::size_t cells = options.cell.empty() ? ovalis::getCellNames(lib).size() : 1;
    const ProgressBar bar(console, cells, [&out] { return out.cells(); });
    describe(lib, options, out);
}

} // namespace

int describeCommand(const DescribeOptions& options, Console& console) {
    const evaluation::OpenLibraries libraries(directoryOf(options.library), nameOf(options.library),
                                              "");
    if (options.outputFile.empty()) {
        DescriptionStream out(console.out);
        describeWatched(libraries.library(), options, out, console);
        return success;
    }
    ResultFile file(options.outputFile);
    {
        DescriptionStream out(file);
        describeWatched(libraries.library(), options, out, console);
    }
    file.finish();
    console.talk << "wrote " << options.outputFile << '\n';
    return success;
}

} // namespace cli
