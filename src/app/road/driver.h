#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <deque>
#include <functional>
#include <string>

#include "ui/qt_house.h"

namespace zelvo {

/// Works in the real windows as a clerk would, with keys and clicks, one step after another: each step waits until the
/// window or box that it belongs to is in front, does its part, and may leave a picture of what is seen.
class Driver : public QObject {
 public:
  Driver(QtHouse& windows, QString pictureFolder);

  using Deed = std::function<void()>;
  /// A step in the window of a screen.
  void inScreen(const std::string& screen, Deed deed);
  /// A step in the message box of that title: pictured, then answered by its button.
  void answer(const QString& title, const QString& button);
  /// A step in the choice of a printer: takes the last one, the PDF file.
  void printToPdf();
  /// A step in the file chooser: takes this path.
  void chooseFile(const QString& path);

  // Deeds, in the window in front.
  void type(const std::string& control, const QString& text);
  void pick(const std::string& control, const QString& entry);
  void press(const std::string& control);
  void turnToPage(const std::string& tabs, int page);
  void picture(const QString& name);

  void start();
  /// What went wrong; empty when every step was done.
  const QString& trouble() const { return trouble_; }
  bool done() const { return steps_.empty() && trouble_.isEmpty(); }

 private:
  struct Step {
    QString waitsFor;
    std::function<bool()> ready;
    Deed deed;
  };
  void add(QString waitsFor, std::function<bool()> ready, Deed deed);
  void lookAgain();
  void tick();
  void fail(const QString& why);
  void giveUp();
  QWidget* widget(const std::string& control);
  void save(QWidget& seen, const QString& name);

  QtHouse& windows_;
  QString folder_;
  std::deque<Step> steps_;
  QElapsedTimer waiting_;
  int pictures_ = 0;
  QString trouble_;
  QWidget* front_ = nullptr;
};

}  // namespace zelvo
