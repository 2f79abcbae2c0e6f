// The searching half of the record pattern: by example, and the record that another screen asks for.

#include <cctype>

#include "data/query_text.h"
#include "records/record_screen.h"
#include "records/search_by_example.h"

namespace zelvo {

// ---- by example

void RecordScreen::ILocate_Click() {
  if (mode_ == Mode::Search)
    find();
  else
    beginSearch();
}

void RecordScreen::beginSearch() {
  returnTo_ = records().bookmark();
  clearPage();
  clearWarnings();
  lblStatus.caption = "Search";
  SSTab1.current = kRecordPage;
  enter(Mode::Search);
  showStatus("Please enter data to look for, then press Find. % stands for any text, _ for any letter.");
  setFocus(Text1(1));
}

void RecordScreen::find() {
  picks.fillBoxes();
  tidyBoxes();
  if (findElsewhere())
    return;
  const auto own = ownSearchClauses();
  if (!own)
    return;
  const std::string clauses = exampleClauses(*this, records().table(), kind_.soughtWhole) + ownBoxes.clauses() + *own;
  if (clauses.empty())
    return desk.messages.tell(" " + caption, "Please fill in at least one box with what you look for.");
  const std::string before = query_.current().query;
  list_.forgetArrangement();
  query_.showMatching(clauses);
  if (const auto read = readRecords(); !read) {
    query_.show(before);
    return desk.messages.tell(" " + caption, read.error().message, Icon::Exclamation);
  }
  if (dbisempty()) {
    desk.messages.tell(" Record not Found",
                       "Unable to locate a matching record.\nPlease check info for accuracy and try again.",
                       Icon::Critical);
    return iReset_Click();
  }
  browse();
}

void RecordScreen::iReset_Click() {
  showRecords("");
  browse();
}

void RecordScreen::browse() {
  showStatus("");
  enter(Mode::Browse);
}

// ---- the record that another screen asks for

void RecordScreen::followHop() {
  const std::string wanted = std::exchange(desk.session.hop, "");
  if (!mayLeaveUnsaved())
    return;
  if (mode_ != Mode::Browse)
    ICancel_Click();
  showHopped(wanted);
  refreshRecord();
}

bool RecordScreen::goToKey(std::string_view wanted) {
  records().MoveFirst();
  const auto found = records().Find(columnIs(records().table().key, wanted));
  return found && *found;
}

void RecordScreen::showHopped(std::string_view wanted) {
  if (goToKey(wanted))
    return;
  std::string noun(kind_.noun);
  noun.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(noun.front())));
  desk.messages.tell(" Record(s) not Found",
                     noun + " " + std::string(wanted) + " to hop, is not found.\nEntire recordset will be displayed.",
                     Icon::Exclamation);
  query_.showWholeTable();
  readRecordsOrThrow();
}

}  // namespace zelvo
