#include "ui/file_drops.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "ui/screen_window.h"

namespace zelvo {

FileDrops::FileDrops(ScreenWindow& window) : QObject(&window), window_(window) {
  qApp->installEventFilter(this);
}

// What a box leaves is offered to the window behind it.
bool FileDrops::eventFilter(QObject* target, QEvent* event) {
  if (event->type() != QEvent::DragEnter)
    return false;
  const auto* widget = qobject_cast<const QWidget*>(target);
  if (!widget || widget == &window_ || widget->window() != &window_)
    return false;
  if (filesOf(static_cast<const QDropEvent&>(*event)).empty())
    return false;
  event->ignore();
  return true;
}

std::vector<std::string> FileDrops::filesOf(const QDropEvent& event) {
  std::vector<std::string> files;
  for (const QUrl& url : event.mimeData()->urls())
    if (url.isLocalFile())
      files.push_back(url.toLocalFile().toStdString());
  return files;
}

}  // namespace zelvo
