#include "app/road/driver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QtTest>
#include <cstdio>
#include <utility>

namespace zelvo {

namespace {

constexpr int kTick = 40;          // milliseconds between two looks at the windows
constexpr int kPatience = 20'000;  // milliseconds that a step may wait for its window

QMessageBox* messageBox(const QString& title) {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  return box && box->windowTitle().trimmed() == title.trimmed() ? box : nullptr;
}

}  // namespace

Driver::Driver(QtHouse& windows, QString pictureFolder) : windows_(windows), folder_(std::move(pictureFolder)) {}

void Driver::add(QString waitsFor, std::function<bool()> ready, Deed deed) {
  steps_.push_back({std::move(waitsFor), std::move(ready), std::move(deed)});
}

void Driver::inScreen(const std::string& screen, Deed deed) {
  const auto window = [this, screen]() -> QWidget* {
    const Screen* front = windows_.desk.screens.front();
    QWidget* shown = front && front->name() == screen ? windows_.face.windowOf(*front) : nullptr;
    const QWidget* modal = QApplication::activeModalWidget();
    if (windows_.face.handlerRuns())  // a clerk's keys would wait as well
      return nullptr;
    return shown && shown->isVisible() && (!modal || modal == shown) ? shown : nullptr;
  };
  add(
      "the screen " + QString::fromStdString(screen), [window] { return window() != nullptr; },
      [this, window, deed = std::move(deed)] {
        front_ = window();
        deed();
      });
}

void Driver::answer(const QString& title, const QString& button) {
  add(
      "the message \"" + title + "\"", [title] { return messageBox(title) != nullptr; },
      [this, title, button] {
        QMessageBox* box = messageBox(title);
        save(*box, "message");
        for (QAbstractButton* choice : box->buttons())
          if (choice->text().remove('&') == button)
            return QTest::mouseClick(choice, Qt::LeftButton);
        fail("the message \"" + title + "\" has no button " + button);
      });
}

void Driver::chooseFile(const QString& path) {
  add(
      "the file chooser", [] { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()) != nullptr; },
      [path] {
        auto* chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        auto* name = chooser->findChild<QLineEdit*>("fileNameEdit");
        name->setText(path);  // typed, it would open the chooser's own proposals, which take the next click
        QTest::mouseClick(chooser->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save), Qt::LeftButton);
      });
}

void Driver::printToPdf() {
  add(
      "the choice of a printer",
      [] {
        const QWidget* modal = QApplication::activeModalWidget();
        return modal && modal->windowTitle() == "Print" && modal->findChild<QComboBox*>();
      },
      [] {
        QWidget* dialog = QApplication::activeModalWidget();
        auto* printers = dialog->findChild<QComboBox*>();
        printers->setFocus();
        QTest::keyClick(printers, Qt::Key_End);
        QTest::keyClick(dialog, Qt::Key_Return);
      });
}

QWidget* Driver::widget(const std::string& control) {
  QWidget* found = front_ ? front_->findChild<QWidget*>(QString::fromStdString(control)) : nullptr;
  if (!found)
    fail("there is no " + QString::fromStdString(control) + " in the window");
  return found;
}

void Driver::type(const std::string& control, const QString& text) {
  QWidget* box = widget(control);
  if (!box)
    return;
  box->setFocus();
  QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(box, text);
}

void Driver::pick(const std::string& control, const QString& entry) {
  auto* combo = qobject_cast<QComboBox*>(widget(control));
  if (!combo)
    return;
  const int index = combo->findText(entry);
  if (index < 0)
    return fail(QString::fromStdString(control) + " does not offer " + entry);
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_Home);
  for (int step = 0; combo->currentIndex() != index && step < combo->count(); ++step)
    QTest::keyClick(combo, Qt::Key_Down);
}

void Driver::press(const std::string& control) {
  if (QWidget* button = widget(control))
    QTest::mouseClick(button, Qt::LeftButton);
}

void Driver::turnToPage(const std::string& tabs, int page) {
  if (auto* pages = qobject_cast<QTabWidget*>(widget(tabs)))
    QTest::mouseClick(pages->tabBar(), Qt::LeftButton, {}, pages->tabBar()->tabRect(page).center());
}

void Driver::picture(const QString& name) {
  if (front_)
    save(*front_, name);
}

void Driver::save(QWidget& seen, const QString& name) {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  const QString path = QDir(folder_).filePath(QString("%1-%2.png").arg(++pictures_, 2, 10, QChar('0')).arg(name));
  if (!seen.grab().save(path))
    return fail("the picture " + path + " could not be written");
  std::printf("%s\n", qPrintable(path));
  std::fflush(stdout);
}

void Driver::start() {
  waiting_.start();
  lookAgain();
}

// Each look has a timer of its own: one that is being served does not fire again in the loop of a box that it opened.
void Driver::lookAgain() {
  QTimer::singleShot(kTick, this, &Driver::tick);
}

// A step may wait inside itself for a box that the next step answers: the next one is current before this one begins.
void Driver::tick() {
  if (!trouble_.isEmpty())
    return giveUp();
  if (steps_.empty())
    return;
  lookAgain();
  if (!steps_.front().ready()) {
    if (waiting_.elapsed() > kPatience)
      fail("waited in vain for " + steps_.front().waitsFor);
    return;
  }
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  waiting_.restart();
  step.deed();
}

void Driver::fail(const QString& why) {
  if (!trouble_.isEmpty())
    return;
  trouble_ = why;
  std::fprintf(stderr, "zelvo-road: %s\n", qPrintable(why));
  windows_.desk.end("the road could not be gone");
}

// Closes box after box, since one that is closed may bring up the next, until the program is out of its loops.
void Driver::giveUp() {
  lookAgain();
  if (QWidget* modal = QApplication::activeModalWidget())
    modal->close();
  windows_.face.processEvents();
}

}  // namespace zelvo
