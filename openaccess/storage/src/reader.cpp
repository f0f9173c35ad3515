#include "base/src/hash.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "storage/src/database_file.h"
#include "storage/src/format.h"

#include "platform/file.h"

#include <algorithm>

namespace OpenAccess_4::impl {

namespace {

/// The bytes of a database file, from the first to the last.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    virtual std::uint64_t size() const = 0;
    /// Fills `bytes`; false when there are fewer.
    virtual bool read(std::span<std::byte> bytes) = 0;
};

class FileSource final : public ByteSource {
public:
    explicit FileSource(const std::string& path) : file_(path, platform::OpenMode::read) {}

    std::uint64_t size() const override { return file_.size(); }
    bool read(std::span<std::byte> bytes) override {
        return file_.read(bytes.data(), bytes.size()) == bytes.size();
    }

private:
    platform::File file_;
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
        readSectionTable();
        for (const SectionEntry& section : sections_)
            readSection(section);
        if (offset_ != fileSize_)
            damaged("has bytes behind its last section");
        finishStrings();
        checkRecords();
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
        if (header_.fileSize != fileSize_)
            damaged("is " + std::to_string(fileSize_) + " bytes long instead of " +
                    std::to_string(header_.fileSize));
        if (header_.reserved != 0)
            damaged("has a damaged header");
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
        StreamHash hash;
        for (const auto piece : table.appendSlots(std::uint32_t(section.count))) {
            readBytes(piece);
            hash.add(piece);
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
        FileSource source(path);
        Reader(path, source, database).read(kind);
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacDatabaseFileNotRead, path.c_str(), failure.error().text().c_str());
    }
}

void readDatabaseBytes(const std::string& name, std::span<const std::byte> bytes,
                       DatabaseFileKind kind, Database& database) {
    MemorySource source(bytes);
    Reader(name, source, database).read(kind);
}

} // namespace OpenAccess_4::impl
