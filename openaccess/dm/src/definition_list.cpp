#include "dm/src/definition_list.h"

#include "oa/oaDMException.h"
#include "platform/atomic_file.h"
#include "platform/file.h"

namespace OpenAccess_4::impl {

namespace {

/// What is equal for equal files.
std::string keyOf(const std::string& path) {
    if (platform::exists(path))
        return platform::canonicalPath(path);
    // The key is to stay the same when the file comes to be.
    const std::string directory = platform::parentPath(path);
    if (platform::exists(directory))
        return platform::joinPath(platform::canonicalPath(directory), platform::fileName(path));
    return platform::absolutePath(path);
}

bool hasDrive(std::string_view path) {
    return platform::pathSeparator() == '\\' && path.size() > 1 && path[1] == ':';
}

} // namespace

bool isAbsolutePath(std::string_view path) {
    return hasDrive(path) || (!path.empty() && platform::isPathSeparator(path.front()));
}

std::string fileReason(const platform::SystemFailure& failure) {
    if (!platform::exists(failure.path()))
        return "there is no such file";
    return platform::isFile(failure.path()) ? failure.error().text() : "it is no file";
}

DefinitionList::DefinitionList(std::string path, char mode, std::uint32_t slot)
    : path_(std::move(path)),
      fullPath_(platform::absolutePath(path_)),
      directory_(platform::parentPath(fullPath_)),
      mode_(mode),
      slot_(slot) {
    setText("");
}

oaLibDefList* DefinitionList::handle() const {
    return static_cast<oaLibDefList*>(DefinitionLists::instance().table().handle(slot_));
}

std::string DefinitionList::resolve(std::string_view path) const {
    if (isAbsolutePath(path))
        return std::string(path);
    while (path.size() > 1 && path[0] == '.' && platform::isPathSeparator(path[1])) {
        path.remove_prefix(2);
        while (!path.empty() && platform::isPathSeparator(path[0]))
            path.remove_prefix(1);
    }
    if (path.empty() || path == ".")
        return directory_;
    return platform::joinPath(directory_, path);
}

void DefinitionList::setText(std::string text) {
    content_ = std::make_shared<DefinitionContent>(*this, std::move(text));
    modified_ = false;
}

void DefinitionList::write(const std::string& path) const {
    try {
        const std::string text = content_->text();
        platform::AtomicFile file(path);
        file.write(text.data(), text.size());
        file.commit();
    } catch (const platform::SystemFailure& failure) {
        throw oaDMError(oacLibDefListFileNotWritable, path.c_str(), failure.error().text().c_str());
    }
}

void DefinitionList::save() {
    write(fullPath_);
    modified_ = false;
}

DefinitionLists& DefinitionLists::instance() {
    // Never destroyed: clients may hold its objects until the process ends.
    static DefinitionLists& lists = *new DefinitionLists;
    return lists;
}

DefinitionLists::DefinitionLists()
    : table_(Session::instance().addTable<DefinitionListRecord>(kFirstDMSessionTable + 1)) {}

oaLibDefList* DefinitionLists::handleOf(std::uint32_t slot) const {
    return static_cast<oaLibDefList*>(table_.handle(slot));
}

std::shared_ptr<DefinitionList> DefinitionLists::find(const std::string& path) const {
    const auto found = byKey_.find(keyOf(path));
    return found == byKey_.end() ? nullptr : table_[found->second].list;
}

std::shared_ptr<DefinitionList> DefinitionLists::add(const std::string& path, char mode) {
    const std::uint32_t slot = table_.add({});
    table_[slot].list = std::make_shared<DefinitionList>(path, mode, slot);
    byKey_[keyOf(path)] = slot;
    return table_[slot].list;
}

std::shared_ptr<DefinitionList> DefinitionLists::read(const std::string& path) {
    std::shared_ptr<DefinitionList> list = find(path);
    if (list && list->isModified())
        return list;
    // A device or a pipe might never end.
    if (!platform::isFile(path))
        throw platform::SystemFailure("cannot read file", path, platform::SystemError());
    std::string text = platform::readFile(path);
    if (!list)
        list = add(path, 'r');
    list->setText(std::move(text));
    return list;
}

void DefinitionLists::destroy(std::uint32_t slot) {
    std::erase_if(byKey_, [&](const auto& entry) { return entry.second == slot; });
    if (top_ == slot)
        top_ = kNone;
    table_.destroy(slot);
}

} // namespace OpenAccess_4::impl
