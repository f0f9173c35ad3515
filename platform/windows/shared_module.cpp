#include "platform/shared_module.h"

#include "platform/path.h"
#include "windows/wide.h"

#include <stdexcept>

namespace platform {

using internal::wide;

namespace {

/// Keeps the system from asking the user about what is missing.
class QuietErrors {
public:
    QuietErrors() noexcept {
        SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &before_);
    }
    ~QuietErrors() { SetThreadErrorMode(before_, nullptr); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

private:
    DWORD before_ = 0;
};

// What a module needs is searched for beside it first, then beside the program.
HMODULE loadPath(const std::string& path) {
    const std::wstring absolute = wide(absolutePath(path));
    const HMODULE loaded = LoadLibraryExW(absolute.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (loaded || GetLastError() != ERROR_MOD_NOT_FOUND)
        return loaded;
    return LoadLibraryW(absolute.c_str());
}

HMODULE load(const std::string& file) {
    const QuietErrors quiet;
    const bool isPath = file.find_first_of("/\\") != std::string::npos;
    const HMODULE loaded = isPath ? loadPath(file) : LoadLibraryW(wide(file).c_str());
    if (!loaded)
        throw std::runtime_error(lastSystemError().text());
    return loaded;
}

} // namespace

std::string moduleFileName(const std::string& name) {
    return name + ".dll";
}

SharedModule::SharedModule(const std::string& file) : handle_(load(file)) {}

SharedModule::Symbol* SharedModule::symbol(const char* name) const {
    return reinterpret_cast<Symbol*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

std::string moduleHolding(const void* address) {
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            static_cast<LPCWSTR>(address), &module))
        throw std::runtime_error("no module holds this address");
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0)
            throw std::runtime_error(lastSystemError().text());
        if (length < path.size()) {
            path.resize(length);
            return canonicalPath(internal::narrow(path));
        }
        path.resize(path.size() * 2);
    }
}

} // namespace platform
