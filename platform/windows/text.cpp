#include "platform/text.h"

#include "windows/wide.h"

#include <memory>
#include <shellapi.h>

namespace platform {

std::wstring internal::wide(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, result.data(), length);
    return result;
}

std::string internal::narrow(std::wstring_view utf16) {
    const int size = static_cast<int>(utf16.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, utf16.data(), size, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, utf16.data(), size, result.data(), length, nullptr, nullptr);
    return result;
}

std::vector<std::string> utf8Arguments(int count, char** values) {
    int wideCount = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> arguments(
        CommandLineToArgvW(GetCommandLineW(), &wideCount), &LocalFree);
    if (!arguments)
        return std::vector<std::string>(values, values + count);
    std::vector<std::string> result;
    for (int i = 0; i < wideCount; ++i)
        result.push_back(internal::narrow(arguments.get()[i]));
    return result;
}

} // namespace platform
