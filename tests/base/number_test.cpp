#include "base/number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelvo {
namespace {

TEST(Val, ReadsTheNumberAtTheHeadOfAText) {
  struct Row {
    std::string_view text;
    double value;
  };
  const Row rows[] = {
      {"60", 60},       {"12abc", 12}, {" 1 2", 12},  {"\t- 3 . 5", -3.5}, {"$5", 0},       {"", 0},
      {"1,000", 1},     {".5", .5},    {"5.", 5},     {"1.2.3", 1.2},      {"+7", 7},       {"--7", 0},
      {"-", 0},         {"-.", 0},     {"1e3", 1000}, {"1D-2", 0.01},      {"12 east", 12}, {"12e", 12},
      {"12e+", 12},     {"e5", 0},     {"007", 7},    {"inf", 0},          {"nan", 0},      {"0x10", 0},
      {"1 e 2 x", 100}, {"1e-999", 0}, {"1\n2", 1},   {"\xEF\xBC\x91", 0},
  };
  for (const Row& row : rows)
    EXPECT_DOUBLE_EQ(Val(row.text), row.value) << row.text;
  EXPECT_FALSE(std::signbit(Val("-0")));
}

TEST(Val, StopsAtTheEndOfItsRange) {
  const double most = std::numeric_limits<double>::max();
  EXPECT_EQ(Val("1e999"), most);
  EXPECT_EQ(Val("-0.1d999999999999"), -most);
  EXPECT_EQ(Val(std::string(400, '9')), most);
  EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
}

TEST(IsNumber, WantsTheWholeText) {
  for (const auto* text : {"12", "-3.5", ".5", "5.", " 7 ", "+1", "1e3", "2D-1"})
    EXPECT_TRUE(isNumber(text)) << text;
  for (const auto* text : {"", " ", "-", ".", "12A", "1,000", "$5", "1 2", "1e", "1-2", "0x1", "inf"})
    EXPECT_FALSE(isNumber(text)) << text;
}

TEST(NumberText, IsShortAndPlain) {
  struct Row {
    double number;
    std::string_view text;
  };
  const Row rows[] = {
      {60, "60"},
      {0, "0"},
      {-0.0, "0"},
      {-0.5, "-0.5"},
      {0.1 + 0.2, "0.3"},
      {1.0 / 3, "0.333333333333333"},
      {0.00001, "0.00001"},
      {1234567.891, "1234567.891"},
      {999999999999999, "999999999999999"},
      {1e15, "1E+15"},
      {-1.25e20, "-1.25E+20"},
      {2.5e-16, "2.5E-16"},
      {1e300, "1E+300"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(numberText(row.number), row.text);
  EXPECT_EQ(numberText(INFINITY), numberText(std::numeric_limits<double>::max()));
}

TEST(NumberPicture, ShowsAmountsAsTheOfficeWritesThem) {
  const double numbers[] = {0, 5, 0.5, 1234.567, 1234567.5, -3.2};
  struct Row {
    std::string_view picture;
    std::string_view shown[6];
  };
  const Row rows[] = {
      {"#######.#0", {".00", "5.00", ".50", "1234.57", "1234567.50", "-3.20"}},
      {"#####0.#0", {"0.00", "5.00", "0.50", "1234.57", "1234567.50", "-3.20"}},
      {"##.#0", {".00", "5.00", ".50", "1234.57", "1234567.50", "-3.20"}},
      {"$##,###,###.#0", {"$.00", "$5.00", "$.50", "$1,234.57", "$1,234,567.50", "-$3.20"}},
      {"000", {"000", "005", "001", "1235", "1234568", "-003"}},
      {"#", {"", "5", "1", "1235", "1234568", "-3"}},
      {"0.##%", {"0.%", "5.%", "0.5%", "1234.57%", "1234567.5%", "-3.2%"}},
      {"0,000", {"0,000", "0,005", "0,001", "1,235", "1,234,568", "-0,003"}},
      {".00", {".00", "5.00", ".50", "1234.57", "1234567.50", "-3.20"}},
  };
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < 6; ++i)
      EXPECT_EQ(numberPicture(numbers[i], row.picture), row.shown[i]) << row.picture << " of " << numbers[i];
  }
}

TEST(NumberPicture, RoundsTheDecimalTextAwayFromZero) {
  struct Row {
    double number;
    std::string_view shown;
  };
  // 1.005 lies a hair below in the machine; the clerk who typed it sees 1.01.
  const Row rows[] = {{1.005, "1.01"}, {-1.005, "-1.01"},        {2.675, "2.68"}, {1.1 * 1.15, "1.27"},
                      {0.004, ".00"},  {-0.004, ".00"},          {0.005, ".01"},  {9.995, "10.00"},
                      {0.995, "1.00"}, {99999.999, "100000.00"}, {1.0049, "1.00"}};
  for (const Row& row : rows)
    EXPECT_EQ(numberPicture(row.number, "#.#0"), row.shown) << row.number;
}

TEST(WholeNumbers, RoundHalfToEvenAndStopAtTheirRange) {
  struct Row {
    double number;
    int whole;
  };
  for (const Row& row : {Row{0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {2.51, 3}, {32766.7, 32767}}) {
    EXPECT_EQ(CInt(row.number), row.whole) << row.number;
    EXPECT_EQ(CLng(row.number), row.whole) << row.number;
  }
  EXPECT_EQ(CInt(40000), 32767);
  EXPECT_EQ(CInt(-1e9), -32768);
  EXPECT_EQ(CLng(1e300), 2147483647);
  EXPECT_EQ(CLng(std::nan("")), 0);
}

}  // namespace
}  // namespace zelvo
