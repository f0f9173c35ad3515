#include "dm/src/library_marker.h"

#include "platform/atomic_file.h"
#include "platform/process.h"
#include "platform/xml_element.h"

#include <algorithm>
#include <string_view>

namespace OpenAccess_4::impl {

using platform::XmlElement;

namespace {

constexpr const char* unixName = "Unix";
constexpr const char* windowsName = "Windows";

// What steers the library must be understood; the rest belongs to whoever put it there.
std::string wrongValue(const std::string& name, const std::string& value) {
    if (name == LibraryMarker::kReadOnly && value != "Yes" && value != "No")
        return "attribute 'libReadOnly' is '" + value + "' instead of 'Yes' or 'No'";
    if (name == LibraryMarker::kFileSystem && value != unixName && value != windowsName)
        return "attribute 'origFileSystem' is '" + value + "' instead of 'Unix' or 'Windows'";
    return {};
}

const XmlElement& systemElement(const XmlElement& library) {
    if (library.name != "Library")
        throw std::runtime_error("the file holds <" + library.name + "> instead of <Library>");
    const std::string* system = library.attribute("DMSystem");
    if (!system)
        throw std::runtime_error("<Library> has no attribute 'DMSystem'");
    if (*system != LibraryMarker::kSystemName)
        throw std::runtime_error("the design-management system '" + *system + "' is not supported");
    const XmlElement* element = library.child(*system);
    if (!element)
        throw std::runtime_error("<Library> has no element <" + *system + ">");
    return *element;
}

} // namespace

LibraryMarker::LibraryMarker()
    : attributes_{{kReadOnly, "No"},
                  {kFileSystem, std::string_view(platform::systemName()) == "windows" ? windowsName
                                                                                      : unixName}} {
}

LibraryMarker LibraryMarker::read(const std::string& path) {
    const std::string content = platform::readFile(path);
    try {
        LibraryMarker marker;
        marker.attributes_.clear();
        const XmlElement root = platform::parseXml(content);
        for (const auto& [name, value] : systemElement(root).attributes) {
            // Somebody else's library may come from a system that we do not know.
            if (name == kFileSystem)
                marker.attributes_.emplace_back(name, value);
            else if (const std::string wrong = marker.set(name, value); !wrong.empty())
                throw std::runtime_error(wrong);
        }
        if (marker.value(kReadOnly).empty())
            marker.attributes_.emplace(marker.attributes_.begin(), kReadOnly, "No");
        return marker;
    } catch (const std::runtime_error& error) {
        throw DamagedFile("file '" + path + "' is damaged: " + error.what());
    }
}

void LibraryMarker::write(const std::string& path) const {
    const std::string content = text();
    platform::removeStaleTemporaries(path);
    platform::AtomicFile file(path);
    file.write(content.data(), content.size());
    file.commit();
}

std::string LibraryMarker::text() const {
    const std::string start = std::string("    <") + kSystemName + " ";
    std::string content = "<?xml version=\"1.0\"?>\n\n<Library DMSystem=\"";
    content += std::string(kSystemName) + "\">\n" + start;
    for (const auto& [name, value] : attributes_) {
        if (&name != &attributes_.front().first)
            content += "\n" + std::string(start.size(), ' ');
        content += name + "=\"" + platform::xmlEscaped(value) + "\"";
    }
    return content + "/>\n</Library>\n";
}

std::string LibraryMarker::set(const std::string& name, const std::string& value) {
    if (!platform::isXmlName(name))
        return "'" + name + "' is not a legal name of an attribute";
    const auto found = std::ranges::find(attributes_, name, &Attributes::value_type::first);
    // What a file of somebody else says may be said again.
    if (found != attributes_.end() && found->second == value)
        return {};
    if (std::string wrong = wrongValue(name, value); !wrong.empty())
        return wrong;
    if (found == attributes_.end())
        attributes_.emplace_back(name, value);
    else
        found->second = value;
    return {};
}

std::string LibraryMarker::replace(const Attributes& given) {
    std::erase_if(attributes_, [](const Attributes::value_type& attribute) {
        return attribute.first != kReadOnly && attribute.first != kFileSystem;
    });
    for (const auto& [name, value] : given)
        if (std::string wrong = set(name, value); !wrong.empty())
            return wrong;
    std::ranges::stable_sort(attributes_, {}, [&](const Attributes::value_type& attribute) {
        const auto found =
            std::ranges::find(given, attribute.first, &Attributes::value_type::first);
        return found == given.end() ? 0 : 1 + (found - given.begin());
    });
    return {};
}

bool LibraryMarker::readOnly() const {
    return value(kReadOnly) == "Yes";
}

// A marker that does not say comes from where the format comes from.
FileSystem LibraryMarker::fileSystem() const {
    return value(kFileSystem) == windowsName ? FileSystem::Windows : FileSystem::Unix;
}

std::string LibraryMarker::value(const char* name) const {
    const auto found = std::ranges::find(attributes_, name, &Attributes::value_type::first);
    return found == attributes_.end() ? std::string() : found->second;
}

} // namespace OpenAccess_4::impl
