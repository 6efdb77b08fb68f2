// Reading the number that a text begins with, and storing it in a whole item.
#include "model/forms/numbers.h"

#include <cmath>
#include <utility>

#include <gtest/gtest.h>

namespace {

using namespace forms;

TEST(NumbersTest, ATextGivesTheNumberThatItBeginsWith) {
  const std::pair<std::string, double> table[] = {
      {"", 0},      {"abc", 0},   {"12abc", 12},  {"007", 7},      {" 1 2\t3 ", 123}, {"-5", -5},
      {"+5", 5},    {" - 5", -5}, {"--5", 0},     {"5-3", 5},      {"-", 0},          {".", 0},
      {"2.5", 2.5}, {"-.5", -.5}, {"1.2.3", 1.2}, {"1,5", 1},      {"1e3", 1},        {"&H10", 0},
      {"inf", 0},   {"nan", 0},   {"0x10", 0},    {"1\xC2\xA0", 1}};
  for (const auto& [text, number] : table)
    EXPECT_EQ(Val(text), number) << text;
  const std::string nines(400, '9'), zeros(400, '0');
  EXPECT_EQ(Val(nines), HUGE_VAL);
  EXPECT_EQ(Val("-" + nines), -HUGE_VAL);
  EXPECT_EQ(Val(zeros + "8"), 8);
  EXPECT_EQ(Val("-0." + zeros + "1"), 0);
}

TEST(NumbersTest, AWholeItemTakesTheNearestAnExactHalfTheEvenOne) {
  const std::pair<double, double> table[] = {
      {2.5, 2},  {3.5, 4},  {0.5, 0},    {1.5, 2},  {-2.5, -2},           {-3.5, -4},
      {2.49, 2}, {2.51, 3}, {-2.51, -3}, {-0.4, 0}, {HUGE_VAL, HUGE_VAL}, {0.49999999999999994, 0}};
  for (const auto& [number, whole] : table)
    EXPECT_EQ(roundHalfEven(number), whole) << number;

  using Byte = std::uint8_t;
  using Short = std::int16_t;
  EXPECT_EQ(stored<Byte>(255.4), 255);
  EXPECT_EQ(stored<Byte>(254.5), 254);
  EXPECT_EQ(stored<Byte>(-0.5), 0);
  EXPECT_EQ(stored<Short>(-32768.5), -32768);
  EXPECT_EQ(stored<Short>(32767.4), 32767);
  for (const double outside : {255.5, 256.0, -0.6, -1.0, HUGE_VAL, -HUGE_VAL, std::nan("")})
    EXPECT_EQ(stored<Byte>(outside), std::nullopt) << outside;
  for (const double outside : {32767.5, -32769.0, 65536.0, HUGE_VAL})
    EXPECT_EQ(stored<Short>(outside), std::nullopt) << outside;

  EXPECT_EQ(storedNearest<Short>(HUGE_VAL), 32767);
  EXPECT_EQ(storedNearest<Short>(-HUGE_VAL), -32768);
  EXPECT_EQ(storedNearest<Byte>(-3), 0);
  EXPECT_EQ(storedNearest<Byte>(254.5), 254);
  EXPECT_EQ(storedNearest<Byte>(300), 255);
}

} // namespace
