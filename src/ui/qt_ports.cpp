#include "ui/qt_ports.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "base/text.h"
#include "ui/qt_text.h"

namespace zelvo {

namespace {

QMessageBox::StandardButton buttonOf(Answer answer) {
  switch (answer) {
    case Answer::Cancel:
      return QMessageBox::Cancel;
    case Answer::Yes:
      return QMessageBox::Yes;
    case Answer::No:
      return QMessageBox::No;
    case Answer::OK:
      break;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(Icon icon) {
  switch (icon) {
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Critical:
      return QMessageBox::Critical;
    case Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

std::optional<std::string> chosenPath(const QString& path) {
  if (path.isEmpty())
    return std::nullopt;
  return path.toStdString();
}

}  // namespace

Answer QtMessages::ask(const MessageBox& box) {
  const auto answers = answersOf(box.buttons);
  Answer given = answers.back();
  face_.overWindows([&](QWidget* parent) {
    QMessageBox window(parent);
    window.setWindowTitle(qtText(box.title));
    window.setTextFormat(Qt::PlainText);
    window.setText(qtText(box.text));
    window.setIcon(iconOf(box.icon));
    for (Answer answer : answers)
      window.addButton(buttonOf(answer))->setText(qtText(nameOf(answer)));
    window.setDefaultButton(buttonOf(presetOf(box)));
    window.setEscapeButton(buttonOf(answers.back()));
    const int pressed = window.exec();
    for (Answer answer : answers)
      if (buttonOf(answer) == pressed)
        given = answer;
  });
  return given;
}

QString chooserFilter(std::string_view filter) {
  const auto parts = split(filter, '|');
  QStringList choices;
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
    const std::string_view text = std::string_view(parts[i]).substr(0, parts[i].find('('));
    const std::string patterns = replaceAll(replaceAll(parts[i + 1], ";", " "), "*.*", "*");
    choices.append(qtText(trim(text)) + QStringLiteral(" (") + qtText(patterns) + QLatin1Char(')'));
  }
  return choices.join(QStringLiteral(";;"));
}

std::optional<std::string> QtPickers::openFile(const FilePicker& picker) {
  QString path;
  face_.overWindows([&](QWidget* parent) {
    path =
        QFileDialog::getOpenFileName(parent, qtText(picker.title), qtText(picker.folder), chooserFilter(picker.filter));
  });
  return chosenPath(path);
}

std::optional<std::string> QtPickers::saveFile(const FilePicker& picker, std::string_view proposed) {
  QString path;
  face_.overWindows([&](QWidget* parent) {
    const QString start =
        picker.folder.empty() ? qtText(proposed) : qtText(picker.folder + "/" + std::string(proposed));
    path = QFileDialog::getSaveFileName(parent, qtText(picker.title), start, chooserFilter(picker.filter));
  });
  return chosenPath(path);
}

std::optional<std::string> QtPickers::folder(std::string_view title, std::string_view start) {
  QString path;
  face_.overWindows(
      [&](QWidget* parent) { path = QFileDialog::getExistingDirectory(parent, qtText(title), qtText(start)); });
  return chosenPath(path);
}

DateTime QtClock::now() {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate day = now.date();
  return {{day.year(), day.month(), day.day()}, now.time().msecsSinceStartOfDay() / 1000};
}

void QtClock::pause(double seconds) {
  constexpr double kLongest = 24 * 3600;
  face_.refresh();
  QEventLoop loop;
  QTimer::singleShot(static_cast<int>(std::clamp(seconds, 0.0, kLongest) * 1000), &loop, &QEventLoop::quit);
  loop.exec(face_.handlerRuns() ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
}

}  // namespace zelvo
