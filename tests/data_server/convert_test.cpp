#include "data/convert_sbl.h"

#include "data/data_folder.h"
#include "data/mdb.h"
#include "data/small_office.h"

namespace zelvo {
namespace {

using ServerConversion = SmallOffice;

TEST_F(ServerConversion, TheTableIsExtendedWhereItLies) {
  Session session;
  session.dataFolder = session.programFolder = folder.path();
  mdb parcels{session};
  const auto added = parcels.SBLAdd("12-0-0-3-45", "25-1", "O'Brien", "a note", "14 Mill Road");
  ASSERT_TRUE(added.ok()) << troubleOf(added);
  const auto open = rows(connect("sbl.mdb"), "Select * from SBL");

  std::string shown;
  const auto show = [&](std::string_view text) { shown += text; };
  const auto done = convertOldSBLtoSBL18(session, show);
  ASSERT_TRUE(done.ok()) << troubleOf(done);
  EXPECT_EQ(done->parcels, 1u);
  EXPECT_EQ(done->setAside, "");
  EXPECT_EQ(shown, "Converting SBL info..");
  EXPECT_EQ(parcelLayoutIn(folder.path()), 18);

  const auto now = rows(connect("sbl.mdb"), "Select * from SBL");
  EXPECT_EQ(now->fieldCount(), 18u);
  EXPECT_EQ(now->text("NOTES") + now->text("CONTACT"), "a note");
  open->set("CITY", "Alder Glen");
  EXPECT_TRUE(open->Update().ok()) << "a computer that had it open works on";
  ASSERT_TRUE(parcels.resetsbl().ok());
  ASSERT_TRUE(*parcels.SBLExists("12-0-0-3-45"));
  EXPECT_TRUE(parcels.SBLUpdateExtended({"12-0-0-3-45", "O'Brien", "", "Ada", "PO Box 1", "1", "2"}).ok());
  EXPECT_EQ(convertOldSBLtoSBL18(session, show).error().trouble, Trouble::Duplicate);
}

}  // namespace
}  // namespace zelvo
