#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "form/desk.h"
#include "shell/single_instance.h"

namespace zelvo {

/// The way from launch to the main menu, a fixed sequence of steps that "session.log" tells of; on a fresh program
/// folder the office is begun first. It leaves the main menu open, or the program ended: by a second copy, or a first
/// start or sign-in that was given up. Lives as long as the program, since it holds the guard against a second copy.
class StartUp {
 public:
  /// The desk's screens must know the shell's screens. The folder of the program may be relative.
  StartUp(Desk& desk, std::string_view programFolder);

  void Main();

  /// Given the guard as soon as this copy is known to be the first, before the sign-in: a face calls its poll()
  /// whenever its descriptor is readable.
  std::function<void(SingleInstance&)> watchGuard;

 private:
  void resetSession();
  bool isSecondCopy();
  bool readyForWork();
  void beginLog();
  void InitSettings();
  void readUserList();
  void offerScreenSize();
  void resolveDatabases();
  void findBrowser();
  void showSplash();
  void tidyAfterUpdater();
  void replaceUpdater();
  void removeRunOnce();
  void tellOfUpdate();
  void identifyUser();
  void closeScreen(std::string_view name);
  bool signIn();
  void showLoading();
  void readBrowser();
  void SetMenus();
  void showMenu();

  void log(std::string_view line);
  bool logAndFind(std::string_view stars, const std::string& path);
  std::string inProgramFolder(std::string_view name) const;

  Desk& desk_;
  Session& session_;
  std::string programFolder_;
  std::optional<SingleInstance> instance_;
};

}  // namespace zelvo
