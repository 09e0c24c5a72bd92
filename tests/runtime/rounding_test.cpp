#include "platform/runtime/rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "platform/runtime/error.h"

namespace TabulonLib12 {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct WholeCase {
    double value;
    double expected;
};

TEST(RoundHalfEven, WholeNumbersTieToTheEvenNeighbour) {
    const WholeCase cases[] = {
        {0.5, 0.0},     {1.5, 2.0},     {2.5, 2.0},     {3.5, 4.0},     {4.5, 4.0},
        {-0.5, -0.0},   {-1.5, -2.0},   {-2.5, -2.0},   {-3.5, -4.0},   {-4.5, -4.0},
        {2.4, 2.0},     {2.6, 3.0},     {-2.4, -2.0},   {-2.6, -3.0},   {0.0, 0.0},
        {7.0, 7.0},     {-7.0, -7.0},   {1e300, 1e300}, {-1e300, -1e300},
        {0.49999999999999994, 0.0},                // just below one half
        {4503599627370495.5, 4503599627370496.0},  // 2^52 - 0.5: odd neighbour below, goes up
        {4503599627370494.5, 4503599627370494.0},
        {32766.5, 32766.0},   {32767.5, 32768.0}, {-32768.5, -32768.0},
    };
    for (const WholeCase& c : cases) {
        EXPECT_EQ(RoundHalfEven(c.value), c.expected) << "value " << c.value;
    }
}

TEST(RoundHalfEven, NegativeValueRoundingToZeroKeepsItsSign) {
    EXPECT_TRUE(std::signbit(RoundHalfEven(-0.4)));
    EXPECT_TRUE(std::signbit(RoundHalfEven(-0.5)));
    EXPECT_FALSE(std::signbit(RoundHalfEven(0.4)));
}

TEST(RoundHalfEven, NaNAndInfinitiesPassThrough) {
    EXPECT_TRUE(std::isnan(RoundHalfEven(kNaN)));
    EXPECT_EQ(RoundHalfEven(kInf), kInf);
    EXPECT_EQ(RoundHalfEven(-kInf), -kInf);
    EXPECT_TRUE(std::isnan(RoundHalfEven(kNaN, 2)));
    EXPECT_EQ(RoundHalfEven(kInf, 2), kInf);
    EXPECT_EQ(RoundHalfEven(-kInf, 3), -kInf);
}

struct DecimalCase {
    double value;
    int decimals;
    double expected;
};

TEST(RoundHalfEven, DecimalTiesAreDecidedOnTheShortestDecimalText) {
    const DecimalCase cases[] = {
        {2.675, 2, 2.68},    // binary 2.67499999..., but written 2.675: a tie, 7 is odd, goes up
        {2.665, 2, 2.66},    // tie, 6 is even, stays
        {0.125, 2, 0.12},    {0.135, 2, 0.14},    {0.145, 2, 0.14},     {1.005, 2, 1.0},
        {1.015, 2, 1.02},    {-2.675, 2, -2.68},  {-0.125, 2, -0.12},   {-2.665, 2, -2.66},
        {1.25, 1, 1.2},      {1.35, 1, 1.4},      {-1.25, 1, -1.2},     {-1.35, 1, -1.4},
        {0.5, 0, 0.0},       {1.5, 0, 2.0},       {2.5, 0, 2.0},        {-2.5, 0, -2.0},
        {0.0015, 3, 0.002},  {0.0025, 3, 0.002},  {0.0005, 3, 0.0},     {0.0015000001, 3, 0.002},
        {9.995, 2, 10.0},    {99.995, 2, 100.0},  {99.985, 2, 99.98},   {0.05, 1, 0.0},
        {0.15, 1, 0.2},      {0.25, 1, 0.2},      {0.35, 1, 0.4},
    };
    for (const DecimalCase& c : cases) {
        EXPECT_EQ(RoundHalfEven(c.value, c.decimals), c.expected) << c.value << " to " << c.decimals;
    }
}

TEST(RoundHalfEven, DecimalsOffTheTieGoToTheNearest) {
    const DecimalCase cases[] = {
        {1.23456789, 4, 1.2346},        {1.23454, 4, 1.2345},        {12345.6789, 2, 12345.68},
        {123.456, 0, 123.0},            {0.30000000000000004, 2, 0.3}, {0.00049, 3, 0.0},
        {0.00051, 3, 0.001},            {0.0004, 3, 0.0},            {-0.00051, 3, -0.001},
        {1.0000000000000002, 15, 1.0},  {0.1234567890123456, 15, 0.123456789012346},
        {0.25000000000000006, 1, 0.3},  // just above a tie
    };
    for (const DecimalCase& c : cases) {
        EXPECT_EQ(RoundHalfEven(c.value, c.decimals), c.expected) << c.value << " to " << c.decimals;
    }
}

TEST(RoundHalfEven, ValuesWithFewerDecimalsComeBackUnchanged) {
    const DecimalCase cases[] = {
        {1e20, 2, 1e20}, {-1e300, 4, -1e300}, {2.5, 1, 2.5}, {0.0, 2, 0.0}, {123.0, 0, 123.0},
        {1.5e-10, 15, 1.5e-10}, {0.1, 15, 0.1},   {4503599627370497.0, 2, 4503599627370497.0},
    };
    for (const DecimalCase& c : cases) {
        EXPECT_EQ(RoundHalfEven(c.value, c.decimals), c.expected) << c.value << " to " << c.decimals;
    }
}

TEST(RoundHalfEven, WholeRoundingAgreesWithZeroDecimals) {
    for (double v = -20.0; v <= 20.0; v += 0.125) {
        EXPECT_EQ(RoundHalfEven(v), RoundHalfEven(v, 0)) << v;
    }
}

TEST(RoundHalfEven, DecimalCountOutsideZeroToFifteenIsRefused) {
    for (int decimals : {-1, 16, 100, std::numeric_limits<int>::min()}) {
        try {
            RoundHalfEven(1.5, decimals);
            ADD_FAILURE() << "no error for " << decimals << " decimals";
        } catch (const Error& e) {
            EXPECT_EQ(e.kind(), ErrorKind::InvalidValue);
            EXPECT_EQ(e.number(), 5);
        }
    }
}

struct IntCase {
    double value;
    long long expected;
};

TEST(ToInt16, RoundsHalfToEvenInsideTheRange) {
    const IntCase cases[] = {
        {0.0, 0},           {0.5, 0},         {1.5, 2},          {2.5, 2},         {-2.5, -2},
        {-3.5, -4},         {32766.5, 32766}, {32767.0, 32767},  {32767.4, 32767}, {-32767.5, -32768},
        {-32768.5, -32768}, {-32768.0, -32768}, {-32768.49, -32768}, {1234.5678, 1235},
    };
    for (const IntCase& c : cases) {
        EXPECT_EQ(ToInt16(c.value), c.expected) << c.value;
    }
}

TEST(ToInt32, RoundsHalfToEvenInsideTheRange) {
    const IntCase cases[] = {
        {0.5, 0},
        {-0.5, 0},
        {3.5, 4},
        {-4.5, -4},
        {32767.5, 32768},
        {2147483646.5, 2147483646},
        {2147483647.0, 2147483647},
        {2147483647.49, 2147483647},
        {-2147483648.5, -2147483648LL},
        {-2147483647.5, -2147483648LL},
    };
    for (const IntCase& c : cases) {
        EXPECT_EQ(ToInt32(c.value), c.expected) << c.value;
    }
}

template <typename F>
void ExpectOverflow(F convert, double value) {
    try {
        convert(value);
        ADD_FAILURE() << "no overflow for " << value;
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::Overflow) << value;
        EXPECT_EQ(e.number(), 6) << value;
        EXPECT_EQ(e.description(), "Overflow");
    }
}

TEST(ToInt16, ValuesThatRoundOutOfRangeOverflow) {
    for (double v : {32767.5, 32768.0, -32768.51, -32769.0, 1e10, -1e300, kInf, -kInf, kNaN}) {
        ExpectOverflow(ToInt16, v);
    }
}

TEST(ToInt32, ValuesThatRoundOutOfRangeOverflow) {
    for (double v : {2147483647.5, 2147483648.0, -2147483648.51, -2147483649.0, 1e19, kInf, -kInf, kNaN}) {
        ExpectOverflow(ToInt32, v);
    }
}

TEST(ToSingle, RoundsToTheNearestSingle) {
    EXPECT_EQ(ToSingle(0.1), 0.1f);
    EXPECT_EQ(ToSingle(-8.25), -8.25f);
    EXPECT_EQ(ToSingle(1e-50), 0.0f);
    EXPECT_TRUE(std::isnan(ToSingle(kNaN)));
    EXPECT_EQ(ToSingle(kInf), std::numeric_limits<float>::infinity());
}

TEST(ToSingle, JustBeyondTheLargestSingleRoundsToIt) {
    const float largest = std::numeric_limits<float>::max();
    EXPECT_EQ(ToSingle(3.4028235e38), largest);  // the shortest digits of the largest Single
    EXPECT_EQ(ToSingle(-3.4028235e38), -largest);
    EXPECT_EQ(ToSingle(3.4028235677973362e38), largest);  // just under half a step beyond
}

TEST(ToSingle, HalfAStepBeyondTheLargestSingleOverflows) {
    for (double v : {3.4028235677973366e38, 3.5e38, -1e39, 1e300}) {
        ExpectOverflow(ToSingle, v);
    }
}

TEST(SingleAsDouble, GivesTheShortestDigitsOfTheSingle) {
    EXPECT_EQ(SingleAsDouble(0.1f), 0.1);
    EXPECT_EQ(SingleAsDouble(8.25f), 8.25);
    EXPECT_EQ(SingleAsDouble(-1e10f), -1e10);
    EXPECT_EQ(SingleAsDouble(std::numeric_limits<float>::max()), 3.4028235e38);
    EXPECT_EQ(SingleAsDouble(std::numeric_limits<float>::denorm_min()), 1e-45);
    EXPECT_TRUE(std::isnan(SingleAsDouble(std::numeric_limits<float>::quiet_NaN())));
}

TEST(SingleAsDouble, ReadsBackAsTheSameSingle) {
    // Every 997th bit pattern of the finite positive Singles, and their negatives.
    for (uint32_t bits = 0; bits < 0x7F800000u; bits += 997u * 4099u) {
        float f;
        std::memcpy(&f, &bits, sizeof f);
        EXPECT_EQ(ToSingle(SingleAsDouble(f)), f) << bits;
        EXPECT_EQ(ToSingle(SingleAsDouble(-f)), -f) << bits;
    }
}

}  // namespace
}  // namespace TabulonLib12
