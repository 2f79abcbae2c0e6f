#include "console/console.h"

#include <gtest/gtest.h>

#include <sstream>

#include "base/text.h"
#include "counter_screens.h"
#include "support/temp_folder.h"

namespace zelvo::testing {
namespace {

void startCounter(Desk& desk) {
  desk.screens.learn("Counter", [](Desk& its) { return std::make_unique<Counter>(its); });
  desk.screens.learn("Journal", [](Desk& its) { return std::make_unique<Journal>(its); });
  desk.screens.learn("Owner", [](Desk& its) { return std::make_unique<Owner>(its); });
  desk.screens.open("Counter");
}

struct Outcome {
  int exit = 0;
  std::string out, trouble;
};

Outcome runScript(const std::string& script, const std::string& folder, std::optional<DateTime> now = {}) {
  std::istringstream in(script);
  std::ostringstream out, trouble;
  const int exit = Console({folder, now, "", false}, in, out, trouble).run(startCounter);
  return {exit, replaceAll(out.str(), folder, "FOLDER"), trouble.str()};
}

struct Talk {
  std::string name, script, says;
};

void holds(const Talk& talk) {
  SCOPED_TRACE(talk.name);
  const TempFolder folder;
  const Outcome outcome = runScript(talk.script, folder.path());
  EXPECT_EQ(outcome.out, "screen: Counter\n" + talk.says);
  EXPECT_EQ(outcome.trouble, "");
  EXPECT_EQ(outcome.exit, 0);
}

TEST(Console, CarriesOutWhatAUserDoes) {
  const Talk talks[] = {
      {"an empty script", "", ""},
      {"comments, blanks, CR LF and a mark at the start",
       "\xEF\xBB\xBF# morning\r\n\r\n   \n  # more\n  set Text1(18) Smith\r\nshow Text1(18)", "Text1(18) = Smith\n"},
      {"a value keeps its blanks", "set  Text1(18)   a  b \nshow Text1(18)\nset Text1(18)\nshow Text1(18)\n",
       "Text1(18) =   a  b \nText1(18) = \n"},
      {"line breaks and backslashes", "set Notes a\\nb\\\\n\\x\nshow Notes\n", "Notes = a\\nb\\\\n\\\\x\n"},
      {"a script in an old code page", "set Text1(18) Caf\xE9\nshow Text1(18)\n", "Text1(18) = Caf\xC3\xA9\n"},
      {"a check box by value and by click", "set Check1 1\nclick Check1\nshow Check1\n",
       "status: Paid\nstatus: Due\nCheck1 = 0\n"},
      {"options of a group", "set Option1(1) 1\nclick Option1(2)\nshow Option1(1)\nshow Option1(2)\n",
       "Option1(1) = 0\nOption1(2) = 1\n"},
      {"a combo and a date", "set Combo1 pool\nset DTFiled 3/9/2026\nshow Combo1\nshow DTFiled\n",
       "Combo1 = Pool\nDTFiled = 03/09/2026\n"},
      {"leaving a box", "set Text1(18) Lee\nleave Text1(18)\n", "status: Left Lee\n"},
      {"rows by number and by text", "choose ListView1 2\nchoose ListView1 25-7\nclick ListView1\n",
       "status: Row 2\nstatus: Row 1\nstatus: Opened row 1\n"},
      {"a list", "show ListView1\n", "ListView1: 2 rows, 2 columns\n25-7 | Smith, John\n25-9 | O'Brien\\nand Son\n"},
      {"what is seen and not empty", "set Text1(18) Lee\nshow\n",
       "MFile = &File\nMQuit = &Quit\nMAdmin = &Admin\nMUsers = &Users\nText1(18) = Lee\nCheck1 = 0\nOption1(1) = 0\n"
       "Option1(2) = 0\nListView1: 2 rows, 2 columns\n25-7 | Smith, John\n25-9 | O'Brien\\nand Son\nIAdd = &Add\n"
       "IAsk = As&k\nIPrint = &Print\nIPrinter = Printer\nIOpen = Open\nISave = Save\nIMap = Map\nIOwner = Owner\n"
       "IJournal = Journal\nITime = Time\n"},
      {"screens beside one another",
       "click IJournal\nscreens\nscreen Counter\nscreens\nscreen Journal\nclose\nscreens\n",
       "screen: Journal\nJournal\nCounter\nscreen: Counter\nCounter\nJournal\nscreen: Journal\nscreen: Counter\n"
       "Counter\n"},
      {"a modal screen", "click IOwner\nscreens\nclick IClose\nset Text1(18) x\n",
       "screen: Owner\nOwner\nCounter\nscreen: Counter\nmessage: [Counter] The owner is told. {OK} -> OK (default)\n"},
      {"a script that ends within a modal screen", "click IOwner\nset Text1 Lee\n", "screen: Owner\n"},
      {"a screen closed by a handler that goes on",
       "click IJournal\nclose\nclick IJournal\nset Text1 kept\nclick IHandOver\nshow Text1\nclose\n",
       "screen: Journal\nscreen: Counter\nscreen: Journal\nscreen: Counter\nscreen: Owner\nText1 = \nscreen: Counter\n"
       "message: [Journal] kept, journals: 1 {OK} -> OK (default)\n"},
      {"the program quits", "click MQuit\nclick IAsk\n", "ended: quit\n"},
      {"the last screen is closed", "close\nclick IAsk\n", "ended: no screen is open\n"},
  };
  for (const Talk& talk : talks)
    holds(talk);
}

TEST(Console, PlaysTheOutsideWorld) {
  const Talk talks[] = {
      {"a message", "answer ok\nclick IAdd\n",
       "message: [ Missing Information] Missing: --Owner\\n\\nPlease ensure required\\nfields are filled in. {OK} -> "
       "OK\n"},
      {"a question, by default and answered in turn", "answer No\nanswer yes \nclick IAsk\nclick IAsk\nclick IAsk\n",
       "message: [Parcel] Add it? {Yes, No} -> No\nstatus: Parcel left out\n"
       "message: [Parcel] Add it? {Yes, No} -> Yes\nstatus: Parcel added\n"
       "message: [Parcel] Add it? {Yes, No} -> Yes (default)\n"},
      {"a handler that fails", "set Text1(18) Lee\nclick IAdd\n",
       "message: [ Counter] This could not be finished:\\n\\nThe disk is full.\\n\\nWhat you typed is still on the "
       "screen. {OK} -> OK (default)\n"},
      {"a picker", "click IOpen\nanswer Cancel\nclick IOpen\nanswer /x/plan.pdf\nclick IOpen\nshow Text1(19)\n",
       "picker: [Attach] -> Cancel (default)\npicker: [Attach] -> Cancel\npicker: [Attach] -> /x/plan.pdf\n"
       "Text1(19) = /x/plan.pdf\n"},
      {"a name in the folder of the picker, and what it proposes",
       "answer plan.pdf\nanswer OK\nclick IOpen\nclick ISave\n",
       "picker: [Attach] -> /docs/plan.pdf\npicker: [Backup] -> /backup/monday.zip\n"},
      {"the printer dialog", "click IPrinter\nanswer Laser\nanswer Cancel\nclick IPrinter\nclick IPrinter\n",
       "picker: [Print] -> OK (default)\nstatus: Goes\npicker: [Print] -> Laser\npicker: [Print] -> Cancel\n"
       "status: Given up\n"},
      {"documents to the printer", "click IPrint\nclick IPrint\n",
       "printed: Building Permit -> FOLDER/printed/0001.rtf\nprinted: Building Permit -> FOLDER/printed/0002.rtf\n"},
      {"a document for the desktop", "click IMap\n", "opened: \"/bin/see\" \"C:\\\\map.htm\"\n"},
  };
  for (const Talk& talk : talks)
    holds(talk);
}

TEST(Console, StopsAtACommandThatCannotBeCarriedOut) {
  const Talk talks[] = {
      {"no command", "press IAdd",
       "\"press\" is no command; the commands are click, set, leave, choose, sort, "
       "answer, screen, show, screens, query, close, help"},
      {"no such control", "click IVoid", "the screen Counter has no control \"IVoid\""},
      {"two names", "click IAdd IAsk", "the screen Counter has no control \"IAdd IAsk\""},
      {"no name", "set", "the name of a control is missing"},
      {"an array without its index", "set Text1 x", "Text1 is one of several and needs its index, as Text1(18)"},
      {"an entry of a disabled menu", "click MUsers", "MUsers is disabled at the moment"},
      {"a hidden box", "set Secret x", "Secret is not shown at the moment"},
      {"nothing to click", "click Notes", "Notes is nothing to click on"},
      {"nothing to type into", "set IAdd x", "IAdd cannot take \"x\": nothing can be typed into it."},
      {"a check box without a value", "set Check1", "Check1 cannot take \"\": it is ticked with 1 and cleared with 0."},
      {"two lines in a box of one", "set Text1(18) a\\nb", "Text1(18) cannot take \"a\\nb\": it holds one line."},
      {"no day of the calendar", "set DTFiled 2/30/2026",
       "DTFiled cannot take \"2/30/2026\": a date is written mm/dd/yyyy, or 3/9, 030926, t for "
       "today, +7 or -3."},
      {"not in the list of the combo", "set Combo1 Barn", "Combo1 cannot take \"Barn\": it is not in its list."},
      {"no such row", "choose ListView1 3", "ListView1 has no row \"3\""},
      {"no row given", "choose ListView1", "the row to choose is missing"},
      {"no list", "choose Text1(18) 1", "Text1(18) is no list with rows"},
      {"no row chosen yet", "click ListView1", "ListView1 has no chosen row to open"},
      {"no such screen", "screen Journal", "no screen \"Journal\" is open"},
      {"too many words", "close Counter", "close stands alone on its line"},
      {"no answer", "answer  ", "the answer is missing"},
      {"no query", "query db1.mdb",
       "query needs a database file and a query, as: query db1.mdb Select * from BLDGPERM"},
      {"a file elsewhere", "query ../db1.mdb Select", "\"../db1.mdb\" is no file name of the data folder"},
      {"no data folder", "query db1.mdb Select * from BLDGPERM", "the data folder is not known yet"},
  };
  for (const Talk& talk : talks) {
    SCOPED_TRACE(talk.name);
    const TempFolder folder;
    const Outcome outcome = runScript("# one\n" + talk.script + "\nclick IAsk\n", folder.path());
    EXPECT_EQ(outcome.trouble, "error: line 2: " + talk.says + "\n");
    EXPECT_EQ(outcome.out, "screen: Counter\n" + outcome.trouble);
    EXPECT_EQ(outcome.exit, 1);
  }
}

TEST(Console, LeavesAScreenAloneThatWaitsForAnother) {
  const TempFolder folder;
  const Outcome outcome = runScript("click IOwner\nscreen Counter\n", folder.path());
  EXPECT_EQ(outcome.trouble, "error: line 2: the screen Counter waits for another one to be closed\n");
  EXPECT_EQ(outcome.out, "screen: Counter\nscreen: Owner\n" + outcome.trouble);
}

// The handler that asked runs to its end: unheard, and told No rather than the Yes that would store something.
TEST(Console, BeginsNothingOnAnAnswerThatFitsNoButton) {
  const TempFolder folder;
  const Outcome outcome = runScript("answer Perhaps\nclick IAsk\nclick IPrint\n", folder.path());
  EXPECT_EQ(outcome.trouble,
            "error: line 2: the answer \"Perhaps\" fits no button of the message [Parcel] Add it? {Yes, No}\n");
  EXPECT_EQ(outcome.out, "screen: Counter\n" + outcome.trouble);
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_EQ(folder.read("parcel.txt"), "left out");
  const Outcome picked = runScript("answer Yes\nclick IOpen\n", folder.path());
  EXPECT_EQ(picked.trouble, "error: line 2: the answer \"Yes\" is no path for the picker [Attach]\n");
}

TEST(Console, PrintsByteByByteBehindWhatIsThere) {
  const TempFolder folder;
  folder.write("printed/0041.RTF", "an old letter");
  folder.write("printed/draft.rtf", "not ours");
  EXPECT_EQ(runScript("click IPrint\n", folder.path()).out,
            "screen: Counter\nprinted: Building Permit -> FOLDER/printed/0042.rtf\n");
  EXPECT_EQ(folder.read("printed/0042.rtf"), "{\\rtf1 Permit\r\n1}");
  EXPECT_EQ(folder.read("printed/0041.RTF"), "an old letter");
}

TEST(Console, TellsTheUserOfAPrintFolderThatCannotBeMade) {
  const TempFolder folder;
  folder.write("printed", "a file in its place");
  const Outcome outcome = runScript("click IPrint\n", folder.path());
  EXPECT_EQ(outcome.out.find("screen: Counter\nmessage: [Print] "), 0u) << outcome.out;
  EXPECT_EQ(outcome.exit, 0);
}

TEST(Console, KeepsTheTimeItWasGiven) {
  const TempFolder folder;
  const DateTime now{{2026, 3, 9}, 10 * 3600 + 15 * 60};
  EXPECT_EQ(runScript("click ITime\nshow Text1(19)\n", folder.path(), now).out,
            "screen: Counter\nText1(19) = 03/09/2026 10:15\n");
}

TEST(Console, FailsWhenTheProgramCannotStart) {
  const TempFolder folder;
  std::istringstream in("screens\n");
  std::ostringstream out, trouble;
  Console console({folder.path(), {}, "", false}, in, out, trouble);
  EXPECT_EQ(console.run([](Desk&) { throw std::runtime_error("Zelvo.ini cannot be read."); }), 1);
  EXPECT_EQ(out.str(), "error: line 0: Zelvo.ini cannot be read.\n");
}

TEST(Console, NamesAProgramForEveryDocument) {
  Session session;
  std::istringstream in;
  std::ostringstream out;
  Conversation talk(session, in, out, out);
  EXPECT_TRUE(FileExists(ConsoleDesktop(talk).programFor("plan.pdf").value_or("")));
}

}  // namespace
}  // namespace zelvo::testing
