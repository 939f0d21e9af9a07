// The history file, also while several processes change it.

#include "search/history.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/file_size_limit.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

HistoryEntry EntryOf(const std::string& pattern) {
  HistoryEntry entry;
  entry.search.text = pattern;
  entry.lexicon = "words.lex";
  entry.time = LocalTimeText(1'700'000'000);
  return entry;
}

std::vector<std::string> Patterns(const History& history) {
  std::vector<std::string> patterns;
  for (const HistoryEntry& entry : history.Entries()) {
    patterns.push_back(entry.search.text);
  }
  return patterns;
}
using Texts = std::vector<std::string>;

class HistoryTest : public testing::Test {
 protected:
  History Loaded() const {
    History history;
    history.Load(path_);
    return history;
  }

  TemporaryDirectory directory_;
  const std::string path_ = directory_.File(kHistoryName);
};

TEST_F(HistoryTest, AnEntryComesBackAsItWas) {
  HistoryEntry entry = EntryOf("");
  for (int c = 0; c < 256; ++c) {
    entry.search.text += static_cast<char>(c);
  }
  entry.search.mode = WordType::AnagramExact;
  entry.search.noun = "\xE9 noun";
  entry.search.lengths = {false, 3, 12};
  entry.search.lists = {"aB\xC0", "", "q?-"};
  entry.search.conditions = {{ConditionKind::Not, "*s"}, {ConditionKind::Not, "x\xE9*"}, {ConditionKind::From, "q?"}};
  entry.lexicon = "not utf-8 \xFF.lex";
  entry.order = "long";
  entry.upperCase = true;
  entry.count = 2'000'000;
  entry.name = "\"quoted\"\nline\r\n" + std::string(10'000, 'n') + "\u00E9\u4E2D\\";
  History writing = Loaded();
  EXPECT_FALSE(writing.Append(entry));
  EXPECT_FALSE(writing.Append(EntryOf("c?t")));
  const History history = Loaded();
  ASSERT_EQ(Patterns(history), (Texts{entry.search.text, "c?t"}));
  const HistoryEntry& back = history.Entries().front();
  EXPECT_EQ(back.search.mode, WordType::AnagramExact);
  EXPECT_EQ(back.search.noun, entry.search.noun);
  EXPECT_FALSE(back.search.lengths.any);
  EXPECT_EQ(back.search.lengths.max, 12);
  EXPECT_EQ(back.search.lists.include, entry.search.lists.include);
  ASSERT_EQ(back.search.conditions.size(), 3u);
  EXPECT_EQ(back.search.conditions[1].kind, ConditionKind::Not);
  EXPECT_EQ(back.search.conditions[1].text, "x\xE9*");
  EXPECT_EQ(back.lexicon, entry.lexicon);
  EXPECT_EQ(back.name, entry.name);
  EXPECT_TRUE(back.upperCase);
  EXPECT_EQ(JsonOf(back), JsonOf(entry));
  EXPECT_TRUE(history.Entries().back().search.lengths.any);
  EXPECT_EQ(history.Named(entry.name), &back);
  EXPECT_EQ(history.Named(""), nullptr);
  struct stat status {};
  ASSERT_EQ(stat(path_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777u, 0600u);
}

TEST_F(HistoryTest, WhatIsNotUnderstoodStays) {
  const std::string foreign = "{\"v\":2,\"pattern\":\"n\"}\n{\"v\":1,\"pattern\":\"u\",\"colour\":\"red\"}\n";
  const std::string unreadable =
      "no record\n[1]\n{\"v\":1}\n{\"pattern\":7}\n{\"pattern\":\"a\",\"count\":\"x\"}\n"
      "{\"pattern\":\"a\",\"type\":\"none\"}\n{\"pattern\":\"a\",\"length\":\"9-2\"}\n{\"pattern\":\"\\u4E2D\"}\n{"
      "\"pattern\":\"a\",\"not\":[7]}\n"
      "{\"pattern\":\"\xFF\"}\n{\"v\":1,\"pattern\":\"cu";
  directory_.Write(kHistoryName, "{\"pattern\":\"old\",\"length\":\"5\"}\n" + foreign + unreadable);
  History history;
  const HistoryRead read = history.Load(path_);
  EXPECT_EQ(read.unknown, 2);
  EXPECT_EQ(read.Text(), "11 lines of the history can't be read; what the file holds is kept");
  EXPECT_FALSE(history.Append(EntryOf("new")));
  EXPECT_EQ(Patterns(Loaded()), (Texts{"old", "new"})) << "the cut line stays a line of its own";
  EXPECT_FALSE(history.Tidy());
  EXPECT_FALSE(history.Name(history.Entries().front(), "name"));
  EXPECT_FALSE(history.ForgetAll());
  EXPECT_EQ(ReadFile(path_), foreign + unreadable + "\n");
}

TEST_F(HistoryTest, TidyKeepsTheLastOfEachSearchAndTheNamedOnes) {
  History history = Loaded();
  for (int i = 0; i < 510; ++i) {
    HistoryEntry entry = EntryOf(std::to_string(i));
    entry.name = i == 3 ? "third" : "";
    ASSERT_FALSE(history.Append(entry));
  }
  HistoryEntry again = EntryOf("300");
  again.order = "long";
  ASSERT_FALSE(history.Append(again));
  again.lexicon = "other.lex";
  ASSERT_FALSE(history.Append(again));
  ASSERT_FALSE(history.Tidy());
  Texts expected = {"3"};
  for (int i = 11; i < 510; ++i) {
    if (i != 300) {
      expected.push_back(std::to_string(i));
    }
  }
  expected.insert(expected.end(), {"300", "300"});
  EXPECT_EQ(Patterns(history), expected);
  EXPECT_EQ(Patterns(Loaded()), expected);
}

TEST_F(HistoryTest, TheSameSearchIsListedNamedAndForgottenAsOne) {
  History history = Loaded();
  const auto add = [&](const char* pattern, const char* lexicon, int64_t count, const char* name = "") {
    HistoryEntry entry = EntryOf(pattern);
    std::tie(entry.lexicon, entry.count, entry.name) = std::tie(lexicon, count, name);
    ASSERT_FALSE(history.Append(entry));
  };
  const auto listed = [&] {
    std::string text;
    for (const HistoryEntry& entry : history.Distinct()) {
      text += entry.search.text + " " + entry.lexicon[0] + std::to_string(entry.count) + entry.name + "; ";
    }
    return text;
  };
  add("a", "x", 1);
  add("a", "y", 2);
  add("b", "x", 3);
  add("a", "x", 4);
  EXPECT_EQ(listed(), "a x4; b x3; a y2; ");
  ASSERT_FALSE(history.Name(history.Distinct()[0], "one\n\"two'"));
  EXPECT_EQ(Patterns(history), (Texts{"a", "b", "a"}));
  add("a", "x", 5);
  EXPECT_EQ(listed(), "a x5one\n\"two'; b x3; a y2; ") << "found again: the name's count and time";
  ASSERT_FALSE(history.Name(history.Distinct()[0], ""));
  EXPECT_EQ(Patterns(history), (Texts{"a", "b", "a"})) << "what is the same goes with it";
  add("a", "x", 6);
  ASSERT_FALSE(history.Forget(history.Distinct()[0]));
  EXPECT_EQ(listed(), "b x3; a y2; ");
  add("b", "x", 7, "p");
  add("b", "x", 8, "q");
  ASSERT_FALSE(history.Forget(history.Distinct()[0]));
  EXPECT_EQ(listed(), "b x7p; a y2; ") << "each name is a row of its own";
}

TEST_F(HistoryTest, TwoSessionsNeverLoseEachOthersLines) {
  constexpr int kProcesses = 4;
  constexpr int kEach = 60;
  std::vector<pid_t> children;
  for (int process = 0; process < kProcesses; ++process) {
    const pid_t child = fork();
    if (child == 0) {
      History history = Loaded();
      bool failed = false;
      for (int i = 0; i < kEach; ++i) {
        const std::string mark = std::to_string(process) + "." + std::to_string(i);
        failed = history.Append(EntryOf(mark)) || failed;
        failed = (i % 3 == 0 && history.Name(history.Entries().back(), mark)) || failed;
        failed = (i % 3 == 1 && history.Forget(history.Entries().back())) || failed;
        failed = (i % 10 == 0 && history.Tidy()) || failed;
      }
      _exit(failed ? 1 : 0);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  const History history = Loaded();
  // Of three lines a process forgets one of its own.
  EXPECT_EQ(history.Entries().size(), size_t{kProcesses * kEach * 2 / 3});
}

TEST_F(HistoryTest, FailuresAreToldOnceAndLoseNothing) {
  const std::string pipe = directory_.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string large = directory_.Write("large", "{\"pattern\":\"a\"}\n");
  std::filesystem::resize_file(large, kMostHistory + 1);
  const struct {
    std::string path;
    const char* reason;
  } cases[] = {{directory_.path(), "Is a directory"},
               {pipe, "it is a pipe, not a file"},
               {large, "it is larger than 16 MB and is left alone"},
               {directory_.File("none/history.jsonl"), ""}};
  for (const auto& [path, reason] : cases) {
    SCOPED_TRACE(path);
    History history;
    const HistoryRead read = history.Load(path);
    EXPECT_EQ(read.Text(), *reason == '\0' ? "" : "The history can't be read: " + path + ": " + reason);
    const auto first = history.Append(EntryOf("a"));
    ASSERT_TRUE(first);
    EXPECT_EQ(first->reason, *reason == '\0' ? "No such file or directory" : reason);
    EXPECT_FALSE(history.Append(EntryOf("b")));
    EXPECT_TRUE(history.Entries().empty());
    EXPECT_EQ(history.ForgetAll().has_value(), *reason != '\0');
  }
  EXPECT_EQ(std::filesystem::file_size(large), kMostHistory + 1);

  History history = Loaded();
  ASSERT_FALSE(history.Append(EntryOf("kept")));
  const std::string before = ReadFile(path_);
  {
    const FileSizeLimit limit(before.size() + 10);
    EXPECT_TRUE(history.Append(EntryOf("lost")));
    EXPECT_TRUE(history.Name(history.Entries().front(), "much longer than before"));
  }
  EXPECT_EQ(ReadFile(path_), before);
  EXPECT_EQ(Patterns(history), Texts{"kept"});
}

}  // namespace
}  // namespace quorvane::test
