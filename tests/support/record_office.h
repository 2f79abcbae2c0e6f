#pragma once

#include <initializer_list>

#include "base/files.h"
#include "data/catalogue.h"
#include "data/connection.h"
#include "data/mdb.h"
#include "data/recordset.h"
#include "documents/labels/label_printer.h"
#include "documents/letter.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo::testing {

/// An office with empty databases, one clerk, and what its record screens share.
class RecordOffice : public ::testing::Test {
 protected:
  explicit RecordOffice(std::initializer_list<const char*> tables) {
    at.session.programFolder = folder.path();
    at.session.dataFolder = folder.file("data");
    at.session.formsFolder = folder.file("forms");
    at.session.userId = "Clara Whitcombe-Saunders";
    EXPECT_TRUE(makeFolder(at.session.dataFolder).ok());
    EXPECT_TRUE(makeFolder(at.session.formsFolder).ok());
    for (const char* table : tables)
      EXPECT_TRUE(createDatabase(path(findTable(table)->file), *findTable(table)).ok());
  }

  std::string path(std::string_view name) { return joinPath(at.session.dataFolder, name); }

  /// The rows that a query finds in a database now, seen by a second computer.
  std::unique_ptr<Recordset> look(std::string_view file, std::string_view query) {
    auto connection = Connection::open(connectionText(path(file)));
    EXPECT_TRUE(connection.ok());
    auto records = Recordset::open(*connection, query);
    EXPECT_TRUE(records.ok()) << (records ? "" : records.error().message);
    return std::move(*records);
  }

  /// A row that another computer added.
  void addRow(std::string_view table, const std::vector<std::pair<const char*, const char*>>& values) {
    auto rows = look(findTable(table)->file, "Select * from " + std::string(table));
    rows->AddNew();
    for (const auto& [column, value] : values)
      rows->set(column, value);
    EXPECT_TRUE(rows->Update().ok());
  }

  TempFolder folder;
  ScriptedDesk at;
  mdb parcels{at.session};
  LetterPrinter letters{at.desk};
  LabelSettings labelSettings;
  LabelPrinter labels{at.desk, labelSettings};
};

}  // namespace zelvo::testing
