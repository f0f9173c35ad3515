#include "sparse_file.h"

#include <stdexcept>
#include <windows.h>
#include <winioctl.h>

namespace ovalis::test {

// resize_file() refuses what is larger than the room that is left, written or not.
void makeSparseFile(const std::filesystem::path& path, std::uint64_t size) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw std::runtime_error("cannot create " + path.string());
    DWORD ignored = 0;
    LARGE_INTEGER end;
    end.QuadPart = static_cast<LONGLONG>(size);
    const bool made =
        DeviceIoControl(file, FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &ignored, nullptr) &&
        SetFilePointerEx(file, end, nullptr, FILE_BEGIN) && SetEndOfFile(file);
    CloseHandle(file);
    if (!made)
        throw std::runtime_error("cannot make " + path.string() + " a sparse file");
}

} // namespace ovalis::test
