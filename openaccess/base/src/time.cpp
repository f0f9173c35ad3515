#include "oaTimeStamp.h"
#include "oaTimer.h"

namespace OpenAccess_4 {

void oaTimer::reset() {
    start_ = std::chrono::steady_clock::now();
}

oaFloat oaTimer::getElapsed() {
    return std::chrono::duration<oaFloat>(std::chrono::steady_clock::now() - start_).count();
}

void oaSystemTime::getCurrentTime() {
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const auto today = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::year_month_day date(today);
    const std::chrono::hh_mm_ss time(now - today);
    year_ = static_cast<oaUInt4>(static_cast<int>(date.year()));
    month_ = static_cast<unsigned>(date.month());
    day_ = static_cast<unsigned>(date.day());
    hour_ = static_cast<oaUInt4>(time.hours().count());
    minute_ = static_cast<oaUInt4>(time.minutes().count());
    second_ = static_cast<oaUInt4>(time.seconds().count());
}

} // namespace OpenAccess_4
