// Whatever changes the office's files, with a disk that fails at any point of it.

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "base/files.h"
#include "data/convert_sbl.h"
#include "data/data_folder.h"
#include "data/mdb.h"
#include "drive.h"
#include "support/scripted_desk.h"

namespace zelvo::testing {
namespace {

namespace fs = std::filesystem;

/// A computer with its files, and the registry as its screens share it.
struct Computer {
  Computer() {
    at.session.programFolder = folder.file("program");
    at.session.dataFolder = data;
    EXPECT_TRUE(makeFolder(data).ok());
    at.answers = [](const MessageBox&) { return Answer::OK; };
    comeBack();
  }
  void comeBack() { parcels.emplace(at.session); }
  std::string file(std::string_view name) const { return joinPath(data, name); }

  TempFolder folder;
  const std::string data = folder.file("data");
  ScriptedDesk at;
  std::optional<mdb> parcels;
};

using Step = Result<void> (*)(Computer&);

std::string wholeFolder(Computer& computer) {
  return seenIn(computer.data);
}

/// What is done to the files of a computer, and what was there before.
struct Operation {
  const char* name;
  int leastCalls;   ///< that it certainly makes
  int leastWrites;  ///< those of them that write
  Step prepare;
  Step work;
  bool inParts = false;  ///< what was done of it before it failed may stay
  int every = 1;         ///< of very long ones not each call is tried
  std::string (*seen)(Computer&) = wholeFolder;
  bool flushes = true;  ///< whether a cut of the power spares it once it is acknowledged
};

Result<void> nothing(Computer&) {
  return {};
}

// ---- records

const Table& permitTable() {
  return *findTable("BLDGPERM");
}

Result<void> makePermits(Computer& computer) {
  return createDatabase(computer.file("db1.mdb"), permitTable());
}

/// Permits `from` to `to`, each with notes of this length.
Result<void> pourPermits(Computer& computer, int from, int to, std::size_t length) {
  const auto connection = Connection::open(connectionText(computer.file("db1.mdb")));
  if (!connection)
    return connection.error();
  return bulkInsert(**connection, permitTable(), {"PERMIT", "NOTES"}, [&](std::vector<Value>& values) {
    values = {"26-" + std::to_string(from), std::string(length, 'n')};
    return from++ <= to;
  });
}

Result<void> makeSomePermits(Computer& computer) {
  const auto made = makePermits(computer);
  return made ? pourPermits(computer, 1, 20, 500) : made;
}

/// Three rows, one each way, kept together.
Result<void> changeTogether(Computer& computer) {
  const auto connection = Connection::open(connectionText(computer.file("db1.mdb")));
  if (!connection)
    return connection.error();
  auto transaction = (*connection)->begin();
  if (!transaction)
    return transaction.error();
  const auto rows = Recordset::open(*connection, "Select * from BLDGPERM order by [PERMIT]");
  if (!rows)
    return rows.error();
  (*rows)->set("OWNNAME1", "Smith");
  if (auto stored = (*rows)->Update(); !stored)
    return stored;
  (*rows)->MoveLast();
  if (auto removed = (*rows)->Delete(); !removed)
    return removed;
  (*rows)->AddNew();
  (*rows)->set("PERMIT", "26-100");
  (*rows)->set("NOTES", std::string(20000, 'x'));
  if (auto stored = (*rows)->Update(); !stored)
    return stored;
  return transaction->commit();
}

// ---- parcels

Result<void> makeParcels(Computer& computer) {
  return createDatabase(computer.file("sbl.mdb"), extendedParcelTable());
}

Result<void> makeOneParcel(Computer& computer) {
  const auto made = makeParcels(computer);
  return made ? computer.parcels->SBLAdd("12-0-0-3-45", "26-1", "Smith", "a note", "Mill Road") : made;
}

Result<void> onTheParcel(Computer& computer, Result<void> (mdb::*change)()) {
  const auto found = computer.parcels->SBLExists("12-0-0-3-45");
  if (!found)
    return found.error();
  computer.parcels->currentNote = "roof";
  return ((*computer.parcels).*change)();
}

/// The old layout, with a few parcels.
Result<void> makeOldRegistry(Computer& computer) {
  auto made = createDatabase(computer.file("sbl.mdb"), *findTable("SBL"));
  for (const char* key : {"12-0-0-3-45", "12-0-0-3-46", "12-0-0-3-47"})
    made = made ? computer.parcels->SBLAdd(key, "26-1", "Smith", "a note", "Mill Road") : made;
  computer.comeBack();
  return made;
}

/// What an earlier try left is finished.
Result<void> convertRegistry(Computer& computer) {
  const auto converted = convertOldSBLtoSBL18(
      computer.at.session, [](std::string_view) {}, std::chrono::milliseconds(200));
  if (!converted && converted.error().trouble != Trouble::Duplicate)
    return converted.error();
  if (converted && !converted->versionTrouble.empty())
    return Error{Trouble::Failed, converted->versionTrouble};
  return noteExtendedLayout(computer.data);
}

/// The registry is whole at every moment, in the one layout or the other. Copies of it that were set aside may stay.
std::string registryOf(Computer& computer) {
  seenIn(computer.data);
  const auto connection = Connection::open(connectionText(computer.file("sbl.mdb")));
  const auto rows = connection ? Recordset::open(*connection, "Select * from SBL") : connection.error();
  if (!rows)
    return rows.error().message;
  EXPECT_EQ((*rows)->RecordCount(), 3u);
  return std::to_string((*rows)->fieldCount()) + " fields, " + std::to_string(parcelLayoutIn(computer.data)) +
         " noted, " + (*rows)->text("LOCN1");
}

// ---- files

Result<void> makeText(Computer& computer) {
  return replaceFile(computer.file("phi.txt"), "12\r\n");
}

Result<void> makeTwoTexts(Computer& computer) {
  const auto made = makeText(computer);
  return made ? replaceFile(computer.file("new.txt"), std::string(300000, 'x')) : made;
}

Result<void> makeOtherDisk(Computer& computer) {
  const auto made = makeTwoTexts(computer);
  return made ? makeFolder(computer.file("other-disk")) : made;
}

Result<void> addLine(Computer& computer) {
  return appendLine(computer.file("phi.txt"), "a line");
}

const Operation operations[] = {
    {"ReplacesAFile", 5, 1, makeText,
     [](Computer& computer) { return replaceFile(computer.file("phi.txt"), "13\r\n"); }},
    {"WritesANewFile", 5, 1, nothing,
     [](Computer& computer) {
       return writeLines(computer.file("phi.txt"), {"13", "14"});
     }},
    {"AppendsALine", 1, 1, makeText, addLine, false, 1, wholeFolder, false},
    {"CopiesAFile", 5, 1, makeTwoTexts,
     [](Computer& computer) { return copyFile(computer.file("new.txt"), computer.file("phi.txt")); }},
    {"RenamesAFile", 1, 0, makeTwoTexts,
     [](Computer& computer) { return renameFile(computer.file("new.txt"), computer.file("phi.txt")); }},
    {"MovesAFileToAnotherDisk", 6, 1, makeOtherDisk,
     [](Computer& computer) { return renameFile(computer.file("new.txt"), computer.file("other-disk/new.txt")); },
     true},

    {"MakesADatabase", 10, 4, nothing, makePermits},
    {"CopiesADatabase", 10, 4, makeSomePermits,
     [](Computer& computer) { return copyDatabase(computer.file("db1.mdb"), computer.file("db4.mdb")); }},
    {"MakesTheBlanks", 100, 50, nothing, [](Computer& computer) { return makeBlanks(computer.data); }, true, 61},
    {"PutsOneBlankInPlace", 20, 8, nothing,
     [](Computer& computer) {
       const auto path = ensureDatabase(computer.at.session, "meeting.mdb");
       return path ? Result<void>() : path.error();
     },
     true},
    {"CompletesTheDataFolder", 100, 50, makeSomePermits,
     [](Computer& computer) { return resolveDataFolder(computer.at.desk); }, true, 61},

    {"FillsADatabase", 10, 5, makePermits, [](Computer& computer) { return pourPermits(computer, 1, 40, 900); }},
    {"AddsManyRecords", 10, 5, makeSomePermits, [](Computer& computer) { return pourPermits(computer, 31, 60, 900); }},
    {"AddsMoreThanMemoryHolds", 100, 100, makeSomePermits,
     [](Computer& computer) { return pourPermits(computer, 31, 330, 10000); }, false, 67},
    {"ChangesSeveralRecordsTogether", 10, 5, makeSomePermits, changeTogether},
    {"AddsAParcel", 8, 3, makeParcels,
     [](Computer& computer) { return computer.parcels->SBLAdd("12-0-0-3-45", "26-1", "Smith", "", "Mill Road"); }},
    {"RaisesAFlag", 8, 3, makeOneParcel, [](Computer& computer) { return onTheParcel(computer, &mdb::SBLSetViol); }},
    {"ClearsTheFlags", 8, 3, makeOneParcel,
     [](Computer& computer) { return onTheParcel(computer, &mdb::SBLClearFlag); }},
    {"ConvertsTheRegistry", 50, 20, makeOldRegistry, convertRegistry, true, 1, registryOf},
};

void PrintTo(const Operation& operation, std::ostream* out) {
  *out << operation.name;
}

std::string saidBy(const Result<void>& result) {
  return result ? "" : result.error().message;
}

class OnAFailingDisk : public ::testing::TestWithParam<std::tuple<Operation, Fault>> {
 protected:
  void SetUp() override {
    EXPECT_EQ(saidBy(operation.prepare(prepared_)), "");
    before_ = operation.seen(prepared_);
    Computer computer;
    takeOver(computer);
    EXPECT_EQ(saidBy(operation.work(computer)), "");
    after_ = operation.seen(computer);
  }

  void takeOver(Computer& computer) const {
    constexpr auto whole = fs::copy_options::recursive | fs::copy_options::overwrite_existing;
    fs::copy(prepared_.folder.path(), computer.folder.path(), whole);
  }

  Tried attempt(int call, bool goesOn) const {
    Computer computer;
    takeOver(computer);
    const Tried tried = tryUnder(fault, call, computer.folder, [&] {
      std::string said = saidBy(operation.work(computer));
      if (!goesOn)
        computer.comeBack();
      return said;
    });
    if (tried.killed)
      computer.comeBack();
    SCOPED_TRACE("call " + std::to_string(call) + ": " + tried.at + ": " + tried.said + (goesOn ? " (goes on)" : ""));
    check(computer, tried);
    return tried;
  }

  void check(Computer& computer, const Tried& tried) const {
    const std::string seen = operation.seen(computer);
    const bool failed = tried.killed || !tried.said.empty();
    EXPECT_TRUE(failed || seen == after_ || (!operation.flushes && fault == Fault::PowerCut))
        << "acknowledged, and not there";
    const bool halfLine = operation.work == addLine && fault == Fault::KilledInMidWrite;  // the next one mends it
    EXPECT_TRUE(operation.inParts || halfLine || seen == before_ || seen == after_) << "neither all nor nothing";
    EXPECT_TRUE(tried.said.empty() || tellsOf(fault, tried.said));
    EXPECT_TRUE(tried.mayLeaveFiles || leftOversIn(computer.folder.path()).empty())
        << leftOversIn(computer.folder.path()).front();
    if (seen == after_)
      return;
    EXPECT_EQ(saidBy(operation.work(computer)), "") << "cannot be done again";
    EXPECT_TRUE(halfLine || operation.seen(computer) == after_) << "not there when done again";
  }

  const Operation& operation = std::get<0>(GetParam());
  const Fault fault = std::get<1>(GetParam());

 private:
  Computer prepared_;
  std::string before_, after_;  ///< what is there before the work and behind it, when nothing goes wrong
};

TEST_P(OnAFailingDisk, IsDoneWholeOrNotAtAllAndCanBeDoneAgain) {
  for (const bool goesOn : waysToGoOn(fault)) {
    const int met = atEveryCall([&](int call) { return attempt(call, goesOn); }, operation.every);
    EXPECT_GE(met * operation.every, strikesWritesOnly(fault) ? operation.leastWrites : operation.leastCalls);
  }
}

INSTANTIATE_TEST_SUITE_P(Files, OnAFailingDisk,
                         ::testing::Combine(::testing::ValuesIn(operations), ::testing::ValuesIn(allFaults)),
                         [](const auto& tried) {
                           return std::string(std::get<0>(tried.param).name) + nameOf(std::get<1>(tried.param));
                         });

}  // namespace
}  // namespace zelvo::testing
