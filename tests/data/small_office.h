#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

#include <memory>
#include <string>

#include "base/files.h"
#include "base/text.h"
#include "data/recordset.h"
#include "premises.h"
#include "support/temp_folder.h"

namespace zelvo {

/// What went wrong, for a test's message; empty when all is well.
template <class T>
std::string troubleOf(const Result<T>& result) {
  return result.ok() ? "" : result.error().message;
}

/// A data folder of a small office; any of its computers may connect.
class SmallOffice : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!lacking.empty())
      GTEST_SKIP() << lacking;
  }

  std::shared_ptr<Connection> connect(std::string_view file = "db1.mdb") {
    const std::string path = folder.file(file);
    if (::access(path.c_str(), F_OK) != 0) {
      const auto made = createDatabase(path, *findTableOfFile(fileNameOf(file)));
      EXPECT_TRUE(made.ok() || made.error().trouble == Trouble::Duplicate) << troubleOf(made);
    }
    auto opened = Connection::open(connectionText(path));
    EXPECT_TRUE(opened.ok()) << troubleOf(opened);
    return *opened;
  }

  static std::unique_ptr<Recordset> rows(std::shared_ptr<Connection> connection, std::string_view query) {
    auto opened = Recordset::open(std::move(connection), query);
    EXPECT_TRUE(opened.ok()) << troubleOf(opened);
    return std::move(*opened);
  }
  static std::unique_ptr<Recordset> permits(std::shared_ptr<Connection> connection) {
    return rows(std::move(connection), "Select * from BLDGPERM order by [PERMIT]");
  }

  static void addPermit(Recordset& records, std::string_view number, std::string_view owner = "Smith, John") {
    records.AddNew();
    records.set("PERMIT", number);
    records.set("OWNNAME1", owner);
    const auto stored = records.Update();
    EXPECT_TRUE(stored.ok()) << troubleOf(stored);
  }

  TempFolder folder;
  const std::string lacking = furnish(folder.path());
};

}  // namespace zelvo
