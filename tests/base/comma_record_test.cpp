#include "base/comma_record.h"

#include <gtest/gtest.h>

namespace zelvo {
namespace {

using Values = std::vector<std::string>;

Values readAll(std::string_view text) {
  std::size_t position = 0;
  return readCommaValues(text, position, 100);
}

TEST(CommaRecord, QuotesOnlyWhatNeedsIt) {
  EXPECT_EQ(writeCommaRecord({"Smith", "12 Oak St", ""}), "Smith,12 Oak St,");
  EXPECT_EQ(writeCommaRecord({"Smith, John", "5\" pipe", "a\r\nb"}), "\"Smith, John\",\"5\"\" pipe\",\"a\r\nb\"");
  EXPECT_EQ(writeCommaRecord({" padded"}), "\" padded\"");
}

TEST(CommaRecord, ReadsBackWhatItWrote) {
  const Values values = {"a",          "",  "Smith, John",         "\"", "\"\"", " x ",
                         "l1\r\nl2\n", ",", std::string("\0z", 2), "é",  ""};
  EXPECT_EQ(readAll(writeCommaRecord(values) + "\r\n"), values);
  EXPECT_EQ(readAll(writeCommaRecord(values)), values);
}

TEST(CommaRecord, ReadsFilesThatWereTypedByHand) {
  struct Row {
    std::string_view text;
    Values values;
  };
  const Row rows[] = {
      {" a , b\t\r\nc\n", {"a", "b", "c"}},
      {"\" a \" ,b", {" a ", "b"}},
      {"a \"b\" c,d", {"a \"b\" c", "d"}},
      {"\"a\"junk,b", {"a", "b"}},
      {"\"never closed, b\r\nc", {"never closed, b\r\nc"}},
      {"\"", {""}},
      {"a,,b", {"a", "", "b"}},
      {"a\r\n\r\nb", {"a", "", "b"}},
      {"a,", {"a", ""}},
      {"", {}},
      {"\n", {""}},
  };
  for (const Row& row : rows)
    EXPECT_EQ(readAll(row.text), row.values) << row.text;
}

TEST(CommaRecord, TakesAsManyAsAskedAndGoesOnBehindThem) {
  const std::string_view text = "2\r\nann,x\r\nbob,\r\n";
  std::size_t position = 0;
  EXPECT_EQ(readCommaValues(text, position, 1), Values{"2"});
  EXPECT_EQ(readCommaValues(text, position, 2), (Values{"ann", "x"}));
  EXPECT_EQ(readCommaValues(text, position, 3), (Values{"bob", ""}));
  EXPECT_EQ(position, text.size());
  EXPECT_EQ(readCommaValues(text, position, 3), Values{});
}

}  // namespace
}  // namespace zelvo
