// What start-up makes of a data folder, wherever its tables lie.

#include <gtest/gtest.h>

#include "start_up_office.h"

namespace zelvo {
namespace {

TEST_F(DataFolder, CompleteFolderIsTakenAsItIs) {
  fill();
  resolve();
  EXPECT_EQ(user.session.dataFolder, folder.file("records"));
  EXPECT_EQ(user.session.parcelLayout, 13);
  EXPECT_EQ(databasesIn("program/wrk"), 0u);
}

TEST_F(DataFolder, ParcelLayoutIsReadFromItsFile) {
  const struct {
    std::string_view text;
    int layout;
  } files[] = {{"18\r\n", 18}, {" 18 ", 18}, {"18 fields", 18}, {"15", 13},
               {"13", 13},     {"", 13},     {"eighteen", 13},  {"\r\n18", 13}};
  fill();
  for (const auto& file : files) {
    folder.write("records/SblVersion.txt", file.text);
    user.session.parcelLayout = 0;
    resolve();
    EXPECT_EQ(user.session.parcelLayout, file.layout) << "\"" << file.text << "\"";
  }
}

TEST_F(DataFolder, ScreensMakeSureOfTheirDatabase) {
  const auto fees = ensureDatabase(user.session, "\\pbfees.mdb");
  ASSERT_TRUE(fees.ok()) << troubleOf(fees);
  EXPECT_EQ(*fees, folder.file("records/pbfees.mdb"));
  EXPECT_EQ(rows(connect("records/pbfees.mdb"), "Select * from PBFEES")->RecordCount(), 0u);
  EXPECT_EQ(ensureDatabase(user.session, "db9.mdb").error().trouble, Trouble::NotFound);
}

}  // namespace
}  // namespace zelvo
