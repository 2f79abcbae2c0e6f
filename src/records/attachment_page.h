#pragma once

#include <functional>
#include <string>
#include <vector>

#include "form/desk.h"
#include "form/screen.h"
#include "records/attachments.h"

namespace zelvo {

/// The page of a record screen that shows the documents or the pictures of the record: a list of them, the picture that
/// is chosen, and the means to attach another. Its controls belong to the screen; the screen binds their clicks.
class AttachmentPage {
 public:
  /// `documents`: which files are offered to be attached, "Files (*.pdf)|*.pdf|All Files|*.*".
  AttachmentPage(Screen& screen, Desk& desk, std::string_view code, std::string_view documents);

  /// The files of the record with that key; of none when it is empty.
  void show(std::string_view key);
  void showKind(AttachmentKind kind);
  void loadp_Click();
  /// Attaches files by what they are, pictures and documents alike, and shows the last; tells of all that could not be
  /// attached.
  void drop(const std::vector<std::string>& files);
  /// What the chosen file shows, as the user says it.
  void saveCaption();
  void NextDoc();
  void PrevDoc();
  void choose();  ///< the row that the list has selected
  void open();
  void enable(bool onRecord);

  Option IDoc, IPic;
  Button loadp, prevfile, nextFile, openFile;
  ListView ListView2;
  Label lblFile;
  TextBox txtCaption;
  Label picFile;

 private:
  void list();
  void showRows();
  bool attach(AttachmentKind kind, const std::string& source);
  void showAttached(AttachmentKind kind);
  void select(std::size_t row);
  AttachmentKind kind() const { return IPic.chosen ? AttachmentKind::Picture : AttachmentKind::Document; }

  Desk& desk_;
  Attachments files_;
  std::string documents_;
  std::string key_;
  std::vector<std::string> names_;
};

}  // namespace zelvo
