#include "platform/exclusive_file.h"

#include "platform/atomic_file.h"
#include "windows/wide.h"

namespace platform {

using internal::fail;
using internal::Handle;
using internal::widePath;

namespace {

std::string contentOf(HANDLE file) {
    std::string content;
    char part[4096];
    DWORD got = 0;
    while (ReadFile(file, part, sizeof part, &got, nullptr) && got > 0)
        content.append(part, got);
    return content;
}

void writeTemporary(const std::wstring& path, const std::string& target, std::string_view content) {
    const Handle created(CreateFileW(path.c_str(), GENERIC_WRITE, internal::shareAll, nullptr,
                                     CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!created)
        fail("cannot create file", target);
    if (!internal::writeAll(created.get(), content.data(), content.size())) {
        const SystemError error = lastSystemError();
        DeleteFileW(path.c_str());
        throw SystemFailure("cannot create file", target, error);
    }
}

} // namespace

bool createExclusively(std::string_view path, std::string_view content) {
    const std::string target = nativePath(path);
    const std::wstring temporary = widePath(temporaryPathFor(target));
    writeTemporary(temporary, target, content);
    // Without the flag to replace, the move is refused when the name is taken.
    if (MoveFileExW(temporary.c_str(), widePath(target).c_str(), 0))
        return true;
    const SystemError error = lastSystemError();
    DeleteFileW(temporary.c_str());
    if (error.code() == ERROR_ALREADY_EXISTS || error.code() == ERROR_FILE_EXISTS || exists(target))
        return false;
    throw SystemFailure("cannot create file", target, error);
}

bool removeFileIf(std::string_view path, const std::function<bool(const std::string&)>& judge) {
    // Opened without sharing: nobody reads, replaces or removes the file while this handle lives.
    const Handle opened(CreateFileW(widePath(path).c_str(), GENERIC_READ | DELETE, 0, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!opened || !judge(contentOf(opened.get())))
        return false;
    FILE_DISPOSITION_INFO disposition = {};
    disposition.DeleteFile = TRUE;
    return SetFileInformationByHandle(opened.get(), FileDispositionInfo, &disposition,
                                      sizeof disposition) != 0;
}

} // namespace platform
