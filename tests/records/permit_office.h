#pragma once

#include <sys/stat.h>

#include "records/permits/a_permits.h"
#include "support/record_office.h"

namespace zelvo::testing {

/// An office with empty databases, one clerk, and the permit screen.
class PermitOffice : public RecordOffice {
 protected:
  PermitOffice() : RecordOffice({"BLDGPERM", "SBL"}) {
    at.screens.learn("APermits",
                     [this](Desk& desk) { return std::make_unique<APermits>(desk, parcels, letters, labels); });
  }

  APermits& open() {
    at.screens.sweep();
    return dynamic_cast<APermits&>(*at.screens.open("APermits"));
  }

  /// Types a permit that lacks nothing, on the parcel 999.5-3-45.
  void typePermit(Screen& permits, std::string_view owner = "Smith, John") {
    at.set(permits, "Text1(2)", "999.5");
    at.set(permits, "Text1(3)", "3");
    at.set(permits, "Text1(4)", "45");
    at.set(permits, "Text1(18)", owner);
    at.set(permits, "Text1(17)", "12 Mill Road, Alder Glen, NY 12009");
    at.set(permits, "Text1(34)", "14 Mill Road");
  }

  void expectNewParcel(Answer answer = Answer::Yes) {
    at.expect(" SBL not found",
              "The Section, Block and Lot info cannot be found.\nIf this is a new S-B-L, click 'Yes' to add this as a "
              "new record.",
              answer);
  }

  std::unique_ptr<Recordset> permitsNow() { return look("db1.mdb", "Select * from BLDGPERM order by PERMIT"); }

  void addOther(std::string_view key) {
    const std::string number(key);
    addRow("BLDGPERM", {{"PERMIT", number.c_str()}, {"BLDGPRM", number.c_str() + 3}});
  }
};

}  // namespace zelvo::testing
