#include <unistd.h>

#include <future>
#include <set>
#include <sstream>
#include <vector>

#include "sample_town.h"

namespace zelvo::testing {
namespace {

TEST_F(SampleTown, TheRoadOfOnePermit) {
  const std::string output =
      run(asClerk(newPermit() + "answer Yes\nclick IAdd\nshow lblStatus\nclick iPrint\n"
                                "set Combo1 Building Permit\nclick cmdPrint\n"
                                "query sbl.mdb Select * from SBL where [SBLF] = '999-5-0-3-45'\n"));
  EXPECT_EQ(
      linesWith(output, "message: "),
      "message: [ SBL not found] The Section, Block and Lot info cannot be found.\\nIf this is a new S-B-L, click "
      "'Yes' to add this as a new record. {Yes, No} -> Yes\n");
  EXPECT_EQ(linesWith(output, "lblStatus"), "lblStatus = Record 301 of 301\n");
  EXPECT_EQ(linesWith(output, "printed: "), "printed: Building Permit -> " + town() + "/program/printed/0001.rtf\n");
  EXPECT_EQ(linesWith(output, "sbl.mdb: "), "sbl.mdb: 1 rows, 13 columns\n");
  EXPECT_EQ(linesWith(output, "error"), "");

  const std::string letter = folder.read("town/program/printed/0001.rtf");
  EXPECT_NE(letter.find("O'Brien, Zo\\u235?"), std::string::npos);
  EXPECT_EQ(letter.find("%0"), std::string::npos) << "a code was not filled";
  EXPECT_EQ(letter, folder.read("town/program/tmp.rtf"));
}

TEST_F(SampleTown, ScreensComeToTheFrontInOrderAndQuitEndsTheProgram) {
  const std::string output = run(asClerk("close\nclick violations\nclick Quit\nshow\n"));
  EXPECT_EQ(linesWith(output, "screen: "),
            "screen: frmAbout\nscreen: PswFrm\nscreen: LoadingFrm\nscreen: MenuFrm\nscreen: APermits\nscreen: "
            "MenuFrm\n");
  EXPECT_EQ(linesWith(output, "message: "),
            "message: [Zelvo] \"Violations\" is not part of this program yet. {OK} -> OK (default)\n");
  EXPECT_TRUE(output.ends_with("ended: quit\n")) << output;
}

TEST_F(SampleTown, SignInTakesEitherCaseAndRefusesTheWrongPassword) {
  const std::string output =
      run("set Text1 Clerk\nset Text2 clark\nclick cmdOK\nset Text2 clerk\nclick cmdOK\n"
          "click usermanage\n");
  EXPECT_EQ(linesWith(output, "message: "), "message: [Login] Invalid Password, try again! {OK} -> OK (default)\n");
  EXPECT_EQ(linesWith(output, "error"), "error: line 6: usermanage is disabled at the moment\n");
  EXPECT_EQ(run("click cmdCancel\n").find("screen: MenuFrm"), std::string::npos);
}

TEST_F(SampleTown, DataFolderWithoutDatabasesIsReplacedAndSaysSo) {
  std::filesystem::remove_all(data(""));
  const std::string output = run(asClerk("show lblStatus\n"));
  EXPECT_TRUE(linesWith(output, "message: ").starts_with("message: [Zelvo] One or more database pointed by your"))
      << output;
  EXPECT_EQ(linesWith(output, "lblStatus"), "lblStatus = empty database\n");
  EXPECT_TRUE(std::filesystem::exists(town() + "/program/databases/db1.mdb"));
}

TEST_F(SampleTown, MissingTemplateIsToldAndNothingIsPrinted) {
  std::filesystem::remove(town() + "/forms/expired.rtf");
  const std::string output = run(asClerk("click iPrint\nset Combo1 Expired Permit\nclick cmdPrint\n"));
  EXPECT_EQ(linesWith(output, "printed"), "");
  const std::string message = linesWith(output, "message: [ Building Permits] ");
  EXPECT_NE(message.find("expired.rtf"), std::string::npos) << output;
  EXPECT_NE(message.find(town() + "/forms"), std::string::npos) << output;
}

TEST_F(SampleTown, DamagedDatabaseIsNamedAndTheMenuStays) {
  folder.write("town/data/db1.mdb", "these are no records");
  const std::string output = run(asClerk("click About\n"));
  EXPECT_NE(linesWith(output, "message: ").find("db1.mdb"), std::string::npos) << output;
  EXPECT_EQ(linesWith(output, "error"), "");
  EXPECT_TRUE(output.ends_with("screen: frmAbout\n")) << output;
  EXPECT_EQ(folder.read("town/data/db1.mdb"), "these are no records");
}

TEST_F(SampleTown, EightComputersAddAtOnceAndNobodyHearsOfIt) {
  constexpr int kComputers = 8, kAdds = 10;
  std::vector<std::future<std::string>> outputs;
  for (int computer = 1; computer <= kComputers; ++computer) {
    const std::string program = "program" + std::to_string(computer);
    std::filesystem::copy(town() + "/program", town() + "/" + program, std::filesystem::copy_options::recursive);
    std::string script;
    for (int add = 1; add <= kAdds; ++add)
      script += newPermit() + "set Text1(3) " + std::to_string(computer) + "\nset Text1(4) " + std::to_string(add) +
                "\nanswer Yes\nclick IAdd\nshow Text1(1)\n";
    outputs.push_back(std::async(std::launch::async, [=, this] { return run(asClerk(script), "", program); }));
  }
  std::set<std::string> numbers;
  for (auto& output : outputs) {
    const std::string text = output.get();
    EXPECT_EQ(linesWith(text, "error"), "");
    EXPECT_EQ(linesWith(text, "message: [ Building Permits]"), "") << text;
    std::istringstream lines(linesWith(text, "Text1(1) = "));
    for (std::string number; std::getline(lines, number);)
      EXPECT_TRUE(numbers.insert(number).second) << number << " was given twice";
  }
  EXPECT_EQ(numbers.size(), static_cast<std::size_t>(kComputers * kAdds));
  const std::string after =
      run("set Text1 clerk\nset Text2 clerk\nclick cmdOK\n"
          "query db1.mdb Select * from BLDGPERM where [SEC] = '999' and [SUD] = '5'\n");
  EXPECT_EQ(linesWith(after, "db1.mdb: "), "db1.mdb: 80 rows, 66 columns\n");
}

TEST_F(SampleTown, FolderThatMayNotBeWrittenKeepsTheTypedPermitOnTheScreen) {
  if (::geteuid() == 0 && std::system("command -v runuser >/dev/null") != 0)
    GTEST_SKIP() << "the superuser writes everywhere";
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
    std::filesystem::permissions(entry.path(), std::filesystem::perms(entry.is_directory() ? 0555 : 0444));
  std::filesystem::permissions(town() + "/program", std::filesystem::perms(0777));
  folder.write("program-script.txt", "");
  const std::string output = run(asClerk(newPermit() + "answer Yes\nclick IAdd\nshow Text1(18)\nshow lblStatus\n"),
                                 ::geteuid() == 0 ? "runuser -u nobody --" : "");
  EXPECT_NE(linesWith(output, "message: [ Building Permits] The permit could not be stored").size(), 0u) << output;
  EXPECT_EQ(linesWith(output, "Text1(18)"), "Text1(18) = O'Brien, Zoë\n");
  EXPECT_EQ(linesWith(output, "lblStatus"), "lblStatus = New permit\n");
}

}  // namespace
}  // namespace zelvo::testing
