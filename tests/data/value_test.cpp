#include "data/value.h"

#include <gtest/gtest.h>

namespace zelvo {
namespace {

constexpr Date march9{2025, 3, 9};

TEST(Value, ReadsAsTextNumberAndMoment) {
  const struct {
    Value value;
    const char* text;
    double number;
    std::optional<DateTime> moment;
  } cases[] = {
      {{}, "", 0, {}},
      {"12abc", "12abc", 12, {}},
      {"3/9/2025 10:15", "3/9/2025 10:15", 3, DateTime{march9, 36900}},
      {60, "60", 60, {}},
      {-0.5, "-0.5", -0.5, {}},
      {march9, "3/9/2025", 45725, DateTime{march9, 0}},
      {DateTime{march9, 43200}, "3/9/2025 12:00:00 PM", 45725.5, DateTime{march9, 43200}},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(row.value.text(), row.text);
    EXPECT_DOUBLE_EQ(row.value.number(), row.number) << row.text;
    EXPECT_EQ(row.value.moment(), row.moment) << row.text;
  }
}

TEST(Value, IsEqualOnlyToItsOwnKind) {
  EXPECT_NE(Value(), Value(""));
  EXPECT_NE(Value("60"), Value(60));
  EXPECT_EQ(Value(60), Value(60.0));
}

}  // namespace
}  // namespace zelvo
