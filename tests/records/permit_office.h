#pragma once

#include <sys/stat.h>

#include "base/files.h"
#include "data/catalogue.h"
#include "data/connection.h"
#include "data/recordset.h"
#include "records/permits/a_permits.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo::testing {

/// An office with empty databases, one clerk, and the permit screen.
class PermitOffice : public ::testing::Test {
 protected:
  PermitOffice() {
    at.session.programFolder = folder.path();
    at.session.dataFolder = folder.file("data");
    at.session.formsFolder = folder.file("forms");
    at.session.userId = "Clara Whitcombe-Saunders";
    EXPECT_TRUE(makeFolder(at.session.dataFolder).ok());
    EXPECT_TRUE(makeFolder(at.session.formsFolder).ok());
    for (const char* table : {"BLDGPERM", "SBL"})
      EXPECT_TRUE(createDatabase(path(findTable(table)->file), *findTable(table)).ok());
    at.screens.learn("APermits", [this](Desk& desk) { return std::make_unique<APermits>(desk, parcels, letters); });
  }

  std::string path(std::string_view name) { return joinPath(at.session.dataFolder, name); }

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

  /// The rows that a query finds in a database now, seen by a second computer.
  std::unique_ptr<Recordset> look(std::string_view file, std::string_view query) {
    auto connection = Connection::open(connectionText(path(file)));
    EXPECT_TRUE(connection.ok());
    auto records = Recordset::open(*connection, query);
    EXPECT_TRUE(records.ok()) << (records ? "" : records.error().message);
    return std::move(*records);
  }
  std::unique_ptr<Recordset> permitsNow() { return look("db1.mdb", "Select * from BLDGPERM order by PERMIT"); }

  void addOther(std::string_view key) {
    auto other = permitsNow();
    other->AddNew();
    other->set("PERMIT", key);
    other->set("BLDGPRM", key.substr(3));
    EXPECT_TRUE(other->Update().ok());
  }

  TempFolder folder;
  ScriptedDesk at;
  mdb parcels{at.session};
  LetterPrinter letters{at.desk};
};

}  // namespace zelvo::testing
