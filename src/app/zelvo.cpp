// zelvo: the program with its windows.

#include <QApplication>
#include <QCommandLineParser>
#include <QSocketNotifier>
#include <memory>

#include "app/house/house.h"
#include "shell/start_up.h"
#include "ui/qt_house.h"
#include "ui/style.h"

namespace {

std::string programFolderOf(const QApplication& app) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Zelvo: the records of the building inspection and code enforcement office");
  parser.addHelpOption();
  const QCommandLineOption folder("program-folder",
                                  "The folder with the settings files; without it, the program's own.", "DIR",
                                  QCoreApplication::applicationDirPath());
  parser.addOption(folder);
  parser.process(app);
  return parser.value(folder).toStdString();
}

// A second copy of the program calls the first one, whose windows then come to the front.
void watchForSecondCopy(zelvo::StartUp& startUp, std::unique_ptr<QSocketNotifier>& notifier) {
  startUp.watchGuard = [&notifier](zelvo::SingleInstance& instance) {
    if (instance.descriptor() < 0)
      return;
    notifier = std::make_unique<QSocketNotifier>(instance.descriptor(), QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, [&instance] { instance.poll(); });
  };
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Zelvo");
  QApplication::setQuitOnLastWindowClosed(false);
  zelvo::applyHouseStyle(app);
  const std::string programFolder = programFolderOf(app);

  zelvo::Session session;
  zelvo::Screens screens;
  zelvo::QtHouse windows(session, screens);
  zelvo::House house(windows.desk);
  zelvo::StartUp startUp(windows.desk, programFolder);
  std::unique_ptr<QSocketNotifier> secondCopies;
  watchForSecondCopy(startUp, secondCopies);
  startUp.Main();
  if (!windows.desk.ended())
    windows.face.run();
  for (zelvo::Screen* screen : screens.all())
    screens.close(*screen);
  screens.sweep();
  return 0;
}
