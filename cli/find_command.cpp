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

// A typed text after the check and the preparation, or why it is refused.
struct ReadPattern {
  std::optional<std::string> refusal;
  std::string kept;
  PreparedPattern prepared;
  std::string noun;
};

ReadPattern Read(const std::string& typed, const SearchArguments& arguments) {
  ReadPattern read;
  if (typed.empty()) {
    read.refusal = FactsOf(arguments.type).prompt;
    return read;
  }
  InputQuestion question{typed, typed.size(), {}};
  SelectWordType(question.controls, arguments.type);
  const InputAnswer answer = CheckInput(question, arguments.lists);
  read.kept = answer.text;
  if (answer.controls.selected != arguments.type) {
    const std::string moved =
        "'" + typed + "' can't be searched with --type " + std::string(FactsOf(arguments.type).option);
    read.refusal = answer.beeps > 0 ? answer.LastStatus() + " (" + moved + ")" : moved;
  } else if (answer.beeps > 0 || !answer.controls.canSearch) {
    read.refusal = answer.LastStatus();
  } else if (answer.text.empty()) {
    read.refusal = FactsOf(arguments.type).prompt;
  } else {
    read.prepared = PreparePattern(answer.text, arguments.type);
    if (read.prepared.refusal) {
      read.refusal = read.prepared.refusal->statusText;
    }
  }
  read.noun = answer.controls.noun;
  return read;
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
      return output_.Finish(One(arguments_.search.pattern));
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
    const ReadPattern read = Read(typed, arguments_.search);
    if (read.refusal) {
      return Refuse(typed, *read.refusal);
    }
    if (read.prepared.randomCount && !arguments_.saveLexicon.empty()) {
      return Refuse(typed, "random words can't be saved as a lexicon");
    }
    if (read.kept != typed) {
      Note("pattern '" + typed + "' was read as '" + read.kept + "'");
    }
    ScanRequest request{read.prepared, arguments_.search.lists, kAnyMinLength, kAnyMaxLength,
                        arguments_.search.type == WordType::Palindrome};
    if (!arguments_.range.any) {
      request.minLength = arguments_.range.min;
      request.maxLength = arguments_.range.max;
    }
    FoundNumbers& found = results_.BeginSearch();
    const auto start = Clock::now();
    const ScanOutcome outcome = PerformScan(*lexicon_, request, found, random_);
    const double elapsed = MillisecondsSince(start);
    if (!outcome.errors.empty()) {
      return Refuse(
          typed, ReportOf(outcome.errors.front()).statusText + " (" + outcome.errors.front().error.description + ")");
    }
    results_.EndSearch(lexicon_, outcome, arguments_.upper);
    if (arguments_.order != SortOrder::Alphabetic) {
      results_.Sort(arguments_.order, arguments_.upper);
    }
    const auto count = static_cast<int64_t>(results_.FoundCount());
    const std::string summary = SummaryStatus(count, read.noun, arguments_.range);
    Show(typed, read, summary, elapsed);
    Note(summary);
    if (arguments_.time) {
      Note(TimeText(std::llround(elapsed)));
    }
    if (!Save(read)) {
      return kFailed;
    }
    return count > 0 ? kFound : kNothingFound;
  }

  int Refuse(const std::string& typed, const std::string& text) {
    Complain(line_ == 0 ? text : "line " + std::to_string(line_) + ", '" + typed + "': " + text);
    if (arguments_.json) {
      output_.Write(JsonObject().Text("pattern", typed).Text("refused", text).Line());
    }
    return kFailed;
  }

  WordSequence Words() const {
    return arguments_.order == SortOrder::Alphabetic ? results_.FoundWords() : results_.FoundWordsCopy();
  }

  void Show(const std::string& typed, const ReadPattern& read, const std::string& summary, double elapsed) {
    const WordSequence words = Words();
    if (arguments_.json) {
      JsonObject object;
      object.Text("pattern", typed)
          .Text("prepared", read.prepared.text)
          .Number("kind", static_cast<int>(read.prepared.kind))
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

  bool Save(const ReadPattern& read) {
    std::optional<FileError> error;
    if (!arguments_.saveFile.empty()) {
      error = WriteResultsFile(arguments_.saveFile,
                               {results_.FoundCount(), read.noun, read.kept, arguments_.search.lists}, Words());
    }
    if (!error && !arguments_.saveLexicon.empty()) {
      if (results_.FoundCount() == 0) {
        Complain("no word was found; " + arguments_.saveLexicon + " was not written");
        return false;
      }
      error = WriteResultsAsLexicon(arguments_.saveLexicon, Words());
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
