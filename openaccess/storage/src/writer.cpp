#include "base/src/hash.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "storage/src/database_file.h"
#include "storage/src/format.h"

#include "platform/atomic_file.h"

#include <deque>
#include <utility>

namespace OpenAccess_4::impl {

namespace {

using Pieces = std::vector<std::span<const std::byte>>;

struct Section {
    SectionEntry entry;
    Pieces pieces;
};

/// What goes into one file, put in order and placed.
class Layout {
public:
    void add(SectionEntry entry, Pieces pieces) {
        entry.bytes = entry.count * entry.recordSize;
        if (entry.bytes > 0)
            sections_.push_back({entry, std::move(pieces)});
    }

    template <class Element>
    void add(std::uint32_t kind, std::span<const Element> elements) {
        SectionEntry entry;
        entry.kind = kind;
        entry.recordSize = sizeof(Element);
        entry.count = elements.size();
        add(entry, {std::as_bytes(elements)});
    }

    void place() {
        std::uint64_t offset = sizeof(FileHeader) + sections_.size() * sizeof(SectionEntry);
        for (Section& section : sections_) {
            offset = alignSection(offset);
            section.entry.offset = offset;
            section.entry.checksum = checksum(section.pieces);
            offset += section.entry.bytes;
        }
        size_ = offset;
    }

    void write(platform::AtomicFile& file, DatabaseFileKind kind) const {
        std::vector<SectionEntry> table;
        for (const Section& section : sections_)
            table.push_back(section.entry);
        const std::size_t tableBytes = table.size() * sizeof(SectionEntry);

        FileHeader header;
        header.kind = std::uint32_t(kind);
        header.fileSize = size_;
        header.sectionCount = std::uint32_t(table.size());
        header.tableChecksum = hashBytes(table.data(), tableBytes);
        header.headerChecksum = hashBytes(&header, offsetof(FileHeader, headerChecksum));
        file.write(&header, sizeof(header));
        file.write(table.data(), tableBytes);

        std::uint64_t offset = sizeof(FileHeader) + tableBytes;
        for (const Section& section : sections_) {
            static constexpr std::array<std::byte, kSectionAlignment> zeros{};
            file.write(zeros.data(), std::size_t(section.entry.offset - offset));
            for (const auto& piece : section.pieces)
                file.write(piece.data(), piece.size());
            offset = section.entry.offset + section.entry.bytes;
        }
    }

private:
    static std::uint64_t checksum(const Pieces& pieces) {
        if (pieces.size() == 1)
            return hashBytes(pieces.front().data(), pieces.front().size());
        StreamHash hash;
        for (const auto& piece : pieces)
            hash.add(piece);
        return hash.digest();
    }

    std::vector<Section> sections_;
    std::uint64_t size_ = 0;
};

SectionEntry entryOf(const TableBase& table) {
    SectionEntry entry;
    entry.kind = table.id().kind;
    entry.number = table.id().number;
    entry.parameter = table.id().parameter;
    entry.recordSize = std::uint32_t(table.recordSize());
    entry.count = table.live();
    return entry;
}

template <class Visit>
void forEachStored(const Database& database, Visit visit) {
    for (std::uint32_t number = 0; number < database.tableCount(); ++number) {
        const TableBase* table = database.table(number);
        if (table && table->id().kind != kTransientKind)
            visit(*table);
    }
}

void addPools(Layout& layout, const StringPool& strings, const PointPool& points) {
    layout.add(kStringsSection, std::span(strings.bytes()));
    layout.add(kStringStartsSection, std::span(strings.starts()));
    layout.add(kPointsSection, points.all());
}

void writeAsItLies(platform::AtomicFile& file, DatabaseFileKind kind, const Database& database) {
    Layout layout;
    addPools(layout, database.strings, database.points);
    forEachStored(database,
                  [&](const TableBase& table) { layout.add(entryOf(table), table.recordBytes()); });
    layout.place();
    layout.write(file, kind);
}

void writeCompacted(platform::AtomicFile& file, DatabaseFileKind kind, const Database& database) {
    RecordRemapper remapper(database);
    std::deque<std::vector<std::byte>> records;
    std::vector<const TableBase*> tables;
    forEachStored(database, [&](const TableBase& table) {
        tables.push_back(&table);
        records.push_back(table.compacted(remapper));
    });

    Layout layout;
    addPools(layout, remapper.strings(), remapper.points());
    for (std::size_t i = 0; i < tables.size(); ++i) {
        SectionEntry entry = entryOf(*tables[i]);
        entry.parameter = database.storedParameter(*tables[i], remapper);
        layout.add(entry, {std::span<const std::byte>(records[i])});
    }
    layout.place();
    layout.write(file, kind);
}

} // namespace

void writeDatabaseFile(const std::string& path, DatabaseFileKind kind, const Database& database) {
    platform::removeStaleTemporaries(path);
    try {
        platform::AtomicFile file(path);
        if (database.hasGarbage())
            writeCompacted(file, kind, database);
        else
            writeAsItLies(file, kind, database);
        file.commit();
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacDatabaseFileNotWritten, path.c_str(), failure.error().text().c_str());
    }
}

} // namespace OpenAccess_4::impl
