#pragma once

#include <string>
#include <string_view>

#include "base/result.h"

namespace zelvo {

// The lists that the office keeps: what its screens offer, one entry a line of a text file of the data folder.

inline constexpr std::string_view kBuildingInspections[] = {
    "01 Plan Review",    "02 Footing",    "03 Foundation", "04 Framing",      "05 Rough Plumbing",
    "06 Rough Electric", "07 Insulation", "08 Chimney",    "09 Pool Barrier", "10 Final"};
inline constexpr std::string_view kOtherInspections[] = {
    "20 Site Visit", "21 Sign", "22 Sidewalk", "23 Demolition",  "24 Driveway",     "25 Culvert",
    "26 Septic",     "27 Well", "28 Tent",     "29 Mobile Home", "30 Storm Damage", "31 Reinspection"};
// The first two letters of each are the code by which complaints are told apart.
inline constexpr std::string_view kComplaintTypes[] = {
    "Quality of Life",   "Safety",           "Maintenance/Upkeep", "Others",    "Animal/Removal", "Ice/Snow Removal",
    "Drain/Storm Drain", "Walkway/Sidewalk", "Garbage/Sanitation", "Trees/Trim"};
inline constexpr std::string_view kStructureTypes[] = {"Wood frame", "Ordinary masonry", "Noncombustible",
                                                       "Fire resistive", "Heavy timber"};
inline constexpr std::string_view kInsuranceTypes[] = {"General Liability", "Workers Compensation", "Disability"};
inline constexpr std::string_view kContactTypes[] = {"Electrician", "Plumber", "Surveyor", "Mason"};
inline constexpr std::string_view kZones[] = {"R-1", "R-2", "C-1", "M-1"};

/// The groups of the checklist of a fire inspection, with their items.
struct FireGroup {
  std::string_view name;
  std::string_view items[4];
};
inline constexpr FireGroup kFireGroups[] = {
    {"Exits", {"Exit doors open freely", "Exit signs lighted", "Emergency lights work", "Paths kept clear"}},
    {"Alarms", {"Smoke detectors", "Pull stations", "Panel without trouble", "Alarm test on file"}},
    {"Equipment", {"Extinguishers tagged", "Sprinkler valves open", "Kitchen hood cleaned", "Gas shut-off marked"}},
};

/// Writes all lists into the data folder.
Result<void> writeOfficeLists(std::string_view dataFolder);

}  // namespace zelvo
