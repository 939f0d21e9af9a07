// Results, lengths, saving and options in the main window, as a person uses them.

#include "tests/window/window_fixture.h"

namespace quorvane::test {
namespace {

class ResultsWindowTest : public WindowTest {};

TEST_F(ResultsWindowTest, SortsWithStatusListAndCase) {
  ASSERT_TRUE(Start());
  Click("rbSortLength");  // Nothing is typed: nothing happens.
  EXPECT_EQ(Status(), "Please enter a word selection.");
  Click("rbSortAlpha");
  Search("*a*");
  const Texts alphabetic = {"a", "ab", "abba", "aha", "bat", "cat", "eat", "kayak", "tab", "tea"};
  EXPECT_EQ(Entries(), alphabetic);
  const Texts shortest = {"a", "ab", "aha", "bat", "cat", "eat", "tab", "tea", "abba", "kayak"};
  const Texts longest = {"kayak", "abba", "aha", "bat", "cat", "eat", "tab", "tea", "ab", "a"};
  const auto shown = [this](const char* button) {
    Click(button);
    EXPECT_EQ(Status(), "10 words found") << button;
    EXPECT_FALSE(StatusIsBold() || Find("pbBar")->isVisible());
    return Entries();
  };
  EXPECT_EQ(shown("rbSortLength"), shortest);
  EXPECT_EQ(shown("rbSortLengthRev"), longest);
  EXPECT_EQ(shown("rbSortAlpha"), alphabetic);
  EXPECT_EQ(CountLog("WORDS 10 words found using pattern '*a*'"), 4);

  Click("cbUpperCase");
  EXPECT_EQ(Entries(), alphabetic);  // The next search or sort shows it.
  EXPECT_EQ(shown("rbSortLengthRev").front(), "KAYAK");
  EXPECT_TRUE(ReadFile(dir.File("outlist.txt")).find("KAYAK\r\nABBA\r\n") != std::string::npos);
  Search("c?t");  // A length order stays chosen.
  EXPECT_EQ(Entries(), (Texts{"CAT", "COT"}));
  EXPECT_EQ(CountLog("WORDS 2 words found using pattern 'c?t'"), 2);
  Click("cbUpperCase");
  Click("rbSortLength");
  EXPECT_EQ(Entries(), (Texts{"cat", "cot"}));
}

TEST_F(ResultsWindowTest, LengthRangeIsChosenStoredAndApplied) {
  ASSERT_TRUE(Start());
  Click("rbSpecLen");
  EXPECT_EQ(Status(), "Words with lengths between 1 and 8 only will be selected");
  Choose("cbLenFr", "3");
  EXPECT_EQ(Status(), "Words with lengths between 3 and 8 only will be selected");
  Choose("cbLenTo", "4");
  EXPECT_EQ(Setting("Settings", "MinLength") + Setting("Settings", "MaxLength"), "34");
  Search("a*");
  EXPECT_EQ(Entries(), (Texts{"abba", "aha"}));
  EXPECT_EQ(Status(), "2 words found  (of 3 to 4 letters in length)");
  EXPECT_EQ(CountLog("WORDS 2 words found using pattern 'a*'  (of 3 to 4 letters in length)"), 1);
  // A maximum below the minimum moves with it; one above stays.
  Choose("cbLenFr", "6");
  EXPECT_EQ(Status(), "Words with lengths between 6 and 6 only will be selected");
  EXPECT_EQ(Setting("Settings", "MinLength") + Setting("Settings", "MaxLength"), "66");
  EXPECT_EQ(Find<QComboBox>("cbLenTo")->count(), 55);
  Search("*s*");
  EXPECT_EQ(Status(), "3 words found  (of length 6 letters)");
  Click("rbAnyLen");
  EXPECT_EQ(Status(), "Words of any length will be selected");
  Search("zo*");
  EXPECT_EQ(Status(), "1 word found");
  Stop();
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Find<QRadioButton>("rbAnyLen")->isChecked());
  Click("rbSpecLen");
  EXPECT_EQ(Status(), "Words with lengths between 6 and 6 only will be selected");
}

TEST_F(ResultsWindowTest, AnEntryIsDescribedCopiedAndTheListCleared) {
  ASSERT_TRUE(Start());
  Search("*a*");
  door.beeps = 0;
  SelectEntry(7);
  EXPECT_EQ(Text("lblXofY"), "Word # 8\nLength : 5");
  EXPECT_TRUE(Find("cmdWebLink")->isEnabled());
  QTest::keyClick(Find("lbWordList"), Qt::Key_Up);
  EXPECT_EQ(Text("lblXofY"), "Word # 7\nLength : 3");
  QApplication::clipboard()->setText("before");
  SelectEntry(6);
  auto* list = Find<QAbstractItemView>("lbWordList");
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->currentIndex()).center());
  EXPECT_EQ(QApplication::clipboard()->text(), "eat");
  EXPECT_EQ(door.beeps, 1);
  Click("cmdClear");
  EXPECT_EQ(Entries(), Texts{});
  EXPECT_EQ(Text("lblXofY"), "");
  EXPECT_EQ(Status(), "Word list cleared");
  EXPECT_TRUE(StatusIsBold());
  EXPECT_TRUE(Find("tbInput")->hasFocus());
  Key(Qt::Key_F10);  // What may be done is looked at again.
  Key(Qt::Key_F9);
  EXPECT_FALSE(Find("cmdWebLink")->isEnabled());
  EXPECT_FALSE(Item("menFileSaveData")->isEnabled());
  EXPECT_FALSE(Item("menSaveAsLex")->isEnabled());
  Click("rbSortLength");
  EXPECT_EQ(Status(), "0 words found");
}

TEST_F(ResultsWindowTest, TheListIsWalkedWithTheKeys) {
  ASSERT_TRUE(Start());
  auto* list = Find<QAbstractItemView>("lbWordList");
  for (const char* pattern : {"*a*", "zoo"}) {
    Search(pattern);
    list->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(Find("cmdWebLink")->isEnabled());
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_TRUE(Text("lblXofY").starts_with("Word # 1\n")) << pattern;
    EXPECT_TRUE(Find("cmdWebLink")->isEnabled()) << pattern;
  }
  // The selected word stays selected whatever is clicked beside it.
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(5, list->viewport()->height() - 2));
  QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier, QPoint(5, 2));
  EXPECT_TRUE(Text("lblXofY").starts_with("Word # 1\n"));
  EXPECT_TRUE(Find("cmdWebLink")->isEnabled());
  Stop();
  std::string many;
  for (char last = 'a'; last <= 'z'; ++last) {
    many += std::string("a") + last + "\r\nab" + last + "\r\n";
  }
  dir.Write("words.lex", many);
  ASSERT_TRUE(Start());
  list = Find<QAbstractItemView>("lbWordList");
  const auto shown = [&](int y) { return list->indexAt({5, y}).row(); };
  Search("*");
  SelectEntry(0);
  const int page = shown(list->viewport()->height() - 1);
  QTest::keyClick(list, Qt::Key_PageDown);
  EXPECT_NEAR(list->currentIndex().row(), page, 1);
  QTest::keyClick(list, Qt::Key_End);
  EXPECT_EQ(list->currentIndex().row(), 51);
  EXPECT_TRUE(list->viewport()->rect().contains(list->visualRect(list->currentIndex())));
  Search("*");  // A new list is shown from its top.
  EXPECT_EQ(shown(1), 0);
}

TEST_F(ResultsWindowTest, LiteratiMakesTheListHigh) {
  int heights[2];
  for (const int literati : {0, 1}) {
    Store("Options", "Literati", literati == 1 ? "Yes" : "No");
    ASSERT_TRUE(Start());
    heights[literati] = Find("lbWordList")->height();
    Stop();
  }
  EXPECT_GT(heights[1], heights[0] + 150);  // As far as the screen goes.
}

TEST_F(ResultsWindowTest, TheTimerShowsHundredths) {
  ASSERT_TRUE(Start());
  Search("c?t");
  EXPECT_EQ(Text("lblTimer"), "");
  Item("menTimer")->trigger();
  EXPECT_EQ(Status(), "The timer has been activated.");
  Stop();
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Item("menTimer")->isChecked());
  for (const auto& [milliseconds, text] : {std::pair{1235U, "Time = 1.24s"}, {4U, "Time = 0.00s"}}) {
    tickStep = milliseconds;
    Search("c?t");
    EXPECT_EQ(Text("lblTimer"), text);
    QTest::keyClicks(Find("tbInput"), "x");
    EXPECT_EQ(Text("lblTimer"), "");
    Click("rbSortAlpha");
    EXPECT_EQ(Text("lblTimer"), text);
  }
  Item("menTimer")->trigger();
  EXPECT_EQ(Status(), "The timer has been deactivated.");
  EXPECT_EQ(Text("lblTimer"), "");
  Stop();
  ASSERT_TRUE(Start());
  EXPECT_FALSE(Item("menTimer")->isChecked());
}

TEST_F(ResultsWindowTest, TheLogIsSwitchedAndCleared) {
  ASSERT_TRUE(Start());
  NewLog();
  const auto caption = [this] {
    emit Find<QMenu>("menOptions")->aboutToShow();
    return ToText(Item("menClearLog")->text());
  };
  EXPECT_EQ(caption(), "&Clear log file (created 03/05/26)");
  Item("menWriteToLog")->trigger();
  EXPECT_EQ(Status(), "The Log File has been deactivated.");
  EXPECT_EQ(Setting("Options", "WriteToLogFile"), "No");
  Search("c?t");
  EXPECT_EQ(NewLog().front(), "LOGDEA Logging deactivated");
  Item("menWriteToLog")->trigger();
  EXPECT_EQ(Status(), "The Log File has been activated.");
  EXPECT_EQ(Setting("Options", "WriteToLogFile"), "Yes");
  EXPECT_EQ(NewLog(), Texts{"LOGACT Logging reactivated"});
  Item("menClearLog")->trigger();
  EXPECT_EQ(Status(), "The Log File has been cleared.");
  EXPECT_EQ(Log(), Texts{"NEWLOG New log file started"});
  EXPECT_EQ(caption(), "&Clear log file (empty)");
}

TEST_F(ResultsWindowTest, WideScreenWidensAndMovesBy245Pixels) {
  ASSERT_TRUE(Start());
  const auto measure = [this] {
    QApplication::processEvents();
    std::map<std::string, int> places;
    for (const char* name : {"tbInput", "lbWordList", "lblStatus"}) {
      places[name] = Find(name)->width();
    }
    for (const char* name : {"lblSelInc", "cmdClear", "cbUpperCase", "lblTimer", "lblLex", "btnFindWords"}) {
      places[name] = Find(name)->mapTo(window.get(), QPoint()).x();
    }
    return places;
  };
  auto expected = measure();
  const auto normal = expected;
  Item("menWideScreen")->trigger();
  EXPECT_EQ(Status() + Setting("Options", "WideScreen"), "Wide screen mode has been set.Yes");
  for (auto& [name, place] : expected) {
    place += 245;
  }
  EXPECT_EQ(measure(), expected);
  Item("menWideScreen")->trigger();
  EXPECT_EQ(Status() + Setting("Options", "WideScreen"), "Normal-width screen mode has been set.No");
  EXPECT_EQ(measure(), normal);
  Item("menWideScreen")->trigger();
  Stop();
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Item("menWideScreen")->isChecked());
  EXPECT_EQ(measure(), expected);
  // Never past the screen, and a maximised window stays as it is.
  Item("menWideScreen")->trigger();
  const int screen = window->screen()->availableSize().width();
  window->resize(screen - 50, window->height());
  Item("menWideScreen")->trigger();
  EXPECT_EQ(window->width(), screen);
  window->showMaximized();
  Item("menWideScreen")->trigger();
  EXPECT_TRUE(window->isMaximized());
}

TEST_F(ResultsWindowTest, FontBoldAndItalicOfTheList) {
  ASSERT_TRUE(Start());
  const auto font = [this] { return Find("lbWordList")->font(); };
  EXPECT_EQ(font().families(), QStringList{"MS Sans Serif"});
  Click("cmdFontToggle");
  EXPECT_EQ(Text("cmdFontToggle"), "Proportiona&l");
  EXPECT_EQ(Status(), "Fixed-width font specified");
  EXPECT_EQ(Setting("Settings", "ListFont"), "Fixed");
  EXPECT_EQ(font().families(), QStringList{"Courier New"});
  Click("cmdV");
  Click("cmdW");
  EXPECT_TRUE(font().bold() && font().italic());
  EXPECT_EQ(Setting("Settings", "ListBold") + Setting("Settings", "ListItalic"), "YesYes");
  Click("cmdW");
  EXPECT_FALSE(font().italic());
  EXPECT_EQ(Setting("Settings", "ListItalic"), "No");
  // The fixed font lives through one restart.
  Stop();
  ASSERT_TRUE(Start());
  EXPECT_EQ(font().families(), QStringList{"Courier New"});
  EXPECT_TRUE(font().bold());
  EXPECT_EQ(Text("cmdFontToggle"), "Proportiona&l");
  EXPECT_EQ(Setting("Settings", "ListFont"), "");
  Stop();
  ASSERT_TRUE(Start());
  EXPECT_EQ(font().families(), QStringList{"MS Sans Serif"});
  Click("cmdFontToggle");
  Click("cmdFontToggle");
  EXPECT_EQ(Status(), "Proportional font specified");
  EXPECT_EQ(Setting("Settings", "ListFont"), "Prop");
}

TEST_F(ResultsWindowTest, AutosaveFollowsItsBoxAndEverySummary) {
  Store("Locations", "SaveFileName", "found.txt");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Setting("Locations", "SaveFileName"), dir.File("found.txt"));
  const auto saved = [this] { return ReadFile(dir.File("found.txt")); };
  Store("Selection", "ExcludedChars", "o");
  Search("c!t");
  EXPECT_EQ(saved(),
            "1 word found matching the word pattern \"c!t\"\r\n ! stands for [o]\r\n\r\n"
            "--- START OF LIST ---\r\ncat\r\n--- END OF LIST ---\r\n");
  EXPECT_EQ(Status(), "1 word found");
  Search("q*");
  EXPECT_EQ(saved(), "0 words found matching the word pattern \"q*\"\r\n");
  Search("%2o>");
  EXPECT_EQ(saved(),
            "2 sequenced words found (2 or more of 'o')\r\n\r\n--- START OF LIST ---\r\nnoon\r\nzoo\r\n"
            "--- END OF LIST ---\r\n");
  Search("*a*");
  Click("rbSortLengthRev");
  EXPECT_NE(saved().find("LIST ---\r\nkayak\r\nabba\r\n"), std::string::npos);
  Click("rbSortAlpha");
  EXPECT_NE(saved().find("LIST ---\r\na\r\nab\r\nabba\r\n"), std::string::npos);
  EXPECT_EQ(CountLog("SAVE "), 0);
  Click("cbSaveToFile");
  EXPECT_EQ(Setting("Options", "SaveToFile"), "No");
  const std::string before = saved();
  Search("zoo");
  EXPECT_EQ(saved(), before);
  Click("cbSaveToFile");
  EXPECT_EQ(Setting("Options", "SaveToFile"), "Yes");
  Search("zoo");
  EXPECT_NE(saved(), before);
}

TEST_F(ResultsWindowTest, AFailingAutosaveIsToldOnce) {
  ASSERT_TRUE(Start());
  const std::string path = dir.File("gone/away.txt");
  Store("Locations", "SaveFileName", path);
  for (int i = 0; i < 3; ++i) {
    Search("c?t");
    EXPECT_NE(Status().find(path), std::string::npos);
    EXPECT_EQ(Entries(), (Texts{"cat", "cot"}));
  }
  EXPECT_EQ(door.questions.size(), 1U);
  EXPECT_NE(door.TakeText().find(path), std::string::npos);
  EXPECT_EQ(CountLog("ERROR "), 3);
  Key(Qt::Key_F8);  // A command of the user's always answers.
  EXPECT_EQ(door.questions.size(), 1U);
  door.TakeText();
  std::filesystem::create_directory(dir.File("gone"));
  Search("c?t");
  EXPECT_EQ(Status(), "2 words found");
  std::filesystem::remove_all(dir.File("gone"));
  Search("c?t");
  EXPECT_EQ(door.questions.size(), 1U);
}

TEST_F(ResultsWindowTest, EveryWayOutEndsTheDiaryOnce) {
  const std::pair<std::function<void()>, const char*> ways[] = {
      {[this] { Item("menExit")->trigger(); }, "END Application ended successfully"},
      {[this] { Click("btnCancel"); }, "END Application ended successfully"},
      {[this] { window->close(); }, "END Application terminated successfully via unload"},
      {[] {}, "END Application terminated successfully"},  // The window is destroyed.
  };
  for (const auto& [leave, entry] : ways) {
    ASSERT_TRUE(Start());
    NewLog();
    exits.clear();
    leave();
    window.reset();
    EXPECT_EQ(NewLog(), (Texts{entry, "SHUTDOWN Closing application"}));
    EXPECT_EQ(exits, std::vector<int>{0}) << entry;
    EXPECT_FALSE(log->IsOpen());
  }
}

TEST_F(ResultsWindowTest, ALogThatFailsWhileClosingIsToldAndTheProgramEnds) {
  std::filesystem::create_symlink("/dev/full", dir.File("quorvane.log"));
  ASSERT_TRUE(Start());
  window->close();
  EXPECT_EQ(door.TakeText(), "Error 61 while closing flag file - termination in progress");
  EXPECT_EQ(exits, std::vector<int>{0});
}

TEST_F(ResultsWindowTest, AFailedScanSaysWhereItFailed) {
  ASSERT_TRUE(Start());
  Click("rbAnagramExact");
  Paste(QString(61, 'a'));
  NewLog();
  QTest::keyClick(Find("tbInput"), Qt::Key_Return);
  const std::string text = door.TakeText();
  EXPECT_TRUE(text.starts_with("Error #9 (Subscript out of range)\noccurred while processing the word '")) << text;
  EXPECT_EQ(NewLog(), Texts{"ERROR-LB " + text});
  EXPECT_TRUE(Status().starts_with("Error #9 processing word '")) << Status();
  EXPECT_EQ(Entries(), Texts{});
  // A full anagram of that many letters has no such limit.
  Click("rbAnagram");
  QTest::keyClick(Find("tbInput"), Qt::Key_Return);
  EXPECT_EQ(Status(), "1 full anagram found");
}

TEST_F(ResultsWindowTest, AFullScreenListIsCutAndStillSavedWhole) {
  screenCapacity = 3;
  ASSERT_TRUE(Start());
  Click("cbSaveToFile");
  Search("*a*");
  EXPECT_EQ(Entries(), (Texts{"a", "ab", "abba", "  *** LIST TRUNCATED ***"}));
  EXPECT_EQ(Status(), "3 words found (screen list truncated)");
  EXPECT_EQ(door.questions.size(), 1U);
  EXPECT_NE(door.TakeText().find("if you save this list, all 10 words will be saved."), std::string::npos);
  EXPECT_EQ(CountLog("LIST_O/F Max # of screen list entries reached; last word listed was 'abba'"), 1);
  SelectEntry(3);
  EXPECT_EQ(Text("lblXofY"), "Word # 4\nLength : 24");
  Key(Qt::Key_F8);
  const std::string saved = ReadFile(dir.File("outlist.txt"));
  EXPECT_TRUE(saved.starts_with("10 words found")) << saved;
  EXPECT_NE(saved.find("tea\r\n--- END"), std::string::npos);
  Click("rbSortLength");
  EXPECT_EQ(Entries().size(), 10U) << "a sort fills the list anew";
  Click("rbSortAlpha");
  Search("c?t");
  EXPECT_EQ(Status(), "2 words found");
}

TEST_F(ResultsWindowTest, RandomWordsAndTheirNotice) {
  ASSERT_TRUE(Start());
  const auto search = [this](std::deque<double> fractions) {
    random.fractions = std::move(fractions);
    Search("~2");
    return door.TakeDialogs();
  };
  EXPECT_EQ(search({1.0, 1.0 / 18}), Texts{"frmRandomDisc"});
  EXPECT_EQ(Entries(), (Texts{"zoo", "a"}));
  EXPECT_EQ(Status(), "2 Random words found");
  EXPECT_FALSE(Item("menSaveAsLex")->isEnabled());
  door.scripts.push_back(Press("cmdOK"));
  EXPECT_EQ(search({0.5, 0.5}), Texts{"frmRandomDisc"});
  door.scripts.push_back([](QDialog& dialog) {
    ClickOn(In(dialog, "cbDontDisplay"));
    ClickOn(In(dialog, "cmdOK"));
  });
  EXPECT_EQ(search({0.5, 0.5}), Texts{"frmRandomDisc"});
  EXPECT_EQ(Setting("Options", "RandomDisclaimer"), "No");
  EXPECT_EQ(search({0.5, 0.5}), Texts{});
  Search("c?t");
  EXPECT_EQ(door.TakeDialogs(), Texts{});
  EXPECT_TRUE(Item("menSaveAsLex")->isEnabled());
  Stop();
  ASSERT_TRUE(Start());
  EXPECT_EQ(Setting("Options", "RandomDisclaimer"), "No");
  EXPECT_EQ(search({0.5, 0.5}), Texts{});
}

}  // namespace
}  // namespace quorvane::test
