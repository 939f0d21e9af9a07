// The main window where something is not as it should be: settings, log, memory; and where a person can't see it.

#include <sys/resource.h>

#include <QAccessible>
#include <csignal>

#include "tests/window/window_fixture.h"

namespace quorvane::test {
namespace {

class EdgesWindowTest : public WindowTest {};

TEST_F(EdgesWindowTest, ASecondStartLeavesTheSettingsFileAsItWas) {
  dir.Write("quorvane.conf",
            "[Settings]\nMinLength=abc\nMaxLength=99\n[Selection]\nExcludedChars=a, e;i\nbroken line\n"
            "[Colours]\nMainBack=@Variant(junk)\nListText=red\n[Theirs]\nKey=kept\nk//l=5\n");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Setting("Settings", "MinLength") + " " + Setting("Settings", "MaxLength"), "1 60");
  EXPECT_EQ(Setting("Selection", "ExcludedChars"), "ae");
  EXPECT_EQ(Setting("Colours", "MainBack") + Setting("Colours", "ListText"), "&H8000000F&H00FF0000");
  EXPECT_EQ(Setting("Theirs", "Key"), "kept");
  Stop();
  const std::string first = ReadFile(dir.File("quorvane.conf"));
  EXPECT_NE(first.find("[Printer]"), std::string::npos);
  EXPECT_NE(first.find("l=5"), std::string::npos);
  ASSERT_TRUE(Start());
  Stop();
  EXPECT_EQ(ReadFile(dir.File("quorvane.conf")), first);
  EXPECT_TRUE(failures.empty());
  EXPECT_TRUE(door.questions.empty());
}

TEST_F(EdgesWindowTest, HalfAPathIsNotUsed) {
  const std::string notes = dir.Write("notes", "mine");
  for (const std::string& written : {"[Locations]\nSaveFileName=" + notes + ";old.txt\n",
                                     "\xEF\xBB\xBF [ Locations ]\r\n SaveFileName = " + notes + ";old.txt\r\n",
                                     "[Locations]\nSaveFileName=" + notes + ",old.txt\n",
                                     std::string("[Locations]\nSaveFileName=C:\\temp\\new.txt\n")}) {
    for (const bool whileRunning : {false, true}) {
      SCOPED_TRACE(written + (whileRunning ? " while running" : ""));
      std::filesystem::remove(dir.File("quorvane.conf"));
      if (!whileRunning) {
        dir.Write("quorvane.conf", written);
      }
      ASSERT_TRUE(Start());
      if (whileRunning) {
        dir.Write("quorvane.conf", written);
        Store("Theirs", "Key", "1");
      }
      Search("c?t");
      EXPECT_EQ(Setting("Locations", "SaveFileName"), dir.File("outlist.txt"));
      EXPECT_EQ(ReadFile(notes), "mine");
      Stop();
    }
  }
}

TEST_F(EdgesWindowTest, ASettingsFileThatCannotBeWrittenWholeStaysAsItWas) {
  ASSERT_TRUE(Start());
  const std::string before = ReadFile(dir.File("quorvane.conf"));
  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  const rlimit small{before.size() / 2, old.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  Store("Theirs", "First", "1");
  Store("Theirs", "Second", "2");
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(failures.size(), 1U);
  EXPECT_EQ(ReadFile(dir.File("quorvane.conf")), before);
  EXPECT_EQ(Setting("Theirs", "First"), "1");
  Store("Theirs", "Third", "3");
  EXPECT_NE(ReadFile(dir.File("quorvane.conf")).find("[Theirs]\nFirst=1\nSecond=2\nThird=3\n"), std::string::npos);
}

TEST_F(EdgesWindowTest, ADirectoryInPlaceOfTheLogIsToldOnce) {
  std::filesystem::create_directory(dir.File("quorvane.log"));
  ASSERT_TRUE(Start());
  Search("c?t");
  Search("*a*");
  EXPECT_EQ(failures.size(), 1U);
  EXPECT_EQ(Status(), "10 words found");
  Item("menClearLog")->trigger();
  EXPECT_TRUE(Status().starts_with("The Log File could not be cleared: ")) << Status();
  EXPECT_EQ(door.TakeText(), Status());
  window->close();
  EXPECT_EQ(exits, std::vector<int>{0});
}

TEST_F(EdgesWindowTest, UnwritableSettingsAreToldOnceAndKeptInMemory) {
  std::filesystem::create_directory(dir.File("quorvane.conf"));
  ASSERT_TRUE(Start());
  Item("menTimer")->trigger();
  Click("cmdV");
  EXPECT_EQ(failures.size(), 1U);
  EXPECT_EQ(Setting("Options", "TimerInd") + Setting("Settings", "ListBold"), "YesYes");
}

TEST_F(EdgesWindowTest, AScreenReaderTellsTheLengthBoxesAndTheAnagramsApart) {
  ASSERT_TRUE(Start());
  const auto labelOf = [this](const char* name) {
    QString text;
    for (const auto& [other, relation] : QAccessible::queryAccessibleInterface(Find(name))->relations()) {
      text += relation == QAccessible::Label ? other->text(QAccessible::Name) : QString();
    }
    return ToText(text);
  };
  EXPECT_EQ(labelOf("cbLenFr") + "|" + labelOf("cbLenTo"), "Minimum lengthWord lengths|Maximum lengthWord lengths")
      << "and the frame around";
  EXPECT_EQ(Find("rbAnagram")->accessibleName(), "Anagram, all words");
  EXPECT_EQ(Find("rbAnagramExact")->accessibleName(), "Anagram, exact length only");
}

TEST_F(EdgesWindowTest, ARefusedCharacterLeavesTheUndoHistory) {
  ASSERT_TRUE(Start());
  Type("abc");
  QTest::keyClicks(Find("tbInput"), "&**");
  EXPECT_EQ(Text("tbInput"), "abc*");
  EXPECT_EQ(Status(), "Can't enter two asterisks next to each other");
  EXPECT_EQ(door.TakeBeeps(), 4);
  QTest::keyClick(Find("tbInput"), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Text("tbInput"), "") << "what was typed since the box was emptied";
  QTest::keyClick(Find("tbInput"), Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Text("tbInput"), "abc*");
}

TEST_F(EdgesWindowTest, ShortMemoryEndsTheCommandAlone) {
  ASSERT_TRUE(Start());
  Search("c?t");
  for (const Qt::Key key : {Qt::Key_F2, Qt::Key_F7}) {
    door.scripts.push_back([](QDialog&) { throw std::bad_alloc(); });
    Key(key);
    EXPECT_TRUE(door.TakeText().starts_with("There is not enough memory for this: "));
    EXPECT_EQ(Entries(), (Texts{"cat", "cot"}));
  }
  Search("~");  // The notice runs into it: the next search is one again.
  door.scripts.push_back([](QDialog&) { throw std::bad_alloc(); });
  Search("~");
  Search("c?t");
  EXPECT_EQ(Entries(), (Texts{"cat", "cot"}));
}

}  // namespace
}  // namespace quorvane::test
