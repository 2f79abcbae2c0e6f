#include "enforcement/code_tables.h"

#include <algorithm>
#include <span>

#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

struct Code {
  std::string_view code, text;
};

constexpr std::string_view kUnknown = "UNK";
constexpr std::size_t kCodeLength = 2;

constexpr Code kCategories[] = {{"B", "BLDG"}, {"O", "OTHER"}, {"C", "COMPLAINT"}};
constexpr Code kResults[] = {{"P", "Passed"},     {"F", "Failed"},   {"E", "Exempt"},
                             {"I", "Incomplete"}, {"R", "Resolved"}, {"O", "Open"}};
constexpr Code kNatures[] = {{"QU", "Quality of Life"},
                             {"SA", "Safety"},
                             {"MA", "Maintenance/Upkeep"},
                             {"OT", "Others"},
                             {"AN", "Animal/Removal"},
                             {"IC", "Ice/Snow Removal"},
                             {"PO", "Pot Holes/Roads"},
                             {"DR", "Drain/Storm Drain"},
                             {"WA", "Walkway/Sidewalk"},
                             {"GA", "Garbage/Sanitation"},
                             {"TR", "Trees/Trim"},
                             {"BE", "Berm"},
                             {"EA", "Easement"}};
// Violations say it in another spelling than the inspections do; letters of both kinds are on file.
constexpr Code kSharedNatures[] = {
    {"*", "Complaint"}, {"QU", "Quality of life"}, {"SA", "Safety"}, {"OT", "Others"}, {"MA", "Maintenance/Upkeep"}};

const Code* find(std::span<const Code> table, std::string_view code) {
  const auto found = std::ranges::find(table, code, &Code::code);
  return found == table.end() ? nullptr : &*found;
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isNumbered(std::string_view line) {
  return line.size() >= kCodeLength && isDigit(line[0]) && isDigit(line[1]);
}

std::string fromLists(const std::string& code, const Session& session) {
  const bool numbered = code.front() < 'A';
  for (const std::string& line : numbered ? session.numberedComplaints : session.letteredComplaints) {
    const std::string_view own = left(line, kCodeLength);
    const bool same = numbered ? isNumbered(line) && Val(own) == Val(code) : upper(trim(own)) == upper(trim(code));
    if (same)
      return std::string(trim(std::string_view(line).substr(own.size())));
  }
  return std::string(kUnknown) + " " + code;
}

}  // namespace

std::string ICode2Combo(std::string_view code) {
  const Code* found = find(kCategories, upper(code));
  return std::string(found ? found->text : kUnknown);
}

std::string RCode2Combo(std::string_view code) {
  const Code* found = find(kResults, upper(left(code, 1)));
  return std::string(found ? found->text : kUnknown);
}

std::string BCode2Combo(std::string_view code, const Session& session) {
  const std::string value = upper(code);
  const Code* found = find(kNatures, left(value, kCodeLength));
  return found ? std::string(found->text) : value + " " + complaintCategory(value, session);
}

std::string complaintCategory(std::string_view code, const Session& session) {
  const std::string wanted = code.empty() ? "99" : std::string(code);
  const Code* found = find(kSharedNatures, upper(wanted));
  return found ? std::string(found->text) : fromLists(wanted, session);
}

}  // namespace zelvo
