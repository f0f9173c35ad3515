// Tells by its exit code which version of the OpenAccess interface the installed libraries speak,
// as those of the directories of the system's library search do.

#include <exception>
#include <iostream>

#include <oa/oaBase.h>

namespace {

constexpr int failed = 10;      // from here on a host takes it for an error
constexpr int noAnswer = 0;     // a host has no preference then
constexpr int versionStep = 10; // releases 22.50 to 22.59 speak version 5, 22.60 to 22.69 version 6

int apiVersion() {
    const OpenAccess_4::oaBuildInfo* const base = OpenAccess_4::oaBuildInfo::find("oaBase");
    if (base == nullptr)
        return noAnswer;
    const auto version = static_cast<int>(base->getMinorReleaseNum()) / versionStep;
    return version < failed ? version : noAnswer;
}

} // namespace

int main() {
    try {
        return apiVersion();
    } catch (const std::exception& error) {
        std::cerr << "pcbProbeOaVersion: " << error.what() << '\n';
    } catch (const OpenAccess_4::oaException& error) {
        std::cerr << "pcbProbeOaVersion: " << static_cast<const char*>(error.getMsg()) << '\n';
    }
    return failed;
}
