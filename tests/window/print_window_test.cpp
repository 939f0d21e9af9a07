// Printing, its setup, and looking words up, from the window.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

#include "print/window/printers.h"
#include "tests/window/window_fixture.h"

namespace quorvane::test {
namespace {

class PrintWindowTest : public WindowTest {
 protected:
  // A running program with "PDF file" chosen and ten words found.
  void StartPrintable() {
    Store("Printer", "PrinterName", kPdfPrinter);
    ASSERT_TRUE(Start());
    Search("*a*");
    NewLog();
  }
};

TEST_F(PrintWindowTest, PrintingIsOfferedOnlyWithWordsAndAPrinter) {
  ASSERT_TRUE(Start());
  Search("*a*");
  EXPECT_FALSE(Find("cmdPrint")->isEnabled());
  door.scripts.push_back([](QDialog& dialog) {
    ChooseIn(In<QComboBox>(dialog, "cbPrinter"), kPdfPrinter);
    ClickOn(In(dialog, "cmdOK"));
  });
  Item("menFilePrinterSetup")->trigger();
  EXPECT_EQ(Setting("Printer", "PrinterName"), kPdfPrinter);
  EXPECT_TRUE(Find("cmdPrint")->isEnabled());
  EXPECT_TRUE(Item("menFilePrint")->isEnabled());
  Search("q*");
  EXPECT_FALSE(Find("cmdPrint")->isEnabled());
  Search("c?t");
  EXPECT_TRUE(Find("cmdPrint")->isEnabled());
  Click("cmdClear");
  EXPECT_FALSE(Item("menFilePrint")->isEnabled());
}

TEST_F(PrintWindowTest, CancelPrintsNothing) {
  StartPrintable();
  door.savePath = FromText(dir.File("out.pdf"));
  const std::string asked = "The print will contain 1 page(s), with up to 44 words per page.";
  door.answers = {Answer::Extra, Answer::Cancel};  // A preview first, which can't print.
  door.scripts.push_back([](QDialog& preview) {
    for (const QAction* action : preview.findChildren<QAction*>()) {
      EXPECT_FALSE(action->isVisible() && action->text().startsWith("Print")) << ToText(action->text());
    }
  });
  Click("cmdPrint");
  EXPECT_EQ(door.TakeDialogs(), Texts{"printPreview"});
  ASSERT_EQ(door.questions.size(), 3U);
  EXPECT_EQ(ToText(door.questions[0].title), "Quorvane Print");
  EXPECT_TRUE(door.questions[0].cancel);
  EXPECT_EQ(ToText(door.questions[2].title), "Print Cancelled");
  EXPECT_EQ(door.TakeText(), asked + " | " + asked + " | Print request cancelled.");
  // No file was chosen.
  door.savePath.clear();
  Item("menFilePrint")->trigger();
  EXPECT_EQ(door.TakeText(), asked + " | Print request cancelled.");
  EXPECT_EQ(NewLog(), Texts(2, "PRINT Print request was cancelled"));
  EXPECT_FALSE(std::filesystem::exists(dir.File("out.pdf")));
}

TEST_F(PrintWindowTest, APdfHoldsTheWordsInTheirColumns) {
  StartPrintable();
  Store("Printer", "PrinterColumns", "3");
  Store("Printer", "FontSize", "25");
  Store("Printer", "PrinterOrientation", "Landscape");
  door.savePath = FromText(dir.File("out.pdf"));
  Click("cmdPrint");
  EXPECT_EQ(door.TakeText(), "The print will contain 1 page(s), with up to 48 words per page.");
  EXPECT_EQ(Status(),
            "The print contained 1 page(s), with up to 48 words per page.   10 words were printed matching '*a*'.");
  EXPECT_EQ(NewLog(), Texts{"PRINT Word list was printed - 1 page(s)"});
  EXPECT_TRUE(ReadFile(dir.File("out.pdf")).starts_with("%PDF"));
  if (QStandardPaths::findExecutable("pdftotext").isEmpty()) {
    GTEST_SKIP() << "pdftotext is not installed";
  }
  QProcess reader;
  reader.start("pdftotext", {"-layout", door.savePath, "-"});
  ASSERT_TRUE(reader.waitForFinished());
  QStringList words;
  for (const QString& line : QString::fromUtf8(reader.readAllStandardOutput()).split('\n')) {
    const QString text = line.simplified();
    if (!text.isEmpty()) {
      words.push_back(text);
    }
  }
  ASSERT_EQ(words.size(), 12) << ToText(words.join('|'));
  EXPECT_EQ(words.front(), "10 words found matching the word pattern \"*a*\"");
  EXPECT_EQ(words.mid(1, 10), QStringList({"a", "ab", "abba", "aha", "bat", "cat", "eat", "kayak", "tab", "tea"}));
  EXPECT_EQ(words.back(), "Printed on 5 Mar 2026 at 14:07 Page 1 of 1");
}

TEST_F(PrintWindowTest, AFileThatCannotBeWrittenIsReported) {
  StartPrintable();
  door.savePath = FromText(dir.File("gone/out.pdf"));
  Click("cmdPrint");
  const std::string reason = dir.File("gone/out.pdf") + ": No such file or directory";
  const std::string text = door.TakeText();
  EXPECT_NE(text.find(reason + "  FP/482: Printer error - check connections to your printer"), std::string::npos)
      << text;
  EXPECT_EQ(Status(), reason);
  EXPECT_EQ(CountLog("ERROR <dir>/gone/out.pdf: No such file"), 1);
  EXPECT_EQ(CountLog("PRINT "), 0);
}

TEST_F(PrintWindowTest, ANameWithoutExtensionIsCompletedAndItsFileKeptWhenRefused) {
  StartPrintable();
  dir.Write("words.pdf", "mine");
  door.savePath = FromText(dir.File("words"));
  door.answers = {Answer::Ok, Answer::Cancel, Answer::Ok};  // The name is then asked for again, and replaced.
  Click("cmdPrint");
  ASSERT_EQ(door.questions.size(), 3U);
  EXPECT_EQ(ToText(door.questions[1].text), dir.File("words.pdf") + " already exists.\nDo you want to replace it?");
  EXPECT_TRUE(ReadFile(dir.File("words.pdf")).starts_with("%PDF"));
  EXPECT_FALSE(std::filesystem::exists(dir.File("words")));
}

TEST_F(PrintWindowTest, ThePreviewTurnsItsPagesAndPrintsNothing) {
  StartPrintable();
  Store("Printer", "PrinterColumns", "1");
  Store("Printer", "FontSize", "25");
  Store("Printer", "PrinterOrientation", "Landscape");
  Search("*");  // 18 words, 16 to a page.
  door.answers = {Answer::Extra, Answer::Cancel};
  door.scripts.push_back([](QDialog& dialog) {
    const auto ink = [&dialog] {
      const QImage picture =
          In<QWidget>(dialog, "pagePicture")->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
      int dark = 0;
      for (int y = 0; y < picture.height(); ++y) {
        dark += static_cast<int>(std::count_if(picture.constScanLine(y), picture.constScanLine(y) + picture.width(),
                                               [](uchar grey) { return grey < 128; }));
      }
      return dark;
    };
    const int first = ink();
    EXPECT_EQ(ToText(In<QLabel>(dialog, "lblPage")->text()), "Page 1 of 2");
    EXPECT_FALSE(In(dialog, "cmdPrevious")->isEnabled());
    QTest::keyClick(dialog.windowHandle(), Qt::Key_PageDown);
    EXPECT_TRUE(QTest::qWaitFor([&] { return In<QLabel>(dialog, "lblPage")->text() == "Page 2 of 2"; }));
    EXPECT_FALSE(In(dialog, "cmdNext")->isEnabled());
    const int last = ink();
    EXPECT_GT(last, 0);
    EXPECT_LT(last, first);
    ClickOn(In(dialog, "cmdZoomIn"));
    EXPECT_GT(ink(), last);
  });
  Click("cmdPrint");
  EXPECT_EQ(NewLog().back(), "PRINT Print request was cancelled");
}

// A printing system that takes connections and says nothing.
class SilentScheduler {
 public:
  SilentScheduler() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    auto* any = reinterpret_cast<sockaddr*>(&address);
    if (bind(socket_, any, size) == 0 && listen(socket_, 16) == 0 && getsockname(socket_, any, &size) == 0) {
      qputenv("CUPS_SERVER", "127.0.0.1:" + QByteArray::number(ntohs(address.sin_port)));
    }
  }
  ~SilentScheduler() {
    close(socket_);
    qunsetenv("CUPS_SERVER");
  }
  Q_DISABLE_COPY(SilentScheduler)

  bool Asked() const {
    pollfd ready{socket_, POLLIN, 0};
    return poll(&ready, 1, 0) == 1;
  }

 private:
  int socket_ = socket(AF_INET, SOCK_STREAM, 0);
};

TEST_F(PrintWindowTest, APrinterThatCannotBeAskedForStaysAndIsRefused) {
  if (QStandardPaths::findExecutable("lpstat").isEmpty()) {
    GTEST_SKIP() << "lpstat is not installed";
  }
  const SilentScheduler scheduler;
  StartPrintable();
  door.answers = {Answer::Extra, Answer::Cancel};
  Click("cmdPrint");
  EXPECT_EQ(door.TakeDialogs(), std::vector<std::string>{"printPreview"});
  door.TakeText();
  EXPECT_FALSE(scheduler.Asked());  // For the file nothing is.
  Stop();
  Store("Printer", "PrinterName", "Cellar");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Setting("Printer", "PrinterName"), "Cellar");
  EXPECT_EQ(CountLog("ERROR-PR The printing system does not answer; the printer stays 'Cellar'"), 1);
  Search("*a*");
  const auto refused = [this](const std::string& reason) {
    Click("cmdPrint");
    const std::string text = door.TakeText();
    EXPECT_TRUE(text.starts_with(reason + "  FP/482: ")) << text;
    EXPECT_EQ(Status(), reason);
  };
  refused("The printing system does not answer.");
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", "/nowhere");
  refused("The command 'lp' is not there; to print on a printer, install the package 'cups-client'.");
  qputenv("PATH", path);
  door.scripts.push_back([](QDialog& dialog) {
    EXPECT_EQ(In<QComboBox>(dialog, "cbPrinter")->count(), 1);
    ClickOn(In(dialog, "cmdOK"));
  });
  Item("menFilePrinterSetup")->trigger();
  EXPECT_EQ(door.TakeText(),
            "The printing system does not answer.  Only \"PDF file\" can be chosen; the printer stays.");
  EXPECT_EQ(Setting("Printer", "PrinterName"), "Cellar");
}

TEST_F(PrintWindowTest, TheSetupStoresEachChoiceAtOnce) {
  StartPrintable();
  door.scripts.push_back([this](QDialog& dialog) {
    const auto estimate = [&] { return ToText(In<QLabel>(dialog, "lblPageInfo")->text()); };
    EXPECT_EQ(estimate(), "For current selection : 1 page(s), with 132 words per page.");
    ChooseIn(In<QComboBox>(dialog, "cbColumns"), "2");
    EXPECT_EQ(Setting("Printer", "PrinterColumns"), "2");
    EXPECT_EQ(estimate(), "For current selection : 1 page(s), with 88 words per page.");
    ChooseIn(In<QComboBox>(dialog, "cbFontSize"), "25");
    EXPECT_EQ(Setting("Printer", "FontSize"), "25");
    ChooseIn(In<QComboBox>(dialog, "cbPaperSize"), "Legal");
    EXPECT_EQ(Setting("Printer", "PaperSize"), "Legal");
    ClickOn(In(dialog, "chkItalic"));
    EXPECT_EQ(Setting("Printer", "Italic"), "Yes");
    ClickOn(In(dialog, "rbLandscape"));
    EXPECT_EQ(Setting("Printer", "PrinterOrientation"), "Portrait");  // Until OK.
    EXPECT_EQ(estimate(), "For current selection : 1 page(s), with 32 words per page.");
    door.scripts.push_back([this](QDialog& sample) {
      auto* box = sample.findChild<QLineEdit*>();
      ASSERT_NE(box, nullptr);
      box->selectAll();
      QTest::keyClick(box, Qt::Key_Delete);
      ClickOn(In(sample, "cmdOK"));
      EXPECT_EQ(ToText(door.questions.back().title), "Entry error");
      EXPECT_EQ(door.TakeText(), "You must enter at least one character");
      EXPECT_TRUE(sample.isVisible());
      QTest::keyClicks(box, "Sphinx");
      ClickOn(In(sample, "cmdOK"));
    });
    ClickOn(In(dialog, "cmdText"));
    EXPECT_EQ(Setting("Printer", "SampleText"), "Sphinx");
    EXPECT_EQ(In<QLabel>(dialog, "lblSample")->text(), "Sphinx");
    ClickOn(In(dialog, "cmdOK"));
  });
  Item("menFilePrinterSetup")->trigger();
  EXPECT_EQ(Setting("Printer", "PrinterOrientation"), "Landscape");
  EXPECT_EQ(NewLog(), Texts{"PRT-UPD Updated print settings:O=Land/C=2/I=Yes/F=Arial/S=25/N=PDF file/P=Legal"});
}

TEST_F(PrintWindowTest, TheSetupRepairsWhatItFinds) {
  ASSERT_TRUE(Start());
  NewLog();
  for (const auto& [key, value] : {std::pair{"PrinterColumns", "10"},
                                   {"FontSize", "abc"},
                                   {"FontName", "No Such Font"},
                                   {"Italic", "maybe"},
                                   {"PaperSize", "A3"},
                                   {"PrinterOrientation", "up"}}) {
    Store("Printer", key, value);
  }
  door.scripts.push_back([](QDialog& dialog) {
    EXPECT_EQ(In<QLabel>(dialog, "lblPageInfo")->text(), "Please enter a valid printer name.");
    auto* printers = In<QComboBox>(dialog, "cbPrinter");
    EXPECT_EQ(printers->currentIndex(), -1);
    EXPECT_EQ(printers->itemText(printers->count() - 1), kPdfPrinter);
    ClickOn(In(dialog, "cmdCancel"));
  });
  Item("menFilePrinterSetup")->trigger();
  EXPECT_EQ(Setting("Printer", "PrinterColumns") + Setting("Printer", "FontSize") + Setting("Printer", "FontName") +
                Setting("Printer", "Italic") + Setting("Printer", "PaperSize") +
                Setting("Printer", "PrinterOrientation"),
            "312ArialNoLetterPortrait");
  EXPECT_EQ(NewLog(), Texts{"INVFN-PR Invalid Font Name (No Such Font) found; defaulting to 'Arial'."});
}

class Browser : public QObject {
  Q_OBJECT

 public:
  Browser() { QDesktopServices::setUrlHandler("http", this, "Open"); }
  ~Browser() override { QDesktopServices::unsetUrlHandler("http"); }
  Q_DISABLE_COPY(Browser)
  QStringList opened;

 public slots:
  void Open(const QUrl& url) { opened.push_back(url.toString(QUrl::FullyEncoded)); }
};

TEST_F(WindowTest, TheSelectedWordIsLookedUp) {
  Browser browser;
  ASSERT_TRUE(Start());
  Search("c?t");
  Key(Qt::Key_F5);
  EXPECT_EQ(browser.opened, QStringList());
  SelectEntry(1);
  Store("Options", "Weblink", "5");
  Key(Qt::Key_F5);
  ASSERT_EQ(browser.opened.size(), 1);
  EXPECT_TRUE(browser.opened[0].endsWith("/search?hl=en&q=cot&x=15&y=12")) << ToText(browser.opened[0]);
  EXPECT_EQ(Status(), "Attempting to look up definition for 'cot'");
  Click("cbUpperCase");
  Click("rbSortAlpha");
  SelectEntry(0);
  Click("cmdWebLink");
  ASSERT_EQ(browser.opened.size(), 2);
  EXPECT_TRUE(browser.opened[1].contains("q=CAT&"));
  Store("Options", "Weblink", "7");
  Click("cmdWebLink");
  EXPECT_EQ(browser.opened.size(), 2);
}

TEST_F(WindowTest, TheResourceIsChosen) {
  ASSERT_TRUE(Start());
  NewLog();
  door.scripts.push_back([this](QDialog& dialog) {
    EXPECT_TRUE(In<QRadioButton>(dialog, "rbWeblink1")->isChecked());
    ClickOn(In(dialog, "rbWeblink5"));
    EXPECT_EQ(Setting("Options", "Weblink"), "5");
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  Key(Qt::Key_F6);
  EXPECT_EQ(Text("lblWebLink"), "Merriam-Webster");
  EXPECT_EQ(NewLog(), Texts{});
  door.scripts.push_back([](QDialog& dialog) {
    EXPECT_TRUE(In<QRadioButton>(dialog, "rbWeblink5")->isChecked());
    ClickOn(In(dialog, "cmdOK"));
  });
  Click("lblWebLink");
  EXPECT_EQ(Text("lblWebLink"), "Google Search");
  EXPECT_EQ(NewLog(), Texts{"WEBLINK Web-link resource defined as 'Google Search'"});
  Store("Options", "Weblink", "9");
  door.scripts.push_back(Press("cmdOK"));
  Key(Qt::Key_F6);
  EXPECT_EQ(Text("lblWebLink"), "Google Search");
  Store("Options", "Weblink", "3");
  Stop();
  ASSERT_TRUE(Start());
  EXPECT_EQ(Text("lblWebLink"), "Dictionary.com (thesaurus)");
}

}  // namespace
}  // namespace quorvane::test

#include "print_window_test.moc"
