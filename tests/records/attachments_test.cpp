#include <gtest/gtest.h>

#include "permit_office.h"
#include "records/attachments.h"

namespace zelvo::testing {
namespace {

class AttachedFiles : public PermitOffice {
 protected:
  /// A file on the clerk's own computer.
  std::string onDesk(std::string_view name, std::string_view bytes) {
    const std::string file = folder.file(name);
    EXPECT_TRUE(replaceFile(file, bytes).ok());
    return file;
  }

  Attachments files{at.session.dataFolder, "01"};
};

TEST_F(AttachedFiles, FilesGetTheRecordsNameAndTheFirstFreeNumber) {
  using enum AttachmentKind;
  const std::string photo = onDesk("IMG 4711.JPG", "photo"), plan = onDesk("plan.v2.pdf", "plan");
  EXPECT_EQ(*files.attach(Picture, "26-1", photo), "0126-1~1.JPG");
  EXPECT_EQ(*files.attach(Document, "26-1", plan), "0126-1~1.pdf");
  EXPECT_EQ(*files.attach(Document, "26-12", plan), "0126-12~1.pdf");
  for (int further = 2; further <= 11; ++further)
    EXPECT_EQ(*files.attach(Document, "26-1", plan), "0126-1~" + std::to_string(further) + ".pdf");
  EXPECT_EQ(files.names(Picture, "26-1"), std::vector<std::string>{"0126-1~1.JPG"});
  const auto documents = files.names(Document, "26-1");
  ASSERT_EQ(documents.size(), 11u);
  EXPECT_EQ(documents[1], "0126-1~2.pdf") << "in the order of their numbers, not of their letters";
  EXPECT_EQ(*readBytes(files.pathOf(Document, documents[10])), "plan");
  EXPECT_TRUE(files.names(Document, "").empty());
  EXPECT_EQ(*files.attach(Document, "26-2", onDesk("LICENSE", "no extension")), "0126-2~1");
  EXPECT_EQ(files.names(Document, "26-2"), std::vector<std::string>{"0126-2~1"});
}

TEST_F(AttachedFiles, WhatCannotBeCopiedLeavesNothing) {
  using enum AttachmentKind;
  EXPECT_EQ(files.attach(Document, "26-1", folder.file("gone.pdf")).error().trouble, Trouble::NotFound);
  EXPECT_EQ(*files.attach(Document, "26/1:a*", onDesk("note.txt", "n")), "0126_1_a_~1.txt");
  EXPECT_TRUE(files.names(Document, "26-1").empty());
}

TEST_F(AttachedFiles, ScreenStepsThroughTheFilesOfItsRecord) {
  addOther("26-1");
  addOther("26-2");
  APermits& permits = open();
  EXPECT_EQ(at.shown(permits, "lblFile"), "no files");
  EXPECT_FALSE(at.control(permits, "nextFile").enabled);
  for (const char* name : {"a.pdf", "b.doc"}) {
    at.pick(onDesk(name, name));
    at.expect(" File Added to Library", std::string(name) + " added to collection.");
    at.click(permits, "loadp");
  }
  EXPECT_EQ(at.shown(permits, "lblFile"), "File 2 of 2");
  at.click(permits, "nextFile");
  EXPECT_EQ(at.shown(permits, "lblFile"), "File 2 of 2");
  at.click(permits, "prevfile");
  EXPECT_EQ(at.shown(permits, "lblFile"), "File 1 of 2");

  at.click(permits, "IPic");
  at.pick(onDesk("house.jpg", "jpeg"));
  at.expect(" Image Added to Library", "Scanned image added to collection.");
  at.click(permits, "loadp");
  EXPECT_EQ(at.shown(permits, "picFile"), joinPath(at.session.dataFolder, "\\pics\\0126-1~1.jpg"));
  at.click(permits, "IMoveNext");
  EXPECT_EQ(at.shown(permits, "picFile"), "");
  at.click(permits, "loadp");  // the picker is cancelled
  EXPECT_EQ(at.shown(permits, "lblFile"), "no files");
}

TEST_F(AttachedFiles, PhotographsDroppedOntoARecordBelongToItAndCarryACaption) {
  addOther("26-1");
  APermits& permits = open();
  ASSERT_TRUE(permits.userDrops({onDesk("front.JPG", "1"), onDesk("plan.pdf", "2"), onDesk("back.png", "3")}).ok());
  EXPECT_EQ(at.shown(permits, "lblFile"), "File 2 of 2");
  at.set(permits, "txtCaption", " From the garden ");
  at.leave(permits, "txtCaption");
  const auto& shown = dynamic_cast<const ListView&>(at.control(permits, "ListView2"));
  EXPECT_EQ(shown.rows->cell(1, 0) + "|" + shown.rows->cell(1, 1), "0126-1~1.png|From the garden");
  EXPECT_EQ(shown.rows->picture(1), joinPath(at.session.dataFolder, "\\pics\\0126-1~1.png"));
  at.click(permits, "prevfile");
  EXPECT_EQ(at.shown(permits, "txtCaption"), "");
  at.click(permits, "IDoc");
  EXPECT_EQ(at.shown(permits, "lblFile"), "File 1 of 1");
  EXPECT_EQ(shown.rows->picture(0), "");

  at.click(permits, "IPic");
  at.set(permits, "txtCaption", "The gate");
  at.expect(" Attachments", "The file " + onDesk("lost.jpg", "") + " is empty. It was not attached.\nThe file " +
                                folder.path() + " cannot be read. Is it a file, and still there?");
  ASSERT_TRUE(permits.userDrops({folder.file("lost.jpg"), folder.path(), folder.file("back.png")}).ok());
  EXPECT_EQ(at.shown(permits, "lblFile"), "File 3 of 3") << "those that can be attached are";
  EXPECT_EQ(shown.rows->cell(0, 1), "The gate") << "also when the box was not left";

  at.click(permits, "IEdit");
  EXPECT_FALSE(permits.userDrops({folder.file("back.png")}).ok()) << "while it is changed";
  at.click(permits, "ICancel");
  at.click(permits, "iNewIns");
  EXPECT_FALSE(permits.userDrops({folder.file("back.png")}).ok()) << "while an insurance is typed";
}

TEST_F(AttachedFiles, NotesOfTheParcelAreReadAndRewritten) {
  ASSERT_TRUE(parcels.SBLAdd("12-0-0-3-45", "26-1", "Owner", "Dog in the yard", "1 Road").ok());
  addOther("26-1");
  auto row = permitsNow();
  row->set("SEC", "12"), row->set("BLK", "3"), row->set("LOT", "45");
  ASSERT_TRUE(row->Update().ok());
  APermits& permits = open();
  EXPECT_EQ(at.control(permits, "Text1(3)").tip, " This property had note-it notes ");
  at.when("NoteFrm", [&](Screen& notes) {
    EXPECT_EQ(at.shown(notes, "Text1"), "Dog in the yard");
    at.set(notes, "Text1", "Dog is gone");
    at.click(notes, "cmdSave");
  });
  at.click(permits, "iNote");
  EXPECT_EQ(look("sbl.mdb", "Select * from SBL")->text("NOTES"), "Dog is gone");
}

}  // namespace
}  // namespace zelvo::testing
