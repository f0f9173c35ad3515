#include "platform/private_directory.h"

#include "platform/path.h"
#include "windows/wide.h"

#include <sddl.h>
#include <vector>

namespace platform {

// Full access for the owner and for nobody else, inherited by what is made inside, and nothing
// inherited from above.
bool createPrivateDirectory(std::string_view path) {
    SECURITY_ATTRIBUTES attributes = {sizeof attributes, nullptr, FALSE};
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorW(
            L"D:P(A;OICI;FA;;;OW)", SDDL_REVISION_1, &attributes.lpSecurityDescriptor, nullptr))
        internal::fail("cannot protect directory", std::string(path));
    const BOOL created = CreateDirectoryW(internal::widePath(path).c_str(), &attributes);
    const SystemError error = lastSystemError();
    LocalFree(attributes.lpSecurityDescriptor);
    if (created)
        return true;
    if (error.code() == ERROR_ALREADY_EXISTS)
        return false;
    throw SystemFailure("cannot create directory", std::string(path), error);
}

std::string programPath() {
    std::vector<wchar_t> name(1024);
    for (;;) {
        const DWORD size =
            GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
        if (size == 0)
            internal::fail("cannot find program", "");
        if (size < name.size())
            return internal::narrow(std::wstring_view(name.data(), size));
        name.resize(name.size() * 2);
    }
}

void setCurrentDirectory(std::string_view path) {
    if (!SetCurrentDirectoryW(internal::wide(path).c_str()))
        internal::fail("cannot change to directory", std::string(path));
}

} // namespace platform
