#include "app/town/office_lists.h"

#include <span>
#include <vector>

#include "app/town/people.h"
#include "app/town/permit.h"
#include "base/files.h"

namespace zelvo {

namespace {

// The last of the building codes that the screens show stands at the place of the last of the other codes: a shorter
// list of other codes would hide some.
static_assert(std::size(kOtherInspections) >= std::size(kBuildingInspections));

constexpr std::string_view kFeeItems[] = {"Building Permit",    "Plan Review",  "Certificate of Occupancy",
                                          "Certificate Search", "Reinspection", "Fire Inspection",
                                          "Zoning Permit",      "Copies"};
constexpr std::string_view kChecklist[] = {
    "Final inspection passed", "Electrical certificate", "Septic approval", "Survey as built", "Fees paid",
    "Address posted"};
constexpr std::string_view kCustomDocuments[] = {"Field Copy"};
constexpr std::string_view kZoningUses[] = {"Single dwelling", "Two dwellings",   "Retail",
                                            "Office",          "Home occupation", "Farm"};
constexpr std::string_view kZoningTypes[] = {"Site plan", "Setback", "Lot line", "Sign", "Accessory structure"};

std::vector<std::string> listed(std::span<const std::string_view> entries) {
  return {entries.begin(), entries.end()};
}

std::vector<std::string> permitTypes() {
  std::vector<std::string> types;
  for (const WorkKind& work : workKinds())
    types.emplace_back(work.permitFor);
  return types;
}

Result<void> writeFireChecklist(std::string_view folder) {
  std::vector<std::string> groups;
  for (const FireGroup& group : kFireGroups) {
    groups.emplace_back(group.name);
    const std::string file = "fcat" + std::to_string(groups.size()) + ".txt";
    if (auto written = writeLines(joinPath(folder, file), listed(group.items)); !written)
      return written;
  }
  return writeLines(joinPath(folder, "fcat.txt"), groups);
}

}  // namespace

Result<void> writeOfficeLists(std::string_view dataFolder) {
  const std::pair<std::string_view, std::vector<std::string>> lists[] = {
      {"Inspectors.txt", listed(kInspectors)},
      {"bins.txt", listed(kBuildingInspections)},
      {"oins.txt", listed(kOtherInspections)},
      {"cins.txt", listed(kComplaintTypes)},
      {"ccatn.txt", {"07 Noise", "12 Fence"}},
      {"ccatl.txt", {"BO Bonfire", "SI Sign"}},
      {"fees.txt", listed(kFeeItems)},
      {"clist.txt", listed(kChecklist)},
      {"pt.txt", permitTypes()},
      {"pu.txt", listed(buildingUses())},
      {"pit.txt", listed(kInsuranceTypes)},
      {"pct.txt", listed(kContactTypes)},
      {"pcustom.txt", listed(kCustomDocuments)},
      {"zpt.txt", listed(kZoningTypes)},
      {"zpu.txt", listed(kZoningUses)},
      {"zps.txt", listed(kStructureTypes)},
      {"zpz.txt", listed(kZones)},
      {"fistruct.txt", listed(kStructureTypes)},
  };
  for (const auto& [file, lines] : lists)
    if (auto written = writeLines(joinPath(dataFolder, file), lines); !written)
      return written;
  return writeFireChecklist(dataFolder);
}

}  // namespace zelvo
