#include "console/console_commands.h"

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "base/text.h"
#include "console/query_command.h"
#include "console/script_text.h"
#include "console/show_command.h"
#include "form/text_menu.h"

namespace zelvo {

namespace {

Error failure(std::string message) {
  return {Trouble::BadInput, std::move(message)};
}

Result<Screen*> frontScreen(const Desk& desk) {
  if (Screen* screen = desk.screens.front())
    return screen;
  return failure("no screen is open");
}

// Who forgets the index of a control array is told so.
Error noControl(const Screen& screen, std::string_view id) {
  for (const Control* control : screen.controls())
    if (control->name() == id)
      return failure(std::string(id) + " is one of several and needs its index, as " + control->id());
  return failure("the screen " + screen.name() + " has no control \"" + std::string(id) + "\"");
}

Result<Control*> controlOf(const Desk& desk, std::string_view id) {
  const auto screen = frontScreen(desk);
  if (!screen)
    return screen.error();
  if (id.empty())
    return failure("the name of a control is missing");
  if (Control* control = (*screen)->findById(id))
    return control;
  return noControl(**screen, id);
}

// The entries of the menu over text boxes are pressed by their names in every screen.
bool isOverText(const Desk& desk, std::string_view name) {
  const Screen* front = desk.screens.front();
  return front && isTextMenuEntry(name) && !front->findById(name);
}

// A click on a list has nothing to press; it opens the row that was chosen, as a double click does.
Result<void> click(Desk& desk, Conversation&, std::string_view rest) {
  if (isOverText(desk, trim(rest)))
    return desk.screens.front()->userPicksFromTextMenu(trim(rest));
  const auto control = controlOf(desk, trim(rest));
  if (!control)
    return control.error();
  Screen& screen = (*control)->screen();
  auto* list = dynamic_cast<ListView*>(*control);
  if (!list)
    return screen.userClicks(**control);
  if (!list->selected)
    return failure(list->id() + " has no chosen row to open");
  return screen.userOpensRow(*list, *list->selected);
}

Result<void> set(Desk& desk, Conversation&, std::string_view rest) {
  const auto control = controlOf(desk, takeWord(rest));
  if (!control)
    return control.error();
  return (*control)->screen().userSets(**control, fromScript(rest));
}

Result<void> leave(Desk& desk, Conversation&, std::string_view rest) {
  const auto control = controlOf(desk, trim(rest));
  if (!control)
    return control.error();
  return (*control)->screen().userLeaves(**control);
}

Result<ListView*> listOf(Desk& desk, std::string_view id) {
  const auto control = controlOf(desk, id);
  if (!control)
    return control.error();
  if (auto* list = dynamic_cast<ListView*>(*control))
    return list;
  return failure((*control)->id() + " is no list with rows");
}

Result<void> choose(Desk& desk, Conversation&, std::string_view rest) {
  const auto list = listOf(desk, takeWord(rest));
  if (!list)
    return list.error();
  if (trim(rest).empty())
    return failure("the row to choose is missing");
  const auto row = (*list)->findRow(fromScript(rest));
  if (!row)
    return failure((*list)->id() + " has no row \"" + std::string(rest) + "\"");
  return (*list)->screen().userChooses(**list, *row);
}

Result<void> sort(Desk& desk, Conversation&, std::string_view rest) {
  const auto list = listOf(desk, takeWord(rest));
  if (!list)
    return list.error();
  const std::string wanted = fromScript(rest);
  const auto& columns = (*list)->columns;
  const auto found = std::find_if(columns.begin(), columns.end(), [&wanted](const ListColumn& column) {
    return alike(trim(column.caption), trim(wanted));
  });
  if (found == columns.end())
    return failure((*list)->id() + " has no column \"" + wanted + "\"");
  return (*list)->screen().userSorts(**list, static_cast<std::size_t>(found - columns.begin()));
}

Result<void> answer(Desk&, Conversation& talk, std::string_view rest) {
  if (trim(rest).empty())
    return failure("the answer is missing");
  talk.queueAnswer(fromScript(rest));
  return {};
}

Result<void> bringToFront(Desk& desk, Conversation&, std::string_view rest) {
  const std::string_view name = trim(rest);
  Screen* screen = desk.screens.find(name);
  if (!screen)
    return failure("no screen \"" + std::string(name) + "\" is open");
  if (!desk.screens.reachable(*screen))
    return failure("the screen " + screen->name() + " waits for another one to be closed");
  desk.screens.bringToFront(*screen);
  return {};
}

Result<void> listScreens(Desk& desk, Conversation& talk, std::string_view) {
  for (const Screen* screen : desk.screens.all())
    talk.say(screen->name());
  return {};
}

Result<void> closeFront(Desk& desk, Conversation&, std::string_view) {
  const auto screen = frontScreen(desk);
  if (!screen)
    return screen.error();
  (*screen)->userCloses();
  return {};
}

Result<void> help(Desk& desk, Conversation&, std::string_view) {
  const auto screen = frontScreen(desk);
  if (!screen)
    return screen.error();
  (*screen)->userAsksForHelp();
  return {};
}

Result<void> show(Desk& desk, Conversation& talk, std::string_view rest) {
  const std::string_view id = trim(rest);
  if (id.empty()) {
    const auto screen = frontScreen(desk);
    return screen ? showScreen(**screen, talk), Result<void>() : screen.error();
  }
  const auto control = controlOf(desk, id);
  if (!control)
    return control.error();
  showControl(**control, talk);
  return {};
}

Result<void> query(Desk& desk, Conversation& talk, std::string_view rest) {
  const std::string_view file = takeWord(rest);
  return showQuery(desk.session.dataFolder, file, trim(rest), talk);
}

struct Command {
  std::string_view word;
  Result<void> (*carryOut)(Desk&, Conversation&, std::string_view rest);
  bool alone = false;  ///< nothing may stand behind it
};

constexpr Command kCommands[] = {{"click", click},
                                 {"set", set},
                                 {"leave", leave},
                                 {"choose", choose},
                                 {"sort", sort},
                                 {"answer", answer},
                                 {"screen", bringToFront},
                                 {"show", show},
                                 {"screens", listScreens, true},
                                 {"query", query},
                                 {"close", closeFront, true},
                                 {"help", help, true}};

Error unknownCommand(std::string_view word) {
  std::vector<std::string> words;
  for (const Command& command : kCommands)
    words.emplace_back(command.word);
  return failure("\"" + std::string(word) + "\" is no command; the commands are " + join(words, ", "));
}

Result<void> carryOutKnown(const Command& command, Desk& desk, Conversation& talk, std::string_view rest) {
  if (command.alone && !trim(rest).empty())
    return failure(std::string(command.word) + " stands alone on its line");
  return command.carryOut(desk, talk, rest);
}

}  // namespace

Result<void> carryOut(std::string_view command, Desk& desk, Conversation& talk) try {
  const std::string_view word = takeWord(command);
  const auto known = std::find_if(std::begin(kCommands), std::end(kCommands),
                                  [word](const Command& candidate) { return candidate.word == word; });
  if (known == std::end(kCommands))
    return unknownCommand(word);
  return carryOutKnown(*known, desk, talk, command);
} catch (const std::exception& trouble) {
  return Error{Trouble::Failed, trouble.what()};
}

}  // namespace zelvo
