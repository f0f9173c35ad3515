#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

/// An element of a small XML file: what library markers and descriptions of plug-ins need, without
/// text, name spaces and DTDs.
struct XmlElement {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<XmlElement> children;

    const std::string* attribute(std::string_view attributeName) const;
    const XmlElement* child(std::string_view childName) const;
};

/// @throws std::runtime_error  "line N: what is wrong"
XmlElement parseXml(std::string_view text);

/// True for a name that an attribute may have.
bool isXmlName(std::string_view name);

/// A text as the value of an attribute, without the quotes around it.
std::string xmlEscaped(std::string_view text);

} // namespace platform
