#include <ovalis/core.h>

namespace ovalis {

oa::oaString toOa(const std::string& text) {
    return oa::oaString(text.c_str());
}

std::string fromOa(const oa::oaString& text) {
    return std::string(static_cast<const oa::oaChar*>(text));
}

TStringPair::TStringPair(const std::string& first, const std::string& second) {
    strings_.reserve(2);
    strings_.push_back(first);
    strings_.push_back(second);
}

TStringTriplet::TStringTriplet(const std::string& first, const std::string& second,
                               const std::string& third) {
    strings_.reserve(3);
    strings_.push_back(first);
    strings_.push_back(second);
    strings_.push_back(third);
}

TStringPair make_pair(const std::string& a, const std::string& b) {
    return TStringPair(a, b);
}

TStringTriplet make_triplet(const std::string& a, const std::string& b, const std::string& c) {
    return TStringTriplet(a, b, c);
}

} // namespace ovalis
