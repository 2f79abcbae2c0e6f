// What a sample town promises: whoever tries the program out or measures it takes its records for those of an office.

#include <sys/wait.h>

#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "base/text.h"
#include "data/catalogue.h"
#include "data/connection.h"
#include "data/parcel_key.h"
#include "data/recordset.h"
#include "documents/document_reader.h"
#include "documents/rtf_reader.h"
#include "sample_town.h"

namespace zelvo::testing {
namespace {

namespace fs = std::filesystem;

int makeTown(const std::string& arguments) {
  const int status = std::system((std::string(ZELVO_BIN) + "/zelvo-town " + arguments + " >/dev/null 2>&1").c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string readAll(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// Every file of a town by its name; the town's own folder, which some of them name, is left out of their bytes.
std::map<std::string, std::string> filesOf(const std::string& town) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(town))
    if (entry.is_regular_file() && entry.path().extension() != ".mdb-journal")
      files[entry.path().lexically_relative(town).string()] = replaceAll(readAll(entry.path()), town, "TOWN");
  return files;
}

class TownTest : public ::testing::Test {
 protected:
  std::string make(const std::string& name, const std::string& numbers) {
    EXPECT_EQ(makeTown("'" + folder.file(name) + "' " + numbers), 0) << name << " " << numbers;
    return folder.file(name);
  }

  /// The rows of a table, each by its columns.
  using Row = std::map<std::string, std::string>;
  static std::vector<Row> rowsOf(const std::string& town, const Table& table) {
    std::vector<Row> rows;
    auto connection = Connection::open(connectionText(town + "/data/" + std::string(table.file)));
    if (!connection) {
      ADD_FAILURE() << connection.error().message;
      return rows;
    }
    auto records = Recordset::open(*connection, "Select * from " + std::string(table.name));
    if (!records) {
      ADD_FAILURE() << records.error().message;
      return rows;
    }
    for (; !(*records)->Eof(); (*records)->MoveNext()) {
      Row& row = rows.emplace_back();
      for (const Column& column : table.columns)
        row[std::string(column.name)] = (*records)->text(column.name);
    }
    return rows;
  }
  static std::vector<Row> rowsOf(const std::string& town, std::string_view table) {
    return rowsOf(town, *findTable(table));
  }

  TempFolder folder;
};

TEST_F(TownTest, IsTheSameFromTheSameSeedAndAnotherFromAnother) {
  const auto first = filesOf(make("first", "--permits 60 --seed 7"));
  const auto again = filesOf(make("again", "--permits 60 --seed 7"));
  const auto other = filesOf(make("other", "--permits 60 --seed 8"));
  ASSERT_GT(first.size(), 30u);
  for (const auto& [name, bytes] : first) {
    ASSERT_TRUE(again.contains(name)) << name;
    EXPECT_TRUE(again.at(name) == bytes) << name;
  }
  EXPECT_EQ(again.size(), first.size());
  EXPECT_FALSE(other.at("data/db1.mdb") == first.at("data/db1.mdb"));
  EXPECT_FALSE(other.at("data/sbl.mdb") == first.at("data/sbl.mdb"));
}

TEST_F(TownTest, HasAsManyRecordsAsWereOrdered) {
  struct Order {
    const char* numbers;
    std::size_t permits, parcels;
  };
  const Order orders[] = {{"", 300, 400},
                          {"--permits 0", 0, 400},
                          {"--permits 1 --parcels 1", 1, 1},
                          {"--parcels 7 --permits 40", 40, 7},
                          {"--permits 2000", 2000, 600}};
  int number = 0;
  for (const Order& order : orders) {
    const std::string town = make("town" + std::to_string(++number), order.numbers);
    EXPECT_EQ(rowsOf(town, "BLDGPERM").size(), order.permits) << order.numbers;
    EXPECT_EQ(rowsOf(town, "SBL").size(), order.parcels) << order.numbers;
  }
}

TEST_F(TownTest, EveryRecordFitsItsTable) {
  const std::string town = make("town", "--permits 900 --seed 3");
  for (const Table& table : catalogue()) {
    if (!fs::exists(town + "/data/" + std::string(table.file)) || table.name == "RPS")
      continue;
    const auto rows = rowsOf(town, table);
    std::set<std::string> keys;
    std::set<std::string> told;
    for (const Row& row : rows) {
      if (!table.key.empty()) {
        const std::string& key = row.at(std::string(table.key));
        EXPECT_FALSE(key.empty()) << table.name;
        EXPECT_TRUE(keys.insert(upper(key)).second) << table.name << " " << key << " is there twice";
      }
      for (const Column& column : table.columns) {
        const std::string& text = row.at(std::string(column.name));
        EXPECT_TRUE(isUtf8(text)) << table.name << "." << column.name << ": " << text;
        // A text that fills its column to the last letter was cut there.
        const bool tight = column.type == ColumnType::Text && column.length > 20 &&
                           length(text) >= static_cast<std::size_t>(column.length);
        if (tight && told.insert(std::string(column.name)).second)
          ADD_FAILURE() << table.name << "." << column.name << ": " << text;
      }
    }
  }
}

// The parts of a key that a record does not use are empty there and 0 in the registry.
std::string registryKey(const std::map<std::string, std::string>& permit) {
  std::string key;
  for (const char* part : {"SEC", "SUD", "SUB", "BLK", "LOT", "LOD"})
    key += (key.empty() ? "" : "-") + (permit.at(part).empty() ? std::string("0") : permit.at(part));
  return TrimSBL(key + "-0-0");
}

TEST_F(TownTest, PermitsAndParcelsKnowOneAnother) {
  const std::string town = make("town", "--permits 500 --parcels 60");
  std::map<std::string, Row> parcels;
  for (const Row& row : rowsOf(town, "SBL"))
    parcels[row.at("SBLF")] = row;
  ASSERT_EQ(parcels.size(), 60u);
  std::map<std::string, std::string> history;
  for (const Row& permit : rowsOf(town, "BLDGPERM")) {
    const std::string key = registryKey(permit);
    ASSERT_TRUE(parcels.contains(key)) << permit.at("PERMIT") << " on " << key;
    EXPECT_EQ(permit.at("LOCN1"), parcels[key].at("LOCN1")) << permit.at("PERMIT");
    EXPECT_EQ(permit.at("PERMIT"), permit.at("BLDGPERMYY") + "-" + permit.at("BLDGPRM"));
    history[key] += permit.at("PERMIT") + "*";
  }
  for (const auto& [key, parcel] : parcels) {
    EXPECT_EQ(parcel.at("HISTORICAL"), history[key]) << key;
    if (!history[key].empty()) {
      EXPECT_TRUE(("*" + history[key]).ends_with("*" + parcel.at("PERMIT") + "*")) << key << ": the last permit";
    }
  }
}

TEST_F(TownTest, RecordsNameTheOthersThatTheyBelongTo) {
  const std::string town = make("town", "--permits 400");
  struct Bond {
    std::string_view table, column, ownerTable, ownerKey;
  };
  const Bond bonds[] = {{"INSBASE", "RECNO", "BLDGPERM", "PERMIT"},   {"CONBASE", "RECNO", "BLDGPERM", "PERMIT"},
                        {"INSPDTL", "PERMIT", "BLDGPERM", "PERMIT"},  {"CERTOCCU", "PERMIT", "BLDGPERM", "PERMIT"},
                        {"AFFIDAVI", "PERMIT", "BLDGPERM", "PERMIT"}, {"PBFEES", "PBFCASE", "BLDGPERM", "PERMIT"},
                        {"ORDINSP", "RECNO", "VIOLDATA", "RECNO"}};
  for (const Bond& bond : bonds) {
    std::set<std::string> owners;
    for (const Row& row : rowsOf(town, bond.ownerTable))
      owners.insert(row.at(std::string(bond.ownerKey)));
    std::size_t bound = 0;
    for (const Row& row : rowsOf(town, bond.table)) {
      const std::string& owner = row.at(std::string(bond.column));
      EXPECT_TRUE(owner.empty() || owners.contains(owner)) << bond.table << " " << owner;
      bound += owner.empty() ? 0 : 1;
    }
    EXPECT_GT(bound, 0u) << bond.table;
  }
}

// In a town of many permits the numbers run on through the years, in a small one they begin anew each January.
TEST_F(TownTest, NextNumbersAreFreeAndLeaveNoneOut) {
  struct Series {
    std::string_view file, table, column, prefix;
  };
  const Series all[] = {{"phi.txt", "BLDGPERM", "PERMIT", "26-"}, {"ihi.txt", "INSPDTL", "RECNO", ""},
                        {"vhi.txt", "VIOLDATA", "RECNO", ""},     {"chi.txt", "CERTOCCU", "CERTOCCN", ""},
                        {"ahi.txt", "AFFIDAVI", "FILENO", "26-"}, {"zphi.txt", "ZONEDAT", "ZNPERMIT", "26-"}};
  for (const char* permits : {"0", "1", "300", "21000"}) {
    const std::string town = make(std::string("town") + permits, std::string("--permits ") + permits);
    for (const Series& series : all) {
      const int next = std::atoi(readAll(town + "/data/" + std::string(series.file)).c_str());
      EXPECT_GT(next, 0) << series.file << " of " << permits;
      std::set<std::string> numbers;
      for (const Row& row : rowsOf(town, series.table))
        numbers.insert(row.at(std::string(series.column)));
      const auto isTaken = [&](int number) {
        return numbers.contains(std::string(series.prefix) + std::to_string(number));
      };
      EXPECT_FALSE(isTaken(next)) << series.file << " of " << permits << ": " << next;
      EXPECT_TRUE(next == 1 || isTaken(next - 1)) << series.file << " of " << permits << ": " << next;
    }
  }
}

TEST_F(TownTest, LettersAskForNothingThatNobodyFills) {
  const std::string town = make("town", "--permits 1");
  const std::regex known(
      R"(^(%(dl|ds|tm|ln|mi|id|mh|ms|me|nm|ad|al|zp|pi|si|logo|sh|sbl)|%\$?(0[1-9]|1[0-9]|2[0-5])))");
  std::size_t letters = 0;
  for (const auto& entry : fs::directory_iterator(town + "/forms")) {
    const std::string bytes = readAll(entry.path());
    const std::string name = entry.path().filename().string();
    EXPECT_TRUE(isRichText(bytes)) << name;
    EXPECT_EQ(replaceAll(bytes, "\r\n", "").find_first_of("\r\n"), std::string::npos) << name << ": line ends";
    const std::string text = plainText(readDocument(bytes));
    EXPECT_FALSE(trim(text).empty()) << name;
    for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1))
      EXPECT_TRUE(std::regex_search(text.substr(at, 6), known)) << name << ": " << text.substr(at, 10);
    ++letters;
  }
  EXPECT_GE(letters, 10u);
}

TEST_F(TownTest, RefusesWhatItCannotMake) {
  folder.write("full/a.txt", "mine");
  folder.write("file", "mine");
  folder.write("broken.making/letter.txt", "mine");
  fs::create_directories(folder.file("empty"));
  fs::create_directories(folder.file("left.making/data"));
  struct Order {
    const char* why;
    std::string arguments;
    int exit;
  };
  const auto at = [this](const char* name) { return "'" + folder.file(name) + "' "; };
  const Order orders[] = {{"no folder", "", 2},
                          {"help", "--help", 0},
                          {"a folder without a name", "''", 2},
                          {"two folders", at("x") + at("y"), 2},
                          {"an unknown option", at("x") + "--houses 3", 2},
                          {"a number that is missing", at("x") + "--permits", 2},
                          {"a number that is none", at("x") + "--permits many", 2},
                          {"half a number", at("x") + "--permits 3x", 2},
                          {"less than nothing", at("x") + "--permits -1", 2},
                          {"a town without parcels", at("x") + "--parcels 0", 2},
                          {"more than any town", at("x") + "--permits 20000001", 2},
                          {"a seed beyond counting", at("x") + "--seed 99999999999999999999", 2},
                          {"a folder that is in use", at("full"), 1},
                          {"a file of that name", at("file"), 1},
                          {"what a stranger left where it is made", at("broken"), 1},
                          {"a folder in a file", at("file/town"), 1},
                          {"an empty folder", at("empty") + "--permits 1", 0},
                          {"a town that was broken off", at("left") + "--permits 1", 0}};
  for (const Order& order : orders)
    EXPECT_EQ(makeTown(order.arguments), order.exit) << order.why;
  EXPECT_FALSE(fs::exists(folder.file("x")) || fs::exists(folder.file("x.making")));
  EXPECT_EQ(folder.read("full/a.txt") + folder.read("file") + folder.read("broken.making/letter.txt"), "mineminemine");
  EXPECT_TRUE(fs::exists(folder.file("empty/data/db1.mdb")) && fs::exists(folder.file("left/data/db1.mdb")));
  EXPECT_FALSE(fs::exists(folder.file("left.making")));
}

}  // namespace
}  // namespace zelvo::testing
