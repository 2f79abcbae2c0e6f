#include "records/field_copy.h"

#include "base/number.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr int kSectionBox = 2;

TextBox* boxOf(const Screen& screen, int index) {
  return dynamic_cast<TextBox*>(screen.find("Text1", index));
}

bool isSet(std::string_view part) {
  return !part.empty() && part != "0";
}

std::string shownSection(const Recordset& records) {
  const std::string section = records.text("SEC");
  const std::string suffix(trim(records.text("SUD")));
  return isSet(suffix) ? section + "." + suffix : section;
}

void setSection(Recordset& records, const Column& column, std::string_view text) {
  const auto point = text.find('.');
  records.set(column.name, text.substr(0, point));
  if (point != std::string_view::npos)
    records.set("SUD", text.substr(point + 1));
}

}  // namespace

std::string shownText(const Recordset& records, const Column& column) {
  if (column.box == kSectionBox)
    return shownSection(records);
  const Value value = records.get(column.name);
  if (value.isDate())
    return datePicture(*value.moment(), "mm/dd/yyyy");
  return value.text();
}

// The text is cut before it is read as a number: the width of the column is the width of what the office writes.
void storeText(Recordset& records, const Column& column, std::string_view text) {
  if (column.box == kSectionBox)
    return setSection(records, column, text);
  if (column.length >= 1 && column.type != ColumnType::Date)
    text = left(text, static_cast<std::size_t>(column.length));
  if (column.type == ColumnType::Date && trim(text).empty())
    records.set(column.name, Value());
  else if (column.type == ColumnType::Number)
    records.set(column.name, trim(text).empty() ? 0 : Val(text));
  else
    records.set(column.name, text);
}

std::string boxText(const Screen& screen, int box) {
  const TextBox* found = boxOf(screen, box);
  return found ? std::string(trim(found->text)) : "";
}

void setBoxText(Screen& screen, int box, std::string_view text) {
  if (TextBox* found = boxOf(screen, box))
    found->text = text;
}

ShownBoxes recordToScreen(const Recordset& records, Screen& screen) {
  ShownBoxes shown;
  for (const Column& column : records.table().columns)
    if (column.box >= 1) {
      shown[column.box] = shownText(records, column);
      setBoxText(screen, column.box, shown[column.box]);
    }
  return shown;
}

void showParcel(const Recordset& records, Screen& screen) {
  setBoxText(screen, kSectionBox, shownSection(records));
  for (const auto& [box, column] : {std::pair(3, "BLK"), {4, "LOT"}, {5, "LOD"}, {6, "SUB"}})
    setBoxText(screen, box, records.text(column));
}

void screenToRecord(const Screen& screen, Recordset& records, const ShownBoxes& before) {
  const Table& table = records.table();
  for (const Column& column : table.columns) {
    const TextBox* box = column.box >= 1 && !alike(column.name, table.key) ? boxOf(screen, column.box) : nullptr;
    if (!box)
      continue;
    const auto was = before.find(column.box);
    if (was == before.end() || was->second != box->text)
      storeText(records, column, box->text);
  }
}

std::string plainAmount(std::string_view typed) {
  std::string amount = replaceAll(trim(typed), ",", "");
  if (amount.starts_with('$'))
    amount.erase(0, 1);
  return isNumber(amount) ? std::string(trim(amount)) : std::string(typed);
}

void limitBoxes(const Table& table, Screen& screen) {
  for (const Column& column : table.columns)
    if (TextBox* box = column.box >= 1 ? boxOf(screen, column.box) : nullptr;
        box && column.length >= 1 && column.type != ColumnType::Number)
      box->maxLength = column.box == kSectionBox ? 2 * column.length + 1 : column.length;
}

}  // namespace zelvo
