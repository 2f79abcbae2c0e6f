#pragma once

#include <string>
#include <string_view>

#include "form/desk.h"
#include "form/screen.h"

namespace zelvo {

struct Table;

/// Lets the user find a database that is not where it should be. A file that is none, or lacks the table, is refused.
/// What is picked holds for the rest of the run: its folder becomes the data folder, and the database keeps the
/// connection text of the file. Cancel leaves everything as it was.
class noDbfound : public Screen {
 public:
  /// `path` is where it should be.
  noDbfound(Desk& desk, const Table& table, std::string_view path);

  void Command1_Click();
  bool located() const { return located_; }

 private:
  bool refuse(std::string_view path);

  Label Label1{*this, "Label1"};
  Label Label2{*this, "Label2"};
  Button Command1{*this, "Command1", "Let me find it "};
  Button Command2{*this, "Command2", " Cancel"};

  const Table& table_;
  bool located_ = false;
};

/// The connection text of a database by the name of its file ("db1.mdb"): of the file that the user located, else of
/// the one in the data folder, which is made from its blank when it is missing. Where that cannot be done either, the
/// user is asked to locate it; Trouble::Cancelled when he gives it up.
Result<std::string> databaseConnection(Desk& desk, std::string_view file);
/// The same without asking: an error where the user would have to locate it.
Result<std::string> reachableConnection(const Session& session, std::string_view file);

}  // namespace zelvo
