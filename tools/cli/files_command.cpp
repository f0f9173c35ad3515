#include <stdexcept>

#include <nlohmann/json.hpp>

#include <ovalis/dm_files.h>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/text_table.h"
#include "platform/file.h"

namespace cli {
namespace {

/// The library, the cell or the cell view whose files are meant.
oa::oaDMContainer& containerOf(oa::oaLib& lib, const FilesOptions& options) {
    if (options.cell.empty())
        return lib;
    const auto scalar = [](const std::string& text) {
        return oa::oaScalarName(oa::oaNativeNS(), text.c_str());
    };
    oa::oaDMContainer* container =
        options.view.empty()
            ? static_cast<oa::oaDMContainer*>(oa::oaCell::find(&lib, scalar(options.cell)))
            : oa::oaCellView::find(&lib, scalar(options.cell), scalar(options.view));
    if (container == nullptr)
        throw std::runtime_error("no " + (options.view.empty() ? "cell \"" + options.cell + "\""
                                                               : "cell view \"" + options.cell +
                                                                     "/" + options.view + "\""));
    return *container;
}

std::string pathOf(const oa::oaDMFile& file) {
    oa::oaString path;
    file.getPath(path);
    return ovalis::fromOa(path);
}

void removeFile(oa::oaDMContainer& container, const std::string& name) {
    oa::oaDMFile* file = oa::oaDMFile::find(&container, name.c_str());
    if (file == nullptr)
        throw std::runtime_error("no file \"" + name + "\"");
    if (!file->existsOnDisk())
        throw std::runtime_error("the file \"" + name + "\" is not on the disk");
    // Who holds the lock would write to a file that is gone.
    if (!file->getLock())
        throw std::runtime_error("somebody edits the file \"" + name + "\" (see ovalis locks)");
    file->destroy();
}

std::string addFile(oa::oaDMContainer& container, const std::string& source) {
    if (!platform::isFile(source))
        throw std::runtime_error(source + ": no such file");
    return pathOf(
        *oa::oaDMFile::create(&container, platform::fileName(source).c_str(), source.c_str()));
}

/// One of the files of a container, as the list shows it.
struct ListedFile {
    std::string name;
    std::string path;
    bool isOnDisk = false;
    std::uint64_t size = 0;
};

std::vector<ListedFile> filesOf(const oa::oaDMContainer& container) {
    std::vector<ListedFile> files;
    for (const ovalis::TStringPair& file : ovalis::getDMFileNames(container)) {
        ListedFile listed{file.get<0>(), file.get<1>()};
        listed.isOnDisk = platform::isFile(listed.path);
        if (listed.isOnDisk)
            listed.size = platform::fileSize(listed.path);
        files.push_back(listed);
    }
    return files;
}

void writeTable(std::ostream& out, const std::vector<ListedFile>& files) {
    std::vector<std::vector<std::string>> rows;
    for (const ListedFile& file : files)
        rows.push_back(
            {file.name, file.isOnDisk ? std::to_string(file.size) : "not on disk", file.path});
    writeRows(out, rows);
}

nlohmann::ordered_json textOrNull(const std::string& text) {
    return text.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(text);
}

void writeJson(std::ostream& out, const FilesOptions& options,
               const std::vector<ListedFile>& files) {
    using Json = nlohmann::ordered_json;
    Json list = Json::array();
    for (const ListedFile& file : files)
        list.push_back({{"name", file.name},
                        {"path", file.path},
                        {"onDisk", file.isOnDisk},
                        {"size", file.isOnDisk ? Json(file.size) : Json()}});
    out << Json{{"library", nameOf(options.library)},
                {"cell", textOrNull(options.cell)},
                {"view", textOrNull(options.view)},
                {"files", list}}
               .dump(2, ' ', false, Json::error_handler_t::replace)
        << '\n';
}

void run(oa::oaLib& lib, const FilesOptions& options, Console& console) {
    oa::oaDMContainer& container = containerOf(lib, options);
    std::string added;
    if (!options.remove.empty())
        removeFile(container, options.remove);
    if (!options.add.empty())
        added = addFile(container, options.add);
    if (options.json)
        writeJson(console.out, options, filesOf(container));
    else if (!added.empty())
        console.out << added << '\n';
    else if (options.remove.empty())
        writeTable(console.out, filesOf(container));
}

} // namespace

int filesCommand(const FilesOptions& options, Console& console) {
    const std::string directory = directoryOf(options.library);
    const bool change = !options.add.empty() || !options.remove.empty();
    const ovalis::LibPtr lib = ovalis::openLib(directory, change, nameOf(options.library));
    try {
        calling([&] { run(*lib, options, console); });
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(directory + ": " + error.what());
    }
    return success;
}

} // namespace cli
