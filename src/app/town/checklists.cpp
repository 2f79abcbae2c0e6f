#include "app/town/checklists.h"

#include <span>

#include "app/town/office_lists.h"

namespace zelvo {

namespace {

constexpr std::string_view kItems[] = {"Permit posted and plans on site",   "Work is as drawn",
                                       "Materials are those approved",      "Fastenings and supports in place",
                                       "Nothing covered before inspection", "Site safe to work on"};

std::string richText(std::string_view type) {
  std::string rtf =
      "{\\rtf1\\ansi\\uc1{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\r\n"
      "\\pard\\plain\\qc\\f0\\fs28\\b CHECKLIST " +
      std::string(type) +
      "\\b0\\par\r\n\\pard\\plain\\sb240\\sa180\\f0\\fs22 {\\b Permit:} %12   {\\b ICN:} %01   {\\b Date:} %02   "
      "{\\b Inspector:} %11\\par\r\n\\pard\\plain\\sa180\\f0\\fs22 %05, parcel %sbl\\par\r\n";
  for (const std::string_view item : kItems)
    rtf += "\\pard\\plain\\sa120\\f0\\fs22 [  ] yes   [  ] no   " + std::string(item) + "\\par\r\n";
  return rtf + "\\pard\\plain\\sb240\\f0\\fs22 Remarks:\\par\r\n}";
}

}  // namespace

std::vector<TownChecklist> townChecklists() {
  std::vector<TownChecklist> checklists;
  for (const std::string_view type : kBuildingInspections)
    checklists.push_back({"BLDG " + std::string(type) + ".rtf", richText(type)});
  return checklists;
}

}  // namespace zelvo
