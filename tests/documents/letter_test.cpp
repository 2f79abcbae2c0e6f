#include "documents/letter.h"

#include <gtest/gtest.h>

#include "base/files.h"
#include "documents/print_frm.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

using testing::ScriptedDesk;

class LetterTest : public ::testing::Test {
 protected:
  LetterTest() {
    desk.session.programFolder = program.path();
    desk.session.formsFolder = forms.path();
  }
  void putForm(std::string_view name, std::string_view text) {
    ASSERT_TRUE(replaceFile(joinPath(forms.path(), name), text));
  }

  TempFolder program, forms;
  ScriptedDesk desk;
};

TEST_F(LetterTest, IsMergedKeptAndPrinted) {
  putForm("BldgPerm.rtf", "{\\rtf1 Permit %01 of %dl for %mh}");
  desk.session.reportHeader = "Town of Milford";
  desk.session.print.left = 1.25;
  LetterPrinter printer(desk.desk);
  printer.context.values[1] = "26-1";
  const auto printed = printer.print("\\bldgperm.rtf", "Building Permit");
  ASSERT_TRUE(printed.ok()) << printed.error().message;
  ASSERT_EQ(desk.printed.size(), 1u);
  EXPECT_EQ(desk.printed[0].title, "Building Permit");
  EXPECT_EQ(desk.printed[0].options.left, 1.25);
  EXPECT_EQ(fileNameOf(desk.printed[0].rtfPath), "tmp.rtf");
  EXPECT_EQ(readBytes(desk.printed[0].rtfPath).valueOr(""),
            "{\\rtf1 Permit 26-1 of March 09, 2026 for Town of Milford}");
}

TEST_F(LetterTest, RefusesATemplateThatItCannotUse) {
  putForm("plain.rtf", "Dear Mr. Smith");
  LetterPrinter printer(desk.desk);
  const auto missing = printer.print("\\bldgperm.rtf", "Building Permit");
  ASSERT_FALSE(missing.ok());
  EXPECT_EQ(missing.error().trouble, Trouble::NotFound);
  EXPECT_NE(missing.error().message.find("\"bldgperm.rtf\""), std::string::npos) << missing.error().message;
  EXPECT_NE(missing.error().message.find(forms.path()), std::string::npos) << missing.error().message;
  const auto plain = printer.print("\\plain.rtf", "Letter");
  ASSERT_FALSE(plain.ok());
  EXPECT_EQ(plain.error().trouble, Trouble::BadInput);
  EXPECT_TRUE(desk.printed.empty());
  EXPECT_FALSE(FileExists(joinPath(program.path(), "tmp.rtf")));
}

TEST_F(LetterTest, IsSavedWholeOrNotAtAll) {
  using namespace std::string_literals;
  putForm("a.rtf", "{\\rtf1 %01\\par}\r\n\0"s);
  LetterPrinter printer(desk.desk);
  printer.context.values[1] = "first";
  ASSERT_TRUE(printer.merge("\\A.RTF").ok()) << "whatever its case";
  const std::string first = readBytes(joinPath(program.path(), "tmp.rtf")).valueOr("");
  EXPECT_EQ(first, "{\\rtf1 first\\par}\r\n\0"s);
  desk.session.programFolder = program.path() + "/nowhere";
  printer.context.values[1] = "second";
  const auto lost = printer.print("\\a.rtf", "A");
  ASSERT_FALSE(lost.ok());
  EXPECT_NE(lost.error().message.find("nowhere"), std::string::npos) << lost.error().message;
  EXPECT_TRUE(desk.printed.empty());
  EXPECT_EQ(readBytes(joinPath(program.path(), "tmp.rtf")).valueOr(""), first);
}

TEST_F(LetterTest, TellsWhatThePrinterSays) {
  putForm("a.rtf", "{\\rtf1 a}");
  desk.printerSays = Error{Trouble::Failed, "no paper"};
  const auto printed = LetterPrinter(desk.desk).print("\\a.rtf", "A");
  ASSERT_FALSE(printed.ok());
  EXPECT_EQ(printed.error().message, "no paper");
}

class PrintFrmTest : public ::testing::Test {
 protected:
  ScriptedDesk desk;
  PrintFrm screen{desk.desk, "Print", {"Inspection Report", "Checklist"}};
};

TEST_F(PrintFrmTest, NeedsATypeAndStaysOpen) {
  desk.expect("Zelvo", "You must select a report type from the pop down list prior to proceeding.");
  desk.when("PrintFrm", [&](Screen&) {
    desk.click(screen, "cmdPrint");
    EXPECT_TRUE(desk.screens.isOpen(screen));
    EXPECT_FALSE(screen.userSets(screen.Combo1, "Roster").ok());
    desk.set(screen, "Combo1", "Checklist");
    desk.set(screen, "Check2", "1");
    desk.set(screen, "Text2", "1.5");
    desk.set(screen, "Combo2", "12");
    desk.click(screen, "cmdPrint");
    EXPECT_FALSE(desk.screens.isOpen(screen));
  });
  desk.screens.showModal(screen);
  EXPECT_TRUE(screen.accepted());
  const PrintOptions& options = desk.session.print;
  EXPECT_EQ(options.type, "Checklist");
  EXPECT_TRUE(options.landscape);
  EXPECT_EQ(options.top, 1.5);
  EXPECT_EQ(options.bottom, 0.5);
  EXPECT_TRUE(options.marginsSet);
  EXPECT_EQ(options.fontSize, 12);
  EXPECT_EQ(PrintFrm(desk.desk, "Print", {"Checklist"}).Combo1.text, "Checklist") << "the type chosen last";
}

TEST_F(PrintFrmTest, KeepsMarginsBetweenHalfAnInchAndThree) {
  desk.when("PrintFrm", [&](Screen&) {
    for (const auto& [typed, kept] : std::initializer_list<std::pair<const char*, const char*>>{
             {"0.4", "0.5"}, {"0.5", "0.5"}, {"", "0.5"}, {"x", "0.5"}, {"3", "3"}, {"3.01", "3"}, {"1", "1"}})
      for (const char* box : {"Text1", "Text2", "Text3", "Text4"}) {
        desk.set(screen, box, typed);
        desk.leave(screen, box);
        EXPECT_EQ(desk.shown(screen, box), kept) << box << " " << typed;
      }
  });
  desk.screens.showModal(screen);
}

TEST_F(PrintFrmTest, WaitsForThePrinterAndKeepsItsCopies) {
  desk.when("PrintFrm", [&](Screen&) {
    desk.set(screen, "Combo1", "Checklist");
    desk.set(screen, "Text1", "9");
    desk.set(screen, "Text3", "");
    desk.set(screen, "Combo2", "200");
    desk.set(screen, "Check3", "1");
    desk.chosenCopies.reset();
    desk.click(screen, "cmdPrint");
    EXPECT_TRUE(desk.screens.isOpen(screen)) << "the printer dialog was cancelled";
    EXPECT_FALSE(screen.accepted());
    EXPECT_EQ(desk.session.print.type, "");
    desk.chosenCopies = 3;
    desk.click(screen, "cmdPrint");
  });
  desk.screens.showModal(screen);
  EXPECT_TRUE(screen.accepted());
  const PrintOptions& options = desk.session.print;
  EXPECT_EQ(options.copies, 3);
  EXPECT_EQ(options.left, 3) << "a box that was never left has its limits too";
  EXPECT_EQ(options.right, 0.5);
  EXPECT_EQ(options.fontSize, 24);
}

TEST_F(PrintFrmTest, ATypeWithMarginsOfItsOwnBringsThoseItWasPrintedWithLast) {
  TempFolder folder;
  desk.session.programFolder = folder.path();
  const auto print = [&](const char* type, const char* margin, const char* size) {
    PrintFrm options(desk.desk, "Print", {"ID Card", "ID Badge, small", "IDs"});
    std::string shown;
    desk.when("PrintFrm", [&](Screen&) {
      desk.set(options, "Combo1", type);
      shown = desk.shown(options, "Text1") + " " + desk.shown(options, "Combo2");
      desk.set(options, "Text1", margin);
      desk.set(options, "Combo2", size);
      desk.click(options, "cmdPrint");
    });
    desk.screens.showModal(options);
    return shown;
  };
  EXPECT_EQ(print("ID Card", "1.25", "8"), "0.5 10") << "never printed: as the options are";
  EXPECT_EQ(print("ID Badge, small", "2", "12"), "1.25 8");
  EXPECT_EQ(print("IDs", "0.75", "9"), "2 12") << "a type like any other";
  EXPECT_EQ(print("ID Card", "1", "8"), "1.25 8");
  EXPECT_EQ(print("ID Badge, small", "2", "12"), "2 12");
  EXPECT_EQ(print("ID Card", "1", "8"), "1 8");
  folder.write("idtypes.txt", "ID Card,9,0,x,1,11\r\n");
  EXPECT_EQ(print("ID Card", "1", "8"), "3 11") << "margins that no printer has";
}

TEST_F(PrintFrmTest, LeavesTheOptionsAloneWhenCancelled) {
  desk.when("PrintFrm", [&](Screen&) {
    desk.set(screen, "Combo1", "Checklist");
    desk.set(screen, "Text1", "2");
    desk.click(screen, "cmdCancel");
  });
  desk.screens.showModal(screen);
  EXPECT_FALSE(screen.accepted());
  EXPECT_EQ(desk.session.print.left, 0.5);
  EXPECT_EQ(desk.session.print.type, "");
}

}  // namespace
}  // namespace zelvo
