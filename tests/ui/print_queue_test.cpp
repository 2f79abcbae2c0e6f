#include <cups/cups.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include "base/files.h"
#include "documents/letter.h"
#include "sample_screen.h"

namespace zelvo::testing {
namespace {

/// A print scheduler of the test's own, with one queue that swallows what it is sent.
class PrintQueueTest : public WindowTest {
 protected:
  void SetUp() override {
    if (!QFile::exists("/usr/sbin/cupsd") || !QFile::exists("/usr/sbin/lpadmin"))
      GTEST_SKIP() << "no print scheduler on this computer";
    write("cups-files.conf",
          "ServerRoot %1\nRequestRoot %1/spool\nTempDir %1\nCacheDir %1\nStateDir %1\n"
          "AccessLog %1/access\nErrorLog %1/error\nPageLog %1/page\nFileDevice Yes\n");
    write("cupsd.conf",
          "Listen %1/socket\nBrowsing No\nIdleExitTimeout 0\nDefaultAuthType None\nPreserveJobFiles Yes\n"
          "<Location />\nAllow all\n</Location>\n<Location /admin>\nAllow all\n</Location>\n"
          "<Policy default>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n");
    QDir(folder.path()).mkdir("spool");
    scheduler.start("/usr/sbin/cupsd",
                    {"-f", "-c", folder.filePath("cupsd.conf"), "-s", folder.filePath("cups-files.conf")});
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(folder.filePath("socket")); }, 5000)) << "no scheduler";
    cupsSetServer(folder.filePath("socket").toUtf8());
    ASSERT_EQ(run("/usr/sbin/lpadmin", {"-p", "office", "-E", "-v", "file:/dev/null", "-m", "raw"}), 0);
    ASSERT_EQ(run("/usr/sbin/lpadmin", {"-d", "office"}), 0);
  }
  void TearDown() override {
    cupsSetServer(nullptr);
    scheduler.terminate();
    scheduler.waitForFinished(5000);
  }

  int run(const char* program, QStringList arguments) {
    arguments = QStringList{"-h", folder.filePath("socket")} + arguments;
    return QProcess::execute(program, arguments);
  }
  void write(const char* name, const QString& text) {
    ASSERT_TRUE(replaceFile(folder.filePath(name).toStdString(), text.arg(folder.path()).toStdString()));
  }

  QTemporaryDir folder;
  QProcess scheduler;
};

TEST_F(PrintQueueTest, ALetterArrivesAsItWasMergedAndARefusalIsHeardOf) {
  const std::string office = folder.path().toStdString();
  session.programFolder = session.formsFolder = office;
  ASSERT_TRUE(replaceFile(office + "/notice.rtf",
                          "{\\rtf1{\\fonttbl{\\f0 Courier New;}}\\margl1440\\f0\\fs20 Permit %01 %nm\\par}"));
  LetterPrinter letters(house.desk);
  letters.context.values[1] = "26-1";
  letters.context.name = "O'Brien";
  const auto printed = letters.print("notice.rtf", "Permit Notice");
  ASSERT_TRUE(printed.ok()) << printed.error().message;
  const QString arrived = folder.filePath("spool/d00001-001");
  QProcess reader;
  reader.start("pdftotext", {"-bbox", arrived, "-"});
  ASSERT_TRUE(reader.waitForFinished()) << "pdftotext is not installed";
  const QString boxes = reader.readAllStandardOutput();
  const QRegularExpression word("xMin=\"([0-9.]+)\"[^>]*>([^<]+)</word>");
  QStringList words;
  for (auto found = word.globalMatch(boxes); found.hasNext();) {
    const auto next = found.next();
    if (words.isEmpty()) {
      EXPECT_NEAR(next.captured(1).toDouble(), 72, 0.2) << "the letter's own margin";
    }
    words.append(next.captured(2));
  }
  EXPECT_EQ(words.join(' ').replace("&#39;", "'").replace("&apos;", "'").toStdString(), "Permit 26-1 O'Brien");

  const PrintJob job{"Permit Notice", office + "/tmp.rtf", {}};
  ASSERT_EQ(run("/usr/sbin/cupsreject", {"office"}), 0);
  const auto refused = house.printing.print(job);
  ASSERT_FALSE(refused.ok()) << "a job that the queue does not take must not vanish";
  EXPECT_NE(refused.error().message.find("office"), std::string::npos);
}

}  // namespace
}  // namespace zelvo::testing
