#pragma once

#include <gtest/gtest.h>

#include "enforcement/inspections/b_inspections.h"
#include "records/permits/a_permits.h"
#include "support/record_office.h"

namespace zelvo::testing {

/// An office with a permit, a parcel in the registry, its lists, and the inspections screen.
class InspectionOffice : public RecordOffice {
 protected:
  InspectionOffice() : RecordOffice({"BLDGPERM", "INSPDTL", "VIOLDATA", "SBL"}) {
    at.screens.learn("BInspections",
                     [this](Desk& desk) { return std::make_unique<BInspections>(desk, parcels, letters); });
    at.screens.learn("APermits",
                     [this](Desk& desk) { return std::make_unique<APermits>(desk, parcels, letters, labels); });
    at.session.inspectors = {"A. Brown"};
    folder.write("data/bins.txt", "01 Plan Review\r\n02 Footing\r\n");
    folder.write("data/oins.txt", "21 Sign\r\n");
    folder.write("data/cins.txt", "Safety\r\nGarbage/Sanitation\r\n");
    addRow("BLDGPERM", {{"PERMIT", "26-7"},
                        {"OWNNAME1", "O'Brien, Zoë"},
                        {"LOCN1", "14 Mill Road"},
                        {"OWNPHONE", "555-0117"},
                        {"SEC", "12"},
                        {"SUD", "5"},
                        {"BLK", "3"},
                        {"LOT", "45"}});
    addRow("SBL", {{"SBLF", "12-5-0-3-45"}, {"ASSOC", "O'Brien, Zoë"}});
  }

  BInspections& open() {
    at.screens.sweep();
    return dynamic_cast<BInspections&>(*at.screens.open("BInspections"));
  }

  void type(Screen& screen, const std::vector<std::pair<const char*, const char*>>& values) {
    for (const auto& [control, value] : values)
      at.set(screen, control, value);
  }

  /// Begins an inspection of the permit 26-7 that lacks nothing.
  void begin(Screen& screen, const char* result = "Passed", const char* permit = "26-7") {
    at.click(screen, "INew");
    type(screen, {{"Text1(7)", permit}});
    at.leave(screen, "Text1(7)");
    type(screen, {{"Text1(2)", "12.5"},
                  {"Text1(3)", "3"},
                  {"Text1(4)", "45"},
                  {"Text1(9)", "14 Mill Road"},
                  {"Combo1", "BLDG"},
                  {"Combo2", "02 Footing"},
                  {"Combo3", "A. Brown"},
                  {"Combo4", result},
                  {"Text1(11)", "Rebar in place."}});
  }
  /// Begins a complaint about the parcel 12.5-3-45.
  void complain(Screen& screen, const char* nature = "Rubbish beside the road.") {
    at.click(screen, "INew");
    type(screen, {{"Combo1", "COMPLAINT"},
                  {"Combo2", "Garbage/Sanitation"},
                  {"Combo3", "A. Brown"},
                  {"Combo4", "Open"},
                  {"Text1(2)", "12.5"},
                  {"Text1(3)", "3"},
                  {"Text1(4)", "45"},
                  {"Text1(9)", "14 Mill Road"},
                  {"Text1(12)", "Neighbour, Ned"},
                  {"Text1(15)", nature}});
  }

  std::unique_ptr<Recordset> stored(std::string_view icn) {
    return look("db2.mdb", "Select * from INSPDTL where [RECNO] = '" + std::string(icn) + "'");
  }
  /// Flag and note of the parcel 12.5-3-45.
  std::string flag() {
    const auto row = look("sbl.mdb", "Select * from SBL where [SBLF] = '12-5-0-3-45'");
    return row->text("FAILED") + " " + row->text("NOTES");
  }
};

}  // namespace zelvo::testing
