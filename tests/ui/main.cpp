#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>

#include "ui/style.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QApplication::setFont(QFont("DejaVu Sans", 9));
  zelvo::applyHouseStyle(app);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
