// The list of results: what a screen reader sees of it, several words, words found by typing.

#include "results/window/results_panel.h"
#include "tests/window/window_fixture.h"

#ifdef QUORVANE_QPA
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>
#endif

namespace quorvane::test {
namespace {

class ListWindowTest : public WindowTest {};

// What a screen reader is told while it listens.
Texts told;

void Listen(QAccessibleEvent* event) {
  const std::pair<QAccessible::Event, const char*> kinds[] = {{QAccessible::Focus, "focus "},
                                                              {QAccessible::SelectionAdd, "selected "},
                                                              {QAccessible::SelectionRemove, "deselected "},
                                                              {QAccessible::SelectionWithin, "many in "},
                                                              {QAccessible::Alert, "alert "}};
  for (const auto& [kind, word] : kinds) {
    if (event->type() == kind) {
      told.push_back(word + ToText(event->accessibleInterface()->text(QAccessible::Name)));
    }
  }
}

// False where the toolkit can't be told that a screen reader listens: then it sends nothing.
bool SetListening([[maybe_unused]] bool on) {
#ifdef QUORVANE_QPA
  QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
  QAccessible::installUpdateHandler(on ? Listen : nullptr);
  return true;
#else
  return false;
#endif
}

TEST_F(ListWindowTest, AScreenReaderSeesWordsAndButtons) {
  Store("Selection", "ExcludedChars", "");
  Store("Selection", "SelectedChars", "abc");
  ASSERT_TRUE(Start());
  const auto heard = [listening = SetListening(true)](const Texts& expected) {
    EXPECT_EQ(std::exchange(told, {}), listening ? expected : Texts{});
  };
  Search("*a*");
  auto* list = Find<QListView>("lbWordList");
  QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(list);
  EXPECT_EQ(seen->role(), QAccessible::List);
  ASSERT_EQ(seen->childCount(), 10);
  EXPECT_EQ(seen->child(2)->role(), QAccessible::ListItem);
  EXPECT_EQ(seen->child(2)->text(QAccessible::Name), "abba");
  list->setFocus(Qt::TabFocusReason);
  QTest::keyClick(list, Qt::Key_Down);
  told.clear();
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_TRUE(seen->child(1)->state().focused && seen->child(1)->state().selected && !seen->child(0)->state().selected);
  EXPECT_EQ(seen->focusChild(), seen->child(1));
  heard({"deselected a", "selected ab", "focus ab"});
  QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
  heard({"many in Results"});
  SelectEntry(1);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->currentIndex()).center());
  heard({"many in Results", "alert Copied"});
  for (const auto& [name, said] : {std::pair{"lblSelInc", "Include #: abc"},
                                   {"lblSelExc", "Exclude !: none"},
                                   {"lblSelExcLit", "Exclude !"},
                                   {"lblLex", "Lexicon file in use: words.lex"},
                                   {"lblWebLink", "Online resource: Merriam-Webster"}}) {
    QAccessibleInterface* label = QAccessible::queryAccessibleInterface(Find(name));
    EXPECT_EQ(label->role(), QAccessible::Button);
    EXPECT_EQ(ToText(label->text(QAccessible::Name)), said);
  }
  QAccessible::queryAccessibleInterface(Find("lblLex"))
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::pressAction());
  QApplication::processEvents();
  EXPECT_EQ(door.TakeDialogs(), Texts{"frmNewLex"});
  SetListening(false);
}

TEST_F(ListWindowTest, SeveralWordsAreSelected) {
  ASSERT_TRUE(Start());
  Search("*a*");  // a ab abba aha bat cat eat kayak tab tea
  auto* list = Find<QListView>("lbWordList");
  list->setFocus(Qt::TabFocusReason);
  using Keys = Qt::KeyboardModifiers;
  const auto key = [list](Qt::Key which, Keys with = {}) { return [=] { QTest::keyClick(list, which, with); }; };
  const auto click = [list](int row, Keys with = {}, Qt::MouseButton button = Qt::LeftButton) {
    return [=] {
      QTest::mouseClick(list->viewport(), button, with, list->visualRect(list->model()->index(row, 0)).center());
    };
  };
  const struct {
    std::function<void()> act;
    const char* selected;
    int current;
  } steps[] = {
      {key(Qt::Key_Down), "a", 1},
      {key(Qt::Key_Down, Qt::ShiftModifier), "a ab", 2},
      {key(Qt::Key_End, Qt::ShiftModifier), "a ab abba aha bat cat eat kayak tab tea", 10},
      {key(Qt::Key_Up), "tab", 9},
      {key(Qt::Key_Up, Qt::ControlModifier), "kayak tab", 8},
      {key(Qt::Key_Space, Qt::ControlModifier), "tab", 9},
      {key(Qt::Key_Space, Qt::ControlModifier), "tab", 9},
      {click(9, Qt::ControlModifier), "tab tea", 10},
      {click(2, Qt::ControlModifier), "abba tab tea", 3},
      {click(2, Qt::ControlModifier), "tab tea", 9},
      {click(8, Qt::ControlModifier), "tea", 10},
      {click(9, Qt::ControlModifier), "tea", 10},
      {click(7, Qt::ShiftModifier), "kayak tab tea", 8},
      {click(8, {}, Qt::RightButton), "kayak tab tea", 9},
      {click(20), "kayak tab tea", 9},
      {click(1, {}, Qt::RightButton), "ab", 2},
      {key(Qt::Key_A, Qt::ControlModifier), "a ab abba aha bat cat eat kayak tab tea", 2},
      {click(4), "bat", 5},
      {click(5, Qt::ControlModifier | Qt::ShiftModifier), "bat cat", 6},
  };
  int step = 0;
  for (const auto& [act, selected, current] : steps) {
    act();
    QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(ToText(QApplication::clipboard()->text().replace('\n', ' ')), selected) << "step " << step;
    EXPECT_TRUE(Text("lblXofY").starts_with("Word # " + std::to_string(current) + "\n")) << "step " << step;
    ++step;
  }
  // A drag from an unselected word selects on its way; one from a selected word takes the selected words along.
  const auto drag = [list](int from, int to) {
    const auto at = [list](int row) { return list->visualRect(list->model()->index(row, 0)).center(); };
    QTest::mousePress(list->viewport(), Qt::LeftButton, {}, at(from));
    QMouseEvent move(QEvent::MouseMove, at(to), list->viewport()->mapToGlobal(at(to)), Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(list->viewport(), &move);
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, at(to));
  };
  drag(1, 3);
  EXPECT_EQ(list->findChild<QDrag*>(), nullptr);
  drag(2, 6);
  ASSERT_NE(list->findChild<QDrag*>(), nullptr);
  EXPECT_EQ(list->findChild<QDrag*>()->mimeData()->text(), "ab\nabba\naha");
}

TEST_F(ListWindowTest, AWordIsFoundByTypingItsBeginning) {
  ASSERT_TRUE(Start());
  const int interval = QApplication::keyboardInputInterval();
  QApplication::setKeyboardInputInterval(1'000'000);
  Search("*a*");
  auto* list = Find<QListView>("lbWordList");
  list->setFocus(Qt::TabFocusReason);
  const struct {
    Qt::Key key;
    char letter;
    const char* word;
    const char* typed;  // Empty: not shown.
  } steps[] = {
      {Qt::Key_T, 't', "tab", "t"},        {Qt::Key_E, 'E', "tea", "tE"},  {Qt::Key_X, 'x', "tea", "tEx"},
      {Qt::Key_Backspace, 0, "tea", "tE"}, {Qt::Key_A, 'a', "tea", "tEa"}, {Qt::Key_Escape, 0, "tea", ""},
      {Qt::Key_A, 'a', "a", "a"},          {Qt::Key_A, 'a', "ab", "a"},    {Qt::Key_H, 'h', "aha", "ah"},
      {Qt::Key_Down, 0, "bat", ""},        {Qt::Key_T, 't', "tab", "t"},
  };
  for (const auto& [key, letter, word, typed] : steps) {
    if (letter != 0) {
      QTest::keyClick(list, letter);
    } else {
      QTest::keyClick(list, key);
    }
    EXPECT_EQ(ToText(list->currentIndex().data().toString()), word) << typed;
    EXPECT_EQ(Find("lblTyped")->isVisible(), *typed != 0) << typed;
    EXPECT_TRUE(*typed == 0 || Text("lblTyped") == typed) << typed << Text("lblTyped");
  }
  EXPECT_TRUE(list->rect().contains(Find("lblTyped")->geometry()));
  QApplication::setKeyboardInputInterval(0);
  QTest::keyClick(list, 'a');
  EXPECT_TRUE(QTest::qWaitFor([this] { return !Find("lblTyped")->isVisible(); }));
  QApplication::setKeyboardInputInterval(interval);
}

TEST_F(ListWindowTest, TheListSaysWhatWasCopiedAndWhyItIsEmpty) {
  ASSERT_TRUE(Start());
  auto* list = Find<QListView>("lbWordList");
  auto* panel = Find<ResultsPanel>("resultsPanel");
  const auto picture = [list] { return list->viewport()->grab().toImage(); };
  for (const auto& [pattern, shown] : {std::pair{"q*", true}, {"*a*", false}}) {
    Search(pattern);
    panel->SetEmptyText("");
    const QImage without = picture();
    panel->SetEmptyText("Nothing found.");
    EXPECT_EQ(picture() != without, shown) << pattern;
  }
  const auto copy = [this, list] {
    SelectEntry(3);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->currentIndex()).center());
    const QRect row = list->visualRect(list->currentIndex());
    EXPECT_TRUE(Find("lblCopied")->isVisible());
    EXPECT_NEAR(Find("lblCopied")->y(), row.y(), 3);
  };
  copy();
  QTest::keyClick(list, Qt::Key_Shift);
  EXPECT_FALSE(Find("lblCopied")->isVisible());
  copy();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(5, 2));
  EXPECT_FALSE(Find("lblCopied")->isVisible());
}

}  // namespace
}  // namespace quorvane::test
