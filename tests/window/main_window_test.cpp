// The main window as a person uses it: keys, clicks, menus, and what it says.

#include "tests/window/window_fixture.h"

namespace quorvane::test {
namespace {

using Keys = std::vector<Qt::Key>;

const std::string kSeparator(80, '=');
const std::string kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

class MainWindowTest : public WindowTest {
 protected:
  std::vector<std::string> TickedModes() {
    std::vector<std::string> ticked;
    for (const char* name :
         {"menWordTypeWordList", "menWordTypePalindrome", "menWordTypeAnagram", "menWordTypeAnagramExact"}) {
      if (Item(name)->isChecked()) {
        ticked.push_back(name);
      }
    }
    return ticked;
  }
};

TEST_F(MainWindowTest, AFirstStartIsReadyAndWritesItsDiaryInOrder) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(ToText(window->windowTitle()), "Quorvane  v" + VersionText() + "  ");
  EXPECT_EQ(Status(), "Please enter a word selection.");
  EXPECT_TRUE(StatusIsBold());
  EXPECT_EQ(
      Log(),
      (Texts{kSeparator, "START Application started (v" + VersionText() + ", compiled " + BuildDate() + ")",
             "EMP-OUT An empty output file, <dir>/outlist.txt, was created",
             "WORDCT 18 words defined in lexicon file 'words.lex'", "SELECTS Inc #" + kAlphabet + "   Exc !   Scr ="}));
  EXPECT_EQ(ReadFile(dir.File("outlist.txt")), "Dummy file - this will be replaced by your selection.\r\n");
  EXPECT_EQ(TickedModes(), Texts{"menWordTypeWordList"});
  EXPECT_EQ(Text("btnFindWords"), "&Words");
  EXPECT_EQ(Text("cmdFontToggle"), "Fix&ed width");
  EXPECT_EQ(ToText(Item("menScrabbleChars")->text()), "F4: &Scrabble chars for =   ... currently []");
  EXPECT_EQ(Text("lblLex"), "words.lex");
  EXPECT_EQ(Text("lblWebLink"), "Merriam-Webster");
  EXPECT_TRUE(Find("tbInput")->hasFocus());
  for (const char* name : {"menFilePrint", "menFileSaveData", "menSaveAsLex"}) {
    EXPECT_FALSE(Item(name)->isEnabled()) << name;
  }
  for (const char* name : {"cmdPrint", "cmdWebLink"}) {
    EXPECT_FALSE(Find(name)->isEnabled()) << name;
  }
  EXPECT_TRUE(door.questions.empty());
  EXPECT_TRUE(failures.empty());
}

// Wherever the focus is, a list box that has keys of its own included.
TEST_F(MainWindowTest, FunctionKeysOpenTheirWindows) {
  dir.Write("Quorvane.hlp", "<p>Help</p>");
  ASSERT_TRUE(Start());
  Search("c*t");
  const std::vector<std::pair<Qt::Key, const char*>> keys = {
      {Qt::Key_F1, "frmHelp"},
      {Qt::Key_F2, "frmChangeSelectChars"},
      {Qt::Key_F3, "frmChangeExcludeChars"},
      {Qt::Key_F4, "frmChangeScrabbleChars"},
      {Qt::Key_F6, "frmWeblinkChoice"},
      {Qt::Key_F7, "frmNewLex"},
  };
  for (const char* focus : {"tbInput", "cbLenFr", "cbLenTo", "lbWordList", "rbPalindrome", "cmdClear", "lblWebLink"}) {
    for (const auto& [key, dialog] : keys) {
      Find(focus)->setFocus();
      ASSERT_TRUE(Find(focus)->hasFocus()) << focus;
      Key(key);
      EXPECT_EQ(door.TakeDialogs(), Texts{dialog}) << focus;
      EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << focus;
      // With a modifier the key is not that command.
      Key(key, Qt::ShiftModifier);
      EXPECT_EQ(door.TakeDialogs(), key == Qt::Key_F7 ? Texts{"frmImport"} : Texts{}) << focus;
    }
  }
}

TEST_F(MainWindowTest, KeysItemsAndButtonsChooseTheMode) {
  ASSERT_TRUE(Start());
  struct Mode {
    Qt::Key key;
    const char *item, *button, *caption;
  };
  const Mode words{Qt::Key_F9, "menWordTypeWordList", "rbQuorvane", "&Words"};
  const Mode palindromes{Qt::Key_F10, "menWordTypePalindrome", "rbPalindrome", "Pali&ndrome"};
  const Mode all{Qt::Key_F11, "menWordTypeAnagram", "rbAnagram", "&Anagrams"};
  const Mode exact{Qt::Key_F12, "menWordTypeAnagramExact", "rbAnagramExact", "&Anagrams"};
  struct Row {
    const char* text;
    const Mode &wanted, &chosen;
  };
  for (const auto& [text, wanted, chosen] : {
           Row{"noon", palindromes, palindromes},
           Row{"noon", words, words},
           Row{"noon", all, all},
           Row{"noon", exact, exact},
           Row{"n*n", words, words},
           Row{"n*n", all, words},
           Row{"n*n", exact, words},
           Row{"n*n", palindromes, palindromes},
       }) {
    for (const char* way : {"key", "item", "button"}) {
      SCOPED_TRACE(std::string(text) + " " + wanted.item + " by " + way);
      Key(Qt::Key_F9);
      Type(text);
      Find("cbLenTo")->setFocus();
      const bool byKey = way == std::string_view("key");
      if (byKey) {
        Key(wanted.key);
      } else if (way == std::string_view("item")) {
        Item(wanted.item)->trigger();
      } else {
        Click(wanted.button);
      }
      EXPECT_EQ(TickedModes(), Texts{chosen.item});
      EXPECT_TRUE(Find<QRadioButton>(chosen.button)->isChecked());
      EXPECT_EQ(Text("btnFindWords"), chosen.caption);
      EXPECT_EQ(Find("tbInput")->hasFocus(), byKey && &wanted == &chosen);
    }
  }
  Type("%1n");
  EXPECT_FALSE(Item("menWordTypePalindrome")->isEnabled() || Find("rbPalindrome")->isEnabled());
}

TEST_F(MainWindowTest, LookUpAndSaveKeysActOnlyWhileTheirCommandsDo) {
  ASSERT_TRUE(Start());
  Find<QCheckBox>("cbSaveToFile")->setChecked(false);
  Key(Qt::Key_F5);
  Key(Qt::Key_F8);
  EXPECT_EQ(Status(), "Please enter a word selection.");
  Search("c?t");
  EXPECT_FALSE(Find("pbBar")->isVisible());
  NewLog();
  Key(Qt::Key_F5);  // Nothing is selected.
  EXPECT_EQ(Status(), "2 words found");
  Key(Qt::Key_F8);
  EXPECT_EQ(Status(), "Current wordlist has been saved");
  EXPECT_EQ(NewLog(), Texts{"SAVE Wordlist has been saved"});
  EXPECT_EQ(ReadFile(dir.File("outlist.txt")),
            "2 words found matching the word pattern \"c?t\"\r\n\r\n--- START OF LIST ---\r\ncat\r\ncot\r\n"
            "--- END OF LIST ---\r\n");
  Search("q*");
  Key(Qt::Key_F8);
  EXPECT_EQ(Status(), "0 words found");
  EXPECT_EQ(CountLog("SAVE Wordlist"), 1);
}

TEST_F(MainWindowTest, FunctionKeysAreSilentWhileADialogIsOpen) {
  ASSERT_TRUE(Start());
  door.scripts.push_back([this](QDialog& dialog) {
    for (const Qt::Key key : {Qt::Key_F3, Qt::Key_F4, Qt::Key_F7, Qt::Key_F11}) {
      QTest::keyClick(dialog.windowHandle(), key);
      QTest::keyClick(In(dialog, "tbChangeInput"), key);
      QTest::keyClick(Find("tbInput"), key);
    }
    EXPECT_EQ(door.dialogs.size(), 1U);
  });
  Key(Qt::Key_F2);
  EXPECT_EQ(door.TakeDialogs(), Texts{"frmChangeSelectChars"});
  EXPECT_EQ(TickedModes(), Texts{"menWordTypeWordList"});
}

TEST_F(MainWindowTest, WindowsOfHelp) {
  std::filesystem::copy_file(QUORVANE_HELP, dir.File("Quorvane.hlp"));
  ASSERT_TRUE(Start());
  // The lines of both labels side by side.
  const auto rows = [](QDialog& dialog, const char* left, const char* right) {
    const QStringList a = In<QLabel>(dialog, left)->text().split('\n');
    const QStringList b = In<QLabel>(dialog, right)->text().split('\n');
    std::map<std::string, std::string> both;
    for (int i = 0; i < std::min(a.size(), b.size()); ++i) {
      both[ToText(a[i])] = ToText(b[i]);
    }
    return both;
  };
  door.scripts = {[&](QDialog& dialog) {
                    EXPECT_EQ(rows(dialog, "lblLet1", "lblCnt1")["A"] + rows(dialog, "lblLet2", "lblCnt2")["T"], "43");
                  },
                  [&](QDialog& dialog) {
                    EXPECT_EQ(rows(dialog, "lblLet1", "lblCnt1")["4"] + rows(dialog, "lblLet2", "lblCnt2")["26+"],
                              "30");
                  },
                  [&](QDialog& dialog) { EXPECT_EQ(rows(dialog, "lblWildList", "lblWildDesc")["@"], "any vowel"); },
                  [](QDialog& dialog) {
                    const QString text = In<QTextEdit>(dialog, "helpText")->toPlainText();
                    EXPECT_TRUE(text.contains("@\nany vowel\n")) << ToText(text);
                  }};
  door.scripts.push_back([this](QDialog& dialog) {
    EXPECT_EQ(In<QLabel>(dialog, "lblWordCount")->text(), "18");
    EXPECT_EQ(In<QLabel>(dialog, "lblSettings")->text(), FromText(dir.File("quorvane.conf")));
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    ClickOn(In(dialog, "cmdSysInfo"));
    qputenv("PATH", path);
    EXPECT_EQ(door.TakeText(), "System Information Is Unavailable At This Time");
  });
  for (const char* item : {"menHelpByLetter", "menHelpByLength", "menWildcardSumm", "menHelpHelp", "menHelpAbout"}) {
    Item(item)->trigger();
  }
  EXPECT_EQ(door.TakeDialogs(), (Texts{"frmInfoLetter", "frmInfoLength", "frmWildSumm", "frmHelp", "frmAbout"}));
  std::filesystem::remove(dir.File("Quorvane.hlp"));
  Key(Qt::Key_F1);
  EXPECT_NE(door.TakeText().find(dir.File("Quorvane.hlp")), std::string::npos);
}

TEST_F(MainWindowTest, TypingExplainsAndRefuses) {
  ASSERT_TRUE(Start());
  Store("Selection", "ExcludedChars", "Aeiou");
  constexpr const char* kUnchanged = "(unchanged)";
  struct Row {
    const char *typed, *kept, *status, *letters;
    int beeps;
    bool search;
  };
  for (const auto& [typed, kept, status, letters, beeps, search] : {
           Row{"", "", kUnchanged, "", 0, true},
           Row{"a*b*c*", "a*b*c", "A maximum of two asterisks may be entered", "(min. 3 letters)", 4, true},
           Row{"c!t", "c!t", "'!' currently stands for excluding any of [aeiou]", "(3 letters)", 0, true},
           Row{"a1b2c3", "a1b2c3", "'3' stands for any character; every '3' denotes the same character", "(6 letters)",
               0, true},
           Row{"%2", "%2", nullptr, nullptr, 0, false},
           Row{"%2ab>c", "%2ab>", nullptr, "Words with >=2 counts of 'ab'", 0, true},
           Row{";", ";", nullptr, nullptr, 0, false},
       }) {
    Type("");
    Find<QLabel>("lblStatus")->setText(kUnchanged);
    Find<QLabel>("lblStatus")->setFont({});
    door.beeps = 0;
    QTest::keyClicks(Find("tbInput"), typed);
    EXPECT_EQ(Text("tbInput"), kept) << typed;
    if (status != nullptr) {
      EXPECT_EQ(Status(), status) << typed;
    }
    if (letters != nullptr) {
      EXPECT_EQ(Text("lblNumLetters"), letters) << typed;
    }
    EXPECT_EQ(door.beeps, beeps) << typed;
    EXPECT_EQ(Find("btnFindWords")->isEnabled(), search) << typed;
    if (!search) {
      const std::string before = Status();
      QTest::keyClick(Find("tbInput"), Qt::Key_Return);
      EXPECT_EQ(door.TakeText() + Status(), before) << typed;
    }
    EXPECT_FALSE(StatusIsBold()) << typed;
  }
  Type("ab");  // What is refused leaves the caret where it was.
  Find<QLineEdit>("tbInput")->setCursorPosition(1);
  QTest::keyClicks(Find("tbInput"), "&c");
  EXPECT_EQ(Text("tbInput"), "acb");
}

TEST_F(MainWindowTest, AnEmptyPatternAsksForOne) {
  ASSERT_TRUE(Start());
  Search("c?t");
  Type("");
  Click("btnFindWords");
  EXPECT_EQ(Entries(), (Texts{"cat", "cot"}));
  EXPECT_EQ(CountLog("WORDS "), 1);
  EXPECT_NE(Status(), "2 words found");
}

TEST_F(MainWindowTest, ListDialogs) {
  ASSERT_TRUE(Start());
  struct List {
    Qt::Key key;
    const char *setting, *logged, *label, *item, *name;
  };
  const List inc{Qt::Key_F2, "SelectedChars", "SEL-UPD Updated Inc #[", "lblSelInc", "menSelectChars", "Inclusion"};
  const List exc{Qt::Key_F3, "ExcludedChars", "EXC-UPD Updated Exc ![", "lblSelExc", "menExcludeChars", "Exclusion"};
  const List scr{Qt::Key_F4, "ScrabbleChars", "SCR-UPD Updated Scr =[", "lblSelScr", "menScrabbleChars", "Scrabble"};
  struct Row {
    const List& list;
    const char* typed;   // Key by key, after the old text is gone.
    const char* pasted;  // Instead.
    const char* kept;
  };
  for (const bool ok : {true, false}) {
    for (const auto& [list, typed, pasted, kept] : {
             Row{inc, "abca", nullptr, "abc"},
             Row{inc, "ab1", nullptr, "ab"},
             Row{inc, nullptr, "a1b?a\xC3\xA9 c\nd", "abcd"},
             Row{exc, "", nullptr, ""},
             Row{scr, "aab?-", nullptr, "aab?-"},
             Row{scr, nullptr, "a!?a*-3", "a?a-"},
         }) {
      SCOPED_TRACE(kept);
      Store("Selection", list.setting, "xyz");
      NewLog();
      door.scripts.push_back([&](QDialog& dialog) {
        auto* box = In<QLineEdit>(dialog, "tbChangeInput");
        EXPECT_EQ(box->text(), "xyz");
        EXPECT_EQ(box->cursorPosition(), 3);
        box->selectAll();
        QTest::keyClick(box, Qt::Key_Delete);
        if (pasted != nullptr) {
          QApplication::clipboard()->setText(QString::fromUtf8(pasted));
          QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
        } else {
          QTest::keyClicks(box, typed);
        }
        EXPECT_EQ(ToText(box->text()), kept);
        EXPECT_EQ(box->cursorPosition(), box->text().size());
        if (list.key == Qt::Key_F4) {
          EXPECT_EQ(In<QLabel>(dialog, "lblNoChars")->text(), QString::number(box->text().size()) + " characters");
        }
        ClickOn(In(dialog, ok ? "cmdOK" : "cmdCancel"));
        EXPECT_FALSE(dialog.isVisible());
      });
      Key(list.key);
      const std::string stored = ok ? kept : "xyz";
      EXPECT_EQ(Setting("Selection", list.setting), stored);
      EXPECT_EQ(Text(list.label), stored);
      EXPECT_EQ(Status(), list.name +
                              std::string(ok ? " list is now set to [" : " list was unchanged, and remains as [") +
                              stored + "]");
      EXPECT_EQ(NewLog(), ok ? Texts{list.logged + stored + "]"} : Texts{});
      EXPECT_TRUE(ToText(Item(list.item)->text()).ends_with(" ... currently [" + stored + "]"));
    }
  }
  EXPECT_EQ(ToText(Item("menScrabbleChars")->text()), "F4: &Scrabble chars for = ... currently [xyz]");
  emit Find<QMenu>("menSelect")->aboutToShow();
  EXPECT_EQ(ToText(Item("menScrabbleChars")->text()), "F4: &Scrabble chars for =   ... currently [xyz]");
}

TEST_F(MainWindowTest, AnEmptyIncludeListIsRefused) {
  ASSERT_TRUE(Start());
  door.scripts.push_back([this](QDialog& dialog) {
    auto* box = In<QLineEdit>(dialog, "tbChangeInput");
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Delete);
    ClickOn(In(dialog, "cmdOK"));
    EXPECT_EQ(door.TakeText(), "You must enter at least one character.");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(box->hasFocus());
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  Key(Qt::Key_F2);
  EXPECT_EQ(Setting("Selection", "SelectedChars"), kAlphabet);
  EXPECT_EQ(Status(), "Inclusion list was unchanged, and remains as [abcdefghijklmnopqrstuvwxyz]");
}

TEST_F(MainWindowTest, LabelClicksRunTheirCommands) {
  ASSERT_TRUE(Start());
  for (const auto& [label, dialog] : {std::pair{"lblSelInc", "frmChangeSelectChars"},
                                      {"lblSelIncLit", "frmChangeSelectChars"},
                                      {"lblSelExc", "frmChangeExcludeChars"},
                                      {"lblSelExcLit", "frmChangeExcludeChars"},
                                      {"lblSelScr", "frmChangeScrabbleChars"},
                                      {"lblSelScrLit", "frmChangeScrabbleChars"},
                                      {"lblWebLink", "frmWeblinkChoice"},
                                      {"lblLex", "frmNewLex"}}) {
    Click(label);
    EXPECT_EQ(door.TakeDialogs(), Texts{dialog}) << label;
  }
}

TEST_F(MainWindowTest, TextsAreShownPlain) {
  ASSERT_TRUE(Start());
  for (const QLabel* label : window->findChildren<QLabel*>()) {
    if (!label->objectName().startsWith("qt_")) {
      EXPECT_EQ(label->textFormat(), Qt::PlainText) << ToText(label->objectName());
    }
  }
  const std::string path = dir.File("a<b>c/out.txt");
  Store("Locations", "SaveFileName", path);
  Search("c?t");
  EXPECT_NE(Status().find("a<b>c"), std::string::npos);
  // A message on the screen: plain, with its leading blanks, CR LF one line break.
  ScreenDoor screen;
  QTimer::singleShot(0, [] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_EQ(box->text(), "    a<b>c\n\nlast");
    box->reject();
  });
  screen.Show(window.get(), "    a<b>c\r\n\r\nlast");
}

}  // namespace
}  // namespace quorvane::test
