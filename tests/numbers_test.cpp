#include "toolkit/numbers.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cstdint>
#include <string>
#include <utility>

using Byte = std::uint8_t;
using Integer = std::int16_t;

TEST(Numbers, SingleTextKeepsSevenDigits) {
    const std::pair<float, const char*> cases[] = {{0, "0"},
                                                   {-0.0f, "0"},
                                                   {700, "700"},
                                                   {-2, "-2"},
                                                   {1.5f, "1.5"},
                                                   {0.1f, "0.1"},
                                                   {1.0000001f, "1"},
                                                   {0.1234567f, "0.1234567"},
                                                   {0.0001f, "0.0001"},
                                                   {0.00012345678f, "0.0001234568"},
                                                   {0.00001f, "1E-05"},
                                                   {1.5e-8f, "1.5E-08"},
                                                   {9999999, "9999999"},
                                                   {10000000, "1E+07"},
                                                   {16777216, "1.677722E+07"},
                                                   {-FLT_MAX, "-3.402823E+38"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(text, TextOf(value));
}

TEST(Numbers, DoubleTextKeepsFifteenDigits) {
    const std::pair<double, const char*> cases[] = {
        {0.1f, "0.100000001490116"},          {0.1 + 0.2, "0.3"}, {2.0 / 3, "0.666666666666667"}, {0.00001, "1E-05"},
        {999999999999999, "999999999999999"}, {1e15, "1E+15"},    {1.5e-300, "1.5E-300"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(text, TextOf(value));
}

TEST(Numbers, TextsWithBlanksSignsAndExponentsAreRead) {
    const std::pair<const char*, double> cases[] = {
        {" 12 ", 12},  {"\t-1.5\t", -1.5},    {"+3", 3},    {".5", 0.5}, {"5.", 5},
        {"1E3", 1000}, {"1e-2", 0.01},        {"2D+1", 20}, {"2d1", 20}, {"0.100000001490116", 0.100000001490116},
        {"1E-999", 0}, {"-1E+999", -HUGE_VAL}};
    for (const auto& [text, value] : cases) EXPECT_EQ(value, NumberOf(text)) << text;
}

TEST(Numbers, OtherTextsAreNone) {
    const std::string tooLong(256, '1');
    for (const char* text :
         {"",   " ",   "-",  "+",   ".",    "abc", "1a",       "1 2",  "1,5",  "--1",   "+-1",          "- 1",
          "1E", "1E+", "E5", "inf", "-inf", "nan", "infinity", "0x10", "&H10", "1.2.3", tooLong.c_str()}) {
        EXPECT_FALSE(NumberOf(text)) << '"' << text << '"';
    }
    for (const double none : {std::nan(""), HUGE_VAL, -HUGE_VAL}) EXPECT_FALSE(NumberOf(TextOf(none)));
}

TEST(Numbers, RoundHalvesToEvenWithinTheRangeOfTheirType) {
    EXPECT_EQ(2, WholeOf<Byte>(2.5));
    EXPECT_EQ(4, WholeOf<Byte>(3.5));
    EXPECT_EQ(0, WholeOf<Byte>(-0.5));
    EXPECT_EQ(255, WholeOf<Byte>(255.4));
    EXPECT_EQ(32767, WholeOf<Integer>(32767.4));
    EXPECT_EQ(-32768, WholeOf<Integer>(-32768.5));
    EXPECT_EQ(0.1f, SingleOf(0.1));
    EXPECT_EQ(0.0f, SingleOf(1e-300));
    EXPECT_EQ(FLT_MAX, SingleOf(3.40282356e38));  // nearer to the largest than to the next power of two
    for (const double none : {255.5, -0.51, HUGE_VAL, std::nan("")}) EXPECT_FALSE(WholeOf<Byte>(none)) << none;
    for (const double none : {32767.5, -32768.6, 1e300}) EXPECT_FALSE(WholeOf<Integer>(none)) << none;
    for (const double none : {3.40282357e38, -1e39, HUGE_VAL, std::nan("")}) EXPECT_FALSE(SingleOf(none)) << none;
}
