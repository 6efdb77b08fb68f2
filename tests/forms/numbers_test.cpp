// Reading the number that a text begins with, and storing it in a whole item: `Val` reads, skipping
// blanks; `stored` refuses what the item cannot hold, `storedNearest` takes the nearest that it
// can.
#include "forms/numbers.h"

#include <cmath>
#include <utility>

#include <gtest/gtest.h>

namespace {

using namespace forms;

TEST(NumbersTest, ATextGivesTheNumberThatItBeginsWith) {
  // 400 nines are more than a double holds: infinity, HUGE_VAL. A comma or a second point ends it.
  const std::string nines(400, '9'), zeros(400, '0');
  const std::pair<std::string, double> table[] = {{"", 0},
                                                  {" 1 2\t3 ", 123},
                                                  {"5-3", 5},
                                                  {"1.2.3", 1.2},
                                                  {"+5,5e3", 5},
                                                  {nines, HUGE_VAL},
                                                  {"-" + nines, -HUGE_VAL},
                                                  {"-0." + zeros + "1", 0}};
  for (const auto& [text, number] : table)
    EXPECT_EQ(Val(text), number) << text;
}

TEST(NumbersTest, AWholeItemTakesTheNearestAnExactHalfTheEvenOne) {
  using Byte = std::uint8_t;
  using Short = std::int16_t;
  // A byte holds 0 to 255; {}: refused, for the nearest would be 256, -1 or none.
  const std::pair<double, std::optional<Byte>> bytes[] = {
      {2.5, 2}, {3.5, 4}, {-0.5, 0}, {255.4, 255}, {255.5, {}}, {-0.6, {}}, {HUGE_VAL, {}}};
  for (const auto& [number, whole] : bytes)
    EXPECT_EQ(stored<Byte>(number), whole) << number;
  // These hold -32768 to 32767.
  EXPECT_EQ(stored<Short>(-32768.5), -32768);
  EXPECT_EQ(storedNearest<Short>(HUGE_VAL), 32767);
}

} // namespace
