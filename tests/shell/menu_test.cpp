#include <gtest/gtest.h>

#include <set>

#include "data/recordset.h"
#include "shell/help/help.h"
#include "shell/menu_frm.h"
#include "shell/record_openings.h"
#include "shell/shell_screens.h"
#include "shell/users.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

class MainMenu : public ::testing::Test {
 protected:
  MainMenu() {
    learnShellScreens(desk.screens);
    desk.session.programFolder = folder.file("program");
    desk.session.dataFolder = folder.file("data");
    std::filesystem::create_directories(desk.session.programFolder);
    std::filesystem::create_directories(desk.session.dataFolder);
    desk.session.defaultBrowser = "/bin/true ";
    desk.session.defaultBrowserFound = true;
  }
  MenuFrm& menu() { return dynamic_cast<MenuFrm&>(*desk.screens.open("MenuFrm")); }
  /// A stand-in for a screen of another room.
  void learn(std::string_view name) {
    desk.screens.learn(name, [name](Desk& its) { return std::make_unique<Screen>(its, name, name); });
  }

  TempFolder folder;
  testing::ScriptedDesk desk;
};

TEST_F(MainMenu, fitsTheUserAndTheComputersPart) {
  learn("PrefFrm");
  for (const char* entry : {"defaults", "dosbl", "syncSBL", "restore"})
    EXPECT_FALSE(menu().userClicks(desk.control(menu(), entry)).ok()) << entry;
  EXPECT_EQ(desk.shown(menu(), "hittheroad"), "Homebound..");
  EXPECT_EQ(desk.shown(menu(), "remotein"), "Read from Master..");
  desk.screens.close(menu());
  desk.session.administrator = desk.session.masterComputer = true;
  EXPECT_EQ(desk.shown(menu(), "hittheroad"), "Hit the Road..");
  EXPECT_EQ(desk.shown(menu(), "remotein"), "Collect from Field..");
  desk.click(menu(), "defaults");
  EXPECT_EQ(desk.screens.front()->name(), "PrefFrm");
}

TEST_F(MainMenu, everyRecordScreenStartsOnItsOwnTable) {
  const std::pair<std::string_view, std::string_view> clicks[] = {
      {"permits", "APermits"},       {"permitsz", "ZPermits"},   {"inspections", "BInspections"},
      {"affidavits", "CAffidavits"}, {"certs", "CCertificates"}, {"violations", "CViolations"},
      {"Image9", "FInspections"},    {"Image1", "APermits"},     {"zopermits", "ZPermits"}};
  for (const auto& [control, screen] : clicks) {
    learn(screen);
    desk.click(menu(), control);
    EXPECT_EQ(desk.screens.front()->name(), screen) << control;
  }
  for (const RecordOpening& opening : recordOpenings()) {
    const CurrentQuery& query = desk.session.queryFor(opening.slot);
    EXPECT_NE(query.connection.find(opening.file), std::string::npos) << opening.screen;
    auto connection = Connection::open(query.connection);
    ASSERT_TRUE(connection) << opening.screen << ": " << connection.error().message;
    EXPECT_TRUE(Recordset::open(*connection, query.query)) << opening.screen;
  }
  desk.session.queryFor(QuerySlot::Permits).query = "a search";
  desk.click(menu(), "permits");
  EXPECT_EQ(desk.session.queryFor(QuerySlot::Permits).query, "a search") << "an open screen keeps it";
}

TEST_F(MainMenu, saysWhatItCannotDo) {
  desk.session.administrator = true;
  std::string tool = folder.file("program/converter.exe");
  desk.expect("Zelvo", "\"Violations\" is not part of this program yet.");
  desk.click(menu(), "violations");
  desk.expect("Zelvo", "\"Homebound\" is not part of this program yet.");
  desk.click(menu(), "hittheroad");
  desk.expect("Zelvo", "The program " + tool + " is not there. ...");
  desk.click(menu(), "convert");
  desk.expect("Zelvo", "The file " + folder.file("program/contact.htm") + " is not there. ...");
  desk.click(menu(), "contact");
  learn("APermits");
  std::filesystem::remove_all(folder.file("data"));
  folder.write("data", "a file where the folder should be");
  bool asked = false;
  desk.when("noDbfound", [&](Screen& search) {
    asked = true;
    desk.click(search, "Command2");
  });
  desk.click(menu(), "permits");
  EXPECT_TRUE(asked && desk.screens.find("APermits") == nullptr);

  folder.write("program/converter.exe", "x");
  folder.write("program/Contact.htm", "x");
  desk.click(menu(), "convert");
  desk.click(menu(), "contact");
  EXPECT_EQ(desk.started, (std::vector<std::string>{"\"" + tool + "\"",
                                                    "\"/bin/true\" \"" + folder.file("program/Contact.htm") + "\""}));
}

TEST_F(MainMenu, everyEntryDoesSomethingOrSaysWhyNot) {
  desk.session.administrator = desk.session.masterComputer = true;
  MenuFrm& main = menu();
  std::vector<std::string> entries;
  for (const Control* control : main.controls()) {
    const auto* entry = dynamic_cast<const MenuEntry*>(control);
    const bool picture = control->kind() == ControlKind::Button;
    if (picture || (entry && entry->caption != "-" && entry->name() != "Quit"))
      entries.push_back(control->id());
  }
  ASSERT_GT(entries.size(), 35u);
  int told = 0;
  desk.answers = [&](const MessageBox& box) {
    ++told;
    EXPECT_FALSE(box.text.empty());
    return presetOf(box);
  };
  for (const char* screen : {"coordsfrm", "UserEdit", "restorefrm"})
    desk.when(screen, [](Screen& itself) { itself.userCloses(); });
  for (const std::string& entry : entries) {
    const std::size_t before = desk.came.size() + desk.started.size() + static_cast<std::size_t>(told);
    desk.click(main, entry);
    EXPECT_TRUE(desk.came.size() + desk.started.size() + static_cast<std::size_t>(told) > before ||
                entry == "changepsw" || entry == "backupto")
        << entry << " does nothing at all";
    EXPECT_FALSE(desk.desk.ended()) << entry;
  }
}

TEST_F(MainMenu, helpShowsThePageOfTheScreen) {
  const std::string help = folder.file("program/help");
  EXPECT_EQ(helpPageOf("MenuFrm"), "MenuFrm.html");
  EXPECT_EQ(helpPageOf("restorefrm"), "backup.html");
  EXPECT_EQ(helpPageOf("nobody's"), "index.html");
  desk.click(menu(), "dohelp");
  desk.screens.open("PswFrm")->userAsksForHelp();
  ASSERT_EQ(desk.started.size(), 2u);
  EXPECT_EQ(desk.started[0], "\"/bin/true\" \"" + help + "/index.html\"");
  EXPECT_EQ(desk.started[1], "\"/bin/true\" \"" + help + "/PswFrm.html\"");
  folder.write("program/help/index.html", "the page of an earlier program");
  desk.click(menu(), "dohelp");
  EXPECT_NE(folder.read("program/help/index.html").find("<html"), std::string::npos);

  std::filesystem::remove_all(help);
  folder.write("program/help", "a file in its place");
  desk.temporary = folder.file("elsewhere");
  desk.click(menu(), "dohelp");
  EXPECT_EQ(desk.started.back(), "\"/bin/true\" \"" + folder.file("elsewhere/zelvo-help/index.html") + "\"");
  desk.session.defaultBrowserFound = false;
  desk.expect("Zelvo", "The help is shown in a web browser, and none was found on this computer. ...");
  menu().userAsksForHelp();
  EXPECT_FALSE(desk.desk.ended()) << "what is being typed must not be lost for want of a browser";
}

// A page that leads nowhere, or tells of a picture that is not there, is worse than none.
TEST_F(MainMenu, helpPagesLeadToOneAnother) {
  std::set<std::string_view> names, reached = {"index.html"};
  for (const HelpPage& page : helpPages())
    names.insert(page.name);
  for (const HelpPage& page : helpPages())
    for (const std::string_view mark : {"href=\"", "src=\""})
      for (std::size_t at = page.text.find(mark); at != page.text.npos; at = page.text.find(mark, at)) {
        at += mark.size();
        const auto target = page.text.substr(at, page.text.find('"', at) - at);
        const auto file = target.substr(0, target.find('#'));
        EXPECT_TRUE(file.empty() || names.contains(file)) << page.name << " leads to " << target;
        reached.insert(file);
      }
  for (const std::string_view name : names)
    EXPECT_TRUE(reached.contains(name)) << name << " is led to from nowhere";
  for (const HelpPage& page : helpPages())
    EXPECT_TRUE(page.name == "help.css" || page.text.find("help.css") != page.text.npos) << page.name;
}

TEST_F(MainMenu, mapTakesPlainDegreesOnly) {
  desk.when("coordsfrm", [this](Screen& place) {
    const std::pair<std::string_view, std::string_view> refused[] = {
        {"", "-74"}, {"41", ""}, {"91", "0"}, {"41", "-180.5"}, {"41 30", "0"}, {"4e1", "0"}, {"41;rm", "0"}};
    for (const auto& [latitude, longitude] : refused) {
      desk.set(place, "Text1", latitude);
      desk.set(place, "Text2", longitude);
      desk.expect(" Coordinates", "Please give the ...");
      desk.click(place, "cmdOK");
      ASSERT_TRUE(desk.screens.isOpen(place)) << latitude << " " << longitude;
    }
    desk.set(place, "Text1", " 41.50 ");
    desk.set(place, "Text2", "-74.0104");
    desk.click(place, "cmdOK");
  });
  desk.click(menu(), "maplookup");
  ASSERT_EQ(desk.started.size(), 1u);
  EXPECT_TRUE(desk.started[0].starts_with("\"/bin/true\" http")) << desk.started[0];
  EXPECT_TRUE(desk.started[0].ends_with("/gps.htm?txtLat=41.50&txtLong=-74.0104&txtZoom=17")) << desk.started[0];
  desk.when("coordsfrm", [this](Screen& place) { desk.click(place, "cmdCancel"); });
  desk.click(menu(), "Image6");
  EXPECT_EQ(desk.started.size(), 1u);
}

TEST_F(MainMenu, ownPasswordIsStoredAtOnceWithoutNewRights) {
  desk.session.users = {scrambled(User{"Boss", "x", "ADMIN"}), scrambled(User{"Smith", "Abc", "SUPERVISOR"})};
  desk.session.userSlot = 2;
  desk.session.rights = "SUPERVISOR";
  desk.when("UserEdit", [this](Screen& edit) {
    EXPECT_EQ(desk.shown(edit, "Text1"), "SMITH");
    EXPECT_FALSE(edit.userSets(desk.control(edit, "Combo1"), "ADMIN").ok());
    desk.set(edit, "Text2", "   ");
    desk.expect(" Missing user password", "You must assign an initial password for the user to log on.");
    desk.click(edit, "Command1");
    desk.set(edit, "Text2", "new");
    desk.click(edit, "Command1");
  });
  desk.click(menu(), "changepsw");
  Session read;
  read.programFolder = desk.session.programFolder;
  ASSERT_TRUE(readUsers(read));
  EXPECT_EQ(scrambled(read.users[1].password), "new");
  EXPECT_EQ(scrambled(read.users[1].access), "SUPERVISOR");
  EXPECT_EQ(scrambled(read.users[0].name), "Boss");

  desk.when("UserEdit", [this](Screen& edit) {
    desk.set(edit, "Text2", "unwritten");
    desk.click(edit, "Command1");
  });
  std::filesystem::remove_all(folder.file("program"));
  desk.expect(" Edit User", "...");
  desk.click(menu(), "changepsw");
  EXPECT_EQ(scrambled(desk.session.users[1].password), "new") << "what cannot be stored does not hold";
}

TEST_F(MainMenu, nobodyIsLockedOutByChangingTheOwnUser) {
  desk.session.users = {scrambled(User{"Boss", "x", "ADMIN"}), scrambled(User{"Smith", "Abc", "USER"})};
  desk.session.userSlot = 1;
  desk.session.rights = "ADMIN";
  desk.when("UserEdit", [this](Screen& edit) {
    desk.set(edit, "Text1", "smith");
    desk.expect(" Edit User", "There is another user with this user ID. Please choose a different one.");
    desk.click(edit, "Command1");
    desk.set(edit, "Text1", "Chief");
    desk.set(edit, "Combo1", "USER");
    desk.expect(" Edit User", "This is the only administrator. Please make another user one first.");
    desk.click(edit, "Command1");
    desk.set(edit, "Combo1", "ADMIN");
    desk.click(edit, "Command1");
  });
  desk.click(menu(), "changepsw");
  EXPECT_EQ(scrambled(desk.session.users[0].name), "Chief");
}

/// A record screen whose user is not done yet.
class Unsaved : public Screen {
 public:
  explicit Unsaved(Desk& its) : Screen(its, "Unsaved", "") {}
  bool done = false;
  void Form_Close() override {
    if (done)
      closeMe();
  }
};

TEST_F(MainMenu, quitClosesAllScreensUnlessOneStays) {
  desk.session.screenChanged = desk.displaySwitched = true;
  desk.session.masterComputer = true;
  desk.session.backupOption = 2;
  desk.screens.learn("Unsaved", [](Desk& its) { return std::make_unique<Unsaved>(its); });
  MenuFrm& main = menu();
  auto& unsaved = dynamic_cast<Unsaved&>(*desk.screens.open("Unsaved"));
  main.userCloses();
  EXPECT_FALSE(desk.desk.ended());
  EXPECT_TRUE(desk.screens.isOpen(main) && desk.displaySwitched);
  unsaved.done = true;
  desk.click(main, "Quit");
  EXPECT_EQ(desk.session.ended, "quit");
  EXPECT_TRUE(desk.screens.all().empty());
  EXPECT_FALSE(desk.displaySwitched);
}

}  // namespace
}  // namespace zelvo
