#include "oa/oaPcellFile.h"

#include "design/src/design_database.h"
#include "design/src/open_designs.h"
#include "design/src/pcell_observers.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"
#include "storage/src/database_sequence.h"

#include "platform/file.h"

#include <array>
#include <optional>
#include <string_view>

namespace OpenAccess_4 {

using namespace impl;

struct PcellFile::State {
    std::string path;
    std::optional<DatabaseReader> reader;
    std::optional<DatabaseWriter> writer;

    void giveUp() {
        reader.reset();
        writer.reset();
    }
    template <class Part>
    Part& opened(std::optional<Part>& part) const {
        if (!part)
            throw oaError(oacFileNotOpen, path.c_str());
        return *part;
    }
};

namespace {

constexpr std::array kNotOfTheBlock = {kSuperMasterTable, kPcellParamTable};

/// Fills a submaster that has nothing yet, which is what most evaluations do.
void fill(oaDesign* design, OpenDesignRecord& record, DatabaseReader& reader, oaUInt8 offset) {
    try {
        record.content->readSubmaster(reader, offset);
    } catch (...) {
        replaceContent(record, std::make_unique<DesignDatabase>(design));
        throw;
    }
}

/// Puts what is stored into the place of what the design holds.
void replace(oaDesign* design, OpenDesignRecord& record, DatabaseReader& reader, oaUInt8 offset) {
    auto content = std::make_unique<DesignDatabase>(design);
    content->readSubmaster(reader, offset);
    content->pcell.takeFrom(record.content->pcell);
    replaceContent(record, std::move(content));
    record.content->setModified(!record.origin);
}

} // namespace

PcellFile::PcellFile(const oaString& path) : state_(std::make_unique<State>()) {
    state_->path = std::string_view(path);
}

PcellFile::~PcellFile() = default;

oaBoolean PcellFile::exists() const {
    return platform::isFile(state_->path);
}

void PcellFile::open(const oaChar* mode) {
    const std::string_view wanted = mode ? mode : "";
    if (wanted != "r" && wanted != "w" && wanted != "a")
        throw oaError(oacInvalidFileAccessMode, state_->path.c_str(),
                      wanted.empty() ? ' ' : wanted.front());
    state_->giveUp();
    if (wanted == "r")
        state_->reader.emplace(state_->path);
    else
        state_->writer.emplace(state_->path, DatabaseFileKind::PcellSubmasters, wanted == "a");
}

void PcellFile::read(oaDesign* design, oaUInt8 offset) {
    DatabaseReader& reader = state_->opened(state_->reader);
    OpenDesignRecord& record = recordOf<OpenDesignRecord>(design);
    if (!record.origin)
        record.content->requireEditable();
    if (record.origin && record.content->isUntouched())
        fill(design, record, reader, offset);
    else
        replace(design, record, reader, offset);
    notifyPcellFileRead(design, this, offset);
}

oaUInt8 PcellFile::append(oaDesign* design) {
    state_->opened(state_->writer);
    DesignDatabase& content = designDatabaseOf(design);
    notifyPcellFilePreAppend(design, this);
    content.dropUnused();
    content.info();
    oaUInt8 offset = 0;
    try {
        offset = state_->opened(state_->writer).append(content, kNotOfTheBlock);
    } catch (...) {
        state_->giveUp();
        throw;
    }
    notifyPcellFilePostAppend(design, this);
    return offset;
}

void PcellFile::close() {
    std::optional<DatabaseWriter> writer;
    writer.swap(state_->writer);
    state_->giveUp();
    if (writer)
        writer->commit();
}

} // namespace OpenAccess_4
