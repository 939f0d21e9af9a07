// What goes beyond the plain search: results while typing, words out of the list, windows beside the work.

#include <QToolButton>

#include "tests/window/window_fixture.h"

namespace quorvane::test {
namespace {

class WorkbenchTest : public WindowTest {
 protected:
  // Opens the menu of the selected word and chooses from it.
  void ChooseFromMenu(const char* action) {
    QTimer::singleShot(0, window.get(), [action] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      auto* item = menu->findChild<QAction*>(action);
      ASSERT_NE(item, nullptr) << action;
      menu->setActiveAction(item);
      QTest::keyClick(menu, Qt::Key_Return);
    });
    auto* list = Find<QAbstractItemView>("lbWordList");
    const QPoint place = list->visualRect(list->currentIndex()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list->viewport()->mapToGlobal(place));
    QApplication::sendEvent(list->viewport(), &event);
  }
};

// Nothing of it is in sight, or takes room, until it is asked for: the window without it is the same picture.
TEST_F(WorkbenchTest, AFirstStartIsThePictureOfAWindowWithoutIt) {
  ASSERT_TRUE(Start());
  auto* central = Find<QWidget>("central");
  const auto picture = [central] { return central->grab().toImage(); };
  const QImage with = picture();
  std::vector<std::unique_ptr<QWidget>> removed;
  for (const char* name : {"lblLive", "lblReading", "conditionsPanel", "lblTyped", "lblCopied"}) {
    removed.emplace_back(Find<QWidget>(name))->setParent(nullptr);
  }
  Find<QLineEdit>("tbInput")->setClearButtonEnabled(false);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  EXPECT_EQ(picture(), with);
  Stop();
}

TEST_F(WorkbenchTest, ResultsWhileTypingShowAndAddNothingElse) {
  ASSERT_TRUE(Start());
  Key(Qt::Key_R, Qt::ControlModifier);
  EXPECT_EQ(Status() + Setting("Workbench", "LiveResults"), "Results are shown while you type.Yes");
  Search("b*");
  const std::string file = ReadFile(dir.File("outlist.txt"));
  NewLog();
  const struct {
    const char* text;
    const char* live;
    Texts entries;
  } cases[] = {
      {"c?t", "2 fit", {"cat", "cot"}},
      {"*ab*", "3 fit", {"ab", "abba", "tab"}},
      {"zzz", "0 fit", {}},
      {";oo", "2 fit", {"noon", "zoo"}},
      {"%2oo", "0 fit", {}},
      {"~3", "-", {}},
      {"", "-", {}},
  };
  for (const auto& [text, live, entries] : cases) {
    Type(text);
    EXPECT_EQ(Text("lblLive"), live) << text;
    EXPECT_EQ(Entries(), entries) << text;
  }
  Type("tea");
  Key(Qt::Key_F12);
  EXPECT_EQ(Entries(), (Texts{"eat", "tea"}));
  SelectEntry(1);
  Click("cbUpperCase");
  EXPECT_EQ(Entries(), (Texts{"EAT", "TEA"}));
  EXPECT_EQ(Text("lblXofY"), "Word # 2\nLength : 3") << "the selected word stays so";
  EXPECT_EQ(NewLog(), Texts{});
  EXPECT_EQ(ReadFile(dir.File("outlist.txt")), file);
  EXPECT_EQ(door.TakeText() + std::to_string(door.TakeBeeps()), "0");
  Key(Qt::Key_F8);
  EXPECT_TRUE(ReadFile(dir.File("outlist.txt")).starts_with("2 exact-length anagrams found"))
      << "the list's own search";
  Key(Qt::Key_R, Qt::ControlModifier);
  Type("c?t");
  EXPECT_EQ(Entries(), (Texts{"EAT", "TEA"}));
  EXPECT_FALSE(Find("lblLive")->isVisible());
}

TEST_F(WorkbenchTest, ConditionsAndTheReading) {
  ASSERT_TRUE(Start());
  Item("menReading")->trigger();
  Search("*a*");
  EXPECT_FALSE(Text("lblReading").empty());
  const std::string plain = Text("lblReading");
  Key(Qt::Key_M, Qt::ControlModifier);
  QTest::keyClicks(Find("tbNot"), "*t&");
  QTest::keyClicks(Find("tbWithout"), "b1");
  EXPECT_EQ(Text("tbNot") + "|" + Text("tbWithout"), "*t|b");
  EXPECT_NE(Text("lblReading"), plain) << "the reading follows the conditions";
  QTest::keyClick(Find("tbWithout"), Qt::Key_Return);
  EXPECT_EQ(Entries(), (Texts{"a", "aha", "kayak", "tea"}));
  EXPECT_EQ(ReadFile(dir.File("outlist.txt")).substr(0, 78),
            "4 words found matching the word pattern \"*a*\"\r\n not: *t\r\n without: b\r\n\r\n--- ST");
  Key(Qt::Key_M, Qt::ControlModifier);
  QTest::keyClick(Find("tbInput"), Qt::Key_Return);
  EXPECT_EQ(Entries().size(), 10U) << "a closed row asks for nothing";
  EXPECT_EQ(Text("tbNot"), "*t");
}

TEST_F(WorkbenchTest, FindWithinTheseNarrowsWhatIsShownAlone) {
  ASSERT_TRUE(Start());
  EXPECT_FALSE(Item("menFindWithin")->isEnabled());
  Search("*a*");
  const std::string file = ReadFile(dir.File("outlist.txt"));
  NewLog();
  Key(Qt::Key_F, Qt::ControlModifier);
  auto* within = Find<QLineEdit>("tbWithin");
  EXPECT_EQ(Text("lblWithin"), "10");
  const struct {
    const char *text, *left, *shown;
    Texts entries;
  } cases[] = {
      {"a*b*", "a*b*", "2 of 10", {"ab", "abba"}},
      {"??t&/", "??t", "3 of 10", {"bat", "cat", "eat"}},
      {"1221", "1221", "1 of 10", {"abba"}},
      {"zz", "zz", "0 of 10", {}},
      {"%", "%", "-", {"a", "ab", "abba", "aha", "bat", "cat", "eat", "kayak", "tab", "tea"}},
      {"~4", "", "10", {"a", "ab", "abba", "aha", "bat", "cat", "eat", "kayak", "tab", "tea"}},
      {"?a*", "?a*", "5 of 10", {"bat", "cat", "eat", "kayak", "tab"}},
  };
  for (const auto& [text, left, shown, entries] : cases) {
    within->selectAll();
    QTest::keyClicks(within, text);
    EXPECT_EQ(Text("tbWithin") + " " + Text("lblWithin"), std::string(left) + " " + shown);
    EXPECT_EQ(Entries(), entries) << text;
  }
  const Texts kept = {"bat", "cat", "eat", "kayak", "tab"};
  // What is shown is copied and exported, and said so; what is saved is what was found.
  Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QApplication::clipboard()->text() + FromText(Status()), "bat\ncat\neat\nkayak\ntab\n5 of 10 words copied");
  door.scripts.push_back([this](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Export 5 of 10 words");
    In<QLineEdit>(dialog, "tbExportFile")->setText(FromText(dir.File("some.txt")));
    ClickOn(In(dialog, "cmdOK"));
  });
  Key(Qt::Key_F8, Qt::ShiftModifier);
  EXPECT_EQ(Status(), "5 of 10 words have been exported to " + dir.File("some.txt"));
  EXPECT_EQ(ReadFile(dir.File("some.txt")), Lines(kept, "\n"));
  Key(Qt::Key_F8);
  EXPECT_EQ(ReadFile(dir.File("outlist.txt")), file);
  // Esc shows all again; Enter makes the words shown the list, and says nothing to the log.
  QTest::keyClick(within, Qt::Key_Escape);
  EXPECT_EQ(Entries().size(), 10U);
  EXPECT_TRUE(Find("lbWordList")->hasFocus() && !within->isVisible());
  Key(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(within, "zz\r");
  EXPECT_EQ(Status(), "None of the words fits, so the list stays.");
  within->selectAll();
  QTest::keyClicks(within, "?a*");
  NewLog();
  QTest::keyClick(within, Qt::Key_Return);
  EXPECT_EQ(Entries(), kept);
  EXPECT_EQ(Status(), "The list is now 5 words");
  EXPECT_EQ(ReadFile(dir.File("outlist.txt")), file) << "autosave waits for a search";
  EXPECT_EQ(NewLog(), Texts{});
  Key(Qt::Key_F8);
  EXPECT_TRUE(ReadFile(dir.File("outlist.txt"))
                  .starts_with("5 words found matching the word pattern \"*a*\"\r\n and: ?a*\r\n\r\n"));
  // Another list closes the line.
  Key(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(within, "b*");
  Search("c?t");
  EXPECT_EQ(Entries(), (Texts{"cat", "cot"}));
  EXPECT_TRUE(!within->isVisible() && within->text().isEmpty());
  EXPECT_EQ(door.TakeText() + std::to_string(door.TakeBeeps()), "0");
}

TEST_F(WorkbenchTest, WordsOutOfTheList) {
  ASSERT_TRUE(Start());
  Search("c?t");
  Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "cat\ncot\n");
  EXPECT_EQ(Status(), "2 words copied");
  Key(Qt::Key_C, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), FromText("quorvane-cli find --data-dir " + dir.path() + " -- 'c?t'"));
  EXPECT_EQ(Status(), "Copied: " + ToText(QApplication::clipboard()->text()));
  const auto exportAs = [this](const char* name, int form) {
    door.scripts.push_back([=, this](QDialog& dialog) {
      auto* forms = In<QComboBox>(dialog, "cbFormat");
      forms->setFocus();
      QTest::keyClick(forms, Qt::Key_Home);
      for (int i = 0; i < form; ++i) {
        QTest::keyClick(forms, Qt::Key_Down);
      }
      In<QLineEdit>(dialog, "tbExportFile")->setText(FromText(dir.File(name)));
      ClickOn(In(dialog, "cmdOK"));
      ClickOn(In(dialog, "cmdCancel"));
    });
    Key(Qt::Key_F8, Qt::ShiftModifier);
  };
  exportAs("words.csv", 1);
  EXPECT_EQ(ReadFile(dir.File("words.csv")), "word,length\r\ncat,3\r\ncot,3\r\n");
  EXPECT_EQ(Setting("Workbench", "ExportFile"), dir.File("words.csv"));
  dir.Write("mine.txt", "mine");
  door.answers = {Answer::Cancel};
  exportAs("mine.txt", 0);
  EXPECT_EQ(door.TakeText(), dir.File("mine.txt") + " is there already. Replace it?");
  EXPECT_EQ(ReadFile(dir.File("mine.txt")), "mine");
  const std::string lexicon = ReadFile(dir.File("words.lex"));
  exportAs("a\tb.txt", 0);
  EXPECT_EQ(door.TakeText(), "'" + dir.File("a\\x09b.txt") + "' is no file name: it holds control characters.");
  exportAs("words.lex", 0);
  EXPECT_NE(door.TakeText(), "");
  EXPECT_EQ(ReadFile(dir.File("words.lex")), lexicon);
}

TEST_F(WorkbenchTest, TheMenuOfAWord) {
  ASSERT_TRUE(Start());
  Search("l*");
  SelectEntry(0);
  ChooseFromMenu("wordAnagrams");
  EXPECT_EQ(Text("tbInput"), "listen");
  EXPECT_TRUE(Find<QRadioButton>("rbAnagramExact")->isChecked());
  EXPECT_EQ(Entries(), (Texts{"listen", "silent", "tinsel"}));
  QTest::keyClick(Find("tbInput"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Text("tbInput"), "l*");
  Search("*ab");
  SelectEntry(0);
  ChooseFromMenu("wordHolding");
  EXPECT_EQ(Text("tbInput"), "*ab*");
  EXPECT_EQ(Entries(), (Texts{"ab", "abba", "tab"}));
  SelectEntry(1);
  ChooseFromMenu("wordCopy");
  EXPECT_EQ(QApplication::clipboard()->text(), "abba");
}

TEST_F(WorkbenchTest, WildcardsBesideTheWorkAndTheWaysByTheKeys) {
  ASSERT_TRUE(Start());
  Type("ct");
  QTest::keyClick(Find("tbInput"), Qt::Key_Left);
  Item("menWildcardsBeside")->trigger();
  Item("menWildcardsBeside")->trigger();
  const auto beside = window->findChildren<QDialog*>("frmWildcards");
  ASSERT_EQ(beside.size(), 1);
  ClickOn(In(*beside.front(), "wildcard_?"));
  EXPECT_EQ(Text("tbInput"), "c?t");
  QTest::keyClick(beside.front(), Qt::Key_F9);
  EXPECT_TRUE(Find("tbInput")->hasFocus() || window->focusWidget() == Find("tbInput"));
  QTest::keyClick(beside.front(), Qt::Key_Escape);
  EXPECT_FALSE(beside.front()->isVisible());
  window->activateWindow();
  Search("c?t");
  Key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(window->focusWidget(), Find("lbWordList"));
  EXPECT_EQ(Text("lblXofY"), "Word # 1\nLength : 3");
  Click("rbAnyLen");
  Key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(window->focusWidget(), Find("tbInput"));
  ClickOn(Find<QToolButton>("cmdClearPattern"));
  EXPECT_EQ(Text("tbInput"), "");
}

}  // namespace
}  // namespace quorvane::test
