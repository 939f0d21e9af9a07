// Searches as commands, run by the shells that they are pasted into, and as the requests of a stream.

#include "results/search_command.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <sstream>

#include "results/search_run.h"
#include "search/input_check.h"
#include "search/search_json.h"
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

  // As a window would ask for it, and only what it would search.
  SearchRun Run() {
    for (;;) {
      SearchRun run = AnyRun();
      if (!run.Asked().text.empty() && !run.Prepared().refusal && !run.Prepared().randomCount) {
        return run;
      }
    }
  }
  SortOrder Order() { return SortOrders()[Below(3)].order; }

 private:
  SearchRun AnyRun() {
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
    search.noun = FactsOf(search.mode).noun;
    search.lengths = {Below(2) == 0, 1 + static_cast<int>(Below(3)), 3 + static_cast<int>(Below(58))};
    for (size_t more = Below(3); more > 0; --more) {
      const ConditionFacts& facts = ConditionKinds()[Below(kConditionKinds)];
      search.conditions.push_back({facts.kind, Some(facts.pattern ? "aelt-?*'$!=" : "aelT", 5)});
    }
    return SearchRun(search);
  }

  std::mt19937 engine_{20261121};
};

// What a search finds, a word a line.
std::string Found(const SearchRun& run, const std::string& lexicon, SortOrder order, bool upper) {
  Generator none;
  ResultList results;
  run.List(LoadLexicon(lexicon).lexicon, none, {upper}, results);
  results.Sort(order, upper);
  const WordSequence words = results.WordsIn(order);
  std::string lines;
  for (size_t i = 0; i < words.numbers.size(); ++i) {
    lines += words.Word(i) + "\n";
  }
  return lines;
}

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
  for (int i = 0; i < 150; ++i) {
    const SearchRun run = generator.Run();
    const std::string& lexicon = lexicons[generator.Below(lexicons.size())];
    const bool upper = generator.Below(2) == 0;
    const SortOrder order = generator.Order();
    expected += Found(run, lexicon, order, upper) + ".\n";
    commands +=
        CommandOf({run.Asked(), order, upper, lexicon, generator.Below(2) == 0 ? nasty : "/elsewhere", "/usual"}) +
        "; echo .\n";
  }
  EXPECT_GT(std::count(expected.begin(), expected.end(), '\n'), 250);
  directory_.Write("commands", commands);
  for (const std::string shell : {"sh", "bash", "zsh", "fish"}) {
    const Result result =
        Run("PATH=${Q%/*}:$PATH; command -v " + shell + " >/dev/null || exit 77; " + shell + " commands");
    EXPECT_TRUE(result.status == 77 || result.out == expected) << shell << "\n" << result.err.substr(0, 2000);
  }
  EXPECT_FALSE(std::filesystem::exists(directory_.File("pwned")));
}

TEST_F(CommandLine, AStreamAnswersEachRequestAsASearchOfItsOwn) {
  Generator generator;
  std::string requests;
  std::string expected;
  for (int i = 0; i < 1000; ++i) {
    const SearchRun run = generator.Run();
    const bool upper = generator.Below(2) == 0;
    const SortOrder order = generator.Order();
    Json request{{"id", i}, {"upper", upper}, {"sort", RowOf(order).option}};
    PutSearch(run.Asked(), request);
    requests += request.dump() + "\n";
    expected += std::to_string(i) + "\n" + Found(run, directory_.File("words.lex"), order, upper);
  }
  directory_.Write("requests", requests);
  // What the options say holds where a request says nothing.
  const Result result = Run("q find --stream --type exact --limit 99 --sort long --include '' <requests");
  std::string found;
  std::istringstream answers(result.out);
  for (std::string line; std::getline(answers, line);) {
    const Json answer = Json::parse(line);
    found += answer["id"].dump() + "\n";
    for (const Json& word : answer.value("words", Json::array({answer.dump()}))) {
      found += BytesFromUtf8(word.get<std::string>()).value() + "\n";
    }
  }
  EXPECT_EQ(found, expected);
  EXPECT_EQ(result.err, "");
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
