// Reading the number that a text begins with, and storing it in a whole item.
#include "model/forms/numbers.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

using namespace forms;

TEST(NumbersTest, ATextGivesTheNumberThatItBeginsWith) {
  const std::string nines(400, '9');
  const std::string zeros(400, '0');
  const struct {
    std::string text;
    double number;
  } table[] = {
      {"", 0},
      {"abc", 0},
      {"12abc", 12},
      {"007", 7},
      {" 1 2\t3 ", 123},
      {"-5", -5},
      {"+5", 5},
      {" - 5", -5},
      {"--5", 0},
      {"+-5", 0},
      {"5-3", 5},
      {"-", 0},
      {".", 0},
      {"2.5", 2.5},
      {".5", 0.5},
      {"-.5", -0.5},
      {"1.2.3", 1.2},
      {"1,5", 1},
      {"1e3", 1},
      {"1d3", 1},
      {"&H10", 0},
      {"inf", 0},
      {"nan", 0},
      {"0x10", 0},
      {nines, HUGE_VAL},
      {"1\xC2\xA0", 1},
      {"-" + nines, -HUGE_VAL},
      {zeros + "8", 8},
      {"0." + zeros + "1", 0},
      {"-0." + zeros + "1", 0},
  };
  for (const auto& row : table)
    EXPECT_EQ(Val(row.text), row.number) << row.text;
}

TEST(NumbersTest, AWholeItemTakesTheNearestAnExactHalfTheEvenOne) {
  const struct {
    double number, whole;
  } table[] = {
      {2.5, 2},
      {3.5, 4},
      {0.5, 0},
      {1.5, 2},
      {-2.5, -2},
      {-3.5, -4},
      {2.49, 2},
      {2.51, 3},
      {-2.51, -3},
      {-0.4, 0},
      {7, 7},
      {0.49999999999999994, 0},
      {HUGE_VAL, HUGE_VAL},
      {-HUGE_VAL, -HUGE_VAL},
  };
  for (const auto& row : table)
    EXPECT_EQ(roundHalfEven(row.number), row.whole) << row.number;

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
