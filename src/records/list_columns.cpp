#include "records/list_columns.h"

#include <algorithm>

#include "base/comma_record.h"
#include "base/files.h"
#include "base/number.h"

namespace zelvo {

namespace {

constexpr int kNarrowest = 2, kWidest = 200;

std::string choiceFile(const Session& session, const RecordKind& kind) {
  return joinPath(joinPath(session.programFolder, "\\lists"), std::string(kind.screen) + ".txt");
}

}  // namespace

std::vector<ShownColumn> usualColumns(const RecordKind& kind) {
  std::vector<ShownColumn> columns;
  for (const ListField& field : kind.list)
    columns.push_back({std::string(field.column), std::string(field.caption), field.width});
  return columns;
}

std::vector<ShownColumn> rememberedColumns(const Session& session, const RecordKind& kind, const Table& table) {
  std::vector<ShownColumn> columns;
  for (const std::string& line : readLines(choiceFile(session, kind)).valueOr({})) {
    std::size_t at = 0;
    const auto parts = readCommaValues(line, at, 3);
    if (parts.size() == 3 && table.find(parts[0]))
      columns.push_back({parts[0], parts[2], std::clamp(CLng(Val(parts[1])), kNarrowest, kWidest)});
  }
  return columns.empty() ? usualColumns(kind) : columns;
}

Result<void> rememberColumns(const Session& session, const RecordKind& kind, const std::vector<ShownColumn>& columns) {
  if (auto made = makeFolder(joinPath(session.programFolder, "\\lists")); !made)
    return made;
  std::vector<std::string> lines;
  for (const ShownColumn& shown : columns)
    lines.push_back(writeCommaRecord({shown.column, std::to_string(shown.width), shown.caption}));
  return writeLines(choiceFile(session, kind), lines);
}

}  // namespace zelvo
