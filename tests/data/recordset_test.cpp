#include "data/recordset.h"

#include <gtest/gtest.h>

#include "small_office.h"

namespace zelvo {
namespace {

using RecordsetTest = SmallOffice;

std::string numbers(Recordset& records) {
  std::string all;
  for (records.MoveFirst(); !records.Eof(); records.MoveNext())
    all += records.text("PERMIT") + " ";
  return all;
}

TEST_F(RecordsetTest, EmptyTableStandsAtBothEnds) {
  auto records = permits(connect());
  for (const auto move :
       {&Recordset::MoveFirst, &Recordset::MoveLast, &Recordset::MoveNext, &Recordset::MovePrevious}) {
    ((*records).*move)();
    EXPECT_TRUE(records->Eof());
    EXPECT_TRUE(records->Bof());
  }
  EXPECT_EQ(records->RecordCount(), 0u);
  EXPECT_EQ(records->AbsolutePosition(), 0u);
  EXPECT_EQ(records->bookmark(), -1);
  EXPECT_THROW(records->get("PERMIT"), StoreError);
  EXPECT_THROW(records->set("PERMIT", "25-1"), StoreError);
  EXPECT_FALSE(*records->Find("[PERMIT] = '25-1'"));
}

TEST_F(RecordsetTest, MovesOverItsRows) {
  auto records = permits(connect());
  for (const auto* number : {"25-3", "25-1", "25-2"})
    addPermit(*records, number);
  ASSERT_TRUE(records->Refresh().ok());
  EXPECT_EQ(records->text("PERMIT"), "25-2") << "stays on the row added last";
  EXPECT_EQ(records->AbsolutePosition(), 2u);
  EXPECT_EQ(numbers(*records), "25-1 25-2 25-3 ");
  EXPECT_TRUE(records->Eof());
  EXPECT_THROW(records->get("PERMIT"), StoreError);
  records->MovePrevious();
  EXPECT_EQ(records->text("PERMIT"), "25-3");

  const auto third = records->bookmark();
  records->MoveFirst();
  records->MovePrevious();
  EXPECT_TRUE(records->Bof());
  EXPECT_FALSE(records->Eof());
  EXPECT_TRUE(records->goTo(third));
  EXPECT_EQ(records->AbsolutePosition(), 3u);
  EXPECT_FALSE(records->goTo(4711));
  EXPECT_FALSE(records->goToPosition(4));
  EXPECT_EQ(records->AbsolutePosition(), 3u);
  EXPECT_TRUE(records->goToPosition(1));
  EXPECT_EQ(records->text("permit"), "25-1");
  EXPECT_THROW(records->get("NOSUCH"), StoreError);
}

TEST_F(RecordsetTest, FindsForwardFromItsRow) {
  auto records = permits(connect());
  for (const auto* number : {"25-1", "25-2", "25-3", "25-4"})
    addPermit(*records, number, number[3] % 2 ? "O'Brien" : "Smith");
  records->MoveFirst();
  const struct {
    std::string_view criterion;
    bool found;
    std::string_view stands;
  } steps[] = {
      {"[OWNNAME1] = 'smith'", true, "25-2"},      {"[OWNNAME1] = 'Smith'", true, "25-2"},
      {"[OWNNAME1] like 'o''b%'", true, "25-3"},   {"[PERMIT] = '25-4'", true, "25-4"},
      {"[OWNNAME1] like 'o''b%'", false, "(end)"}, {"[PERMIT] = '25-1'", false, "(end)"},
  };
  for (const auto& step : steps) {
    const auto found = records->Find(step.criterion);
    ASSERT_TRUE(found.ok()) << troubleOf(found);
    EXPECT_EQ(*found, step.found) << step.criterion;
    EXPECT_EQ(records->Eof() ? "(end)" : records->text("PERMIT"), step.stands) << step.criterion;
  }
  records->MoveFirst();
  EXPECT_EQ(records->Find("[PERMIT] = ").error().trouble, Trouble::BadInput);
  EXPECT_EQ(records->text("PERMIT"), "25-1") << "a criterion cut short moves nothing";
}

TEST_F(RecordsetTest, RefusesQueriesWithTheirText) {
  const auto connection = connect();
  for (const std::string query : {"Select * from NOSUCH", "Select * from BLDGPERM where [NOSUCH] = 'x'",
                                  "Select * from BLDGPERM where", "delete from BLDGPERM", ""}) {
    const auto opened = Recordset::open(connection, query);
    ASSERT_FALSE(opened.ok()) << query;
    EXPECT_EQ(opened.error().trouble, Trouble::BadInput) << query;
    EXPECT_NE(opened.error().message.find(query), std::string::npos) << opened.error().message;
  }
}

TEST_F(RecordsetTest, NewRowIsStoredByUpdateAlone) {
  auto records = permits(connect());
  addPermit(*records, "25-1");
  for (const auto drop : {&Recordset::CancelUpdate, &Recordset::MoveFirst, &Recordset::MoveLast}) {
    records->AddNew();
    EXPECT_TRUE(records->adding());
    EXPECT_FALSE(records->Eof());
    EXPECT_EQ(records->AbsolutePosition(), 0u);
    EXPECT_TRUE(records->get("PERMIT").isNull());
    records->set("PERMIT", "25-9");
    EXPECT_EQ(records->text("PERMIT"), "25-9");
    ((*records).*drop)();
    EXPECT_FALSE(records->adding());
    EXPECT_EQ(records->text("PERMIT"), "25-1");
  }
  records->set("OWNNAME1", "Jones");
  records->MoveFirst();
  EXPECT_EQ(records->text("OWNNAME1"), "Smith, John") << "a move drops what was typed";
  EXPECT_TRUE(records->Update().ok()) << "nothing to store";
  records->set("OWNNAME1", "Smith, John");
  EXPECT_TRUE(records->Update().ok()) << "the same again";
  EXPECT_EQ(numbers(*permits(connect())), "25-1 ");
}

TEST_F(RecordsetTest, ValuesFitTheirColumns) {
  const struct {
    std::string_view field;
    Value given;
    Value stored;
  } values[] = {
      {"VIOLOPEN", "Open", "O"},
      {"UNITNO", "12345678", "12345"},
      {"ZONED", "Ä1Ö2Ü3ß4é567", "Ä1Ö2Ü3ß4é5"},
      {"NOTES", std::string(5000, 'n'), std::string(5000, 'n')},
      {"STORIES", 2.5, "2.5"},
      {"FILEFEE", "60.50 paid", 60.5},
      {"COFEE", "", 0},
      {"RFEE", Value(), Value()},
      {"VD3", "3/9/26", Date{2026, 3, 9}},
      {"VD4", Date{2026, 12, 31}, Date{2026, 12, 31}},
      {"VD5", "", Value()},
      {"TSTAMP", DateTime{{2026, 3, 9}, 36900}, DateTime{{2026, 3, 9}, 36900}},
      {"REMARKS1", Date{2026, 3, 9}, "3/9/2026"},
  };
  auto records = permits(connect());
  records->AddNew();
  for (const auto& value : values)
    records->set(value.field, value.given);
  ASSERT_TRUE(records->Update().ok());
  auto others = permits(connect());
  for (const auto& value : values) {
    EXPECT_EQ(records->get(value.field), value.stored) << value.field;
    EXPECT_EQ(others->get(value.field), value.stored) << value.field;
  }
}

TEST_F(RecordsetTest, RefusesWhatIsNoDate) {
  auto records = permits(connect());
  addPermit(*records, "25-1");
  records->set("VD3", "3/9/2026");
  for (const Value& wrong : {Value("2/29/2026"), Value("soon"), Value(45000), Value(Date{26, 1, 1})})
    EXPECT_THROW(records->set("VD3", wrong), StoreError) << wrong.text();
  EXPECT_EQ(records->text("VD3"), "3/9/2026") << "what was typed before stays";
  EXPECT_TRUE(records->Update().ok());
}

TEST_F(RecordsetTest, KeyInUseKeepsWhatWasTyped) {
  auto records = permits(connect());
  addPermit(*records, "25-1");
  records->AddNew();
  records->set("PERMIT", "25-1");
  records->set("OWNNAME1", "Jones");
  const auto stored = records->Update();
  ASSERT_FALSE(stored.ok());
  EXPECT_EQ(stored.error().trouble, Trouble::Duplicate);
  EXPECT_NE(stored.error().message.find("25-1"), std::string::npos) << stored.error().message;
  EXPECT_TRUE(records->adding());
  records->set("PERMIT", "25-2");
  EXPECT_TRUE(records->Update().ok());
  EXPECT_EQ(records->text("OWNNAME1"), "Jones");
  EXPECT_EQ(records->RecordCount(), 2u);
}

TEST_F(RecordsetTest, HearsOfWhatOthersChanged) {
  auto mine = permits(connect());
  addPermit(*mine, "25-1");
  auto theirs = permits(connect());
  mine->set("LOCN1", "1 Main St");
  theirs->set("OWNNAME1", "Jones");
  ASSERT_TRUE(theirs->Update().ok());
  for (int attempt = 0; attempt < 2; ++attempt)
    EXPECT_EQ(mine->Update().error().trouble, Trouble::Conflict);
  EXPECT_EQ(mine->text("LOCN1"), "1 Main St") << "still typed";
  const auto now = mine->currentInStore();
  ASSERT_TRUE(now.ok());
  EXPECT_EQ((*now)[mine->table().position("OWNNAME1")], Value("Jones"));
  EXPECT_EQ(theirs->text("LOCN1"), "");

  mine->CancelUpdate();
  ASSERT_TRUE(mine->Refresh().ok());
  mine->set("LOCN1", "1 Main St");
  EXPECT_TRUE(theirs->cell(0, theirs->table().position("LOCN1")).isNull());
  EXPECT_TRUE(mine->Update().ok());
  EXPECT_TRUE(*theirs->Find("[OWNNAME1] = 'Jones'"));
  EXPECT_EQ(theirs->text("LOCN1"), "1 Main St") << "a row that was looked up is read anew";
}

TEST_F(RecordsetTest, HearsOfRowsThatOthersRemoved) {
  auto mine = permits(connect());
  for (const auto* number : {"25-1", "25-2", "25-3"})
    addPermit(*mine, number);
  auto theirs = permits(connect());
  theirs->goToPosition(2);
  ASSERT_TRUE(theirs->Delete().ok());
  EXPECT_EQ(theirs->text("PERMIT"), "25-3") << "the one behind is current";

  mine->goToPosition(2);
  ASSERT_TRUE(mine->Find("[PERMIT] = '25-3'").ok());
  mine->MovePrevious();
  EXPECT_THROW(mine->get("PERMIT"), StoreError);
  EXPECT_TRUE(mine->cell(1, 0).isNull());
  EXPECT_FALSE(mine->currentInStore().ok());
  ASSERT_TRUE(mine->Refresh().ok());
  EXPECT_EQ(mine->RecordCount(), 2u);
  EXPECT_EQ(mine->text("PERMIT"), "25-3");
  ASSERT_TRUE(mine->Delete().ok());
  EXPECT_TRUE(mine->Eof());
}

TEST_F(RecordsetTest, TransactionGivenUpLeavesRowsAsTyped) {
  const auto connection = connect();
  auto records = permits(connection);
  addPermit(*records, "25-1");
  addPermit(*records, "25-2");
  records->MoveFirst();
  {
    auto transaction = connection->begin();
    ASSERT_TRUE(transaction.ok());
    records->AddNew();
    records->set("PERMIT", "25-3");
    ASSERT_TRUE(records->Update().ok());
    EXPECT_EQ(records->RecordCount(), 3u);
  }
  EXPECT_EQ(records->RecordCount(), 2u);
  EXPECT_TRUE(records->adding());
  EXPECT_EQ(records->text("PERMIT"), "25-3");
  records->CancelUpdate();
  EXPECT_EQ(records->text("PERMIT"), "25-1") << "back where it stood";

  {
    auto transaction = connection->begin();
    records->set("OWNNAME1", "Jones");
    ASSERT_TRUE(records->Update().ok());
    records->set("OWNNAME1", "Miller");
    ASSERT_TRUE(records->Update().ok());
  }
  EXPECT_EQ(records->text("OWNNAME1"), "Miller");
  ASSERT_TRUE(records->Update().ok()) << "no conflict with what was given up";
  EXPECT_EQ(permits(connect())->text("OWNNAME1"), "Miller");
}

TEST_F(RecordsetTest, TransactionGivenUpAfterMovingLeavesNothing) {
  const auto connection = connect();
  auto records = permits(connection);
  addPermit(*records, "25-1");
  {
    auto transaction = connection->begin();
    addPermit(*records, "25-2");
    addPermit(*records, "25-3");
    records->MoveFirst();
    ASSERT_TRUE(records->Delete().ok());
    records->MoveLast();
    records->set("OWNNAME1", "Jones");
  }
  EXPECT_TRUE(records->adding()) << "the row in hand was added in vain";
  EXPECT_EQ(records->text("OWNNAME1"), "Jones");
  EXPECT_EQ(numbers(*records), "25-1 ");

  auto transaction = connection->begin();
  addPermit(*records, "25-4");
  EXPECT_EQ(connection->begin().error().trouble, Trouble::Failed) << "one at a time";
  ASSERT_TRUE(transaction->commit().ok());
  EXPECT_FALSE(transaction->commit().ok());
  EXPECT_EQ(numbers(*records), "25-1 25-4 ");
  EXPECT_EQ(numbers(*permits(connect())), "25-1 25-4 ");
}

TEST_F(RecordsetTest, RowBehindARemovedOneStaysInHandWhenTheRemovalIsGivenUp) {
  const auto connection = connect();
  auto records = permits(connection);
  for (const auto* number : {"25-1", "25-2", "25-3"})
    addPermit(*records, number);
  records->MoveFirst();
  {
    auto transaction = connection->begin();
    ASSERT_TRUE(records->Delete().ok());
    records->MoveNext();
    records->set("OWNNAME1", "Jones");
  }
  EXPECT_EQ(records->AbsolutePosition(), 3u);
  const auto stored = records->Update();
  EXPECT_TRUE(stored.ok()) << troubleOf(stored);
  EXPECT_TRUE(*records->Find("[OWNNAME1] = 'Jones'"));
  EXPECT_EQ(records->text("PERMIT"), "25-3");
}

TEST_F(RecordsetTest, AddingLeavesNoOtherRowToRemove) {
  auto records = permits(connect());
  addPermit(*records, "25-1");
  records->AddNew();
  EXPECT_THROW((void)records->Delete(), StoreError);
  EXPECT_EQ(permits(connect())->RecordCount(), 1u);
}

TEST_F(RecordsetTest, ListOfAStoreThatCannotBeReadShowsNothing) {
  auto records = permits(connect());
  addPermit(*records, "25-1");
  EXPECT_EQ(records->shownCell(0, 0), "25-1");
  EXPECT_EQ(records->shownCell(0, 1), "") << "nothing stands there";
  EXPECT_EQ(records->shownCell(1, 0), "") << "no such row";

  auto unread = permits(connect());
  spoil(folder, "db1.mdb");
  EXPECT_THROW(unread->cell(0, 0), StoreError);
  EXPECT_EQ(unread->shownCell(0, 0), "");
  EXPECT_THROW(unread->get("PERMIT"), StoreError) << "whoever reads the record hears of it";
}

TEST_F(RecordsetTest, StoreHandsCountersOut) {
  const auto connection = connect("meeting.mdb");
  auto meetings = rows(connection, "Select * from MEETING");
  std::string given;
  for (int i = 0; i < 3; ++i) {
    meetings->AddNew();
    if (i == 1)
      meetings->set("RECNO", 40);
    ASSERT_TRUE(meetings->Update().ok());
    given += meetings->text("RECNO") + " ";
  }
  EXPECT_EQ(given, "1 40 41 ");
  EXPECT_THROW(meetings->set("RECNO", 7), StoreError);
  meetings->set("MNAME", "Planning Board");
  EXPECT_TRUE(meetings->Update().ok()) << "the row as it was added is the row as it is";
  {
    auto transaction = connection->begin();
    meetings->AddNew();
    ASSERT_TRUE(meetings->Update().ok());
    EXPECT_EQ(meetings->text("RECNO"), "42");
    meetings->set("MJUL", "2.5");
    ASSERT_TRUE(meetings->Update().ok());
    EXPECT_EQ(meetings->text("MJUL"), "2") << "half to even";
  }
  EXPECT_TRUE(meetings->get("RECNO").isNull()) << "the number went back to the store";
}

TEST_F(RecordsetTest, FetchesPagesAsTheyAreLookedAt) {
  constexpr int count = 1250;
  const auto connection = connect();
  int next = 0;
  const auto stored = bulkInsert(*connection, **connection->table("BLDGPERM"), {"PERMIT", "UNITNO", "VD3"},
                                 [&](std::vector<Value>& row) {
                                   row = {std::to_string(10000 + next), "over long", Date{2026, 1, 1}};
                                   return next++ < count;
                                 });
  ASSERT_TRUE(stored.ok()) << troubleOf(stored);
  auto records = permits(connection);
  ASSERT_EQ(records->RecordCount(), 1250u);
  for (const std::size_t row : {0u, 99u, 100u, 1249u, 650u, 150u, 777u, 888u, 999u, 1000u, 333u, 0u})
    EXPECT_EQ(records->cell(row, 0).text(), std::to_string(10000 + row));
  EXPECT_EQ(records->text("UNITNO"), "over ");
  EXPECT_TRUE(records->get("OWNNAME1").isNull());
  records->MoveLast();
  addPermit(*records, "99999");
  EXPECT_EQ(records->cell(1250, 0).text(), "99999") << "on a page that was read before it was added";
  EXPECT_TRUE(records->cell(1251, 0).isNull());
  EXPECT_TRUE(records->cell(0, 66).isNull());
}

TEST_F(RecordsetTest, ManyRowsAreStoredWholeOrNotAtAll) {
  const auto connection = connect();
  auto records = permits(connection);
  addPermit(*records, "25-1");
  const Table& table = **connection->table("BLDGPERM");
  const struct {
    std::string_view what;
    std::vector<Value> last;
    Trouble trouble;
  } rows[] = {{"key in use", {"25-1", "1/1/2026"}, Trouble::Duplicate},
              {"no date", {"25-9", "soon"}, Trouble::BadInput}};
  for (const auto& row : rows) {
    int next = 0;
    const auto stored = bulkInsert(*connection, table, {"PERMIT", "VD3"}, [&](std::vector<Value>& values) {
      values = next == 0 ? std::vector<Value>{"25-5", "1/1/2026"} : row.last;
      return next++ < 2;
    });
    ASSERT_FALSE(stored.ok()) << row.what;
    EXPECT_EQ(stored.error().trouble, row.trouble) << stored.error().message;
    EXPECT_EQ(numbers(*permits(connect())), "25-1 ") << row.what;
  }
  EXPECT_EQ(bulkInsert(*connection, table, {"NOSUCH"}, [](auto&) { return false; }).error().trouble, Trouble::BadInput);
}

}  // namespace
}  // namespace zelvo
