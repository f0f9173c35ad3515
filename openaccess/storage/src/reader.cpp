#include "base/src/hash.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "storage/src/database_file.h"
#include "storage/src/database_sequence.h"
#include "storage/src/format.h"

#include "platform/file.h"

#include <algorithm>
#include <array>
#include <utility>

namespace OpenAccess_4::impl {

namespace {

constexpr std::uint64_t kNowhere = ~std::uint64_t(0);

/// The bytes of a database file, from the first to the last.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    virtual std::uint64_t size() const = 0;
    /// Fills `bytes`; false when there are fewer.
    virtual bool read(std::span<std::byte> bytes) = 0;
};

/// A file from some byte on. Small files are read at once; of larger ones the long sections are
/// read to where they belong.
class FileSource final : public ByteSource {
public:
    FileSource(platform::File& file, std::uint64_t position)
        : file_(file), size_(sizeFrom(file, position)), unread_(size_) {}
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    std::uint64_t size() const override { return size_; }
    bool read(std::span<std::byte> bytes) override {
        bytes = bytes.subspan(takeBuffered(bytes));
        if (bytes.empty())
            return true;
        if (bytes.size() >= buffer_.size())
            return readInto(bytes);
        const std::size_t filled = std::size_t(std::min<std::uint64_t>(unread_, buffer_.size()));
        if (!readInto(std::span(buffer_).first(filled)))
            return false;
        buffered_ = std::span(buffer_).first(filled);
        return takeBuffered(bytes) == bytes.size();
    }

private:
    static std::uint64_t sizeFrom(const platform::File& file, std::uint64_t position) {
        const std::uint64_t size = file.size();
        return size > position ? size - position : 0;
    }

    std::size_t takeBuffered(std::span<std::byte> bytes) {
        const std::size_t taken = std::min(bytes.size(), buffered_.size());
        std::copy_n(buffered_.begin(), taken, bytes.begin());
        buffered_ = buffered_.subspan(taken);
        return taken;
    }

    bool readInto(std::span<std::byte> bytes) {
        const std::size_t got = file_.read(bytes.data(), bytes.size());
        unread_ -= std::min<std::uint64_t>(unread_, got);
        return got == bytes.size();
    }

    platform::File& file_;
    std::uint64_t size_;
    std::uint64_t unread_;
    std::span<const std::byte> buffered_;
    std::array<std::byte, 64 * 1024> buffer_; // left as it is until it is read into
};

class MemorySource final : public ByteSource {
public:
    explicit MemorySource(std::span<const std::byte> bytes) : bytes_(bytes) {}

    std::uint64_t size() const override { return size_; }
    bool read(std::span<std::byte> bytes) override {
        if (bytes.size() > bytes_.size())
            return false;
        std::copy_n(bytes_.begin(), bytes.size(), bytes.begin());
        bytes_ = bytes_.subspan(bytes.size());
        return true;
    }

private:
    std::span<const std::byte> bytes_;
    std::uint64_t size_ = bytes_.size();
};

/// Reads one database file from its first byte to its last.
class Reader {
public:
    Reader(const std::string& path, ByteSource& source, Database& database)
        : path_(path), source_(source), fileSize_(source.size()), database_(database) {}

    void read(DatabaseFileKind kind) {
        readHeader(kind);
        if (header_.fileSize != fileSize_)
            wrongLength();
        readContent();
    }

    /// Reads a database that others may follow.
    void readOneOfSeveral(DatabaseFileKind kind) {
        readHeader(kind);
        if (header_.fileSize < sizeof(FileHeader) || header_.fileSize > fileSize_)
            wrongLength();
        const std::uint64_t room = std::exchange(fileSize_, header_.fileSize);
        readContent();
        if (room > fileSize_)
            readBeginningOfNext();
    }

private:
    [[noreturn]] void damaged(const std::string& what) const {
        throw oaError(oacDatabaseFileDamaged, path_.c_str(), what.c_str());
    }

    void readBytes(std::span<std::byte> bytes) {
        if (!source_.read(bytes))
            damaged("ends too early");
        offset_ += bytes.size();
    }

    void readHeader(DatabaseFileKind kind) {
        if (fileSize_ < sizeof(FileHeader))
            damaged("is shorter than the header of a database file");
        readBytes(std::as_writable_bytes(std::span(&header_, 1)));
        if (header_.magic != kMagic)
            damaged("is not a database file");
        if (header_.headerChecksum != hashBytes(&header_, offsetof(FileHeader, headerChecksum)))
            damaged("has a damaged header");
        if (header_.version != kFormatVersion)
            damaged("has format version " + std::to_string(header_.version) +
                    ", which this version does not read");
        if (header_.kind != std::uint32_t(kind))
            damaged("holds another kind of database");
        if (header_.reserved != 0)
            damaged("has a damaged header");
    }

    [[noreturn]] void wrongLength() const {
        damaged("is " + std::to_string(fileSize_) + " bytes long instead of " +
                std::to_string(header_.fileSize));
    }

    void readContent() {
        readSectionTable();
        for (const SectionEntry& section : sections_)
            readSection(section);
        if (offset_ != fileSize_)
            damaged("has bytes behind its last section");
        finishStrings();
        checkRecords();
    }

    void readBeginningOfNext() {
        readPadding(alignSection(offset_));
        decltype(FileHeader::magic) magic;
        readBytes(std::as_writable_bytes(std::span(magic)));
        if (magic != kMagic)
            damaged("has bytes behind its last database");
    }

    void readSectionTable() {
        const std::uint64_t bytes = std::uint64_t(header_.sectionCount) * sizeof(SectionEntry);
        if (bytes > fileSize_ - offset_)
            damaged("ends within its section table");
        sections_.resize(header_.sectionCount);
        readBytes(std::as_writable_bytes(std::span(sections_)));
        if (hashBytes(sections_.data(), std::size_t(bytes)) != header_.tableChecksum)
            damaged("has a damaged section table");
    }

    void readSection(const SectionEntry& section) {
        if (section.offset != alignSection(offset_) || section.offset > fileSize_ ||
            section.bytes > fileSize_ - section.offset || section.recordSize == 0 ||
            section.bytes % section.recordSize != 0 ||
            section.bytes / section.recordSize != section.count)
            damaged("has a section table that does not fit its length");
        readPadding(section.offset);
        switch (section.kind) {
        case kStringsSection:
            return readArray(section, stringBytes_);
        case kStringStartsSection:
            return readArray(section, stringStarts_);
        case kPointsSection:
            return readPoints(section);
        default:
            return readTable(section);
        }
    }

    void readPadding(std::uint64_t end) {
        std::array<std::byte, kSectionAlignment> padding{};
        const auto used = std::span(padding).first(std::size_t(end - offset_));
        readBytes(used);
        if (std::any_of(used.begin(), used.end(), [](std::byte b) { return b != std::byte{}; }))
            damaged("has bytes between its sections");
    }

    template <class Element>
    void readArray(const SectionEntry& section, std::vector<Element>& elements) {
        if (section.recordSize != sizeof(Element) || !elements.empty())
            damaged("has a section of a wrong shape");
        elements.resize(std::size_t(section.count));
        readWhole(section, std::as_writable_bytes(std::span(elements)));
    }

    void readPoints(const SectionEntry& section) {
        if (section.recordSize != sizeof(oaPoint) || !database_.points.all().empty())
            damaged("has a section of a wrong shape");
        const auto points = database_.points.makeRoom(std::size_t(section.count));
        readWhole(section, std::as_writable_bytes(points));
    }

    void readWhole(const SectionEntry& section, std::span<std::byte> bytes) {
        readBytes(bytes);
        if (hashBytes(bytes.data(), bytes.size()) != section.checksum)
            damaged("has a damaged section");
    }

    void readTable(const SectionEntry& section) {
        TableBase& table = tableFor(section);
        table.appendSlots(std::uint32_t(section.count));
        if (table.slabs() == 1)
            return readWhole(section, table.recordBytes(0));
        StreamHash hash;
        for (std::size_t slab = 0; slab < table.slabs(); ++slab) {
            readBytes(table.recordBytes(slab));
            hash.add(table.recordBytes(slab));
        }
        if (hash.digest() != section.checksum)
            damaged("has a damaged section");
    }

    TableBase& tableFor(const SectionEntry& section) {
        if (section.number >= kMostTables || section.count >= kNone)
            damaged("has a table that cannot be");
        TableBase* table = database_.table(section.number);
        if (!table && section.number >= kFirstVariableTable)
            table = database_.makeVariableTable({section.number, section.kind, section.parameter});
        if (!table || table->id().kind != section.kind || section.kind == kTransientKind ||
            table->recordSize() != section.recordSize || table->slots() != 0)
            damaged("has a table that is not known");
        return *table;
    }

    void finishStrings() {
        const auto& starts = stringStarts_;
        const bool sound = starts.size() >= 2 && starts[0] == 0 && starts[1] == 1 &&
                           starts.back() == stringBytes_.size();
        if (!sound)
            damaged("has a damaged text section");
        for (std::size_t i = 1; i < starts.size(); ++i)
            if (starts[i] <= starts[i - 1] || starts[i] > stringBytes_.size() ||
                stringBytes_[starts[i] - 1] != '\0')
                damaged("has a damaged text section");
        database_.strings = StringPool(std::move(stringBytes_), std::move(stringStarts_));
        if (!database_.strings.isSound())
            damaged("has a text twice");
    }

    void checkRecords() {
        RecordChecker checker(database_);
        for (std::uint32_t number = 0; number < database_.tableCount(); ++number) {
            const TableBase* table = database_.table(number);
            if (table && !table->check(checker))
                damaged("has an entry in table " + std::to_string(number) +
                        " that names something the file does not hold");
        }
        if (!database_.properties.isSound())
            damaged("has a property that is below itself");
        database_.reportConflicts();
    }

    const std::string& path_;
    ByteSource& source_;
    std::uint64_t fileSize_;
    Database& database_;
    std::uint64_t offset_ = 0;
    FileHeader header_;
    std::vector<SectionEntry> sections_;
    std::vector<char> stringBytes_;
    std::vector<std::uint32_t> stringStarts_;
};

} // namespace

void readDatabaseFile(const std::string& path, DatabaseFileKind kind, Database& database) {
    try {
        platform::File file(path, platform::OpenMode::read);
        FileSource source(file, 0);
        Reader(path, source, database).read(kind);
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacDatabaseFileNotRead, path.c_str(), failure.error().text().c_str());
    }
}

DatabaseReader::DatabaseReader(const std::string& path) : path_(path) {
    try {
        file_ = platform::File(path, platform::OpenMode::read);
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacDatabaseFileNotRead, path.c_str(), failure.error().text().c_str());
    }
}

void DatabaseReader::read(DatabaseFileKind kind, std::uint64_t offset, Database& database) {
    try {
        if (offset != position_ && offset <= file_.size())
            file_.seek(offset);
        position_ = kNowhere; // the position depends on how much was read
        FileSource source(file_, offset);
        Reader(path_, source, database).readOneOfSeveral(kind);
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacDatabaseFileNotRead, path_.c_str(), failure.error().text().c_str());
    }
}

void readDatabaseBytes(const std::string& name, std::span<const std::byte> bytes,
                       DatabaseFileKind kind, Database& database) {
    MemorySource source(bytes);
    Reader(name, source, database).read(kind);
}

} // namespace OpenAccess_4::impl
