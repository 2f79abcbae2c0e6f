#include "data/convert_sbl.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "data/data_folder.h"
#include "parcel_office.h"

namespace zelvo::testing {
namespace {

using namespace std::chrono_literals;

class ConvertedRegistryOf : public ParcelOffice {
 protected:
  Result<ConvertedRegistry> convert() {
    return convertOldSBLtoSBL18(
        at.session, [this](std::string_view text) { shown += std::string(text) + "|"; }, 50ms);
  }
  std::size_t fields() {
    auto registry = Connection::open(connectionText(path("sbl.mdb")));
    const auto table = (*registry)->table("SBL");
    return table ? (*table)->columns.size() : 0;
  }
  /// All files, but for the journal that the registry keeps beside it.
  std::vector<std::string> databases() {
    auto files = listFiles(at.session.dataFolder, "*");
    std::erase(files, "sbl.mdb-journal");
    return files;
  }

  const std::vector<std::string> untouched = {"sbl.mdb"};
  std::string shown;
};
using Convert = ConvertedRegistryOf;

TEST_F(Convert, AllFieldsAreCarriedOver) {
  useOld();
  ASSERT_TRUE(*parcels.SBLExists("12-0-0-3-46"));
  parcels.currentNote = "see the survey";
  ASSERT_TRUE(parcels.SBLSetComplaint().ok());
  ASSERT_TRUE(parcels.SBLPlaceUpdate("Alder Glen", "NY", "12009", "http://map").ok());
  const auto done = convert();
  ASSERT_TRUE(done.ok()) << done.error().message;
  EXPECT_EQ(done->parcels, 6u);
  EXPECT_EQ(shown, "Converting SBL info..||");
  EXPECT_EQ(fields(), 18u);
  EXPECT_EQ(databases(), (std::vector<std::string>{"sbl.mdb", "sbl13.mdb", "sblversion.txt"}));
  EXPECT_EQ(parcelLayoutIn(at.session.dataFolder), 18);
  const auto old = look("sbl13.mdb", "Select * from SBL order by [SBLF]");
  const auto now = look("sbl.mdb", "Select * from SBL order by [SBLF]");
  EXPECT_EQ(old->fieldCount(), 13u);
  ASSERT_EQ(now->RecordCount(), old->RecordCount());
  for (; !old->Eof(); old->MoveNext(), now->MoveNext())
    for (const Column& column : old->table().columns)
      EXPECT_EQ(now->get(column.name), old->get(column.name)) << old->text("SBLF") << " " << column.name;
  EXPECT_TRUE(now->RecordCount() > 0 && parcel("12-0-0-3-46")->get("CONTACT").isNull());
}

TEST_F(Convert, WhoHasTheRegistryOpenReadsOnInTheNewOne) {
  useOld();
  const auto before = look("sbl.mdb", "Select * from SBL order by [SBLF]");
  ASSERT_TRUE(*parcels.SBLExists("12-0-0-3-46"));
  ASSERT_TRUE(convert().ok());
  EXPECT_EQ(before->text("SBLF"), "12-0-0-3-45");
  EXPECT_TRUE(parcels.SBLSetViol().ok());
  EXPECT_EQ(parcel("12-0-0-3-46")->text("VIOL"), "1") << "what is stored goes into the registry, not the old file";
}

TEST_F(Convert, NothingThatLiesThereIsOverwritten) {
  useOld();
  folder.write("data/sbl13.mdb", "the office's own");
  folder.write("data/SBL18.mdb", "the office's too");
  const auto done = convert();
  ASSERT_TRUE(done.ok()) << done.error().message;
  EXPECT_EQ(fileNameOf(done->setAside), "sbl13-2.mdb");
  EXPECT_EQ(folder.read("data/sbl13.mdb") + folder.read("data/SBL18.mdb"), "the office's ownthe office's too");
  EXPECT_EQ(databases().size(), 5u) << "the working copy is gone";
}

TEST_F(Convert, ARegistryThatIsInUseStaysAsItIs) {
  useOld();
  {
    auto other = Connection::open(connectionText(path("sbl.mdb")));
    auto holding = (*other)->begin();
    const auto refused = convert();
    ASSERT_FALSE(refused.ok());
    EXPECT_EQ(refused.error().trouble, Trouble::Busy);
    EXPECT_EQ(databases(), untouched);
  }
  EXPECT_TRUE(convert().ok());
}

TEST_F(Convert, ARefusalLeavesNothingBehind) {
  EXPECT_EQ(convert().error().trouble, Trouble::NotFound);
  EXPECT_TRUE(databases().empty());
  useExtended();
  EXPECT_EQ(convert().error().trouble, Trouble::Duplicate) << "it is converted already";
  EXPECT_EQ(databases(), untouched);
}

TEST_F(Convert, ABlankThatIsNotEmptyIsRefused) {
  useOld();
  ASSERT_TRUE(makeFolder(folder.file("program/wrk")).ok());
  ASSERT_TRUE(createDatabase(folder.file("program/wrk/sbl18.mdb"), extendedParcelTable()).ok());
  const auto blank = Connection::open(connectionText(folder.file("program/wrk/sbl18.mdb")));
  const auto rows = Recordset::open(*blank, "Select * from SBL");
  (*rows)->AddNew();
  (*rows)->set("SBLF", "left over");
  ASSERT_TRUE((*rows)->Update().ok());
  const auto refused = convert();
  ASSERT_FALSE(refused.ok());
  EXPECT_NE(refused.error().message.find("has 7 parcels where the old one has 6"), std::string::npos);
  EXPECT_EQ(fields(), 13u);
  EXPECT_EQ(databases(), untouched);
}

// The process that converts is killed at one moment after another; whoever comes next finds a whole registry.
TEST_F(Convert, KilledAtAnyMomentItLeavesAWholeRegistry) {
  useOld();
  bool converted = false;
  for (int moment = 0; !converted && moment < 400; ++moment) {
    const pid_t other = ::fork();
    if (other == 0) {
      const bool done = convertOldSBLtoSBL18(
                            at.session, [](std::string_view) {}, 1s)
                            .ok();
      ::_exit(done ? 0 : 1);
    }
    ::usleep(static_cast<useconds_t>(moment) * 250);
    ::kill(other, SIGKILL);
    ::waitpid(other, nullptr, 0);
    const auto rows = look("sbl.mdb", "Select * from SBL");
    ASSERT_EQ(rows->RecordCount(), 6u) << "after " << moment << " steps";
    ASSERT_TRUE(rows->fieldCount() == 13 || rows->fieldCount() == 18);
    converted = rows->fieldCount() == 18;
  }
  EXPECT_TRUE(converted);
}

// ---- the screen

constexpr const char* kTitle = " Synchronize SBL Repository";
constexpr const char* kAsk =
    "The parcel registry has the old layout of 13 fields.\nDo you want to convert it to the extended layout, which "
    "also "
    "holds contact, mailing address and map co-ordinates?";

TEST_F(Convert, IsOfferedByTheSynchronization) {
  useOld();
  at.expect(kTitle, kAsk, Answer::No);
  open("syncSBL");
  EXPECT_EQ(fields(), 13u);
  at.expect(kTitle, kAsk, Answer::Yes);
  at.expect(kTitle, "The parcel registry was converted: 6 parcels.\nThe old one is kept as \"sbl13.mdb\".");
  open("syncSBL");
  EXPECT_EQ(at.session.parcelLayout, 18);
  EXPECT_EQ(at.statusLines.front(), "Converting SBL info..");
  EXPECT_TRUE(at.screens.all().empty());
  ASSERT_TRUE(deleteFile(path("sblversion.txt")).ok());
  at.expect(kTitle, "The parcel registry has the extended layout. There is nothing to do.");
  open("syncSBL");
  EXPECT_EQ(parcelLayoutIn(at.session.dataFolder), 18) << "noted again";
}

TEST_F(Convert, ParcelsOfASecondFileAreAddedOnRequest) {
  useExtended();
  ASSERT_TRUE(createDatabase(path("sbl18.mdb"), extendedParcelTable()).ok());
  auto second = look("sbl18.mdb", "Select * from SBL");
  for (const auto& [key, owner] : {std::pair("20-0-0", "Quinn"), {"12-0-0-3-45", "somebody else"}}) {
    second->AddNew();
    second->set("SBLF", key);
    second->set("ASSOC", owner);
    second->set("CONTACT", "Ada");
    ASSERT_TRUE(second->Update().ok());
  }
  const std::string question =
      "The data folder holds a second parcel file, \"sbl18.mdb\", with 1 parcel that the parcel registry lacks.\nDo "
      "you want to add them to the registry?";
  at.expect(kTitle, question, Answer::No);
  open("syncSBL");
  EXPECT_EQ(parcel("20-0-0")->RecordCount(), 0u);
  at.expect(kTitle, question, Answer::Yes);
  at.expect(kTitle, "1 parcel added to the parcel registry.");
  open("syncSBL");
  EXPECT_EQ(parcel("20-0-0")->text("CONTACT"), "Ada");
  EXPECT_EQ(parcel("12-0-0-3-45")->text("ASSOC"), "O'Brien, Maeve") << "the registry's own stays";
}

TEST_F(Convert, WithoutARegistryTheReasonIsTold) {
  at.expect(kTitle, "The file ...");
  open("syncSBL");
}

}  // namespace
}  // namespace zelvo::testing
