#include "shell/first_run.h"

#include <filesystem>

#include "base/files.h"
#include "base/text.h"
#include "shell/new_office.h"

namespace zelvo {

FirstRun::FirstRun(Desk& itsDesk, std::string_view programFolder)
    : Screen(itsDesk, "FirstRun", "Zelvo  First Start"), programFolder_(programFolder) {
  Text1.tip = "As it is to stand on letters and reports";
  Text2.text = joinPath(programFolder_, "databases");
  Text2.tip = "Where the databases are kept; choose the shared folder if other computers of the office work already";
  Text3.tip = "User ID of the first administrator, who adds the other users";
  Text4.password = Text5.password = true;
  for (TextBox* box : {&Text1, &Text2, &Text3, &Text4, &Text5})
    box->required = true;
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  cmdCancel.tip = "End without writing anything";
  onClick(Command3, [this] { Command3_Click(); });
  onClick(cmdOK, [this] { cmdOK_Click(); });
  onClick(cmdCancel, [this] { closeMe(); });
  setFocus(Text1);
}

void FirstRun::Command3_Click() {
  if (const auto chosen = desk.pickers.folder("Location of directory for databases:", Text2.text))
    Text2.text = *chosen;
  setFocus(Text2);
}

bool FirstRun::refuse(Control& box, std::string_view why) {
  desk.messages.tell(" Missing Information", why, Icon::Exclamation);
  setFocus(box, true);
  return true;
}

bool FirstRun::lacksSomething() {
  if (trim(Text1.text).empty())
    return refuse(Text1, "Please give the name of the municipality.");
  if (!std::filesystem::path(systemPath(trim(Text2.text))).is_absolute())
    return refuse(Text2, "Please give the whole path of the folder for the databases.");
  if (trim(Text3.text).empty())
    return refuse(Text3, "Please give a user ID for the first administrator.");
  if (trim(Text4.text).empty())
    return refuse(Text4, "Please give a password for the first administrator.");
  if (Text4.text != Text5.text)
    return refuse(Text5, "The two passwords are not the same. Please type the password again.");
  return false;
}

void FirstRun::cmdOK_Click() {
  if (lacksSomething())
    return;
  desk.face.busy(true);
  const auto made = beginOffice(programFolder_, {Text1.text, Text2.text, Text3.text, Text4.text});
  desk.face.busy(false);
  if (!made)
    return desk.messages.tell(" Not started",
                              made.error().message + "\n\nNothing was written. Please mend this and try again.",
                              Icon::Exclamation);
  begun_ = true;
  closeMe();
}

}  // namespace zelvo
