#include "enforcement/inspections/inspection_codes.h"

#include <algorithm>

#include "base/text.h"
#include "records/attachments.h"
#include "records/picks.h"

namespace zelvo {

namespace {

struct TypeList {
  std::string_view category, file;
  std::size_t limit;
};

constexpr TypeList kTypeLists[] = {
    {"BLDG", "\\bins.txt", 99}, {"OTHER", "\\oins.txt", 30}, {"COMPLAINT", "\\cins.txt", 99}};

}  // namespace

std::string shownCode(std::string_view code, std::string (*table)(std::string_view)) {
  return trim(code).empty() ? std::string(kNoCode) : table(code);
}

std::vector<std::string> inspectionTypes(const Session& session, std::string_view category) {
  std::vector<std::string> types;
  if (const auto list = std::ranges::find(kTypeLists, category, &TypeList::category); list != std::end(kTypeLists)) {
    types = pickList(session, list->file);
    types.resize(std::min(types.size(), list->limit));
  }
  types.emplace(types.begin(), kSelect);
  return types;
}

std::string checklistName(std::string_view category, std::string_view type) {
  return "\\checklist\\" + asFileName(std::string(category) + " " + std::string(trim(type))) + ".rtf";
}

}  // namespace zelvo
