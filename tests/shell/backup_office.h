#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "data/connection.h"
#include "data/recordset.h"
#include "shell/backup/backup_set.h"
#include "shell/menu_frm.h"
#include "shell/shell_screens.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo::testing {

/// An office with two databases, lists and attachments, its main menu open, and a folder for its backups.
class BackupOffice : public ::testing::Test {
 protected:
  BackupOffice() {
    learnShellScreens(desk.screens);
    Session& session = desk.session;
    session.programFolder = folder.file("program");
    session.dataFolder = folder.file("data");
    session.backupFolder = folder.file("backups");
    session.municipality.name = "Village of Alder Glen";
    session.userId = "BOSS";
    session.administrator = session.masterComputer = true;
    for (const std::string& each : {session.programFolder, session.dataFolder, session.backupFolder})
      std::filesystem::create_directories(each);
    for (const char* table : {"BLDGPERM", "SBL"})
      EXPECT_TRUE(createDatabase(data(findTable(table)->file), *findTable(table)).ok());
    addPermits(1, 20);
    folder.write("data/phi.txt", "21\r\n");
    folder.write("data/Inspectors.txt", "Hollis\r\n");
    folder.write("data/docs/P26-1~1.pdf", "a plan");
    folder.write("data/checklist/BLDG 02 Footing.rtf", "{\\rtf1 what to look at}");
    folder.write("data/pics/2026/P26-1~1.jpg", std::string("a \0 picture", 11));
  }

  std::string data(std::string_view name) const { return folder.file("data/" + std::string(name)); }
  MenuFrm& menu() { return dynamic_cast<MenuFrm&>(*desk.screens.open("MenuFrm")); }

  void addPermits(int from, int to) {
    int next = from;
    auto connection = Connection::open(connectionText(data("db1.mdb")));
    ASSERT_TRUE(connection) << connection.error().message;
    ASSERT_TRUE(bulkInsert(**connection, *findTable("BLDGPERM"), {"PERMIT", "OWNNAME1"}, [&](std::vector<Value>& row) {
      row = {Value("26-" + std::to_string(next)), Value("Owner of " + std::to_string(next))};
      return next++ <= to;
    }));
  }

  static std::size_t permitsIn(const std::string& database) {
    auto connection = Connection::open(connectionText(database));
    if (!connection)
      return ADD_FAILURE() << connection.error().message, 0;
    auto rows = Recordset::open(*connection, "Select * from BLDGPERM order by PERMIT");
    return rows ? (*rows)->RecordCount() : 0;
  }

  /// The files below a folder with their bytes; a database by its permits, whose bytes differ after each restore, and
  /// without its journal.
  static std::map<std::string, std::string> contentOf(const std::string& top) {
    namespace fs = std::filesystem;
    std::map<std::string, std::string> content;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
      const std::string name = entry.path().lexically_relative(top).string();
      if (!entry.is_regular_file() || name.starts_with("set-aside") || name.ends_with("-journal"))
        continue;
      std::ifstream in(entry.path(), std::ios::binary);
      content[name] = name == "db1.mdb" ? std::to_string(permitsIn(entry.path().string()))
                                        : std::string(std::istreambuf_iterator<char>(in), {});
    }
    content.erase("sbl.mdb");
    return content;
  }

  std::vector<std::string> sets() const { return findSets(folder.file("backups")); }
  bool nothingLeft() const { return std::filesystem::is_empty(folder.file("backups")); }

  /// Backs up by the menu, and gives the set.
  std::string backUp() {
    desk.expect(" Completed", "You will find the backup database on the location you selected:\n...");
    desk.click(menu(), "backr");
    EXPECT_FALSE(sets().empty());
    return sets().empty() ? "" : sets().front();
  }
  void expectFailure() {
    desk.expect(" Backup Failed",
                "The backup operation has failed or canceled.\nUntil successful, you will not have a good set\nof "
                "database files. Please check your source and\ndestination folder locations and try again.     ");
  }

  TempFolder folder;
  ScriptedDesk desk;
};

}  // namespace zelvo::testing
