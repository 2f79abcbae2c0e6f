#pragma once

#include <gtest/gtest.h>

#include "base/files.h"
#include "data/connection.h"
#include "data/lookup/lookup_screens.h"
#include "data/mdb.h"
#include "data/recordset.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo::testing {

/// An office with a parcel registry, its parcel screens, and a clerk.
class ParcelOffice : public ::testing::Test {
 protected:
  ParcelOffice() {
    at.session.programFolder = folder.file("program");
    at.session.dataFolder = folder.file("data");
    for (const char* made : {"program", "data"})
      EXPECT_TRUE(makeFolder(folder.file(made)).ok());
    learnParcelScreens(at.screens, parcels);
  }

  std::string path(std::string_view file) { return joinPath(at.session.dataFolder, file); }

  /// One of the registry's two layouts, with some parcels of the town.
  void useRegistry(const Table& layout) {
    ASSERT_TRUE(createDatabase(path("sbl.mdb"), layout).ok());
    for (const auto& [key, owner, location] : {std::tuple("12-0-0-3-45", "O'Brien, Maeve", "14 Mill Road"),
                                               {"12-0-0-3-46", "Désir, Jean", "16 Mill Road"},
                                               {"12-5-0-3-45", "Tanaka, Irene", "3 Élan Court"},
                                               {"121-0-0-3-45", "Smith, John", "100% Lane"},
                                               {"12-0-0-7-3-1", "Hollis Trust", "7 Quarry Lane"},
                                               {"13-0-A-3-45", "UNK", "1 Mill Road"}})
      addParcel(key, owner, location);
  }
  void useExtended() { useRegistry(extendedParcelTable()); }
  void useOld() { useRegistry(*findTable("SBL")); }

  void addParcel(std::string_view key, std::string_view owner, std::string_view location) {
    const auto added = parcels.SBLAdd(key, "25-1", owner, "", location);
    ASSERT_TRUE(added.ok()) << added.error().message;
  }

  /// The rows of a database now, seen by another computer.
  std::unique_ptr<Recordset> look(std::string_view file, std::string_view query) {
    auto connection = Connection::open(connectionText(path(file)));
    EXPECT_TRUE(connection.ok()) << (connection ? "" : connection.error().message);
    auto rows = Recordset::open(*connection, query);
    EXPECT_TRUE(rows.ok()) << (rows ? "" : rows.error().message);
    return std::move(*rows);
  }
  std::unique_ptr<Recordset> parcel(std::string_view key) {
    return look("sbl.mdb", "Select * from SBL where [SBLF] = '" + std::string(key) + "'");
  }

  /// What stands in a column of a list, row by row.
  std::string listed(const Screen& screen, std::size_t column = 0) {
    const auto& list = dynamic_cast<const ListView&>(at.control(screen, "ListView1"));
    std::string all;
    for (std::size_t row = 0; row < list.count(); ++row)
      all += (row == 0 ? "" : " ") + list.rows->cell(row, column);
    return all;
  }

  Screen& open(std::string_view name) {
    at.screens.sweep();
    return *at.screens.open(name);
  }

  TempFolder folder;
  ScriptedDesk at;
  mdb parcels{at.session};
};

}  // namespace zelvo::testing
