#pragma once

#include <string>
#include <string_view>

#include "base/files.h"
#include "data/data_folder.h"
#include "small_office.h"
#include "support/scripted_desk.h"

namespace zelvo {

/// An office at its start-up: a program folder and a data folder, both empty at first.
class DataFolder : public SmallOffice {
 protected:
  void SetUp() override {
    SmallOffice::SetUp();
    furnish(folder.file("records"));
    user.session.programFolder = folder.file("program");
    user.session.dataFolder = folder.file("records");
    for (const auto* made : {"program", "records"})
      EXPECT_TRUE(makeFolder(folder.file(made)).ok());
  }
  void fill() {
    for (const Table& table : catalogue())
      ASSERT_TRUE(createDatabase(joinPath(folder.file("records"), table.file), table).ok());
  }
  void resolve() {
    const auto resolved = resolveDataFolder(user.desk);
    EXPECT_TRUE(resolved.ok()) << troubleOf(resolved);
  }
  std::size_t databasesIn(std::string_view name) { return listFiles(folder.file(name), "*.mdb").size(); }

  testing::ScriptedDesk user;
};

}  // namespace zelvo
