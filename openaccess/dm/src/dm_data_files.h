#pragma once

#include "base/src/database.h"
#include "dm/src/edit_lock.h"
#include "oa/oaDMData.h"

#include <memory>
#include <optional>
#include <string>

namespace OpenAccess_4::impl {

/// The properties and values of open data.
class DMDataContent final : public Database {
public:
    /// For the open data `slot` of the session.
    explicit DMDataContent(std::uint32_t slot) : slot_(slot) {}

    oaObject* object() const override;
    void requireEditable() const override;

private:
    std::uint32_t slot_;
};

/// Open data as the session knows them.
struct DMDataRecord {
    oaDMContainer* container = nullptr;
    oaTypeEnum kind = oacLibDMDataType;
    std::string path;
    oaChar mode = 'r';
    std::uint32_t refCount = 0;
    std::optional<EditLock> lock = {}; // held in every mode but 'r'
    std::string header = {};           // of the file that the content came from or went to
    std::unique_ptr<DMDataContent> content = {};

    oaTypeEnum type() const { return kind; }
    oaObject* construct(void* where) const;
    Location location() const { return {content.get(), kDatabaseItself}; }
};

Table<DMDataRecord>& openDMDatas();

/// The open data of an object, or null.
oaDMData* findOpenDMData(const oaDMObject* object);
bool hasDMData(const oaDMContainer* container);

// What oaDMData documents for the calls of these names.
oaDMData* openDMData(const oaDMContainer* container, oaChar mode);
void reopenDMData(oaDMData* data, oaChar mode);
void revertDMData(oaDMData* data);
void saveDMData(oaDMData* data);
void destroyDMData(const oaDMContainer* container);
void purgeDMData(oaDMData* data);

/// Purges the data of an object that is about to go; it may have none.
void purgeDMDataOf(const oaDMObject* object);

/// What messages call the object that data belong to: "cell 'a' of library 'b'".
std::string titleOf(const oaDMContainer* container);

} // namespace OpenAccess_4::impl
