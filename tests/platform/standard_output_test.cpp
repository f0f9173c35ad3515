#include "platform/standard_output.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>

namespace platform {
namespace {

/// Takes a few characters; what is more fails, with a new reason each time.
class SmallBuffer : public std::streambuf {
public:
    std::string taken;
    bool keepsAll = true;

protected:
    int_type overflow(int_type c) override {
        if (taken.size() == 4)
            return failed();
        taken += traits_type::to_char_type(c);
        return c;
    }
    int sync() override { return keepsAll ? 0 : static_cast<int>(failed()); }

private:
    int_type failed() {
        setLastSystemError(SystemError(++reason_));
        return traits_type::eof();
    }

    long reason_ = 4;
};

TEST(WatchedOutput, GivesEverythingOn) {
    std::stringbuf text;
    WatchedOutput output(text);
    std::ostream out(&output);
    out << "one" << ' ' << 2 << std::flush;
    out.put('!');
    EXPECT_EQ(text.str(), "one 2!");
    EXPECT_FALSE(output.failure());
    EXPECT_FALSE(output.readerIsGone());
}

TEST(WatchedOutput, KeepsTheFirstReason) {
    SmallBuffer small;
    WatchedOutput output(small);
    std::ostream out(&output);
    out << "12345";
    EXPECT_TRUE(out.bad());
    out.clear();
    out.put('6');
    EXPECT_TRUE(out.bad());
    EXPECT_EQ(small.taken, "1234");
    EXPECT_EQ(output.failure(), SystemError(5));
    EXPECT_FALSE(output.readerIsGone());
}

TEST(WatchedOutput, SeesWhatIsLostOnlyAtTheEnd) {
    SmallBuffer small;
    WatchedOutput output(small);
    std::ostream out(&output);
    out << "123";
    EXPECT_FALSE(output.failure());
    small.keepsAll = false;
    out.flush();
    EXPECT_EQ(output.failure(), SystemError(5));
}

} // namespace
} // namespace platform
