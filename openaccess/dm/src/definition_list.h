#pragma once

#include "base/src/session.h"
#include "dm/src/definition_content.h"

#include "platform/system_error.h"

#include <map>
#include <memory>
#include <string>

namespace OpenAccess_4::impl {

/// A library definition file in memory.
class DefinitionList {
public:
    DefinitionList(std::string path, char mode, std::uint32_t slot);

    oaLibDefList* handle() const;
    const std::string& path() const { return path_; }
    const std::string& fullPath() const { return fullPath_; }
    /// A path of the file, seen from any directory.
    std::string resolve(std::string_view path) const;

    char mode() const { return mode_; }
    void setMode(char mode) { mode_ = mode; }
    bool isModified() const { return modified_; }
    void edit() { modified_ = true; }

    DefinitionContent& content() const { return *content_; }
    std::shared_ptr<DefinitionContent> shareContent() const { return content_; }
    void setText(std::string text);

    /// Writes the text to a file. @throws oaDMError  oacLibDefListFileNotWritable
    void write(const std::string& path) const;
    void save();

private:
    std::string path_;
    std::string fullPath_;
    std::string directory_;
    char mode_;
    bool modified_ = false;
    std::uint32_t slot_;
    std::shared_ptr<DefinitionContent> content_;
};

struct DefinitionListRecord {
    using Handle = oaLibDefList;
    static constexpr oaTypeEnum kType = oacLibDefListType;

    std::shared_ptr<DefinitionList> list;
};

/// The library definition files in memory.
class DefinitionLists {
public:
    static DefinitionLists& instance();

    Table<DefinitionListRecord>& table() { return table_; }

    /// The list of that file; null when it is not in memory.
    std::shared_ptr<DefinitionList> find(const std::string& path) const;
    /// Makes an empty list that is in memory from now on.
    std::shared_ptr<DefinitionList> add(const std::string& path, char mode);
    /// The list of that file as it is on the disk now, for reading when it is new. One with changes
    /// that are not saved stays as it is. @throws platform::SystemFailure
    std::shared_ptr<DefinitionList> read(const std::string& path);
    void destroy(std::uint32_t slot);

    oaLibDefList* top() const { return top_ == kNone ? nullptr : handleOf(top_); }
    void setTop(const oaLibDefList* list) { top_ = slotOf(list); }

private:
    DefinitionLists();
    oaLibDefList* handleOf(std::uint32_t slot) const;

    Table<DefinitionListRecord>& table_;
    std::map<std::string, std::uint32_t> byKey_;
    std::uint32_t top_ = kNone;
};

inline DefinitionList& listOf(const oaLibDefList* list) {
    return *recordOf<DefinitionListRecord>(list).list;
}

/// True for a path that does not count from the working directory.
bool isAbsolutePath(std::string_view path);

/// Why a file cannot be read or written, without its name.
std::string fileReason(const platform::SystemFailure& failure);

} // namespace OpenAccess_4::impl
