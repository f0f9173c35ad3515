#include "base/src/hash.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "storage/src/database_file.h"
#include "storage/src/database_sequence.h"
#include "storage/src/format.h"

#include "platform/atomic_file.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <deque>
#include <string_view>
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

    std::uint64_t size() const { return size_; }

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

Pieces piecesOf(const TableBase& table) {
    Pieces pieces;
    for (std::size_t slab = 0; slab < table.slabs(); ++slab)
        pieces.emplace_back(table.recordBytes(slab));
    return pieces;
}

/// The numbers of tables that do not go into a file.
using LeftOut = std::span<const std::uint32_t>;

template <class Visit>
void forEachStored(const Database& database, LeftOut leftOut, Visit visit) {
    for (std::uint32_t number = 0; number < database.tableCount(); ++number) {
        const TableBase* table = database.table(number);
        if (table && table->id().kind != kTransientKind &&
            std::ranges::find(leftOut, number) == leftOut.end())
            visit(*table);
    }
}

bool leavesSomethingOut(const Database& database, LeftOut leftOut) {
    return std::ranges::any_of(leftOut, [&](std::uint32_t number) {
        const TableBase* table = database.table(number);
        return table && table->live() > 0;
    });
}

void addPools(Layout& layout, const StringPool& strings, const PointPool& points) {
    layout.add(kStringsSection, std::span(strings.bytes()));
    layout.add(kStringStartsSection, std::span(strings.starts()));
    layout.add(kPointsSection, points.all());
}

std::uint64_t writeAsItLies(platform::AtomicFile& file, DatabaseFileKind kind,
                            const Database& database, LeftOut leftOut) {
    Layout layout;
    addPools(layout, database.strings, database.points);
    forEachStored(database, leftOut,
                  [&](const TableBase& table) { layout.add(entryOf(table), piecesOf(table)); });
    layout.place();
    layout.write(file, kind);
    return layout.size();
}

std::uint64_t writeCompacted(platform::AtomicFile& file, DatabaseFileKind kind,
                             const Database& database, LeftOut leftOut) {
    RecordRemapper remapper(database);
    std::deque<std::vector<std::byte>> records;
    std::vector<const TableBase*> tables;
    forEachStored(database, leftOut, [&](const TableBase& table) {
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
    return layout.size();
}

/// Answers how many bytes were written.
std::uint64_t write(platform::AtomicFile& file, DatabaseFileKind kind, const Database& database,
                    LeftOut leftOut) {
    return database.hasGarbage() || leavesSomethingOut(database, leftOut)
               ? writeCompacted(file, kind, database, leftOut)
               : writeAsItLies(file, kind, database, leftOut);
}

/// Does `work`; what the system refuses is reported as a failure to write `path`.
template <class Work>
auto writing(const std::string& path, Work work) {
    try {
        return work();
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacDatabaseFileNotWritten, path.c_str(), failure.error().text().c_str());
    }
}

/// True when `bytes` are databases of `kind`, each as long as it says; their content is not
/// looked at.
bool areDatabases(std::string_view bytes, DatabaseFileKind kind) {
    while (!bytes.empty()) {
        FileHeader header;
        if (bytes.size() < sizeof(header))
            return false;
        std::memcpy(&header, bytes.data(), sizeof(header));
        if (header.magic != kMagic || header.version != kFormatVersion ||
            header.kind != std::uint32_t(kind) || header.fileSize < sizeof(header) ||
            header.fileSize > bytes.size() ||
            header.headerChecksum != hashBytes(&header, offsetof(FileHeader, headerChecksum)))
            return false;
        const std::uint64_t next = alignSection(header.fileSize);
        if (header.fileSize < bytes.size() && next >= bytes.size())
            return false;
        bytes.remove_prefix(std::min<std::size_t>(std::size_t(next), bytes.size()));
    }
    return true;
}

} // namespace

void writeDatabaseFile(const std::string& path, DatabaseFileKind kind, const Database& database) {
    platform::removeStaleTemporaries(path);
    writing(path, [&] {
        platform::AtomicFile file(path);
        write(file, kind, database, {});
        file.commit();
    });
}

DatabaseWriter::DatabaseWriter(const std::string& path, DatabaseFileKind kind, bool keepsOld)
    : path_(path), kind_(kind) {
    platform::removeStaleTemporaries(path);
    writing(path, [&] { file_ = std::make_unique<platform::AtomicFile>(path); });
    if (keepsOld && platform::exists(path))
        keepOld();
}

void DatabaseWriter::keepOld() {
    std::string old;
    try {
        old = platform::readFile(path_);
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacDatabaseFileNotRead, path_.c_str(), failure.error().text().c_str());
    }
    if (!areDatabases(old, kind_))
        throw oaError(oacDatabaseFileDamaged, path_.c_str(), "is not a row of whole databases");
    writing(path_, [&] { file_->write(old.data(), old.size()); });
    size_ = old.size();
}

std::uint64_t DatabaseWriter::append(const Database& database,
                                     std::span<const std::uint32_t> leftOut) {
    return writing(path_, [&] {
        const std::uint64_t offset = alignSection(size_);
        static constexpr std::array<std::byte, kSectionAlignment> zeros{};
        file_->write(zeros.data(), std::size_t(offset - size_));
        size_ = offset + write(*file_, kind_, database, leftOut);
        return offset;
    });
}

void DatabaseWriter::commit() {
    writing(path_, [&] { file_->commit(); });
}

} // namespace OpenAccess_4::impl
