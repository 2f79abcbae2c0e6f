// zelvo-road: takes the road of one building permit through the real windows, and leaves a picture of every screen on
// it and the printed permit.

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <cstdio>

#include "app/house/house.h"
#include "app/road/driver.h"
#include "shell/start_up.h"
#include "ui/style.h"

namespace zelvo {

namespace {

void typePermit(Driver& clerk) {
  const std::pair<const char*, const char*> boxes[] = {
      {"Text1(2)", "999.5"},
      {"Text1(3)", "3"},
      {"Text1(4)", "45"},
      {"Text1(9)", "R-1"},
      {"Text1(34)", "14 Mill Road"},
      {"Text1(12)", "48500"},
      {"Text1(11)", "310"},
      {"Text1(18)", "O'Brien, Maeve"},
      {"Text1(17)", "14 Mill Road, Alder Glen, NY 12009"},
      {"Text1(19)", "518 555 0142"},
      {"Text1(26)", "Hollis & Daughters"},
      {"Text1(28)", "3 Quarry Lane, Alder Glen, NY 12009"},
      {"Text1(40)", "24 x 36"},
      {"Text1(42)", "Two bays, no loft. Footings to be seen before the pour."},
  };
  for (const auto& [box, text] : boxes)
    clerk.type(box, text);
  clerk.type("Combo2", "Garage");
  clerk.type("Combo1", "ONE FAMILY");
}

// The pages are looked at, the letterhead too, and the letter in the editor.
void planLooks(Driver& clerk) {
  clerk.inScreen("PrintFrm", [&clerk] {
    clerk.pick("Combo1", "Building Permit");
    clerk.press("cmdHeader");
  });
  clerk.inScreen("HeaderFrm", [&clerk] {
    clerk.picture("report-header");
    clerk.press("cmdCancel");
  });
  clerk.inScreen("PrintFrm", [&clerk] { clerk.press("cmdPreview"); });
  clerk.inScreen("PagesFrm", [&clerk] {
    clerk.picture("preview");
    clerk.press("cmdClose");
  });
  clerk.inScreen("APermits", [&clerk] { clerk.press("iPrint"); });
  clerk.inScreen("PrintFrm", [&clerk] {
    clerk.press("Check1");
    clerk.press("cmdPrint");
  });
  clerk.inScreen("Editor", [&clerk] {
    clerk.picture("editor");
    clerk.press("cmdQuit");
  });
  clerk.inScreen("APermits", [&clerk] { clerk.press("iPrint"); });
  clerk.inScreen("PrintFrm", [&clerk] { clerk.press("Check1"); });
}

void planRoad(Driver& clerk, const QString& pdf) {
  clerk.inScreen("PswFrm", [&clerk] {
    clerk.type("Text1", "clerk");
    clerk.type("Text2", "clerk");
    clerk.picture("sign-in");
    clerk.press("cmdOK");
  });
  clerk.inScreen("MenuFrm", [&clerk] {
    clerk.picture("main-menu");
    clerk.press("Image1");
  });
  clerk.inScreen("APermits", [&clerk] {
    clerk.picture("permits");
    clerk.press("INew");
    typePermit(clerk);
    clerk.picture("new-permit");
    clerk.press("IAdd");
  });
  clerk.answer(" SBL not found", "Yes");
  clerk.inScreen("APermits", [&clerk] {
    clerk.picture("permit-added");
    clerk.turnToPage("SSTab1", 1);
    clerk.picture("list");
    clerk.press("iPrint");
  });
  planLooks(clerk);
  clerk.inScreen("PrintFrm", [&clerk] {
    clerk.pick("Combo1", "Building Permit");
    clerk.press("Check3");
    clerk.picture("print-options");
    clerk.press("cmdPrint");
  });
  clerk.printToPdf();
  clerk.chooseFile(pdf);
}

int takeRoad(const QString& programFolder, const QString& folder) {
  const QString pdf = QDir(folder).absoluteFilePath("building-permit.pdf");
  QFile::remove(pdf);
  Session session;
  Screens screens;
  QtHouse windows(session, screens);
  House house(windows.desk);
  StartUp startUp(windows.desk, programFolder.toStdString());
  Driver clerk(windows, folder);
  planRoad(clerk, pdf);
  clerk.inScreen("APermits", [&windows] {
    windows.desk.end("the road is gone");
    windows.face.processEvents();
  });
  clerk.start();
  startUp.Main();
  if (!windows.desk.ended())
    windows.face.run();
  for (Screen* screen : screens.all())
    screens.close(*screen);
  screens.sweep();
  if (!clerk.trouble().isEmpty())
    return 1;
  if (!QFileInfo::exists(pdf)) {
    std::fprintf(stderr, "zelvo-road: the permit was not printed to %s\n", qPrintable(pdf));
    return 1;
  }
  std::printf("%s\n", qPrintable(pdf));
  return 0;
}

}  // namespace

}  // namespace zelvo

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Zelvo");
  QApplication::setQuitOnLastWindowClosed(false);
  zelvo::applyHouseStyle(app);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 4 || arguments[1] != "--program-folder") {
    std::fprintf(stderr, "usage: zelvo-road --program-folder DIR FOLDER-FOR-PICTURES\n");
    return 2;
  }
  if (!QDir().mkpath(arguments[3])) {
    std::fprintf(stderr, "zelvo-road: the folder %s cannot be made\n", qPrintable(arguments[3]));
    return 1;
  }
  return zelvo::takeRoad(arguments[2], QDir(arguments[3]).absolutePath());
}
