// The permit screen on a disk that fails at any point of what a clerk does.

#include <gtest/gtest.h>

#include <set>

#include "base/number.h"
#include "base/text.h"
#include "drive.h"
#include "records/permit_office.h"

namespace zelvo::testing {
namespace {

/// An office with one permit, 26-1, whose clerk says Yes to everything and reads every message.
class Office : public PermitOffice {
 public:
  Office() {
    for (const char* table : {"INSBASE", "CONBASE"})
      EXPECT_TRUE(createDatabase(path(findTable(table)->file), *findTable(table)).ok());
    at.answers = [this](const MessageBox& box) {
      messages += box.buttons == Buttons::OK ? box.text + "\n" : "";
      return Answer::Yes;
    };
    add("Jones, Mary", "7");
  }
  void TestBody() override {}
  using PermitOffice::at, PermitOffice::folder, PermitOffice::parcels, PermitOffice::permitsNow;

  /// A permit on a parcel of its own, typed and not stored yet.
  void type(std::string_view owner, std::string_view lot) {
    at.click(screen(), "INew");
    typePermit(screen(), owner);
    at.set(screen(), "Text1(4)", lot);
  }
  void add(std::string_view owner, std::string_view lot) {
    type(owner, lot);
    at.click(screen(), "IAdd");
    EXPECT_EQ(messages, "");
    EXPECT_TRUE(browsing());
    leaveScreen();
  }

  APermits& screen() { return open(); }
  void leaveScreen() {
    at.click(screen(), "Quit");
    at.screens.sweep();
  }
  bool browsing() { return at.control(screen(), "INew").enabled; }
  std::size_t stored(std::string_view condition) {
    return look("db1.mdb", "Select * from BLDGPERM where " + std::string(condition))->RecordCount();
  }

  /// The insurance of the permits that answer a condition, and of no other; its contacts are as many.
  std::size_t rowsOf(std::string_view condition) {
    const auto insurance = look("db7.mdb", "Select * from INSBASE"),
               contacts = look("cont.mdb", "Select * from CONBASE");
    EXPECT_EQ(contacts->RecordCount(), insurance->RecordCount());
    for (Recordset* rows : {insurance.get(), contacts.get()})
      for (; !rows->Eof(); rows->MoveNext())
        EXPECT_EQ(stored(std::string(condition) + " AND [PERMIT] = '" + rows->text("RECNO") + "'"), 1u)
            << "belongs to no permit";
    return insurance->RecordCount();
  }

  std::string messages;
};

/// What the clerk does, and how it is seen that it was done.
struct Task {
  const char* name;
  int leastCalls;          ///< that it certainly makes to store
  int leastWrites;         ///< those of them that write
  void (*begin)(Office&);  ///< up to the button
  const char* button;
  bool (*acknowledged)(Office&);
  void (*stillTyped)(Office&);
  const char* storedAs;  ///< a condition that finds the one permit
  const char* number;    ///< that it gets
  std::size_t rows = 0;  ///< of insurance, and of contacts, that it brings
};

void typeNew(Office& office) {
  office.type("Smith, John", "45");
}

void typeNewWithSeed(Office& office) {
  office.at.session.seeds.permit = "500";
  typeNew(office);
}

void typeWithRows(Office& office) {
  typeNew(office);
  for (const char* kind : {"Ins", "Contact"}) {
    office.at.click(office.screen(), "iNew" + std::string(kind));
    office.at.set(office.screen(), "Text" + std::string(kind) + "(1)", "Hudson Mutual");
    office.at.set(office.screen(), "Combo" + std::string(kind), "General");
    office.at.click(office.screen(), "iAdd" + std::string(kind));
  }
}

void typeChanges(Office& office) {
  office.at.click(office.screen(), "IEdit");
  office.at.set(office.screen(), "Text1(18)", "Smith, John");
  office.at.set(office.screen(), "Text1(4)", "45");
}

void seeTyped(Office& office) {
  EXPECT_EQ(office.at.shown(office.screen(), "Text1(18)"), "Smith, John");
  EXPECT_EQ(office.at.shown(office.screen(), "Text1(4)"), "45");
  EXPECT_EQ(office.at.shown(office.screen(), "Text1(34)"), "14 Mill Road");
}

void seeTypedWithRows(Office& office) {
  seeTyped(office);
  for (const char* list : {"ListViewIns", "ListViewContact"})
    EXPECT_EQ(office.at.shown(office.screen(), list), "1 rows, 7 columns");
}

void showFirst(Office& office) {
  office.screen();
}

bool isVoidedOnScreen(Office& office) {
  return office.at.shown(office.screen(), "lblVoided") == "VOIDED";
}

void seeNotVoided(Office& office) {
  EXPECT_EQ(office.at.shown(office.screen(), "delr"), "&Void");
}

bool isBrowsing(Office& office) {
  return office.browsing();
}

const Task tasks[] = {
    {"Add", 25, 10, typeNew, "IAdd", isBrowsing, seeTyped, "[OWNNAME1] = 'Smith, John'", "26-2"},
    {"AddWithSeed", 25, 10, typeNewWithSeed, "IAdd", isBrowsing, seeTyped, "[OWNNAME1] = 'Smith, John'", "26-500"},
    {"AddWithRows", 40, 20, typeWithRows, "IAdd", isBrowsing, seeTypedWithRows, "[OWNNAME1] = 'Smith, John'", "26-2",
     1},
    {"Save", 15, 6, typeChanges, "ISave", isBrowsing, seeTyped, "[OWNNAME1] = 'Smith, John' AND [LOT] = '45'", "26-1"},
    {"Void", 8, 3, showFirst, "delr", isVoidedOnScreen, seeNotVoided, "[STATUS] = 'V'", "26-1"},
};

void PrintTo(const Task& task, std::ostream* out) {
  *out << task.name;
}

class PermitOnAFailingDisk : public ::testing::TestWithParam<std::tuple<Task, Fault>> {
 protected:
  Tried attempt(int call, bool goesOn) const {
    Office office;
    bool acknowledged = false;
    const Tried tried = tryUnder(fault, call, office.folder, [&] {
      task.begin(office);
      office.at.click(office.screen(), task.button);
      acknowledged = task.acknowledged(office);
      if (!acknowledged)
        task.stillTyped(office);
      if (!goesOn)
        office.leaveScreen();
      return office.messages;
    });
    SCOPED_TRACE("call " + std::to_string(call) + ": " + tried.at + ": " + tried.said + (goesOn ? " (goes on)" : ""));
    if (kills(fault))
      EXPECT_TRUE(tried.killed || office.stored(task.storedAs) == 1) << "acknowledged, and not there";
    else
      checkTold(office, tried, acknowledged);
    if (goesOn && !acknowledged)
      pressAgain(office);
    checkRecords(office);
    checkNumbers(office);
    return tried;
  }

  /// What the screen says is so.
  void checkTold(Office& office, const Tried& tried, bool acknowledged) const {
    EXPECT_EQ(office.stored(task.storedAs), acknowledged ? 1u : 0u);
    EXPECT_TRUE(acknowledged || !tried.said.empty()) << "nothing was said";
    EXPECT_TRUE(tried.said.empty() || tellsOf(fault, tried.said));
    EXPECT_TRUE(tried.mayLeaveFiles || leftOversIn(office.folder.path()).empty())
        << leftOversIn(office.folder.path()).front();
  }

  void pressAgain(Office& office) const {
    office.messages.clear();
    office.at.click(office.screen(), task.button);
    EXPECT_EQ(office.messages, "");
    EXPECT_TRUE(task.acknowledged(office));
    const std::string stored = "[PERMIT] = '" + std::string(task.number) + "' AND " + task.storedAs;
    EXPECT_EQ(office.stored(stored), 1u) << "not stored under the number on the screen";
  }

  /// No half permit: each has its parcel, and the first one is never lost.
  void checkRecords(Office& office) const {
    seenIn(office.folder.path());
    EXPECT_EQ(office.stored("[PERMIT] = '26-1'"), 1u);
    EXPECT_LE(office.stored(task.storedAs), 1u) << "stored twice";
    EXPECT_EQ(office.rowsOf(task.storedAs), task.rows * office.stored(task.storedAs)) << "half stored";
    ASSERT_TRUE(office.parcels.resetsbl().ok());
    for (auto row = office.permitsNow(); !row->Eof(); row->MoveNext()) {
      const auto known = office.parcels.SBLExists(TrimSBL(currentSBL(*row, office.parcels.parts)));
      EXPECT_TRUE(known.ok() && *known) << row->text("PERMIT") << " has no parcel";
    }
  }

  /// Work goes on as if nothing had been, and no number comes twice.
  void checkNumbers(Office& office) const {
    office.messages.clear();
    if (!office.browsing())
      office.at.click(office.screen(), "ICancel");
    office.leaveScreen();
    const std::size_t before = office.permitsNow()->RecordCount();
    office.add("Brown, Ann", "46");
    std::set<std::string> numbers;
    for (auto row = office.permitsNow(); !row->Eof(); row->MoveNext())
      numbers.insert(row->text("PERMIT"));
    EXPECT_EQ(numbers.size(), before + 1);
  }

  const Task& task = std::get<0>(GetParam());
  const Fault fault = std::get<1>(GetParam());
};

TEST_P(PermitOnAFailingDisk, NoRecordIsLostOrHalfAndNothingTypedIsLost) {
  for (const bool goesOn : waysToGoOn(fault)) {
    const int met = atEveryCall([&](int call) { return attempt(call, goesOn); });
    EXPECT_GE(met, strikesWritesOnly(fault) ? task.leastWrites : task.leastCalls);
  }
}

INSTANTIATE_TEST_SUITE_P(Permits, PermitOnAFailingDisk,
                         ::testing::Combine(::testing::ValuesIn(tasks), ::testing::ValuesIn(allFaults)),
                         [](const auto& tried) {
                           return std::string(std::get<0>(tried.param).name) + nameOf(std::get<1>(tried.param));
                         });

/// The folder of the office turns read-only under a clerk's hands, and is given back later.
TEST(PermitInAReadOnlyFolder, StaysTypedAndIsStoredWhenTheFolderCanBeWrittenAgain) {
  for (const Task& task : tasks) {
    if (task.begin == showFirst)
      continue;
    SCOPED_TRACE(task.name);
    Office office;
    task.begin(office);
    {
      const FailingDisk disk(office.folder.path(), Fault::ReadOnly, 1);
      office.at.click(office.screen(), task.button);
      EXPECT_NE(office.messages.find("read-only"), std::string::npos) << office.messages;
      EXPECT_NE(office.messages.find("What you typed is still on the screen."), std::string::npos);
      task.stillTyped(office);
      EXPECT_TRUE(office.at.control(office.screen(), task.button).enabled);
    }
    EXPECT_EQ(office.stored(task.storedAs), 0u);
    office.messages.clear();
    office.at.click(office.screen(), task.button);
    EXPECT_EQ(office.messages, "");
    EXPECT_EQ(office.stored("[PERMIT] = '" + std::string(task.number) + "' AND " + task.storedAs), 1u);
  }
}

}  // namespace
}  // namespace zelvo::testing
