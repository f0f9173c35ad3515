#pragma once

#include "oaBaseTypes.h"

namespace OpenAccess_4 {

/// A counter of changes. A default one is 0.
class OA_API oaTimeStamp {
public:
    oaTimeStamp() : value_(0) {}
    oaTimeStamp(oaUInt4 value) : value_(value) {}

    void set(oaUInt4 value) { value_ = value; }
    void set(const oaTimeStamp& other) { value_ = other.value_; }
    operator oaUInt4() const { return value_; }

    oaTimeStamp& operator++() {
        ++value_;
        return *this;
    }
    oaTimeStamp operator++(int) {
        const oaTimeStamp before(*this);
        ++value_;
        return before;
    }
    oaTimeStamp& operator+=(oaUInt4 step) {
        value_ += step;
        return *this;
    }
    bool operator==(const oaTimeStamp& other) const { return value_ == other.value_; }
    bool operator!=(const oaTimeStamp& other) const { return value_ != other.value_; }

private:
    oaUInt4 value_;
};

/// The date and the time of day (GMT). A default one is the moment of its construction.
class OA_API oaSystemTime {
public:
    oaSystemTime() { getCurrentTime(); }

    /// Takes over the present moment.
    void getCurrentTime();
    oaUInt4 getYear() const { return year_; }
    /// From 1 on.
    oaUInt4 getMonth() const { return month_; }
    oaUInt4 getDay() const { return day_; }
    oaUInt4 getHour() const { return hour_; }
    oaUInt4 getMinute() const { return minute_; }
    oaUInt4 getSecond() const { return second_; }

private:
    oaUInt4 year_;
    oaUInt4 month_;
    oaUInt4 day_;
    oaUInt4 hour_;
    oaUInt4 minute_;
    oaUInt4 second_;
};

} // namespace OpenAccess_4
