// Searches as commands, run by the shells that they are pasted into.

#include "results/search_command.h"

#include <filesystem>
#include <random>

#include "results/search_run.h"
#include "search/input_check.h"
#include "tests/cli/command_line.h"

namespace quorvane::test {
namespace {

class Generator : public RandomSource {
 public:
  size_t Below(size_t limit) { return engine_() % limit; }
  double NextFraction() override { return 0; }
  std::string Some(std::string_view characters, size_t most) {
    std::string text;
    for (size_t length = Below(most + 1); text.size() < length;) {
      text += characters[Below(characters.size())];
    }
    return text;
  }

  // As a window would ask for it.
  SearchRun Run() {
    Search search;
    search.mode = WordTypes()[Below(4)].type;
    search.lists = {CleanList(ListKind::Include, Below(2) == 0 ? "ABCDEFGHIJKLMNOPQRSTUVWXYZ" : Some("aBcelT", 9)),
                    CleanList(ListKind::Exclude, Some("aBcelT", 3)), Some("aeLt-?", 7)};
    InputControls controls;
    SelectWordType(controls, search.mode);
    const InputAnswer answer =
        CheckInput({Some(";%*", 1) + Some("aBcelt-?*@$',:#!=1~>; \\\"&", 6), 0, controls}, search.lists);
    search.text = answer.controls.canSearch ? answer.text : "";
    search.mode = answer.controls.selected;
    search.lengths = {Below(2) == 0, 1 + static_cast<int>(Below(3)), 3 + static_cast<int>(Below(58))};
    for (size_t more = Below(3); more > 0; --more) {
      const ConditionFacts& facts = ConditionKinds()[Below(kConditionKinds)];
      search.conditions.push_back({facts.kind, Some(facts.pattern ? "aelt-?*'$!=" : "aelT", 5)});
    }
    return SearchRun(search);
  }

 private:
  std::mt19937 engine_{20261121};
};

TEST_F(CommandLine, SearchesComeBackFromEveryShell) {
  const std::string nasty = directory_.File("it's \\\\ \\' $(touch pwned)\n`touch pwned`;\x1b\xE9 \xC3\xA9 {a,b} !!");
  std::filesystem::create_directory(nasty);
  std::vector<std::string> lexicons;
  for (const char* name : {"words.lex", "gb.lex", "gb.lex.lex", "-x", "-$(touch pwned)'"}) {
    std::filesystem::copy_file(directory_.File("words.lex"), lexicons.emplace_back(nasty + "/" + name));
  }
  // A lexicon that is found instead of another has one word more.
  directory_.Write(nasty.substr(directory_.path().size() + 1) + "/gb.lex.lex", std::string(kWords) + "zzz\r\n");
  Generator generator;
  std::string commands;
  std::string expected;
  size_t found = 0;
  for (int done = 0; done < 150;) {
    const SearchRun run = generator.Run();
    if (run.Asked().text.empty() || run.Prepared().refusal || run.Prepared().randomCount) {
      continue;
    }
    const std::string& lexicon = lexicons[generator.Below(lexicons.size())];
    const bool upper = generator.Below(2) == 0;
    const SortOrder order = SortOrders()[generator.Below(3)].order;
    ResultList results;
    run.List(LoadLexicon(lexicon).lexicon, generator, {upper}, results);
    results.Sort(order, upper);
    const WordSequence words = results.WordsIn(order);
    for (size_t i = 0; i < words.numbers.size(); ++i) {
      expected += words.Word(i) + "\n";
    }
    expected += ".\n";
    found += words.numbers.size();
    commands +=
        CommandOf({run.Asked(), order, upper, lexicon, generator.Below(2) == 0 ? nasty : "/elsewhere", "/usual"}) +
        "; echo .\n";
    ++done;
  }
  EXPECT_GT(found, 100u);
  directory_.Write("commands", commands);
  for (const std::string shell : {"sh", "bash", "zsh", "fish"}) {
    const Result result =
        Run("PATH=${Q%/*}:$PATH; command -v " + shell + " >/dev/null || exit 77; " + shell + " commands");
    EXPECT_TRUE(result.status == 77 || result.out == expected) << shell << "\n" << result.err.substr(0, 2000);
  }
  EXPECT_FALSE(std::filesystem::exists(directory_.File("pwned")));
}

TEST(SearchCommand, SaysWhatIsNotAsUsual) {
  const Search search{
      .text = "==c==", .lengths = {false, 7, 7}, .lists = {"ABCDEFGHIJKLMNOPQRSTUVWXYZ", "", "aeinrt?"}};
  const TemporaryDirectory directory;
  const std::string lexicon = directory.Write("gb.lex", kWords);
  const std::string rest = " --length 7 --rack 'aeinrt?' -- '==c=='";
  EXPECT_EQ(
      CommandOf(
          {.search = search, .lexicon = lexicon, .directory = directory.path(), .usualDirectory = directory.path()}),
      "quorvane-cli find --lexicon gb.lex" + rest);
  EXPECT_EQ(CommandOf({.search = search, .lexicon = "/d/words.lex", .directory = "/d", .usualDirectory = "/d"}),
            "quorvane-cli find" + rest);
  EXPECT_EQ(CommandOf({.search = search, .lexicon = "/d/words.lex", .directory = "/d", .usualDirectory = "/e"}),
            "quorvane-cli find --data-dir /d" + rest);
}

}  // namespace
}  // namespace quorvane::test
