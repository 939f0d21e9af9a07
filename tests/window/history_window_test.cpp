// The searches that are kept: walked with Up and Down, shown in a window of their own.

#include "search/history.h"
#include "tests/window/window_fixture.h"

namespace quorvane::test {
namespace {

class HistoryWindowTest : public WindowTest {
 protected:
  void Press(Qt::Key key, int times = 1) {
    for (int i = 0; i < times; ++i) {
      QTest::keyClick(Find("tbInput"), key);
    }
  }
  void SetList(Qt::Key key, const QString& list) {
    door.scripts.push_back([list](QDialog& dialog) {
      In<QLineEdit>(dialog, "tbChangeInput")->setText(list);
      ClickOn(In(dialog, "cmdOK"));
    });
    Key(key);
  }
  // A search with all there is: lists, lengths, mode, a condition.
  void SearchInFull() {
    SetList(Qt::Key_F4, "tea?");
    SetList(Qt::Key_F2, "aeb");
    Click("rbSpecLen");
    Choose("cbLenFr", "3");
    Choose("cbLenTo", "4");
    Key(Qt::Key_M, Qt::ControlModifier);
    QTest::keyClicks(Find("tbWithout"), "c");
    Search("=#=");
  }
  // All that the controls show, and what is stored of it.
  std::string Shown() {
    std::string shown = Text("tbInput") + std::to_string(Find<QLineEdit>("tbInput")->cursorPosition()) +
                        ToText(Find<QComboBox>("cbLenFr")->currentText() + Find<QComboBox>("cbLenTo")->currentText());
    for (const char* mode : {"rbPalindrome", "rbAnagram", "rbAnagramExact", "rbSpecLen"}) {
      shown += Find<QRadioButton>(mode)->isChecked() ? mode : "";
    }
    for (const char* label : {"lblSelInc", "lblSelExc", "lblSelScr", "tbAnd", "tbWithout", "lblNumLetters"}) {
      shown += "|" + Text(label);
    }
    return shown + (Find("conditionsPanel")->isHidden() ? " closed" : " open");
  }
  std::string Stored() {
    return Setting("Selection", "SelectedChars") + "|" + Setting("Selection", "ScrabbleChars") + "|" +
           Setting("Settings", "MinLength") + "-" + Setting("Settings", "MaxLength");
  }
  History Kept() {
    History history;
    EXPECT_EQ(history.Load(dir.File(kHistoryName)).Text(), "");
    return history;
  }
  // The window of the searches.
  QDialog& Searches() {
    Key(Qt::Key_H, Qt::ControlModifier);
    auto* searches = Find<QDialog>("frmSearches");
    EXPECT_TRUE(QTest::qWaitForWindowActive(searches));
    return *searches;
  }
  static Texts Column(QDialog& searches, int column) {
    const QAbstractItemModel& model = *In<QTreeView>(searches, "lvSearches")->model();
    Texts texts;
    for (int row = 0; row < model.rowCount(); ++row) {
      texts.push_back(ToText(model.index(row, column).data().toString()));
    }
    return texts;
  }
};

TEST_F(HistoryWindowTest, YesterdaysSearchIsTwoKeys) {
  ASSERT_TRUE(Start());
  SearchInFull();
  const Texts found = Entries();
  EXPECT_EQ(found, (Texts{"bat", "eat", "tab", "tea"}));
  const std::string shown = Shown();
  const std::string stored = Stored();
  const HistoryEntry kept = Kept().Entries().at(0);
  EXPECT_EQ(kept.lexicon + kept.order + std::to_string(kept.count) + kept.time.substr(0, 19),
            "words.lexalpha42026-03-05T14:07:09");
  Stop();
  for (const auto& [section, key, value] : {std::array{"Selection", "SelectedChars", "XYZ"},
                                            {"Selection", "ScrabbleChars", ""},
                                            {"Settings", "MinLength", "7"},
                                            {"Settings", "MaxLength", "9"}}) {
    Store(section, key, value);
  }
  ASSERT_TRUE(Start());
  NewLog();
  Press(Qt::Key_Up);
  EXPECT_EQ(Shown(), shown);
  EXPECT_EQ(Stored(), "XYZ||7-9");
  EXPECT_EQ(NewLog(), Texts{});
  Press(Qt::Key_Return);
  EXPECT_EQ(Entries(), found);
  EXPECT_EQ(Stored(), stored);
  EXPECT_EQ(NewLog(), (Texts{"SEL-UPD Updated Inc #[aeb]", "SCR-UPD Updated Scr =[tea?]",
                             "WORDS 4 words found using pattern '=#='  (of 3 to 4 letters in length)"}));
  EXPECT_EQ(door.TakeBeeps(), 0);
}

TEST_F(HistoryWindowTest, AWalkEndsWhereItBegan) {
  ASSERT_TRUE(Start());
  SearchInFull();
  Key(Qt::Key_M, Qt::ControlModifier);
  Click("rbAnyLen");
  SetList(Qt::Key_F4, "q");
  for (const char* text : {"tea", "c?t", "tea"}) {
    Search(text);
  }
  Type("*ab");
  const auto undo = [this] {
    QTest::keyClick(Find("tbInput"), Qt::Key_Z, Qt::ControlModifier);
    std::string undone = Text("tbInput");
    QTest::keyClick(Find("tbInput"), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    Press(Qt::Key_Home);
    return undone;
  };
  const std::string undone = undo();
  const std::string before = Shown() + Stored();
  NewLog();
  Press(Qt::Key_Down);
  Texts walked;
  for (int i = 0; i < 4; ++i) {
    Press(Qt::Key_Up);
    walked.push_back(Text("tbInput"));
    Press(Qt::Key_Shift);
  }
  EXPECT_EQ(walked, (Texts{"tea", "c?t", "=#=", "=#="}));
  EXPECT_TRUE(Shown().ends_with("|c|(3 letters) open")) << Shown();
  Press(Qt::Key_Down, 4);
  EXPECT_EQ(Shown() + Stored(), before);
  EXPECT_EQ(undo() + Text("tbInput"), undone + "*ab");
  Press(Qt::Key_Up);
  ClickOn(Find("cmdClearPattern"));
  Press(Qt::Key_Up);
  EXPECT_EQ(undo(), "");
  Type("*ab");
  EXPECT_EQ(NewLog(), Texts{});
  EXPECT_EQ(Entries(), Texts{"tea"});
  Key(Qt::Key_R, Qt::ControlModifier);
  Press(Qt::Key_Up, 2);
  EXPECT_EQ(Entries(), (Texts{"cat", "cot"})) << "shown at once while results are";
  EXPECT_EQ(Kept().Entries().size(), 4U) << "and not kept again";
  EXPECT_EQ(door.TakeBeeps(), 0);
}

TEST_F(HistoryWindowTest, WhatEndsAWalkStoresIt) {
  ASSERT_TRUE(Start());
  SetList(Qt::Key_F4, "tea");
  Search("===");
  SetList(Qt::Key_F4, "q");
  const struct {
    const char* what;
    std::function<void()> end;
    const char* rack;
  } cases[] = {
      {"a key", [this] { Press(Qt::Key_End); }, "tea"},
      {"the focus", [this] { Find("lbWordList")->setFocus(); }, "tea"},
      {"a function key", [this] { Key(Qt::Key_F9); }, "tea"},
      {"a menu", [this] { Item("menLiveResults")->trigger(); }, "tea"},
      {"the list's own dialog", [this] { SetList(Qt::Key_F4, "abc"); }, "abc"},
      {"the end", [this] { Stop(), Start(); }, "q"},
  };
  for (const auto& [what, end, rack] : cases) {
    Type("c");
    SetList(Qt::Key_F4, "q");
    Find("tbInput")->setFocus();
    Press(Qt::Key_Up);
    EXPECT_EQ(Setting("Selection", "ScrabbleChars") + Text("lblSelScr"), "qtea") << what;
    end();
    EXPECT_EQ(Setting("Selection", "ScrabbleChars") + Text("lblSelScr"), std::string(rack) + rack) << what;
  }
}

TEST_F(HistoryWindowTest, TheSearchesBesideTheWork) {
  ASSERT_TRUE(Start());
  for (const char* text : {"c?t", "*ab*", "c?t", "~2"}) {
    Search(text);
    ++now.tm_min;
  }
  QDialog& searches = Searches();
  auto* table = In<QTreeView>(searches, "lvSearches");
  EXPECT_EQ(Column(searches, 2), (Texts{"1", "2", "3"})) << "the same search once";
  EXPECT_EQ(Column(searches, 1)[1] + Column(searches, 3)[1], "3 letters: 1st c, 3rd t2026-03-05 14:09");
  const auto name = [&](int row, const char* text) {
    table->setCurrentIndex(table->model()->index(row, 1));
    QTest::keyClick(searches.windowHandle(), Qt::Key_N, Qt::ControlModifier);
    auto* box = In<QLineEdit>(searches, "tbName");
    box->setText(text);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return searches.findChild<QLineEdit*>("tbName") == nullptr; }));
    QApplication::sendPostedEvents();
  };
  const std::string long_(10'000, 'n');
  name(2, "the \"ab\" of it");
  name(1, "the \"ab\" of it");
  EXPECT_EQ(Text("lblNote"), "Another search has the name 'the \"ab\" of it'.");
  name(0, long_.c_str());
  EXPECT_EQ(Kept().Named("the \"ab\" of it")->search.text + Kept().Named(long_)->search.text, "*ab*~2");
  EXPECT_EQ(Kept().Entries().size(), 4U) << "a name's Enter does not search";
  for (const auto& [column, words] : {std::pair{1, Texts{"3", "1", "2"}}, {2, {"1", "2", "3"}}, {3, {"3", "2", "1"}}}) {
    const QPoint heading(table->header()->sectionViewportPosition(column) + 5, 5);
    QTest::mouseClick(table->header()->viewport(), Qt::LeftButton, {}, heading);
    const Texts once = Column(searches, 2);
    QTest::mouseClick(table->header()->viewport(), Qt::LeftButton, {}, heading);
    EXPECT_EQ(Column(searches, 2), Texts(once.rbegin(), once.rend()));
    EXPECT_TRUE(once == words || Column(searches, 2) == words) << column;
  }
  QTest::keyClicks(In(searches, "tbFilter"), "C?T");
  EXPECT_EQ(Column(searches, 2), Texts{"2"});
  window->activateWindow();
  Type("zoo");
  searches.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&searches));
  In(searches, "tbFilter")->setFocus();
  QTest::keyClick(In(searches, "tbFilter"), Qt::Key_Return);
  EXPECT_EQ(Entries(), (Texts{"cat", "cot"}));
  table->setFocus();
  QTest::keyClick(table, Qt::Key_Delete);
  In<QLineEdit>(searches, "tbFilter")->clear();
  EXPECT_EQ(Column(searches, 2).size(), 2U);
  door.answers = {Answer::Cancel};
  ClickOn(In(searches, "cmdForgetAll"));
  EXPECT_EQ(Kept().Distinct().size(), 2U);
  ClickOn(In(searches, "cmdForgetAll"));
  EXPECT_EQ(door.TakeText(), "Forget all 2 searches that are kept? | Forget all 2 searches that are kept?");
  EXPECT_EQ(Kept().Distinct().size(), 0U);
  QTest::keyClick(table, Qt::Key_Escape);
  EXPECT_FALSE(searches.isVisible());
}

TEST_F(HistoryWindowTest, ASearchInItsOwnLexicon) {
  dir.Write("other.lex", "cab\r\ncut\r\n");
  dir.Write("bad.lex", "no\r\n1\r\n");
  std::string lines = R"({"pattern":"c?t","lexicon":"words.lex","and":["c*","*t"]})";
  for (const char* lexicon : {"other.lex", "gone.lex", "bad.lex"}) {
    lines += std::string("\n{\"pattern\":\"c?t\",\"lexicon\":\"") + lexicon + "\"}";
  }
  dir.Write(kHistoryName, lines);
  ASSERT_TRUE(Start());
  QDialog& searches = Searches();
  const auto search = [&](const QString& lexicon) {
    In<QLineEdit>(searches, "tbFilter")->setText(lexicon);
    ClickOn(In(searches, "cmdSearch"));
    return Text("lblLex") + ": " + Status();
  };
  EXPECT_EQ(search("other.lex"), "other.lex: 1 word found");
  EXPECT_EQ(Setting("Locations", "LexiconFile"), "other.lex");
  EXPECT_EQ(search("gone.lex"), "other.lex: The lexicon gone.lex is gone; in other.lex: 1 word found");
  EXPECT_EQ(search("bad.lex"), "other.lex: The lexicon bad.lex can't be used; in other.lex: 1 word found");
  EXPECT_EQ(search("words.lex").substr(0, 21), "other.lex: The window") << "two conditions of a kind";
  EXPECT_EQ(door.TakeText(), "");
}

TEST_F(HistoryWindowTest, SwitchedOffNothingIsReadOrWritten) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(Setting("Workbench", "KeepHistory"), "(none)");
  Search("c?t");
  door.answers = {Answer::Cancel};
  Item("menKeepHistory")->trigger();
  EXPECT_EQ(door.TakeText() + Status() + Setting("Workbench", "KeepHistory"),
            "Searches are no longer kept. Forget the search that is kept, too?Searches are not kept.No");
  const std::string kept = ReadFile(dir.File(kHistoryName));
  Search("*ab*");
  Type("");
  Press(Qt::Key_Up);
  EXPECT_EQ(Text("tbInput") + (Item("menSearches")->isEnabled() ? "enabled" : ""), "");
  EXPECT_EQ(ReadFile(dir.File(kHistoryName)), kept);
  dir.Write(kHistoryName, "no record\n");
  ASSERT_TRUE(Start());
  Type("");
  Press(Qt::Key_Up);
  EXPECT_EQ(Status(), kWordPrompt);
  Item("menKeepHistory")->trigger();
  Search("c?t");
  Item("menKeepHistory")->trigger();
  EXPECT_EQ(Status(), "Searches are not kept, and those that were are forgotten.");
  EXPECT_EQ(ReadFile(dir.File(kHistoryName)), "no record\n");
}

TEST_F(HistoryWindowTest, TroubleIsToldOnceAndStopsNothing) {
  std::filesystem::create_directory(dir.File(kHistoryName));
  ASSERT_TRUE(Start());
  EXPECT_TRUE(QTest::qWaitFor([&] { return Status().starts_with("The history can't be read: " + dir.path()); }));
  for (const char* text : {"c?t", "*ab*"}) {
    Search(text);
    EXPECT_EQ(Status().substr(1), " words found");
  }
  Press(Qt::Key_Up);
  EXPECT_EQ(Text("tbInput"), "*ab*");
  EXPECT_EQ(In<QLabel>(Searches(), "lblNote")->text().left(26), "The history can't be read:");
  EXPECT_EQ(door.TakeText(), "");
  Stop();
  std::filesystem::remove(dir.File(kHistoryName));
  dir.Write(kHistoryName, "cut\n{\"pattern\":\"a\"}\n{\"pattern\":\"a\"}\n{\"pattern\":\"newer\",\"v\":2}");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return Status() == "1 line of the history can't be read; what the file holds is kept"; }));
  EXPECT_EQ(ReadFile(dir.File(kHistoryName)), "cut\n{\"pattern\":\"a\"}\n{\"pattern\":\"newer\",\"v\":2}\n");
}

}  // namespace
}  // namespace quorvane::test
