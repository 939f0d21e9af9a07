#include "cli/find_command.h"

#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <random>

#include "cli/json.h"
#include "cli/lexicon_commands.h"
#include "cli/output.h"
#include "results/results_file.h"
#include "results/search_run.h"
#include "results/summary.h"
#include "search/input_check.h"
#include "search/search_texts.h"

namespace quorvane::cli {
namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

class SeededRandom : public RandomSource {
 public:
  explicit SeededRandom(uint32_t seed) : generator_(seed) {}
  double NextFraction() override { return static_cast<double>(generator_()) / 4294967296.0; }

 private:
  std::mt19937 generator_;
};

// A typed text after the check, as a search, or why it is refused.
struct ReadPattern {
  std::optional<std::string> refusal;
  std::optional<SearchRun> run;
};

ReadPattern Read(const std::string& typed, const Search& asked) {
  if (typed.empty()) {
    return {std::string(FactsOf(asked.mode).prompt), std::nullopt};
  }
  InputControls controls;
  SelectWordType(controls, asked.mode);
  const InputAnswer answer = CheckInput({typed, typed.size(), controls}, asked.lists);
  if (answer.controls.selected != asked.mode) {
    const std::string moved =
        "'" + typed + "' can't be searched with --type " + std::string(FactsOf(asked.mode).option);
    return {answer.beeps > 0 ? answer.LastStatus() + " (" + moved + ")" : moved, std::nullopt};
  }
  if (answer.beeps > 0 || !answer.controls.canSearch) {
    return {answer.LastStatus(), std::nullopt};
  }
  if (answer.text.empty()) {
    return {std::string(FactsOf(asked.mode).prompt), std::nullopt};
  }
  Search search = asked;
  search.text = answer.text;
  search.noun = answer.controls.noun;
  SearchRun run(search);
  if (run.Prepared().refusal) {
    return {run.Prepared().refusal->statusText, std::nullopt};
  }
  return {std::nullopt, std::move(run)};
}

class FindRun {
 public:
  explicit FindRun(const FindArguments& arguments)
      : arguments_(arguments), random_(arguments.seed ? *arguments.seed : std::random_device()()) {}

  int Run() {
    if (!Load()) {
      return output_.Finish(kFailed);
    }
    if (!arguments_.FromStandardInput()) {
      return output_.Finish(One(arguments_.asked.pattern));
    }
    bool found = false;
    bool refused = false;
    for (std::string line; std::getline(std::cin, line);) {
      ++line_;
      if (line.ends_with('\r')) {
        line.pop_back();
      }
      const int status = One(line);
      found = found || status == kFound;
      refused = refused || status == kFailed;
      output_.Flush();
    }
    if (std::ferror(stdin) != 0) {
      Complain(std::string("can't read standard input: ") + std::strerror(errno));
      refused = true;
    }
    return output_.Finish(refused ? kFailed : found ? kFound : kNothingFound);
  }

 private:
  bool Load() {
    const std::string path = LexiconPath(arguments_.lexicon, arguments_.dataDir);
    const auto start = Clock::now();
    const LoadResult loaded = LoadLexicon(path, kLexiconCapacity, TextSource::Map);
    const double elapsed = MillisecondsSince(start);
    if (loaded.outcome != LoadOutcome::Ok) {
      Complain(DescribeLoad(path, loaded));
    }
    if (!loaded.Usable()) {
      return false;
    }
    lexicon_ = loaded.lexicon;
    if (arguments_.json) {
      output_.Write(JsonObject()
                        .Path("lexicon", path)
                        .Number("words", lexicon_->count())
                        .Milliseconds("load_ms", elapsed)
                        .Line());
    }
    return true;
  }

  int One(const std::string& typed) {
    const auto [refusal, run] = Read(typed, arguments_.asked.search);
    if (refusal) {
      return Refuse(typed, *refusal);
    }
    const Search& search = run->Asked();
    if (run->Prepared().randomCount && !arguments_.saveLexicon.empty()) {
      return Refuse(typed, "random words can't be saved as a lexicon");
    }
    if (search.text != typed) {
      Note("pattern '" + typed + "' was read as '" + search.text + "'");
    }
    const auto start = Clock::now();
    const ScanOutcome outcome = run->List(lexicon_, random_, {arguments_.upper}, results_);
    const double elapsed = MillisecondsSince(start);
    if (!outcome.errors.empty()) {
      return Refuse(
          typed, ReportOf(outcome.errors.front()).statusText + " (" + outcome.errors.front().error.description + ")");
    }
    if (arguments_.order != SortOrder::Alphabetic) {
      results_.Sort(arguments_.order, arguments_.upper);
    }
    const std::string summary = SummaryStatus(results_.FoundCount(), search);
    Note(summary);
    // Before the words are shown: a reader may go away while they are.
    const bool saved = Save(search);
    if (arguments_.time) {
      Note(TimeText(std::llround(elapsed)));
    }
    Show(typed, run->Prepared(), summary, elapsed);
    return !saved ? kFailed : results_.FoundCount() > 0 ? kFound : kNothingFound;
  }

  int Refuse(const std::string& typed, const std::string& text) {
    Complain(line_ == 0 ? text : "line " + std::to_string(line_) + ", '" + typed + "': " + text);
    if (arguments_.json) {
      output_.Write(JsonObject().Text("pattern", typed).Text("refused", text).Line());
    }
    return kFailed;
  }

  void Show(const std::string& typed, const PreparedPattern& prepared, const std::string& summary, double elapsed) {
    const WordSequence words = results_.WordsIn(arguments_.order);
    if (arguments_.json) {
      JsonObject object;
      object.Text("pattern", typed)
          .Text("prepared", prepared.text)
          .Number("kind", static_cast<int>(prepared.kind))
          .Number("count", static_cast<int64_t>(words.numbers.size()))
          .Text("status", summary)
          .Milliseconds("ms", elapsed);
      if (!arguments_.count) {
        object.BeginTexts("words");
        for (size_t i = 0; i < words.numbers.size(); ++i) {
          object.Item(words.Word(i));
        }
        object.EndTexts();
      }
      output_.Write(object.Line());
    } else if (arguments_.count) {
      output_.Write(std::to_string(words.numbers.size()) + "\n");
    } else {
      WriteWords(output_.Writer(), words, "\n");
    }
  }

  bool Save(const Search& search) {
    std::optional<FileError> error;
    if (!arguments_.saveFile.empty()) {
      error = WriteResultsFile(arguments_.saveFile, search, results_, arguments_.order);
    }
    if (!error && !arguments_.saveLexicon.empty()) {
      if (results_.FoundCount() == 0) {
        Complain("no word was found; " + arguments_.saveLexicon + " was not written");
        return false;
      }
      error = WriteResultsAsLexicon(arguments_.saveLexicon, results_, arguments_.order);
    }
    if (error) {
      Complain("can't write " + error->Text());
    }
    return !error;
  }

  const FindArguments& arguments_;
  int64_t line_ = 0;  // Of standard input; 0: the pattern is an argument.
  SeededRandom random_;
  Output output_;
  std::shared_ptr<const Lexicon> lexicon_;
  ResultList results_;
};

}  // namespace

int Find(const FindArguments& arguments) {
  return FindRun(arguments).Run();
}

}  // namespace quorvane::cli
