#include <cctype>
#include <iomanip>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/pcell_target.h"
#include "evaluation/identity.h"

namespace cli {
namespace {

constexpr std::size_t bytesInRow = 16;

/// Rows of bytes in hexadecimal; the first one with the label and the value.
void writeField(std::ostream& out, std::size_t offset, const evaluation::IdentityField& field) {
    constexpr char digits[] = "0123456789abcdef";
    for (std::size_t begin = 0; begin < field.bytes.size(); begin += bytesInRow) {
        std::string row;
        for (const unsigned char byte : field.bytes.substr(begin, bytesInRow)) {
            row += digits[byte >> 4];
            row += digits[byte & 15];
            row += ' ';
        }
        out << std::right << std::setw(5) << offset + begin << "  ";
        if (begin > 0) {
            row.pop_back();
            out << row << '\n';
            continue;
        }
        out << std::left << std::setw(3 * bytesInRow + 1) << row << field.label;
        if (!field.text.empty())
            out << ' ' << field.text;
        out << '\n';
    }
}

} // namespace

int hashCommand(const HashOptions& options, Console& console) {
    return calling([&] {
        const PcellTarget target(options.target);
        const ovalis::SubmasterIdentity identity = target.identity();
        if (options.explain) {
            std::size_t offset = 0;
            for (const evaluation::IdentityField& field : evaluation::fieldsOf(identity.bytes)) {
                writeField(console.out, offset, field);
                offset += field.bytes.size();
            }
        }
        console.out << identity.hash << '\n';
        return success;
    });
}

} // namespace cli
