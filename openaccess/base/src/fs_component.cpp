#include "oaFSComponent.h"

#include "base/src/system_reason.h"
#include "oaException.h"
#include "platform/file.h"

namespace OpenAccess_4 {

namespace {

const oaChar* textOf(const oaString& path) {
    return path;
}

} // namespace

oaFSComponent::~oaFSComponent() = default;

void oaFSComponent::getFullName(oaString& pathName) const {
    try {
        pathName = platform::absolutePath(textOf(name_)).c_str();
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacGetFullPathFailed, textOf(name_), impl::systemReason(failure).c_str());
    }
}

oaBoolean oaFSComponent::exists() const {
    return platform::exists(textOf(name_));
}

oaBoolean oaFSComponent::isFile() const {
    return platform::isFile(textOf(name_));
}

oaBoolean oaFSComponent::isDir() const {
    return platform::isDirectory(textOf(name_));
}

oaBoolean oaFSComponent::isSymbolicLink() const {
    return platform::isSymbolicLink(textOf(name_));
}

oaBoolean oaFSComponent::isReadable() const {
    return platform::isReadable(textOf(name_));
}

oaBoolean oaFSComponent::isWritable() const {
    return platform::isWritable(textOf(name_));
}

oaBoolean oaFSComponent::isInCWD() const {
    return platform::sameFile(platform::parentPath(platform::absolutePath(textOf(name_))), ".");
}

oaBoolean oaFSComponent::isSameDiskFile(const oaFSComponent& other) const {
    return platform::sameFile(textOf(name_), textOf(other.name_));
}

void oaFSComponent::destroy() {
    if (!exists() && !isSymbolicLink())
        throw oaError(oacUnableToRemove, textOf(name_), "it does not exist");
    try {
        platform::removeTree(textOf(name_));
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacUnableToRemove, textOf(name_), impl::systemReason(failure).c_str());
    }
}

void oaFSComponent::rename(const oaString& newPath) {
    try {
        platform::renameFile(textOf(name_), textOf(newPath));
    } catch (const platform::SystemFailure& failure) {
        throw oaError(oacFileRenameFailed, textOf(name_), textOf(newPath),
                      impl::systemReason(failure).c_str());
    }
    name_ = newPath;
}

} // namespace OpenAccess_4
