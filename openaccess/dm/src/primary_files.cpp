#include "dm/src/primary_files.h"

#include "dm/src/edit_lock.h"
#include "dm/src/library_marker.h"
#include "platform/atomic_file.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace OpenAccess_4::impl {

namespace {

struct ReservedPrimary {
    std::string_view viewType;
    std::string_view file;
};

// A directory without "master.tag" is looked through in this order.
constexpr std::array<ReservedPrimary, 16> reserved = {{
    {"maskLayout", "layout.oa"},
    {"schematic", "sch.oa"},
    {"schematicSymbol", "symbol.oa"},
    {"netlist", "netlist.oa"},
    {"wafer", "wafer.oa"},
    {"oaHierDesign", "hier.oa"},
    {"verilogAMSText", "verilog.vams"},
    {"VHDLAMSText", "vhdl.vhms"},
    {"verilogText", "verilog.v"},
    {"VHDLText", "vhdl.vhd"},
    {"verilogAText", "veriloga.va"},
    {"systemVerilogText", "verilog.sv"},
    {"SPECTREText", "spectre.scs"},
    {"SPICEText", "spice.sp"},
    {"HSPICEText", "hspice.sp"},
    {"CDLText", "netlist.cdl"},
}};

constexpr std::string_view customEnd = ".oa";
constexpr std::string_view tagStart = "-- Master.tag File";

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

void appendEncoded(std::string& text, char c) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(c);
    text += {'#', digits[byte >> 4], digits[byte & 15]};
}

// Names that Windows takes for devices, whatever their ending.
bool isDeviceName(std::string name) {
    std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
    if (name == "con" || name == "prn" || name == "aux" || name == "nul")
        return true;
    return name.size() == 4 && (name.starts_with("com") || name.starts_with("lpt")) &&
           std::isdigit(static_cast<unsigned char>(name[3]));
}

std::string customPrimary(const std::string& viewType) {
    std::string plain;
    for (const char c : viewType)
        if (isPlain(c))
            plain += c;
        else
            appendEncoded(plain, c);
    const std::string file = plain + std::string(customEnd);
    if (std::ranges::find(reserved, file, &ReservedPrimary::file) == reserved.end() &&
        !isDeviceName(plain))
        return file;
    std::string encoded;
    appendEncoded(encoded, file.front());
    return encoded + file.substr(1);
}

int digitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

std::string decoded(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // No name holds a NUL: what looks like one is meant as it stands.
        const bool isCode = text[i] == '#' && i + 2 < text.size() && digitValue(text[i + 1]) >= 0 &&
                            digitValue(text[i + 2]) >= 0 && text.substr(i + 1, 2) != "00";
        result += isCode ? static_cast<char>(digitValue(text[i + 1]) * 16 + digitValue(text[i + 2]))
                         : text[i];
        i += isCode ? 2 : 0;
    }
    return result;
}

std::string trimmed(std::string_view line) {
    const std::size_t first = line.find_first_not_of(" \t\r");
    if (first == std::string_view::npos)
        return {};
    return std::string(line.substr(first, line.find_last_not_of(" \t\r") + 1 - first));
}

// The lines of a tag that say something.
std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (std::string line = trimmed(text.substr(0, end)); !line.empty())
            lines.push_back(std::move(line));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string readMasterTag(const std::string& path) {
    const std::vector<std::string> lines = linesOf(platform::readFile(path));
    const auto damaged = [&](const std::string& what) {
        return DamagedFile("file '" + path + "' is damaged: " + what);
    };
    if (lines.empty() || !lines[0].starts_with(tagStart))
        throw damaged("it does not start with '" + std::string(tagStart) + "'");
    if (lines.size() < 2)
        throw damaged("the name of the primary file is missing");
    if (!isManagedFileName(lines[1]))
        throw damaged("'" + lines[1] + "' is not the name of a file");
    return lines[1];
}

} // namespace

std::string primaryFileName(const std::string& viewType) {
    const auto found = std::ranges::find(reserved, viewType, &ReservedPrimary::viewType);
    return found == reserved.end() ? customPrimary(viewType) : std::string(found->file);
}

std::string viewTypeOfPrimary(const std::string& fileName) {
    const auto found = std::ranges::find(reserved, fileName, &ReservedPrimary::file);
    if (found != reserved.end())
        return std::string(found->viewType);
    if (!fileName.ends_with(customEnd) || fileName.size() == customEnd.size())
        return fileName;
    return decoded(std::string_view(fileName).substr(0, fileName.size() - customEnd.size()));
}

std::optional<std::string> findPrimary(const std::string& directory) {
    const std::string tag = platform::joinPath(directory, kMasterTag);
    if (platform::isFile(tag))
        return readMasterTag(tag);
    for (const ReservedPrimary& primary : reserved)
        if (platform::isFile(platform::joinPath(directory, primary.file)))
            return std::string(primary.file);
    return std::nullopt;
}

void writeMasterTag(const std::string& directory, const std::string& primary) {
    const std::string text = std::string(tagStart) + ", Rev:1.0\n" + primary + "\n";
    platform::AtomicFile file(platform::joinPath(directory, kMasterTag));
    file.write(text.data(), text.size());
    file.commit();
}

bool isManagedFileName(const std::string& name) {
    return !name.empty() && name.back() != '.' && name.back() != ' ' &&
           name.find_first_of("/\\:*?\"<>|") == std::string::npos &&
           !isDeviceName(name.substr(0, name.find('.'))) &&
           std::ranges::none_of(name, [](unsigned char c) { return c < ' '; });
}

bool isBookkeepingFile(const std::string& name) {
    return name == LibraryMarker::kFileName || name == kAccessLockFile || name == kMasterTag ||
           name.ends_with(EditLock::kSuffix) || platform::isTemporaryName(name);
}

} // namespace OpenAccess_4::impl
