// Lexicons in the window: another one, one that cannot be used, one made of results; and where results are saved.

#include "tests/window/window_fixture.h"

namespace quorvane::test {
namespace {

class LexiconWindowTest : public WindowTest {
 protected:
  // A script that chooses an entry of the list of lexicons.
  static std::function<void(QDialog&)> Take(const QString& name, bool doubleClick = false) {
    return [=](QDialog& dialog) {
      auto* list = In<QListWidget>(dialog, "fbList");
      const auto items = list->findItems(name, Qt::MatchExactly);
      ASSERT_EQ(items.size(), 1) << ToText(name);
      const QPoint place = list->visualItemRect(items.front()).center();
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
      if (doubleClick) {
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
      } else {
        ClickOn(In(dialog, "cmdOK"));
      }
    };
  }
};

TEST_F(LexiconWindowTest, AnotherLexiconIsLoadedByOkAndByDoubleClick) {
  dir.Write("Short.LEX", "dog\r\n");
  dir.Write("notes.txt", "x\r\n");
  for (const bool doubleClick : {false, true}) {
    ASSERT_TRUE(Start());
    Search("c?t");
    NewLog();
    door.scripts.push_back([&](QDialog& dialog) {
      auto* list = In<QListWidget>(dialog, "fbList");
      EXPECT_EQ(list->count(), 2);
      EXPECT_EQ(list->currentItem()->text(), "words.lex");
      EXPECT_EQ(In<QLabel>(dialog, "lblCurrLex")->text(), "words.lex");
      Take("Short.LEX", doubleClick)(dialog);
    });
    Key(Qt::Key_F7);
    EXPECT_EQ(door.TakeText(), "    New lexicon file\n\n    Short.LEX\n\nhas been loaded\nwith 1 words.");
    EXPECT_EQ(NewLog(), Texts{"NEWLEX 1 words defined in lexicon file 'Short.LEX'"});
    EXPECT_EQ(Setting("Locations", "LexiconFile"), "Short.LEX");
    EXPECT_EQ(Text("lblLex"), "Short.LEX");
    // The results of the other lexicon stay, and can be sorted.
    EXPECT_EQ(Entries(), (Texts{"cat", "cot"}));
    Click("rbSortLength");
    EXPECT_EQ(Entries(), (Texts{"cat", "cot"}));
    Search("d*");
    EXPECT_EQ(Entries(), Texts{"dog"});
    door.scripts.push_back(Take("words.lex"));
    Click("lblLex");
    door.TakeText();
    Search("d*");
    EXPECT_EQ(Entries(), Texts{"deed"});
    Stop();
  }
}

TEST_F(LexiconWindowTest, CancelAndNoSelectionKeepTheLexicon) {
  dir.Write("other.lex", "dog\r\n");
  ASSERT_TRUE(Start());
  NewLog();
  door.scripts.push_back(Press("cmdCancel"));
  Item("menNewLex")->trigger();
  door.scripts.push_back([](QDialog& dialog) {
    In<QListWidget>(dialog, "fbList")->clearSelection();
    In<QListWidget>(dialog, "fbList")->setCurrentItem(nullptr);
    ClickOn(In(dialog, "cmdOK"));
    EXPECT_TRUE(dialog.isVisible());
  });
  Item("menNewLex")->trigger();
  EXPECT_EQ(NewLog(), Texts{});
  EXPECT_EQ(Text("lblLex"), "words.lex");
  EXPECT_EQ(door.TakeText(), "");
}

TEST_F(LexiconWindowTest, AnUnusableLexiconEndsTheProgramAndIsNotKept) {
  struct Row {
    const char* name;
    std::string bytes;
    const char* code;
    bool dialog;
  };
  std::string runs;
  for (int i = 0; i < 27; ++i) {
    runs += i % 2 == 0 ? "a\r\n" : "b\r\n";
  }
  for (const auto& [name, bytes, code, dialog] : {
           Row{"initial.lex", "abbey\r\n\xE9lan\r\n", "LIST_ERR", true},
           Row{"long.lex", std::string(91, 'a') + "\r\n", "LIST_ERR", true},
           Row{"unsorted.lex", runs, "NOTALPHA", false},
           Row{"removed.lex", "dog\r\n", "LIST_ERR", true},
       }) {
    dir.Write(name, bytes);
    ASSERT_TRUE(Start());
    NewLog();
    exits.clear();
    door.TakeDialogs();
    door.scripts.push_back([&, file = name](QDialog& opened) {
      if (std::string(file) == "removed.lex") {
        std::filesystem::remove(dir.File(file));
      }
      Take(file)(opened);
    });
    if (dialog) {
      door.scripts.push_back(Press("cmdExit"));
    }
    Key(Qt::Key_F7);
    EXPECT_EQ(door.TakeDialogs(), dialog ? (Texts{"frmNewLex", "frmLexProblem"}) : Texts{"frmNewLex"}) << name;
    EXPECT_EQ(door.questions.size(), dialog ? 0U : 1U) << name;
    door.TakeText();
    EXPECT_EQ(exits, std::vector<int>{1}) << name;
    const Texts entries = NewLog();
    ASSERT_EQ(entries.size(), 2U) << name;
    EXPECT_TRUE(entries[0].starts_with(code)) << entries[0];
    EXPECT_EQ(entries[1], "SHUTDOWN Closing application");
    EXPECT_EQ(Setting("Locations", "LexiconFile"), "words.lex");
    window.reset();
    std::filesystem::remove(dir.File(name));
  }
  EXPECT_TRUE(Start());
}

TEST_F(LexiconWindowTest, AMissingLexiconAtStartFallsBack) {
  Store("Locations", "LexiconFile", "gone.lex");
  ASSERT_TRUE(Start());
  ASSERT_EQ(door.questions.size(), 1U);
  EXPECT_TRUE(door.questions[0].critical);
  EXPECT_EQ(door.TakeText(), "Lexicon file specified \n\n" + dir.File("gone.lex") +
                                 "\n\ncould not be found.  Defaulting to use 'words.lex'.");
  EXPECT_EQ(Setting("Locations", "LexiconFile"), "words.lex");
  EXPECT_EQ(CountLog("WORDCT 18 words defined in lexicon file 'words.lex'"), 1);
  Stop();
  std::filesystem::remove(dir.File("words.lex"));
  exits.clear();
  door.scripts.push_back(Press("cmdExit"));
  EXPECT_FALSE(Start());
  EXPECT_EQ(exits, std::vector<int>{1});
  EXPECT_EQ(CountLog("END "), 1);
  EXPECT_EQ(CountLog("SHUTDOWN "), 2);
}

TEST_F(LexiconWindowTest, ResultsBecomeALexicon) {
  ASSERT_TRUE(Start());
  EXPECT_FALSE(Item("menSaveAsLex")->isEnabled());
  Search("*a*");
  Click("rbSortLengthRev");
  NewLog();
  door.scripts.push_back([this](QDialog& dialog) {
    auto* name = In<QLineEdit>(dialog, "tbName");
    QTest::keyClicks(name, "My Words!");
    EXPECT_EQ(name->text(), "my words");
    name->setCursorPosition(2);
    QTest::keyClicks(name, "/X.");
    EXPECT_EQ(name->text(), "myx words");
    EXPECT_EQ(name->cursorPosition(), 3);
    name->selectAll();
    QTest::keyClicks(name, "!/.\\");
    EXPECT_EQ(name->text(), "");
    QTest::keyClicks(name, "words");
    ClickOn(In(dialog, "cmdOK"));
    EXPECT_EQ(door.TakeText(), "Lexicon file 'words' already exists.  Choose another name.");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(name->text(), "");
    EXPECT_TRUE(name->hasFocus());
    QTest::keyClicks(name, "a-list_1");
    ClickOn(In(dialog, "cmdOK"));
  });
  Item("menSaveAsLex")->trigger();
  EXPECT_EQ(Status(), "Current word list has been saved as lexicon \"a-list_1\"");
  EXPECT_EQ(NewLog(), Texts{"SAVELEX Wordlist has been saved as a new Lexicon 'a-list_1'"});
  EXPECT_EQ(ReadFile(dir.File("a-list_1.lex")),
            "kayak\r\nabba\r\naha\r\nbat\r\ncat\r\neat\r\ntab\r\ntea\r\nab\r\na\r\n");
  EXPECT_EQ(Text("lblLex"), "words.lex");
  // An ordinary save afterwards has its header again.
  Key(Qt::Key_F8);
  EXPECT_TRUE(ReadFile(dir.File("outlist.txt")).starts_with("10 words found"));
  for (const char* button : {"cmdCancel", "cmdOK"}) {  // No name was given.
    NewLog();
    door.scripts.push_back(Press(button));
    Item("menSaveAsLex")->trigger();
    EXPECT_EQ(NewLog(), Texts{});
    EXPECT_EQ(Status(), "Current wordlist has been saved");
  }
}

class AmendTest : public WindowTest {
 protected:
  void Amend(const std::function<void(QDialog&)>& script) {
    door.scripts.push_back(script);
    Item("menFileSaveFile")->trigger();
    EXPECT_EQ(door.TakeDialogs(), Texts{"frmAmend"});
  }
  static void Name(QDialog& dialog, const QString& name) {
    auto* box = In<QLineEdit>(dialog, "tbNewFileName");
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, name);
  }
};

TEST_F(AmendTest, NamesOfTheResultsFile) {
  std::filesystem::create_directory(dir.File("elsewhere"));
  dir.Write("elsewhere/old.txt", "");
  struct Row {
    const char* name;
    bool inProgramDirectory;
    const char* path;  // Below the directory.
  };
  for (const auto& [name, inProgramDirectory, path] : {
           Row{"found", false, "elsewhere/found.txt"},
           Row{"found.lst", false, "elsewhere/found.lst"},
           Row{"found", true, "found.txt"},
           Row{"a b.c.d", true, "a b.c.d"},
       }) {
    Store("Locations", "SaveFileName", dir.File("elsewhere/old.txt"));
    ASSERT_TRUE(Start());
    NewLog();
    Amend([&](QDialog& dialog) {
      EXPECT_EQ(In<QLineEdit>(dialog, "tbNewFileName")->text(), "old.txt");
      EXPECT_FALSE(In<QCheckBox>(dialog, "cbSaveInAppDir")->isChecked());
      Name(dialog, name);
      if (inProgramDirectory) {
        ClickOn(In(dialog, "cbSaveInAppDir"));
      }
      ClickOn(In(dialog, "ApplyModify"));
      EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(Setting("Locations", "SaveFileName"), dir.File(path));
    EXPECT_EQ(NewLog(), Texts{"SAV-UPD Updated save filename: <dir>/" + std::string(path) +
                              (inProgramDirectory ? " (saved in Quorvane directory, <dir>)" : "")});
    Search("c?t");
    EXPECT_TRUE(ReadFile(dir.File(path)).starts_with("2 words found"));
    Stop();
  }
}

TEST_F(AmendTest, RefusalsAndCancelStoreNothing) {
  std::filesystem::create_directory(dir.File("gone"));
  dir.Write("gone/x.txt", "");
  Store("Locations", "SaveFileName", dir.File("gone/x.txt"));
  ASSERT_TRUE(Start());
  NewLog();
  Amend([this](QDialog& dialog) {
    Name(dialog, "");
    ClickOn(In(dialog, "ApplyModify"));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(door.questions.size(), 1U);
    Name(dialog, "a/b");
    ClickOn(In(dialog, "ApplyModify"));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(door.questions.size(), 2U);
    Name(dialog, "..");
    ClickOn(In(dialog, "ApplyModify"));
    EXPECT_EQ(ToText(door.questions.back().text), dir.File("gone") + "/.. is a directory.");
    Name(dialog, "other");
    ClickOn(In(dialog, "CancelModify"));
  });
  EXPECT_EQ(Setting("Locations", "SaveFileName"), dir.File("gone/x.txt"));
  EXPECT_EQ(NewLog(), Texts{});
}

TEST_F(AmendTest, OnlyAWordListIsReplacedWithoutAQuestion) {
  ASSERT_TRUE(Start());
  dir.Write("notes.txt", "my notes");
  dir.Write("old.txt", "12 palindromes found matching the word pattern \"a*\"\r\n");
  std::filesystem::create_symlink(dir.File("words.lex"), dir.File("link.txt"));
  const struct {
    const char* name;
    const char* said;
    bool stored;
  } cases[] = {
      {"words.lex", " is the name of a lexicon; a word list is not saved over it.", false},
      {"NEW.LEX", " is the name of a lexicon; a word list is not saved over it.", false},
      {"link.txt", " is the lexicon in use; a word list is not saved over it.", false},
      {"quorvane.log", " is the log; a word list is not saved over it.", false},
      {"quorvane.conf", " is the settings file; a word list is not saved over it.", false},
      {"notes.txt", " is not a word list of this program. Replace it?", false},
      {"notes.txt", " is not a word list of this program. Replace it?", true},
      {"old.txt", "", true},
      {"missing", "", true},
  };
  for (const auto& [name, said, stored] : cases) {
    SCOPED_TRACE(name);
    const std::string before = Setting("Locations", "SaveFileName");
    door.TakeText();
    door.answers = {stored ? Answer::Ok : Answer::Cancel};
    Amend([&, name = name](QDialog& dialog) {
      Name(dialog, name);
      ClickOn(In(dialog, "ApplyModify"));
      EXPECT_EQ(dialog.isVisible(), !stored);
    });
    EXPECT_EQ(door.TakeText(), *said == '\0' ? "" : dir.File(name) + said);
    EXPECT_EQ(Setting("Locations", "SaveFileName") != before, stored);
  }
  // Whatever the settings say, nothing of the program's own is written over.
  const std::string words = ReadFile(dir.File("words.lex"));
  Store("Locations", "SaveFileName", dir.File("words.lex"));
  Search("c?t");
  Search("c*");
  EXPECT_EQ(door.TakeText(), "The word list could not be saved: " + dir.File("words.lex") + cases[0].said)
      << "said once";
  Key(Qt::Key_F8);
  EXPECT_NE(door.TakeText(), "");
  EXPECT_EQ(ReadFile(dir.File("words.lex")), words);
}

TEST_F(AmendTest, ADirectoryThatIsGoneIsNamed) {
  ASSERT_TRUE(Start());
  Store("Locations", "SaveFileName", dir.File("gone/deep/mine.txt"));
  Amend([this](QDialog& dialog) {
    ClickOn(In(dialog, "ApplyModify"));
    EXPECT_TRUE(door.TakeText().starts_with("The directory " + dir.File("gone/deep") + " does not exist."));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Setting("Locations", "SaveFileName"), dir.File("gone/deep/mine.txt"));
    ClickOn(In(dialog, "ApplyModify"));
  });
  EXPECT_EQ(Setting("Locations", "SaveFileName"), dir.File("mine.txt"));
}

}  // namespace
}  // namespace quorvane::test
