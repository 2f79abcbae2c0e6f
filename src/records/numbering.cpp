#include "records/numbering.h"

#include "base/files.h"
#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

std::string firstLine(const std::string& path) {
  const auto lines = readLines(path);
  return lines && !lines->empty() ? std::string(trim(lines->front())) : "";
}

std::string oneMore(std::string_view number) {
  return numberText(Val(number) + 1);
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
  return Val(session_.seeds.*rule_.seed) > 0;
}

std::string Numbering::filePath() const {
  return joinPath(session_.dataFolder, seeded() ? rule_.seedFile : rule_.highWaterFile);
}

void Numbering::open(Recordset& records) {
  next_ = seeded() ? numberText(Val(session_.seeds.*rule_.seed)) : oneMore(lastSequence(records, rule_.sequenceColumn));
  if (FileExists(filePath()))
    catchUp();
  else
    (void)writeLines(filePath(), {next_}).ok();
}

// The texts are compared, not their values: a stored "9" stands above a computed "10". Offices rely on setting the file
// by hand.
void Numbering::catchUp() {
  const std::string stored = firstLine(filePath());
  if (stored > next_)
    next_ = stored;
}

void Numbering::bump() {
  next_ = oneMore(next_);
}

Result<void> Numbering::storeNext() {
  bump();
  const std::string path = filePath();
  if (seeded())
    session_.seeds.*rule_.seed = next_;
  if (Val(firstLine(path)) >= Val(next_))
    return {};
  return writeLines(path, {next_});
}

}  // namespace zelvo
