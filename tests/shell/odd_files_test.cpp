#include <gtest/gtest.h>

#include <random>

#include "shell/shell_screens.h"
#include "shell/start_up.h"
#include "shell/users.h"
#include "support/scripted_desk.h"
#include "support/temp_folder.h"

namespace zelvo {
namespace {

/// Start-up on a program and a data folder of which one file is not as it should be.
class OddFiles : public ::testing::Test {
 protected:
  OddFiles() { std::filesystem::create_directories(folder.file("tmp")); }

  void makeWholeOffice() {
    std::filesystem::remove_all(folder.file("program"));
    std::filesystem::remove_all(folder.file("town"));
    folder.write("program/Zelvo.ini", folder.file("town/data") +
                                          "\r\nAlder Glen\r\n1 Main St\r\n\r\nNY\r\n12009\r\n\r\n0\r\n1\r\n1\r\n255\r\n"
                                          "none\r\nState\r\nTown\r\n1\r\n" +
                                          folder.file("town/forms") + "\r\n");
    folder.write("program/def.txt", "x\r\n/backup\r\nhttp://a\r\nhttp://b\r\n");
    folder.write("program/browser.txt", "/usr/bin/browser\r\nT\r\n");
    folder.write("program/session.log", "*** GetBrowser\r\n");
    for (const char* left : {"Updater1.exe", "Updater.exe", "runonce.bat", "updated.fl"})
      folder.write("program/" + std::string(left), "left by the updater");
    ASSERT_TRUE(writeUsers(folder.file("program"), {scrambled(User{"Smith", "Abc", "ADMIN"})}));
    for (const char* seed : {"pnb.txt", "inb.txt", "anb.txt", "cnb.txt", "vnb.txt"})
      folder.write("town/data/" + std::string(seed), "100\r\n");
    for (const char* list : {"Inspectors.txt", "bins.txt", "oins.txt", "fees.txt", "clist.txt"})
      folder.write("town/data/" + std::string(list), "One\r\n\r\nTwo, Zo\xEB\r\n");
    folder.write("town/data/sblversion.txt", "18\r\n");
    folder.write("town/data/imported.txt", "");
    folder.write("town/forms/gTitle.rtf", "{\\rtf1 Alder Glen}");
    for (const char* file : {"db1", "db2", "db3", "db4", "db5", "db6", "db7", "sbl"})
      folder.write("town/data/" + std::string(file) + ".mdb", "");
  }

  /// Where it ended: the menu, or a sign-in that nobody could pass.
  std::string endOfStartUp() {
    testing::ScriptedDesk desk;
    learnShellScreens(desk.screens);
    desk.temporary = folder.file("tmp");
    desk.answers = [](const MessageBox& box) { return presetOf(box); };
    desk.when("PswFrm", [&desk](Screen& login) {
      desk.set(login, "Text1", "smith");
      desk.set(login, "Text2", "abc");
      desk.click(login, "cmdOK");
      if (desk.screens.isOpen(login))
        desk.click(login, "cmdCancel");
    });
    StartUp(desk.desk, folder.file("program")).Main();
    return desk.desk.ended() ? *desk.session.ended : desk.screens.front()->name();
  }

  std::string noise() {
    std::mt19937 dice(7);
    std::string bytes(4000, ' ');
    for (char& byte : bytes)
      byte = static_cast<char>(dice());
    return bytes;
  }

  TempFolder folder;
};

TEST_F(OddFiles, startUpEndsAtTheMenuOrWithAMessage) {
  using Spoil = std::function<void(const std::string&)>;
  const std::pair<const char*, Spoil> ways[] = {
      {"missing", [this](const std::string& name) { std::filesystem::remove(folder.file(name)); }},
      {"empty", [this](const std::string& name) { folder.write(name, ""); }},
      {"cut short",
       [this](const std::string& name) {
         const std::string whole = folder.read(name);
         folder.write(name, whole.substr(0, whole.size() / 2));
       }},
      {"noise", [this](const std::string& name) { folder.write(name, noise()); }},
      {"line feeds", [this](const std::string& name) { folder.write(name, std::string(2u << 20, '\n')); }},
      {"a hundred megabytes",
       [this](const std::string& name) { std::filesystem::resize_file(folder.file(name), 100u << 20); }},
      {"a folder",
       [this](const std::string& name) {
         std::filesystem::remove(folder.file(name));
         std::filesystem::create_directory(folder.file(name));
       }},
  };
  makeWholeOffice();
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
    if (entry.is_regular_file() && entry.path().extension() != ".mdb")
      names.push_back(std::filesystem::relative(entry.path(), folder.path()).string());
  ASSERT_EQ(names.size(), 22u);
  for (const std::string& name : names)
    for (const auto& [how, spoil] : ways) {
      SCOPED_TRACE(name + ": " + how);
      makeWholeOffice();
      spoil(name);
      const bool nobodyCanSignIn = name == "program/Users.Set";
      EXPECT_EQ(endOfStartUp(), nobodyCanSignIn ? "sign-in given up" : "MenuFrm");
    }
}

}  // namespace
}  // namespace zelvo
