#include "data/parcel_key.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "data/query_text.h"
#include "data/recordset.h"

namespace zelvo {

namespace {

constexpr int sectionBox = 2;

/// The boxes behind the section's, and the columns that they search.
constexpr std::pair<int, std::string_view> partBoxes[] = {{3, "BLK"}, {4, "LOT"}, {5, "LOD"}, {6, "SUB"}};

/// What stands in a box, without blanks around it; nothing in a box that the screen lacks.
std::string inBox(const Screen& form, std::string_view boxes, int index) {
  const Control* box = form.find(boxes, index);
  return box ? std::string(trim(box->shown())) : std::string();
}

std::string orZero(std::string_view part) {
  return std::string(part.empty() ? "0" : part);
}

struct Section {
  std::string section;
  std::string suffix;
};

Section sectionOf(std::string_view typed) {
  const std::size_t point = typed.find('.');
  if (point == std::string_view::npos)
    return {std::string(typed), ""};
  return {std::string(typed.substr(0, point)), std::string(typed.substr(point + 1))};
}

std::string keyFromBoxes(const Screen& form, std::string_view boxes) {
  const Section section = sectionOf(inBox(form, boxes, sectionBox));
  std::vector<std::string> parts = {orZero(section.section), orZero(section.suffix), "0"};
  for (const auto& [box, column] : partBoxes)
    parts.push_back(orZero(inBox(form, boxes, box)));
  parts.push_back("0");
  return cleanSBL(upper(join(parts, "-")));
}

/// A field of the current row; "0" where the table has none of that name, the field is empty, or no row is current.
std::string partOf(const Recordset& records, std::string_view field) {
  const bool onRow = records.adding() || records.AbsolutePosition() > 0;
  if (!onRow || !records.table().find(field))
    return "0";
  return orZero(trim(records.text(field)));
}

/// Replaces until there is none left, what a replacement brings together included.
void replaceUntilGone(std::string& text, std::string_view what, std::string_view with) {
  for (std::size_t at = text.find(what); at != std::string::npos;) {
    text.replace(at, what.size(), with);
    at = text.find(what, at == 0 ? 0 : at - 1);
  }
}

std::string condition(std::string_view column, std::string_view value) {
  return columnIs(column, value) + " AND";
}

bool holdsPart(std::string_view part) {
  return part != "0" && !part.empty();
}

/// The next piece of a key and the "-" behind it, cut off its front; false when there is no "-" any more.
bool takePiece(std::string_view& key, std::string& part) {
  const std::size_t end = key.find('-');
  if (end == std::string_view::npos)
    return false;
  part = key.substr(0, end);
  key.remove_prefix(end + 1);
  return true;
}

/// The last piece is all that is left. The second position goes to SED here, unlike in currentSBL: the parts that this
/// fills go to the records that way round.
bool takeApart(std::string_view key, ParcelParts& parts) {
  for (std::string* part : {&parts.SEC, &parts.SED, &parts.SECA, &parts.BLK, &parts.LOT, &parts.LOD, &parts.SUB})
    if (!takePiece(key, *part))
      return false;
  parts.SUD = key == "0-0" ? "" : key;
  return true;
}

void putInBox(Screen& form, int index, std::string_view text) {
  if (auto* box = dynamic_cast<TextBox*>(form.find("Text1", index)))
    box->text = text;
}

}  // namespace

std::string currentSBL(const Recordset& records, ParcelParts& parts) {
  const std::pair<std::string_view, std::string*> fields[] = {
      {"SEC", &parts.SEC}, {"SED", &parts.SED}, {"SECA", &parts.SECA}, {"BLK", &parts.BLK},
      {"LOT", &parts.LOT}, {"LOD", &parts.LOD}, {"SUB", &parts.SUB},   {"SUD", &parts.SUD}};
  for (const auto& [field, part] : fields)
    *part = partOf(records, field);
  return upper(join({parts.SEC, parts.SUD, parts.SECA, parts.BLK, parts.LOT, parts.LOD, parts.SUB, parts.SED}, "-"));
}

std::string MakeSBL(const Screen& form) {
  return keyFromBoxes(form, "Text1");
}

std::string MakeSBL2(const Screen& form) {
  return keyFromBoxes(form, "Text2");
}

std::string TrimSBL(std::string& key) {
  constexpr int mostParts = 5;  // a section, its suffix and its letter stay
  for (int i = 0; i < mostParts; ++i)
    if (key.ends_with("-0"))
      key.resize(key.size() - 2);
  return key;
}

std::string TrimSBL(std::string&& key) {
  return TrimSBL(key);
}

std::string cleanSBL(std::string_view text) {
  constexpr auto mostSeparators = 7;
  std::string cleaned(text);
  replaceUntilGone(cleaned, ".-", "-");
  replaceUntilGone(cleaned, "./", ".");
  replaceUntilGone(cleaned, "/", ".");
  replaceUntilGone(cleaned, "--", "-");
  if (std::count(cleaned.begin(), cleaned.end(), '-') > mostSeparators)
    cleaned.resize(cleaned.rfind('-'));
  return cleaned;
}

std::string SBL2SQL(const Screen& form) {
  std::string conditions;
  const Section section = sectionOf(inBox(form, "Text1", sectionBox));
  if (!section.section.empty())
    conditions += condition("SEC", section.section);
  if (!section.suffix.empty())
    conditions += condition("SUD", section.suffix);
  for (const auto& [box, column] : partBoxes)
    if (const std::string part = inBox(form, "Text1", box); !part.empty())
      conditions += condition(column, part);
  return conditions.empty() ? "[SEC] = '0' AND [BLK] = '0' AND" : conditions;
}

bool SBLfilled(const Screen& form) {
  for (int box = sectionBox; box <= partBoxes[3].first; ++box)
    if (!inBox(form, "Text1", box).empty())
      return true;
  return false;
}

void ExtractSBL(Screen& form, std::string_view key) {
  for (int box = 1; box <= partBoxes[3].first; ++box)
    putInBox(form, box, "");
  std::vector<std::string> pieces = split(upper(key), '-');
  pieces.resize(8);
  putInBox(form, sectionBox, holdsPart(pieces[1]) ? pieces[0] + "." + pieces[1] : pieces[0]);
  for (std::size_t i = 0; i < std::size(partBoxes); ++i)
    putInBox(form, partBoxes[i].first, pieces[i + 3]);
}

std::string mysbl2SBL(std::string_view key, ParcelParts& parts) {
  parts = {};
  if (!takeApart(upper(key), parts)) {
    parts.SEC = "-9";
    return "invalid SBL";
  }
  if (holdsPart(parts.SED))
    parts.SEC += "." + parts.SED;
  std::string shown = parts.SEC + "-";
  if (parts.SECA != "0")
    shown += parts.SECA + "-";
  shown += parts.BLK + "-" + parts.LOT;
  for (const std::string* part : {&parts.LOD, &parts.SUB})
    if (*part != "0")
      shown += "." + *part;
  if (holdsPart(parts.SUD))
    shown += "." + parts.SUD;
  return cleanSBL(shown);
}

}  // namespace zelvo
