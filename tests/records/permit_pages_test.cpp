#include <gtest/gtest.h>

#include <filesystem>

#include "permit_office.h"
#include "records/conflict_frm.h"

namespace zelvo::testing {
namespace {

/// The pages of a permit for its insurance and its contacts, in an office that has a file for each.
class PermitPages : public PermitOffice {
 protected:
  PermitPages() {
    for (const char* table : {"INSBASE", "CONBASE"})
      EXPECT_TRUE(createDatabase(path(findTable(table)->file), *findTable(table)).ok());
    EXPECT_TRUE(parcels.SBLAdd("999-5-0-3-45", "26-1", "Smith", "", "14 Mill Road").ok());
  }

  std::unique_ptr<Recordset> insuranceNow() { return look("db7.mdb", "Select * from INSBASE order by SEQ"); }

  /// Types an insurance that lacks nothing.
  void typeInsurance(Screen& permits, std::string_view company = "Hudson Mutual") {
    at.click(permits, "iNewIns");
    at.set(permits, "TextIns(1)", company);
    at.set(permits, "ComboIns", "General Liability");
    at.set(permits, "DTFromIns", "03/01/2026");
  }
  std::string cell(Screen& permits, const char* list, std::size_t row, std::size_t column) {
    return dynamic_cast<ListView&>(at.control(permits, list)).rows->cell(row, column);
  }
};

TEST_F(PermitPages, RowsNeedAPermit) {
  APermits& permits = open();
  at.expect(" Insurance", "Cannot add new insurance until\na permit is present or selected.");
  at.click(permits, "iNewIns");
  at.expect(" Contacts", "Cannot add new contact until\na permit is present or selected.");
  at.click(permits, "iNewContact");
}

TEST_F(PermitPages, WhatIsMissingIsToldInItsOrder) {
  addOther("26-1");
  APermits& permits = open();
  const std::string end = "\nPlease ensure required\nfields are filled in correctly.";
  struct Row {
    const char *name, *type, *notes, *missing;
  };
  const auto tryRows = [&](const char* suffix, std::initializer_list<Row> rows) {
    const std::string kind(suffix);
    for (const Row& row : rows) {
      SCOPED_TRACE(kind + ": " + row.missing);
      at.click(permits, "iNew" + kind);
      at.set(permits, "Text" + kind + "(1)", row.name);
      at.set(permits, "Combo" + kind, row.type);
      at.set(permits, "Text" + kind + "(7)", row.notes);
      at.expect(" Missing Information", "Missing: " + std::string(row.missing) + end);
      at.click(permits, "iAdd" + kind);
      at.click(permits, "iCancel" + kind);
    }
  };
  tryRows("Ins", {{"", "<select>", "", "--Insurance Company\n--Insurance Type\n"},
                  {"", "General", "", "--Insurance Company\n"},
                  {" ", "Exempt", " ", "--Reason for exemption\n"},
                  {"Mutual", "", "", "--Insurance Type\n"}});
  tryRows("Contact",
          {{"", "<select>", "", "--Contact Name\n--Contact Type\n"}, {"", "exempt", "", "--Reason for exemption\n"}});
  EXPECT_EQ(insuranceNow()->RecordCount(), 0u);
}

TEST_F(PermitPages, RowsOfAStoredPermitAreStoredAtOnce) {
  addOther("26-1");
  addOther("26-2");
  APermits& permits = open();
  typeInsurance(permits);
  EXPECT_FALSE(at.control(permits, "IMoveNext").enabled) << "the permit stays at hand while a row is typed";
  EXPECT_FALSE(at.control(permits, "ICancel").enabled) << "it would give up the permit, not the row";
  at.click(permits, "iAddIns");
  EXPECT_TRUE(at.control(permits, "IMoveNext").enabled);
  const auto row = insuranceNow();
  EXPECT_EQ(row->text("RECNO"), "26-1");
  EXPECT_EQ(row->text("INSCO1"), "Hudson Mutual");
  EXPECT_EQ(row->get("ITO1").moment()->date, (Date{2298, 12, 31}));
  EXPECT_EQ(cell(permits, "ListViewIns", 0, 4), "N/A");
  EXPECT_EQ(at.shown(permits, "DTToIns"), "");

  at.click(permits, "iNewContact");
  at.set(permits, "TextContact(1)", "Otto Berg");
  at.set(permits, "ComboContact", "Mason");
  at.click(permits, "iAddContact");
  EXPECT_EQ(look("cont.mdb", "Select * from CONBASE order by SEQ")->text("EXTRA1"), "P");

  at.click(permits, "IMoveNext");
  EXPECT_EQ(at.shown(permits, "ListViewIns"), "");
  at.click(permits, "IMovePrev");
  at.choose(permits, "ListViewIns", "1");
  at.click(permits, "iEditIns");
  at.set(permits, "DTToIns", "02/28/2026");
  at.expect(" Date Error", "\"Valid to\" cannot be prior to \"Valid from\".");
  at.click(permits, "iSaveIns");
  at.set(permits, "DTToIns", "03/01/2027");
  at.click(permits, "iSaveIns");
  EXPECT_EQ(insuranceNow()->get("ITO1").moment()->date, (Date{2027, 3, 1}));
  EXPECT_EQ(cell(permits, "ListViewIns", 0, 4), "03/01/2027");
}

TEST_F(PermitPages, RowsOfANewPermitAreStoredWithIt) {
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits);
  typeInsurance(permits);
  at.expect(" Building Permits",
            "The insurance that you typed is not in the list yet.\nPlease press Add row, Keep row or Forget row on its "
            "page first.");
  at.click(permits, "IAdd");
  at.click(permits, "iAddIns");
  typeInsurance(permits, "Kettle Bridge Casualty");
  at.click(permits, "iAddIns");
  at.choose(permits, "ListViewIns", "1");
  at.click(permits, "iEditIns");
  at.set(permits, "TextIns(4)", "GL-7");
  at.click(permits, "iSaveIns");
  EXPECT_EQ(insuranceNow()->RecordCount(), 0u);
  at.click(permits, "IAdd");
  const auto rows = insuranceNow();
  ASSERT_EQ(rows->RecordCount(), 2u);
  EXPECT_EQ(rows->text("RECNO"), "26-1");
  EXPECT_EQ(rows->text("ICERT"), "GL-7");
  EXPECT_EQ(at.shown(permits, "ListViewIns"), "2 rows, 7 columns");

  at.click(permits, "INew");
  typeInsurance(permits, "Given up");
  at.click(permits, "iAddIns");
  at.click(permits, "ICancel");
  EXPECT_EQ(at.shown(permits, "ListViewIns"), "2 rows, 7 columns");
  EXPECT_EQ(insuranceNow()->RecordCount(), 2u);
}

TEST_F(PermitPages, APermitWhoseRowsAreRefusedIsNotStoredEither) {
  APermits& permits = open();
  at.click(permits, "INew");
  typePermit(permits);
  typeInsurance(permits);
  at.click(permits, "iAddIns");
  const std::string file = path("db7.mdb"), away = path("away");
  std::filesystem::rename(file, away);
  std::filesystem::create_directory(file);
  at.expect(" Building Permits", "The permit could not be stored:\n...");
  at.click(permits, "IAdd");
  EXPECT_EQ(permitsNow()->RecordCount(), 0u);
  EXPECT_EQ(at.shown(permits, "ListViewIns"), "1 rows, 7 columns") << "what was typed is still there";
  std::filesystem::remove(file);
  std::filesystem::rename(away, file);
  at.click(permits, "IAdd");
  EXPECT_EQ(permitsNow()->RecordCount(), 1u);
  EXPECT_EQ(insuranceNow()->RecordCount(), 1u);
}

TEST_F(PermitPages, OfTwoWhoChangeTheSameRowTheSecondChooses) {
  addOther("26-1");
  APermits& permits = open();
  typeInsurance(permits);
  at.click(permits, "iAddIns");
  at.click(permits, "iEditIns");
  at.set(permits, "TextIns(1)", "Mine");
  const auto theirs = insuranceNow();
  theirs->set("INSCO1", "Theirs");
  theirs->set("ICERT", "GL-9");
  ASSERT_TRUE(theirs->Update().ok());
  at.when("ConflictFrm", [&](Screen& question) { at.click(question, "cmdCancel"); });
  at.click(permits, "iSaveIns");
  EXPECT_EQ(at.shown(permits, "TextIns(1)"), "Mine");
  EXPECT_EQ(insuranceNow()->text("INSCO1"), "Theirs");
  at.when("ConflictFrm", [&](Screen& question) { at.click(question, "cmdOK"); });
  at.click(permits, "iSaveIns");
  EXPECT_EQ(insuranceNow()->text("INSCO1"), "Mine");
  EXPECT_EQ(insuranceNow()->text("ICERT"), "GL-9");
}

TEST_F(PermitPages, ATypedRowIsNotLeftUnasked) {
  addOther("26-1");
  APermits& permits = open();
  typeInsurance(permits);
  at.expect(" Building Permits",
            "An entry of this permit has not been stored yet.\nDo you want to leave it and lose what you typed?",
            Answer::No);
  permits.userCloses();
  EXPECT_TRUE(at.screens.isOpen(permits));
  at.click(permits, "iCancelIns");
  permits.userCloses();
  EXPECT_FALSE(at.screens.isOpen(permits));
}

TEST_F(PermitPages, TheTypesAreThoseOfTheOfficesList) {
  ASSERT_TRUE(writeLines(path("pit.txt"), {"General Liability", "", " Disability "}).ok());
  const auto& types = dynamic_cast<Combo&>(at.control(open(), "ComboIns"));
  EXPECT_EQ(types.items, (std::vector<std::string>{"<select>", "General Liability", "Disability", "Exempt"}));
}

}  // namespace
}  // namespace zelvo::testing
