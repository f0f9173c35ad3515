#include <ovalis/pcell.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

using ovalis::RealParam;

namespace {

std::string textOf(double value) {
    return RealParam("r", value).parmValue();
}

// The rule once more, written down step by step with the means of the standard library.
class PlainRule {
public:
    static std::string text(double v) {
        if (v == 0) {
            return "0";
        }
        const int e = static_cast<int>(std::floor(std::log10(std::fabs(v))));
        double u = power(e);
        double r = nearest(v, u);
        int digits = 1;
        int k = e;
        while (true) {
            const bool good = std::fabs(v - r) < u * 1e-6;
            if (good || digits >= 17) {
                break;
            }
            digits += 1;
            k -= 1;
            u = power(k);
            r = u == 0 ? v : nearest(v, u);
        }
        std::ostringstream out;
        if (e > 5) {
            out << std::scientific;
            out.precision(digits - 1);
        } else if (e > 0) {
            out << std::fixed;
            out.precision(u >= 1 ? 0 : digits - e - 1);
        } else {
            out.precision(digits);
        }
        out << v;
        return out.str();
    }

private:
    static double power(int exponent) {
        return std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
    }

    static double nearest(double v, double u) {
        const double size = std::floor(std::fabs(v) / u + 0.5) * u;
        return v < 0 ? -size : size;
    }
};

void expectAsThePlainRule(double value) {
    EXPECT_EQ(textOf(value), PlainRule::text(value)) << std::hexfloat << value;
    EXPECT_EQ(textOf(-value), PlainRule::text(-value)) << std::hexfloat << -value;
}

} // namespace

TEST(RealText, IsPinnedForValuesThatComponentsHave) {
    const std::pair<double, const char*> table[] = {
        {0.0, "0"},
        {0.5, "0.5"},
        {42.0, "42"},
        {123.456, "123.456"},
        {1500000.0, "1.5e+06"},
        {1.0, "1"},
        {10.0, "10"},
        {50.0, "50"},
        {75.5, "75.5"},
        {100.0, "100"},
        {1000.0, "1000"},
        {12345.0, "12345"},
        {100000.0, "100000"},
        {123456.0, "123456"},
        {999999.0, "999999"},
        {999999.5, "999999.5"},
        {1000000.0, "1e+06"},
        {1000001.0, "1.000001e+06"},
        {1234567.0, "1.234567e+06"},
        {2.4e9, "2.4e+09"},
        {1e100, "1e+100"},
        {0.1, "0.1"},
        {0.25, "0.25"},
        {0.001, "0.001"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {0.0000125, "1.25e-05"},
        {39e-9, "3.9e-08"},
        {3.3e-12, "3.3e-12"},
        {1e-100, "1e-100"},
        {3.14, "3.14"},
        {3.141592653589793, "3.141592653589793"},
        {2.718281828459045, "2.718281828459045"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3.0, "0.3333333333333333"},
        {2.0 / 3.0, "0.6666666666666666"},
    };
    for (const auto& [value, text] : table) {
        EXPECT_EQ(textOf(value), text) << std::hexfloat << value;
    }
}

TEST(RealText, KeepsTheSign) {
    EXPECT_EQ(textOf(-0.5), "-0.5");
    EXPECT_EQ(textOf(-42.0), "-42");
    EXPECT_EQ(textOf(-1500000.0), "-1.5e+06");
    EXPECT_EQ(textOf(-0.0), "0");
}

TEST(RealText, IsPinnedAtTheEndsOfTheRange) {
    EXPECT_EQ(textOf(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
    EXPECT_EQ(textOf(std::numeric_limits<double>::min()), "2.2250738585072014e-308");
    EXPECT_EQ(textOf(std::numeric_limits<double>::denorm_min()), "4.9406564584124654e-324");
    EXPECT_EQ(textOf(1e-323), "9.8813129168249309e-324");
    EXPECT_EQ(textOf(1e308), "1e+308");
}

TEST(RealText, IsPinnedBesideThePowersOfTen) {
    const std::pair<double, const char*> table[] = {
        {std::nextafter(1.0, 0.0), "1"},
        {std::nextafter(10.0, 0.0), "1e+01"},
        {std::nextafter(10.0, 11.0), "10"},
        {std::nextafter(1000.0, 0.0), "1000"},
        {std::nextafter(100000.0, 0.0), "100000"},
        {std::nextafter(1000000.0, 0.0), "1e+06"},
        {std::nextafter(1000000.0, 2e6), "1e+06"},
        {999999.99, "1000000"},
        {999999.9999999, "1000000"},
        {std::nextafter(1e-5, 0.0), "1e-05"},
    };
    for (const auto& [value, text] : table) {
        EXPECT_EQ(textOf(value), text) << std::hexfloat << value;
    }
}

TEST(RealText, NamesWhatIsNoNumber) {
    EXPECT_EQ(textOf(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(textOf(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(textOf(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(RealText, FollowsThePlainRuleForDecimalNumbers) {
    for (int mantissa = 1; mantissa < 1000; mantissa += 3) {
        for (int exponent = -30; exponent <= 30; ++exponent) {
            const std::string text = std::to_string(mantissa) + "e" + std::to_string(exponent);
            expectAsThePlainRule(std::strtod(text.c_str(), nullptr));
        }
    }
}

TEST(RealText, FollowsThePlainRuleForSumsOfSteps) {
    double sum = 0.0;
    for (int i = 0; i < 5000; ++i) {
        sum += 0.1;
        expectAsThePlainRule(sum);
        expectAsThePlainRule(sum * 1000.0);
        expectAsThePlainRule(1.0 / sum);
    }
}

TEST(RealText, FollowsThePlainRuleForAnyBits) {
    std::mt19937_64 bits(20240607);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t pattern = bits();
        double value = 0.0;
        std::memcpy(&value, &pattern, sizeof value);
        if (std::isfinite(value)) {
            expectAsThePlainRule(value);
        }
    }
}
