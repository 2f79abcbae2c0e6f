// Every query that the office asks is answered, by its files and by a server.

#include <map>

#include "data/dialect/parser.h"
#include "data/dialect/postgres_writer.h"
#include "data/dialect/sqlite_writer.h"
#include "small_office.h"
#include "statement_cases.h"

namespace zelvo {
namespace {

/// An office of one or two records a database, its parcels in the extended layout.
class OfficeStatements : public SmallOffice {
 protected:
  std::shared_ptr<Connection> open(std::string_view file) {
    auto& connection = connections_[std::string(file)];
    if (!connection) {
      const std::string path = folder.file(file);
      const bool extended = file == "sbl.mdb";
      const auto made = createDatabase(path, extended ? extendedParcelTable() : *findTableOfFile(file));
      EXPECT_TRUE(made.ok()) << troubleOf(made);
      connection = connect(file);
    }
    return connection;
  }

  void store(const StoredRecord& record) {
    const std::string table(findTableOfFile(record.file)->name);
    const auto records = rows(open(record.file), "Select * from " + table);
    records->AddNew();
    for (const std::string& field : split(record.fields, ';')) {
      const auto named = field.find('=');
      records->set(field.substr(0, named), field.substr(named + 1));
    }
    const auto stored = records->Update();
    EXPECT_TRUE(stored.ok()) << record.fields << "\n" << troubleOf(stored);
  }

  /// The numbers of the records that a query finds, in its order.
  std::string found(const StatementCase& statement) {
    const auto records = Recordset::open(open(statement.file), statement.query);
    if (!records)
      return records.error().message;
    std::vector<std::string> numbers;
    for (; !(*records)->Eof(); (*records)->MoveNext())
      numbers.push_back(std::to_string((*records)->bookmark()));
    return join(numbers, " ");
  }

 private:
  std::map<std::string, std::shared_ptr<Connection>> connections_;
};

TEST_F(OfficeStatements, AreAnsweredByAnEmptyOfficeAndByAFilledOne) {
  for (const StatementCase& statement : statementCases)
    EXPECT_EQ(found(statement), "") << statement.query;
  for (const StoredRecord& record : storedRecords)
    store(record);
  for (const StatementCase& statement : statementCases)
    EXPECT_EQ(found(statement), statement.found) << statement.query;
}

// The menu's old query for the fire register orders by a column of other tables.
TEST_F(OfficeStatements, AnOrderByAColumnThatIsNotThereIsRefused) {
  const std::string told = found({"fdb.mdb", "Select * from FPARCEL order by SEQ", ""});
  EXPECT_NE(told.find("the table FPARCEL has no column SEQ (at character 32"), std::string::npos) << told;
}

/// What a query comes to in the language of both engines; the trouble when it cannot be carried out.
std::string written(std::string_view query, const Table& table) {
  const auto read = dialect::parseSelect(query);
  if (!read)
    return "trouble: " + read.error().message;
  const auto file = dialect::writeKeyset(*read, table), server = dialect::postgres::writeKeyset(*read, table);
  EXPECT_EQ(file.ok(), server.ok()) << query;
  if (file && server)
    return file->sql + "\n" + server->sql;
  return "trouble: " + (file ? server : file).error().message;
}

TEST(OfficeStatementsCutShort, AreAnsweredOrRefusedAtEveryPlace) {
  std::size_t refused = 0, cuts = 0;
  for (const StatementCase& statement : statementCases) {
    const std::string_view whole = statement.query;
    const std::string_view file = statement.file;
    const Table& table = file == "sbl.mdb" ? extendedParcelTable() : *findTableOfFile(file);
    EXPECT_FALSE(written(whole, table).starts_with("trouble: ")) << whole;
    for (std::size_t end = 0; end < whole.size(); ++end) {
      const std::string_view cut = whole.substr(0, end);
      const std::string outcome = written(cut, table);
      const bool trouble = outcome.starts_with("trouble: ");
      EXPECT_TRUE(!trouble || outcome.ends_with("\n\n" + std::string(cut))) << outcome;
      refused += trouble ? 1 : 0;
      ++cuts;
    }
  }
  EXPECT_GT(refused * 10, cuts * 9) << "what is left of a query is seldom a whole one";
}

// Whoever types into a search box may put anything between the quotes; keywords come in any case, blanks as they fall.
TEST_F(OfficeStatements, AreReadHoweverTheyAreSpelled) {
  store({"db1.mdb", "PERMIT=25-1;OWNNAME1=O'Brien, Ann;FILEMONTH=03;VD3=3/9/2025"});
  store({"db1.mdb", "PERMIT=25-2;OWNNAME1=100% [sic];FILEMONTH=3;VD3=3/9/2025 10:15:00 AM"});
  const StatementCase cases[] = {
      {"db1.mdb", "SELECT * FROM BLDGPERM WHERE [FILEMONTH]=3 ORDER BY [PERMIT] DESC", "2 1"},
      {"db1.mdb", "select  *  from  bldgperm  where  permit='25-1'  order  by  permit", "1"},
      {"db1.mdb", "Select*from[BLDGPERM]where[PERMIT]='25-1'AND[FILEMONTH]=3order by[PERMIT]", "1"},
      {"db1.mdb", "Select * from BLDGPERM where [OWNNAME1] LIKE '%O''BRIEN%' AND[FILEMONTH] = '03'", "1"},
      {"db1.mdb", "Select * from BLDGPERM where [OWNNAME1] like '%[%]%' Or [OWNNAME1] like '[n-p]''%'", "1 2"},
      {"db1.mdb", "Select * from BLDGPERM where [VD3] = #3/9/25# or [VD3] = #03/09/2025#", "1"},
      {"db1.mdb", "Select * from BLDGPERM where [VD3] > #3/9/25# and [VD3] < #3/10/2025#", "2"},
      {"db1.mdb", "Select * from BLDGPERM where [PERMIT] = '25-1' or [PERMIT] = '25-2' AND[FILEMONTH] = '9'", "1"},
      {"db1.mdb", "Select * from BLDGPERM where ([PERMIT] = '25-1' or [PERMIT] = '25-2') AND[FILEMONTH] = '9'", ""},
  };
  for (const StatementCase& statement : cases)
    EXPECT_EQ(found(statement), statement.found) << statement.query;
}

}  // namespace
}  // namespace zelvo
