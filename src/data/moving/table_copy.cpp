#include "data/moving/table_copy.h"

#include "base/text.h"
#include "data/row_storing.h"

namespace zelvo {

namespace {

constexpr std::size_t longestShown = 60;

std::string shown(const Value& value) {
  const std::string text = value.text();
  const std::string_view some = left(text, longestShown);
  return value.isNull() ? "nothing" : "\"" + std::string(some) + (some.size() < text.size() ? "...\"" : "\"");
}

Error differ(const Table& table, const std::string& how) {
  return {Trouble::Failed, "The table " + std::string(table.name) + " did not come out as it was: " + how};
}

Error rowsDiffer(const Table& table, std::size_t number, const Row& was, const Row& is) {
  const std::size_t at = differing(was, is).front();
  const std::size_t key = table.position(table.key);
  const std::string record = key < was.size() ? std::string(table.key) + " " + shown(was[key]) : "that";
  return differ(table, "in row " + std::to_string(number) + " (" + record + ") " + std::string(table.columns[at].name) +
                           " is " + shown(was[at]) + " and became " + shown(is[at]) +
                           ". Correct it on its screen and move the office again.");
}

Error countsDiffer(const Table& table, std::string_view how) {
  return differ(table, "it has " + std::string(how) +
                           " rows than were read. Try again, and tell whoever looks after the program.");
}

/// Two tables read side by side.
class Comparison {
 public:
  Comparison(RowReader& from, const Table& table, RowReader& to, const Engine& target)
      : from_(from), to_(to), table_(table), target_(target) {}

  Result<std::size_t> run() {
    for (;; ++count_) {
      const auto more = from_.next(was_);
      const auto there = more ? to_.next(is_) : more;
      if (!there)
        return there.error();
      if (!*more)
        return *there ? Result<std::size_t>(countsDiffer(table_, "more")) : count_;
      if (!*there)
        return countsDiffer(table_, "fewer");
      was_ = target_.asStored(std::move(was_));
      if (was_ != is_)
        return rowsDiffer(table_, count_ + 1, was_, is_);
    }
  }

 private:
  RowReader& from_;
  RowReader& to_;
  const Table& table_;
  const Engine& target_;
  Row was_, is_;
  std::size_t count_ = 0;
};

}  // namespace

Result<void> copyRows(Engine& from, const Table& table, Engine& to) {
  const auto rows = from.everyRow(table);
  if (!rows)
    return rows.error();
  Result<bool> more = true;
  auto copied = to.insertMany(table, allPositions(table), [&](std::vector<Value>& row) {
    more = (*rows)->next(row);
    return more.ok() && *more;
  });
  return more ? copied : more.error();
}

Result<std::size_t> compareRows(Engine& from, const Table& table, Engine& to) {
  const auto was = from.everyRow(table);
  if (!was)
    return was.error();
  const auto is = to.everyRow(table);
  if (!is)
    return is.error();
  return Comparison(**was, table, **is, to).run();
}

}  // namespace zelvo
