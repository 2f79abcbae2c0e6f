#include <QDragEnterEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QUrl>

#include "sample_screen.h"

namespace zelvo::testing {
namespace {

class FileDropsTest : public WindowTest {
 protected:
  /// Drags something over a box and lets it go there, if it is taken. What the desktop is told was done with it.
  Qt::DropAction drag(const char* box, const QMimeData& what) {
    QDragEnterEvent enter({3, 3}, Qt::CopyAction | Qt::MoveAction, &what, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(the(box), &enter);
    if (!enter.isAccepted())
      return Qt::IgnoreAction;
    QDropEvent drop({3, 3}, Qt::MoveAction | Qt::CopyAction, &what, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(the(box), &drop);
    return drop.dropAction();
  }
  static void holding(QMimeData& data, const char* url) { data.setUrls({QUrl(url)}); }
};

TEST_F(FileDropsTest, FilesBelongToTheWindowAndNeverToTheBoxUnderThem) {
  QMimeData photo, link, words;
  holding(photo, "file:///camera/door%20%C3%A4.jpg");
  holding(link, "https://example.org/door.jpg");
  words.setText("words");
  EXPECT_EQ(drag("Text1(18)", photo), Qt::IgnoreAction) << "a screen that takes none";
  screen->takes = true;
  EXPECT_EQ(drag("Text1(18)", photo), Qt::CopyAction) << "nothing is taken out of the camera's folder";
  EXPECT_EQ(screen->events, std::vector<std::string>{"dropped /camera/door ä.jpg"});
  EXPECT_EQ(screen->Text1(18).text, "");
  drag("Text1(18)", words);
  EXPECT_EQ(screen->Text1(18).text, "words") << "a text goes where it is dropped";
  drag("Text1(18)", link);
  EXPECT_EQ(screen->events.size(), 1u);
}

}  // namespace
}  // namespace zelvo::testing
