#include "records/numbering.h"

#include <cmath>

#include "base/files.h"
#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

std::string firstLine(const std::string& path) {
  const auto lines = readLines(path);
  return lines && !lines->empty() ? std::string(trim(lines->front())) : "";
}

// Only whole numbers of a length that an office can reach are numbers here; anything else in a file is an accident.
bool isUsable(std::string_view number) {
  return !number.empty() && number.size() <= 9 && number.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string oneMore(std::string_view number) {
  return numberText(std::floor(Val(number)) + 1);
}

std::string lastSequence(Recordset& records, std::string_view column) {
  if (records.RecordCount() == 0)
    return "0";
  records.MoveLast();
  const std::string sequence = records.text(column);
  records.MoveFirst();
  return sequence;
}

}  // namespace

bool Numbering::seeded() const {
  const std::string_view seed = trim(session_.seeds.*rule_.seed);
  return isUsable(seed) && Val(seed) > 0;
}

std::string Numbering::filePath() const {
  return joinPath(session_.dataFolder, seeded() ? rule_.seedFile : rule_.highWaterFile);
}

// What stands in a file and cannot be used is left there for the office to see.
std::string Numbering::unusable() const {
  const std::string_view seed = trim(session_.seeds.*rule_.seed);
  if (!seed.empty() && seed != "-1" && !isUsable(seed))
    return "The number set in the preferences, \"" + std::string(left(seed, 40)) + "\", is no whole number.";
  const std::string stored = firstLine(filePath());
  if (!FileExists(filePath()) || isUsable(stored))
    return "";
  return "The file " + filePath() + " holds no whole number but \"" + std::string(left(stored, 40)) + "\".";
}

std::string Numbering::open(Recordset& records) {
  next_ = seeded() ? numberText(Val(session_.seeds.*rule_.seed)) : oneMore(lastSequence(records, rule_.sequenceColumn));
  if (FileExists(filePath()))
    catchUp();
  else
    (void)writeLines(filePath(), {next_}).ok();
  return unusable();
}

// The texts are compared, not their values: a stored "9" stands above a computed "10". Offices rely on setting the file
// by hand.
void Numbering::catchUp() {
  const std::string stored = firstLine(filePath());
  if (isUsable(stored) && stored > next_)
    next_ = stored;
}

void Numbering::bump() {
  next_ = oneMore(next_);
}

Result<void> Numbering::noteTaken() const {
  const std::string path = filePath();
  const std::string after = oneMore(next_);
  const std::string stored = firstLine(path);
  if (isUsable(stored) && Val(stored) >= Val(after))
    return {};
  return writeLines(path, {after});
}

void Numbering::moveOn() {
  bump();
  if (seeded())
    session_.seeds.*rule_.seed = next_;
}

}  // namespace zelvo
