#include <gtest/gtest.h>

#include <sstream>

#include "base/text.h"
#include "console/console.h"
#include "data/connection.h"
#include "support/temp_folder.h"

namespace zelvo::testing {
namespace {

/// A screen that the commands wait in.
class Counter : public Screen {
 public:
  explicit Counter(Desk& itsDesk) : Screen(itsDesk, "Counter", "Counter") {}
};

const Table& permits() {
  return *findTable("BLDGPERM");
}

/// A data folder with two permits.
class ConsoleQuery : public ::testing::Test {
 protected:
  ConsoleQuery() {
    const std::string path = folder_.file("db1.mdb");
    EXPECT_TRUE(createDatabase(path, permits()).ok());
    const auto opened = Connection::open(connectionText(path));
    if (!opened)
      throw std::runtime_error(opened.error().message);
    std::vector<std::vector<Value>> rows = {{"25-9", "O'Brien\r\nand Son"}, {"25-7", "Smith"}};
    const auto next = [&rows](std::vector<Value>& row) {
      if (rows.empty())
        return false;
      row = rows.back();
      rows.pop_back();
      return true;
    };
    EXPECT_TRUE(bulkInsert(**opened, permits(), {"PERMIT", "OWNNAME1"}, next).ok());
  }

  static std::string line(const std::string& permit, const std::string& owner) {
    std::vector<std::string> cells(permits().columns.size());
    cells[permits().position("PERMIT")] = permit;
    cells[permits().position("OWNNAME1")] = owner;
    return join(cells, " | ") + "\n";
  }

  /// What the console says to one query, and its exit code.
  std::string says(const std::string& query, int exit) {
    std::istringstream in("query " + query + "\n");
    std::ostringstream out, trouble;
    Console console({folder_.path(), {}, "", false}, in, out, trouble);
    EXPECT_EQ(console.run([this](Desk& desk) {
      desk.session.dataFolder = folder_.path();
      desk.screens.learn("Counter", [](Desk& its) { return std::make_unique<Counter>(its); });
      desk.screens.open("Counter");
    }),
              exit)
        << query;
    return out.str().substr(std::string_view("screen: Counter\n").size());
  }

  TempFolder folder_;
};

TEST_F(ConsoleQuery, GivesEveryColumnOfTheRowsInTheirOrder) {
  const std::string columns = std::to_string(permits().columns.size()) + " columns\n";
  EXPECT_EQ(says("db1.mdb Select * from BLDGPERM order by PERMIT", 0),
            "db1.mdb: 2 rows, " + columns + line("25-7", "Smith") + line("25-9", "O'Brien\\nand Son"));
  EXPECT_EQ(says("DB1.MDB  select * from BLDGPERM where [OWNNAME1] = 'SMITH'", 0),
            "DB1.MDB: 1 rows, " + columns + line("25-7", "Smith"));
  EXPECT_EQ(says("db1.mdb Select * from BLDGPERM where [PERMIT] = '1'", 0), "db1.mdb: 0 rows, " + columns);
}

TEST_F(ConsoleQuery, FailsOnAQueryThatTheStoreRefuses) {
  for (const std::string query : {"db1.mdb Select * from BLDGPERM where", "db1.mdb Select * from NOTHERE",
                                  "db1.mdb Select * from BLDGPERM where [NOTHERE] = 1", "db2.mdb Select * from INSPDTL",
                                  "db1.mdb delete from BLDGPERM"})
    EXPECT_EQ(says(query, 1).find("error: line 1: "), 0u) << query;
  EXPECT_NE(says("db1.mdb Select * from BLDGPERM", 0).find("db1.mdb: 2 rows"), std::string::npos);
}

}  // namespace
}  // namespace zelvo::testing
