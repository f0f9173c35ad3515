#include "diagnosis/plug_in_search.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <set>

#include <platform/environment.h>
#include <platform/file.h>
#include <platform/shared_module.h>

namespace diagnosis {
namespace {

/// What a description says; the text of an attribute that is missing is nothing.
struct Description {
    std::optional<std::string> lib;
    std::optional<std::string> treatAs;
};

std::optional<std::string> attributeOf(const std::string& element, const std::string& name) {
    std::size_t at = element.find(name);
    while (at != std::string::npos &&
           (at == 0 || !std::isspace(static_cast<unsigned char>(element[at - 1]))))
        at = element.find(name, at + 1);
    if (at == std::string::npos)
        return std::nullopt;
    const std::size_t equals = element.find_first_not_of(" \t\r\n", at + name.size());
    if (equals == std::string::npos || element[equals] != '=')
        return std::nullopt;
    const std::size_t quote = element.find_first_not_of(" \t\r\n", equals + 1);
    if (quote == std::string::npos || (element[quote] != '"' && element[quote] != '\''))
        return std::nullopt;
    const std::size_t end = element.find(element[quote], quote + 1);
    if (end == std::string::npos)
        return std::nullopt;
    return element.substr(quote + 1, end - quote - 1);
}

/// Takes as much of XML as a description needs; nothing for what is none.
std::optional<Description> descriptionIn(const std::string& text) {
    const std::size_t begin = std::min(text.find("<plugIn"), text.find("<plugin"));
    const std::size_t end = begin == std::string::npos ? begin : text.find('>', begin);
    if (end == std::string::npos)
        return std::nullopt;
    const std::string element = text.substr(begin, end - begin);
    if (element.ends_with('/') || text.find("</plug", end) != std::string::npos)
        return Description{attributeOf(element, "lib"), attributeOf(element, "treatAs")};
    return std::nullopt;
}

std::optional<std::string> descriptionFile(const std::string& name,
                                           const std::vector<std::string>& directories) {
    for (const std::string& directory : directories)
        if (std::string file = platform::joinPath(directory, name + ".plg"); platform::isFile(file))
            return file;
    return std::nullopt;
}

Fault faultOfAbsence(const std::string& name, const std::vector<std::string>& directories) {
    std::string places;
    for (const std::string& directory : directories)
        places += (places.empty() ? "" : ", ") + directory +
                  (platform::isDirectory(directory) ? "" : " (not there)");
    if (places.empty())
        return {"no plug-in directory is configured, where " + name + ".plg could be",
                "set MY_OA_PLUGIN_DIR_5 and _6 in the file, or OA_PLUGIN_PATH"};
    return {"there is no " + name + ".plg in " + places,
            "put " + name + ".plg and its module into one of these directories"};
}

std::optional<Fault> faultOfModule(const std::string& file, const std::string& lib) {
    const std::string module = platform::moduleFileName(lib);
    if (lib.empty())
        return Fault{file + " names no module", "set lib=\"NAME\" to the module's bare name"};
    if (lib.find_first_of("/\\:") != std::string::npos)
        return Fault{file + ": '" + lib + "' is not the bare name of a module",
                     "put the module beside the file and write its name without directory"};
    if (!platform::isFile(platform::joinPath(platform::parentPath(file), module)))
        return Fault{"the module " + module + " is not beside " + file,
                     "put it there, or correct the name in lib=\"" + lib + "\""};
    return std::nullopt;
}

} // namespace

std::vector<std::string> directoriesIn(const std::string& list) {
    std::vector<std::string> directories;
    for (std::size_t begin = 0; begin < list.size();) {
        const std::size_t end =
            std::min(list.find(platform::pathListSeparator(), begin), list.size());
        if (end > begin)
            directories.push_back(list.substr(begin, end - begin));
        begin = end + 1;
    }
    return directories;
}

namespace {

Faults search(const std::string& type, const std::vector<std::string>& directories) {
    std::set<std::string> seen;
    std::string name = type;
    while (seen.insert(name).second) {
        const std::optional<std::string> file = descriptionFile(name, directories);
        if (!file)
            return {faultOfAbsence(name, directories)};
        const std::optional<Description> description = descriptionIn(platform::readFile(*file));
        if (!description)
            return {{*file + " is not a description of a plug-in",
                     "write <plugIn lib=\"NAME\"/> into it"}};
        if (!description->lib && !description->treatAs)
            return {{*file + " names no module", "write <plugIn lib=\"NAME\"/> into it"}};
        if (description->lib && description->treatAs)
            return {{*file + " names a module and another plug-in", "keep either lib or treatAs"}};
        if (description->lib) {
            const std::optional<Fault> fault = faultOfModule(*file, *description->lib);
            return fault ? Faults{*fault} : Faults{};
        }
        name = *description->treatAs;
    }
    return {{"the descriptions lead from '" + name + "' back to it",
             "have the last one name its module with lib"}};
}

} // namespace

Faults faultsOfPlugIn(const std::string& type, const std::vector<std::string>& directories) {
    try {
        return search(type, directories);
    } catch (const platform::SystemFailure& failure) {
        return {{failure.path() + " cannot be read: " + failure.error().text(),
                 "give this user the right to read it"}};
    }
}

bool isDescribed(const std::string& type, const std::vector<std::string>& directories) {
    return descriptionFile(type, directories).has_value();
}

} // namespace diagnosis
