#include "dm/src/directory_names.h"

#include "oa/oaException.h"
#include "oa/oaName.h"

namespace OpenAccess_4::impl {

namespace {

const oaNameSpace& nameSpaceOf(FileSystem system) {
    static const oaUnixNS unixNames;
    static const oaWinNS windowsNames;
    if (system == FileSystem::Windows)
        return windowsNames;
    return unixNames;
}

std::string converted(const std::string& text, const oaNameSpace& from, const oaNameSpace& to) {
    oaString result;
    oaScalarName(from, text.c_str()).get(to, result);
    return static_cast<const oaChar*>(result);
}

} // namespace

std::string DirectoryNames::toDirectory(const std::string& name) const {
    return converted(name, oaNativeNS(), nameSpaceOf(system_));
}

std::optional<std::string> DirectoryNames::fromDirectory(const std::string& directory) const {
    try {
        return converted(directory, nameSpaceOf(system_), oaNativeNS());
    } catch (const oaException&) {
        return std::nullopt;
    }
}

} // namespace OpenAccess_4::impl
