#include "comparison/files.h"

#include <algorithm>
#include <vector>

#include "comparison/matching.h"
#include "comparison/opened.h"
#include "comparison/text.h"
#include "platform/file.h"

namespace comparison {
namespace {

Named<oa::oaDMFile> filesOf(const oa::oaDMContainer& container,
                            const std::function<bool(const oa::oaDMFile&)>& isBook) {
    Named<oa::oaDMFile> files;
    oa::oaIter<oa::oaDMFile> all(container.getDMFiles());
    while (const oa::oaDMFile* file = all.getNext())
        if (file->existsOnDisk() && !isBook(*file))
            files[plainNameOf(*file)] = file;
    return files;
}

platform::File opened(const oa::oaDMFile& file) {
    oa::oaString path;
    file.getPath(path);
    return {ovalis::fromOa(path), platform::OpenMode::read};
}

/// Fills the room as far as the file goes.
std::size_t fill(platform::File& file, std::vector<char>& room) {
    std::size_t filled = 0;
    while (filled < room.size()) {
        const std::size_t read = file.read(room.data() + filled, room.size() - filled);
        if (read == 0)
            break;
        filled += read;
    }
    return filled;
}

constexpr std::size_t chunk = 1 << 16;

/// Where two files begin to differ.
struct Departure {
    bool differ = false;
    std::uint64_t line = 1;
    std::uint64_t byte = 1;
    bool isText = true;

    std::string text() const {
        return isText ? "from line " + numberText(line) + " on"
                      : "from byte " + numberText(byte) + " on";
    }
};

Departure departureOf(platform::File& was, platform::File& is) {
    Departure departure;
    std::vector<char> left(chunk);
    std::vector<char> right(chunk);
    for (;;) {
        const std::size_t leftSize = fill(was, left);
        const std::size_t rightSize = fill(is, right);
        const auto leftEnd = left.begin() + std::ptrdiff_t(leftSize);
        const auto rightEnd = right.begin() + std::ptrdiff_t(rightSize);
        const auto [at, other] = std::mismatch(left.begin(), leftEnd, right.begin(), rightEnd);
        departure.line += std::uint64_t(std::count(left.begin(), at, '\n'));
        departure.byte += std::uint64_t(at - left.begin());
        departure.isText = departure.isText && std::find(left.begin(), leftEnd, '\0') == leftEnd &&
                           std::find(right.begin(), rightEnd, '\0') == rightEnd;
        departure.differ = at != leftEnd || other != rightEnd;
        if (departure.differ || leftSize < chunk)
            return departure;
    }
}

void compareFile(const Place& place, const std::string& label, const oa::oaDMFile& was,
                 const oa::oaDMFile& is) {
    platform::File left = opened(was);
    platform::File right = opened(is);
    const Departure departure = departureOf(left, right);
    if (departure.differ)
        place.tell({Difference::Kind::changed, "", label, "content",
                    numberText(left.size()) + " bytes",
                    numberText(right.size()) + " bytes, another " + departure.text()});
}

std::string labelOf(const oa::oaDMFile& file) {
    return "file " + quoted(plainNameOf(file));
}

} // namespace

void compareFiles(const Place& place, const oa::oaDMContainer& was, const oa::oaDMContainer& is,
                  const std::function<bool(const oa::oaDMFile&)>& isBook) {
    const Matching<oa::oaDMFile> files = matchByName(filesOf(was, isBook), filesOf(is, isBook));
    for (const auto& pair : files.both)
        guarded(place,
                [&] { compareFile(place, labelOf(*pair.first), *pair.first, *pair.second); });
    for (const oa::oaDMFile* file : files.removed)
        place.removed(labelOf(*file));
    for (const oa::oaDMFile* file : files.added)
        place.added(labelOf(*file));
}

} // namespace comparison
