#include "base/date.h"

#include <gtest/gtest.h>

namespace zelvo {
namespace {

std::string shown(const std::optional<Date>& date) {
  return date ? isoText({*date, 0}) : "none";
}
std::string shown(const std::optional<DateTime>& moment) {
  return moment ? isoText(*moment) : "none";
}

TEST(ParseDate, ReadsWhatTheOfficeWrites) {
  struct Row {
    std::string_view text;
    std::string_view date;
  };
  const Row rows[] = {
      {"9/12/2008", "2008-09-12"},  {" 09-12-08 ", "2008-09-12"},        {"1/2/29", "2029-01-02"},
      {"1/2/30", "1930-01-02"},     {"12/31/99", "1999-12-31"},          {"2/29/2000", "2000-02-29"},
      {"1/1/0100", "0100-01-01"},   {"September 3, 2008", "2008-09-03"}, {"may 03,2008", "2008-05-03"},
      {"12/31/9999", "9999-12-31"}, {"2/29/04", "2004-02-29"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(shown(parseDate(row.text)), row.date) << row.text;
}

TEST(ParseDate, RefusesWhatIsNoDay) {
  for (const auto* text : {"",
                           "09-12",
                           "2/29/2001",
                           "2/29/1900",
                           "13/1/2008",
                           "0/1/2008",
                           "1/0/2008",
                           "4/31/2008",
                           "1/1/0099",
                           "1/1/208",
                           "1/1/8",
                           "1/1/20080",
                           "1/1-2008",
                           "1//2008",
                           "1/1/2008 x",
                           "1/1/2008/",
                           "Sept 3, 2008",
                           "September 2008",
                           "September 3 2008",
                           "September 3, 08",
                           "3 September 2008",
                           "2008-09-12",
                           "-1/1/2008",
                           "99999999999/1/2008"})
    EXPECT_EQ(shown(parseDate(text)), "none") << text;
}

TEST(ParseDateTime, ReadsATimeBehindTheDay) {
  struct Row {
    std::string_view text;
    std::string_view moment;
  };
  const Row rows[] = {
      {"9/12/2008", "2008-09-12"},
      {"9/12/2008 3:04", "2008-09-12 03:04:00"},
      {"9/12/2008  11:04:05 pm", "2008-09-12 23:04:05"},
      {"9/12/2008 12:00 AM", "2008-09-12"},
      {"9/12/2008 12:30PM", "2008-09-12 12:30:00"},
      {"September 12, 2008 23:59:59", "2008-09-12 23:59:59"},
      {"9/12/2008 24:00", "none"},
      {"9/12/2008 13:00 PM", "none"},
      {"9/12/2008 0:30 AM", "none"},
      {"9/12/2008 3:60", "none"},
      {"9/12/2008 3:5", "none"},
      {"9/12/2008 3:05:61", "none"},
      {"9/12/2008 3:05 XM", "none"},
      {"9/12/2008 3:05 PM x", "none"},
      {"9/12/2008 3", "none"},
      {"3:05 PM", "none"},
      {"2/30/2008 3:05", "none"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(shown(parseDateTime(row.text)), row.moment) << row.text;
}

TEST(TypedDate, TakesWhatFastHandsType) {
  const Date today{2024, 2, 27};
  struct Row {
    std::string_view text;
    std::string_view date;
  };
  const Row rows[] = {{"2/29", "02/29/2024"},
                      {" 3-9 ", "03/09/2024"},
                      {"3/9/25", "03/09/2025"},
                      {"3/9/2025", "03/09/2025"},
                      {"030925", "03/09/2025"},
                      {"03091999", "03/09/1999"},
                      {"T", "02/27/2024"},
                      {"+7", "03/05/2024"},
                      {"-3", "02/24/2024"},
                      {"+0", "02/27/2024"},
                      {"+99999", "12/11/2297"},
                      {"March 9, 2025", "03/09/2025"},
                      {"2/30", "none"},
                      {"13/1", "none"},
                      {"3/", "none"},
                      {"3/9/", "none"},
                      {"3/9/125", "none"},
                      {"023024", "none"},
                      {"30925", "none"},
                      {"3092025", "none"},
                      {"+", "none"},
                      {"+7 days", "none"},
                      {"+-7", "none"},
                      {"+100000", "none"},
                      {"tt", "none"},
                      {"today", "none"},
                      {"", "none"}};
  for (const Row& row : rows) {
    const auto date = typedDate(row.text, today);
    EXPECT_EQ(date ? datePicture(*date, "mm/dd/yyyy") : "none", row.date) << row.text;
  }
}

TEST(ParseIso, ReadsWhatTheStoreHolds) {
  for (const auto* text : {"2008-09-12", "0100-01-01 00:00:01", "9999-12-31 23:59:59"})
    EXPECT_EQ(shown(parseIso(text)), text);
  for (const auto* text : {"", "2008-9-12", "2008-02-30", "2008-09-12T10:00:00", "9/12/2008", "2008-09-12 25:00:00"})
    EXPECT_EQ(shown(parseIso(text)), "none") << text;
}

TEST(DatePicture, ShowsAMoment) {
  const DateTime afternoon{{2008, 9, 3}, 15 * 3600 + 4 * 60 + 5};
  struct Row {
    std::string_view picture;
    std::string_view shown;
  };
  const Row rows[] = {
      {"mm/dd/yyyy", "09/03/2008"},
      {"mm/dd/yy", "09/03/08"},
      {"mmmm dd, yyyy", "September 03, 2008"},
      {"dddd, mmmm dd, yyyy", "Wednesday, September 03, 2008"},
      {"m/d/yyyy", "9/3/2008"},
      {"yy", "08"},
      {"hh:mm AM/PM", "03:04 PM"},
      {"h:mm AMPM", "3:04 PM"},
      {"hh:mm", "15:04"},
      {"AMPM", "PM"},
      {"mm/dd/yyyy hh:mm", "09/03/2008 15:04"},
      {"hh:mm mm/dd", "15:04 09/03"},
      {"MM/DD/YYYY", "09/03/2008"},
      {"", ""},
  };
  for (const Row& row : rows)
    EXPECT_EQ(datePicture(afternoon, row.picture), row.shown) << row.picture;
  EXPECT_EQ(shortDate(afternoon.date), "9/3/2008");
  EXPECT_EQ(timeText(afternoon), "3:04:05 PM");
  EXPECT_EQ(datePicture(Date{2008, 0, 1}, "mmmm"), "") << "a date that is none";
}

TEST(DatePicture, KnowsNoonFromMidnight) {
  const Date day{2008, 9, 3};
  EXPECT_EQ(timeText({day, 0}), "12:00:00 AM");
  EXPECT_EQ(timeText({day, 12 * 3600}), "12:00:00 PM");
  EXPECT_EQ(timeText({day, 86399}), "11:59:59 PM");
}

TEST(Calendar, CountsDaysOverAllItsYears) {
  Date day{100, 1, 1};
  const int firstWeekday = weekday(day);
  long count = 0;
  for (Date last = day; day < Date{9999, 12, 31}; last = day, ++count) {
    day = addDays(day, 1);
    ASSERT_TRUE(day.valid() && last < day) << isoText({last, 0});
    ASSERT_EQ(weekday(day), (firstWeekday + count + 1) % 7) << isoText({day, 0});
  }
  EXPECT_EQ(count, daysBetween({100, 1, 1}, {9999, 12, 31}));
  EXPECT_EQ(weekday({2024, 2, 29}), 4) << "a Thursday";
  EXPECT_EQ(addDays({2001, 3, 1}, -1), (Date{2001, 2, 28}));
  EXPECT_EQ(daysBetween({2008, 3, 1}, {2008, 2, 28}), -2);
  EXPECT_EQ(addDays({2008, 3, 1}, 1L << 60), (Date{9999, 12, 31}));
  EXPECT_EQ(addDays({2008, 3, 1}, -(1L << 60)), (Date{100, 1, 1}));
  EXPECT_EQ(addMonths({2026, 8, 31}, 6), (Date{2027, 2, 28}));
  EXPECT_EQ(addMonths({2024, 2, 29}, -12), (Date{2023, 2, 28}));
  EXPECT_EQ(addMonths({9999, 12, 31}, 6), (Date{9999, 12, 31}));
  EXPECT_EQ(addMonths({100, 1, 15}, -1), (Date{100, 1, 1}));
}

}  // namespace
}  // namespace zelvo
