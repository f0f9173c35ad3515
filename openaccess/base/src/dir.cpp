#include "oaDir.h"

#include "base/src/system_reason.h"
#include "oaException.h"
#include "platform/file.h"

namespace OpenAccess_4 {

namespace {

std::vector<platform::DirectoryEntry> entriesOf(const oaString& path) {
    const oaChar* text = path;
    try {
        return platform::listDirectory(text);
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacUnableToOpenDir, text, impl::systemReason(failure).c_str());
    }
}

bool isShown(platform::EntryKind kind, oaDirIterModeEnum mode) {
    switch (mode) {
    case oacFilesDirIterMode:
        return kind == platform::EntryKind::file;
    case oacDirsDirIterMode:
        return kind == platform::EntryKind::directory;
    default:
        return true;
    }
}

// On a mismatch behind a "*", that star takes one character more.
bool fits(const oaChar* name, const oaChar* wildcard) {
    const oaChar* star = nullptr;
    const oaChar* behindStar = nullptr;
    while (*name) {
        if (*wildcard == '*') {
            star = wildcard++;
            behindStar = name;
        } else if (*wildcard == '?' || *wildcard == *name) {
            ++wildcard;
            ++name;
        } else if (star) {
            wildcard = star + 1;
            name = ++behindStar;
        } else {
            return false;
        }
    }
    while (*wildcard == '*')
        ++wildcard;
    return *wildcard == '\0';
}

} // namespace

void oaDir::create() const {
    const oaChar* path = getName();
    try {
        platform::createDirectory(path);
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacDirCreateFailed, path, impl::systemReason(failure).c_str());
    }
}

oaBoolean oaDir::isEmpty() const {
    return entriesOf(getName()).empty();
}

oaBoolean oaDir::isCWD() const {
    return platform::sameFile(static_cast<const oaChar*>(getName()), ".");
}

oaDirIter::oaDirIter(const oaString& dirPath, oaDirIterModeEnum mode)
    : oaDirIter(dirPath, "*", mode) {}

oaDirIter::oaDirIter(const oaString& dirPath, const oaString& wildcard, oaDirIterModeEnum mode)
    : dirPath_(dirPath), wildcard_(wildcard), mode_(mode) {
    reset();
}

oaBoolean oaDirIter::getNext(oaString& name) {
    if (next_ == names_.size())
        return false;
    name = names_[next_++];
    return true;
}

void oaDirIter::reset() {
    names_.clear();
    next_ = 0;
    for (const platform::DirectoryEntry& entry : entriesOf(dirPath_)) {
        if (isShown(entry.kind, mode_) && fits(entry.name.c_str(), wildcard_))
            names_.emplace_back(entry.name.c_str());
    }
}

} // namespace OpenAccess_4
