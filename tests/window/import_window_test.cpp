// Word lists that become lexicons in the window, and what is dropped on it.

#include <sys/stat.h>

#include "tests/support/file_size_limit.h"
#include "tests/window/window_fixture.h"

namespace quorvane::test {
namespace {

class ImportTest : public WindowTest {
 protected:
  static std::string Report(QDialog& dialog) { return ToText(In<QPlainTextEdit>(dialog, "txtReport")->toPlainText()); }
  static void Fill(QDialog& dialog, const char* name, const QString& text) {
    auto* box = In<QLineEdit>(dialog, name);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
  }
  void Import(const std::function<void(QDialog&)>& script) {
    door.scripts.push_back(script);
    Key(Qt::Key_F7, Qt::ShiftModifier);
  }
  // Whether the control takes the files, or a text, which are dropped on it when it does.
  bool Drop(const char* control, const Texts& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& path : paths) {
      urls << QUrl::fromLocalFile(FromText(path));
    }
    data.setUrls(urls);
    data.setText("c");
    QDragEnterEvent enter({2, 2}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(Find(control), &enter);
    QDropEvent drop({2, 2}, Qt::CopyAction, &data, Qt::LeftButton, {});
    if (enter.isAccepted()) {
      QApplication::sendEvent(Find(control), &drop);
    }
    QApplication::processEvents();
    return enter.isAccepted();
  }
};

TEST_F(ImportTest, ASpreadsheetBecomesTheLexiconInUse) {
  dir.Write("My Sheet!.csv",
            "Nr;Word\n1;Caf\xC3\xA9\n2;New York\n3;\"ice;cream\"\n4;cafe\n5;it's\n6;\"zoo\nkeeper\"\n7\n");
  ASSERT_TRUE(Start());
  NewLog();
  Import([&](QDialog& dialog) {
    auto* make = In(dialog, "cmdOK");
    EXPECT_FALSE(make->isEnabled());
    Fill(dialog, "tbImportFile", "My Sheet!.csv");
    QTest::keyClick(In(dialog, "tbImportFile"), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible() && make->isEnabled()) << "Enter shows the file";
    auto* table = In<QTableWidget>(dialog, "tblLines");
    EXPECT_EQ(In<QComboBox>(dialog, "cbSeparator")->currentText(), "found by itself: semicolons");
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Right);
    EXPECT_EQ(In<QSpinBox>(dialog, "sbColumn")->value(), 2) << "the table chooses the column, too";
    ClickOn(In(dialog, "cbHeading"));
    EXPECT_EQ(table->horizontalHeaderItem(1)->text(), "2  Word");
    EXPECT_EQ(table->item(0, 1)->text(), "Caf\u00E9");
    ChooseIn(In<QComboBox>(dialog, "cbPhrases"), "joined");
    EXPECT_NE(Report(dialog).find("1 joined ('New York' becomes newyork)"), std::string::npos) << Report(dialog);
    EXPECT_EQ(In<QLineEdit>(dialog, "tbSaveAs")->text(), "my sheet");
    Fill(dialog, "tbSaveAs", "mine/!");
    ClickOn(make);
  });
  EXPECT_EQ(ReadFile(dir.File("mine.lex")), "cafe\r\nnewyork\r\n");
  EXPECT_EQ(
      door.TakeText(),
      "The lexicon mine.lex has been made.\n\n8 lines, 1 more within quotes: 1 word, 1 joined ('New York' becomes "
      "newyork), 1 heading ('Nr;Word'), 1 repeated ('cafe'), 4 left out: 3 with characters other than letters "
      "('ice;cream', 'it's', 'zoo\\x0Akeeper'), 1 without that column ('7') |     New lexicon file\n\n    mine.lex"
      "\n\nhas been loaded\nwith 2 words.");
  EXPECT_EQ(NewLog(), Texts{"NEWLEX 2 words defined in lexicon file 'mine.lex'"});
  EXPECT_EQ(Setting("Locations", "LexiconFile") + Text("lblLex"), "mine.lexmine.lex");
  Search("n*");
  EXPECT_EQ(Entries(), Texts{"newyork"});
}

// Whatever is wrong is said, and the lexicon in use, the one of that name and the list stay as they are.
TEST_F(ImportTest, WhatCannotBeImportedIsSaidAndLosesNothing) {
  const std::string words = ReadFile(dir.File("words.lex"));
  dir.Write("old.lex", "old\r\n");
  mkfifo(dir.File("pipe").c_str(), 0600);
  std::filesystem::resize_file(dir.Write("sparse", ""), uintmax_t{3} << 30);
  dir.Write("line.txt", std::string(size_t{6} << 20, 'x'));
  std::string tooMany;
  for (int i = 0; i < 2'000'001; ++i) {
    for (int rest = i, digit = 0; digit < 5; ++digit, rest /= 26) {
      tooMany += static_cast<char>('a' + rest % 26);
    }
    tooMany += '\n';
  }
  dir.Write("many.txt", tooMany);
  dir.Write("good.txt", "cat\n");
  ASSERT_TRUE(Start());
  NewLog();
  const struct {
    std::string file, name;
    const char *report, *said;  // While choosing; when it is to be made, null where it can't be.
    int column = 1;
  } cases[] = {
      {"", "old", "Choose a file: plain text, one word a line, or a table whose lines hold a word each.", nullptr},
      {"pipe", "old", "Can't read <dir>/pipe: it is a pipe, not a file", nullptr},
      {"sparse", "old", "Can't read <dir>/sparse: it is larger than 1 GB, the most", nullptr},
      {dir.Write("empty", ""), "old", "0 lines: 0 words", "No lexicon was made of <dir>/empty: no word was kept."},
      {dir.Write("nuls", std::string("a\0b\n", 4)), "old", "1 line: 0 words, 1 left out: 1 with characters other",
       "No lexicon was made of <dir>/nuls: no word was kept."},
      {"line.txt", "old", "Of the first 1 line: 0 words, 1 left out: 1 longer",
       "No lexicon was made of <dir>/line.txt: no word was kept."},
      {"many.txt", "old", "Of the first 100,000 lines: 100,000 words",
       "No lexicon was made of <dir>/many.txt: 2,000,001 words are more than a lexicon holds (2,000,000)."},
      {"good.txt", "old", "1 line: 0 words, 1 left out: 1 without that column ('cat')",
       "No lexicon was made of <dir>/good.txt: no word was kept.", 2},
      {"good.txt", "words", "1 line: 1 word",
       "<dir>/words.lex is the lexicon in use, which can't be replaced. Choose another name."},
      {"good.txt", "old", "1 line: 1 word", "The lexicon could not be written to <dir>/old.lex: File too large"},
  };
  const auto local = [this](std::string text) {
    for (size_t at = text.find(dir.path()); at != std::string::npos; at = text.find(dir.path())) {
      text.replace(at, dir.path().size(), "<dir>");
    }
    return text;
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.file);
    Import([&](QDialog& dialog) {
      Fill(dialog, "tbImportFile", FromText(row.file));
      In(dialog, "sbColumn")->setFocus();
      Fill(dialog, "tbSaveAs", FromText(row.name));
      In<QSpinBox>(dialog, "sbColumn")->setValue(row.column);
      EXPECT_TRUE(local(Report(dialog)).starts_with(row.report)) << Report(dialog);
      const FileSizeLimit full(2);
      QTest::keyClick(In(dialog, "tbSaveAs"), Qt::Key_Return);
      EXPECT_TRUE(dialog.isVisible());
    });
    const std::string asked = "<dir>/old.lex is there already. Replace it? | ";
    const bool asks = row.said != nullptr && row.name == "old";
    EXPECT_EQ(local(door.TakeText()), (asks ? asked : "") + (row.said == nullptr ? "" : row.said));
  }
  door.answers = {Answer::Cancel};
  Import([&](QDialog& dialog) {
    Fill(dialog, "tbImportFile", "good.txt");
    Fill(dialog, "tbSaveAs", "old");
    ClickOn(In(dialog, "cmdOK"));
  });
  EXPECT_EQ(ReadFile(dir.File("old.lex")) + ReadFile(dir.File("words.lex")), "old\r\n" + words);
  EXPECT_EQ(Text("lblLex"), "words.lex");
  EXPECT_EQ(NewLog(), Texts{});
}

TEST_F(ImportTest, WhatIsDroppedOnTheWindow) {
  const std::string list = dir.Write("list.txt", "dog\n");
  dir.Write("short.lex", "dog\r\n");
  dir.Write("bad.lex", "abbey\r\n\xE9lan\r\n");
  ASSERT_TRUE(Start());
  NewLog();
  for (const char* control : {"tbInput", "lbWordList", "central"}) {
    door.scripts.push_back([&](QDialog& dialog) {
      EXPECT_EQ(In<QLineEdit>(dialog, "tbImportFile")->text(), FromText(list));
      EXPECT_FALSE(Drop("tbInput", {list})) << "a dialog is open";
    });
    EXPECT_TRUE(Drop(control, {list})) << control;
    EXPECT_EQ(door.TakeDialogs(), Texts{"frmImport"});
  }
  Drop("tbInput", {list, list, list});
  EXPECT_EQ(door.TakeText(), "Drop one file at a time: these were 3.");
  Drop("tbInput", {dir.path()});
  EXPECT_EQ(door.TakeText(), "Can't read " + dir.path() + ": Is a directory");
  EXPECT_EQ(NewLog(), Texts{});
  // A lexicon of the program's directory is opened; one that is none is not, and the program goes on.
  Drop("lbWordList", {dir.File("short.lex")});
  EXPECT_EQ(Text("lblLex") + NewLog().front(), "short.lexNEWLEX 1 words defined in lexicon file 'short.lex'");
  door.TakeText();
  Drop("lbWordList", {dir.File("bad.lex")});
  EXPECT_EQ(door.TakeText(),
            "The lexicon bad.lex can't be used, and the one in use stays. Word list error at word #2 "
            "(\u00E9lan).  Err=9");
  EXPECT_EQ(Text("lblLex") + Setting("Locations", "LexiconFile"), "short.lexshort.lex");
  EXPECT_TRUE(exits.empty());
  Search("d*");
  EXPECT_EQ(Entries(), Texts{"dog"});
  EXPECT_EQ(door.TakeDialogs(), Texts{});
  // A text goes into the box, and nowhere else.
  EXPECT_FALSE(Drop("lbWordList", {}));
  Type("");
  EXPECT_TRUE(Drop("tbInput", {}));
  EXPECT_EQ(Text("tbInput"), "c");
}

}  // namespace
}  // namespace quorvane::test
