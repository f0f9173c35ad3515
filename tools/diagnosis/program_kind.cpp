#include "diagnosis/program_kind.h"

#include <cstdint>
#include <optional>

#include <platform/file.h>
#include <platform/private_directory.h>

namespace diagnosis {
namespace {

enum class Format { none, script, elf, pe };

struct ProgramKind {
    Format format = Format::none;
    unsigned machine = 0;
    unsigned bits = 0;
};

class Head {
public:
    explicit Head(const std::string& path) {
        platform::File file(path, platform::OpenMode::read);
        bytes_.resize(4096);
        bytes_.resize(file.read(bytes_.data(), bytes_.size()));
    }

    bool has(const char* text, std::size_t size, std::size_t at = 0) const {
        return bytes_.size() >= at + size && bytes_.compare(at, size, text, size) == 0;
    }
    unsigned number(std::size_t at, std::size_t size) const {
        unsigned value = 0;
        for (std::size_t i = size; i-- > 0;)
            value = value << 8 |
                    (at + i < bytes_.size() ? static_cast<unsigned char>(bytes_[at + i]) : 0U);
        return value;
    }

private:
    std::string bytes_;
};

ProgramKind kindOf(const std::string& path) {
    const Head head(path);
    if (head.has("#!", 2))
        return {Format::script};
    if (head.has("\177ELF", 4))
        return {Format::elf, head.number(18, 2), head.number(4, 1)};
    if (const unsigned start = head.number(0x3c, 4);
        head.has("MZ", 2) && head.has("PE\0\0", 4, start))
        return {Format::pe, head.number(start + 4, 2), head.number(start + 24, 2)};
    return {};
}

// Windows runs programs of 32 bits on 64.
bool runsBeside(const ProgramKind& program, const ProgramKind& own) {
    constexpr unsigned pe32 = 0x14c;
    return program.format == Format::pe && program.machine == pe32 && own.format == Format::pe;
}

} // namespace

std::string unsuitability(const std::string& path) {
    try {
        const ProgramKind program = kindOf(path);
        const ProgramKind own = kindOf(platform::programPath());
        if (program.format == Format::none)
            return "is not a program";
        if (program.format == Format::script)
            return own.format == Format::elf ? "" : "is not a program";
        if (program.format != own.format)
            return "is a program for another system";
        const bool same = program.machine == own.machine && program.bits == own.bits;
        return same || runsBeside(program, own) ? "" : "is a program for another processor";
    } catch (const platform::SystemFailure&) {
        return "";
    }
}

} // namespace diagnosis
