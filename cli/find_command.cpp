#include "cli/find_command.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "base/text.h"
#include "cli/fixed_letters.h"
#include "cli/json.h"
#include "cli/lexicon_commands.h"
#include "cli/make_command.h"
#include "cli/output.h"
#include "cli/read_pattern.h"
#include "cli/stream.h"
#include "results/export.h"
#include "results/results_file.h"
#include "results/summary.h"
#include "search/conditions.h"
#include "search/reading.h"
#include "search/search_texts.h"

namespace quorvane::cli {
namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// Words are in bold for a terminal that shows it, unless its user wants no colours.
bool WantsBold(Colour colour) {
  if (colour != Colour::Auto) {
    return colour == Colour::Always;
  }
  const char* refused = std::getenv("NO_COLOR");
  const char* terminal = std::getenv("TERM");
  return (refused == nullptr || *refused == '\0') && (terminal == nullptr || std::strcmp(terminal, "dumb") != 0) &&
         isatty(STDOUT_FILENO) == 1;
}

// While it lives, a write to a pipe without a reader is an error instead of the end.
class WithoutPipeSignal {
 public:
  WithoutPipeSignal() : before_(std::signal(SIGPIPE, SIG_IGN)) {}
  ~WithoutPipeSignal() { std::signal(SIGPIPE, before_); }
  WithoutPipeSignal(const WithoutPipeSignal&) = delete;
  WithoutPipeSignal& operator=(const WithoutPipeSignal&) = delete;

 private:
  void (*before_)(int);
};

class FindRun {
 public:
  explicit FindRun(const FindArguments& arguments)
      : arguments_(arguments),
        bold_(WantsBold(arguments.colour)),
        random_(arguments.seed ? *arguments.seed : std::random_device()()) {}

  int Run() {
    if (!Load()) {
      return output_.Finish(kFailed);
    }
    if (arguments_.stream) {
      return output_.Finish(AnswerStream(arguments_, lexicon_, random_, output_));
    }
    if (!arguments_.FromStandardInput()) {
      return output_.Finish(One(arguments_.asked.pattern));
    }
    bool found = false;
    bool refused = false;
    for (std::string line; !output_.Failed() && std::getline(std::cin, line);) {
      ++line_;
      if (line.ends_with('\r')) {
        line.pop_back();
      }
      if (line_ > 1 && arguments_.between) {
        output_.Write(*arguments_.between + "\n");
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
    if (!arguments_.wordLists.empty()) {
      return LoadLists();
    }
    const auto found = LexiconPath(arguments_.lexicon, arguments_.dataDir);
    if (!found) {
      return false;
    }
    const std::string& path = *found;
    const TextSource source = arguments_.FromStandardInput() ? TextSource::Read : TextSource::Map;
    const auto start = Clock::now();
    const LoadResult loaded = LoadLexicon(path, kLexiconCapacity, source);
    const double elapsed = MillisecondsSince(start);
    if (loaded.outcome != LoadOutcome::Ok) {
      Complain(DescribeLoad(path, loaded));
    }
    if (!loaded.Usable()) {
      return false;
    }
    lexicon_ = loaded.lexicon;
    ShowLexicon(path, elapsed);
    return true;
  }

  bool LoadLists() {
    const auto start = Clock::now();
    lexicon_ = LexiconOfLists(arguments_.wordLists);
    if (lexicon_ == nullptr) {
      return false;
    }
    std::string names;
    for (const std::string& name : arguments_.wordLists) {
      names += (names.empty() ? "" : ", ") + name;
    }
    ShowLexicon(names, MillisecondsSince(start));
    return true;
  }

  void ShowLexicon(const std::string& path, double elapsed) {
    if (arguments_.json) {
      output_.Write(JsonObject()
                        .Path("lexicon", path)
                        .Number("words", lexicon_->count())
                        .Milliseconds("load_ms", elapsed)
                        .Line());
    }
  }

  int One(const std::string& typed) {
    const auto [refusal, run] = Read(typed, arguments_.asked.search, arguments_.strict);
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
    if (arguments_.explain) {
      Note(Reading(search));
    }
    Note(summary);
    // Before the words are shown: a reader may go away while they are.
    const bool saved = Save(search);
    if (arguments_.time) {
      Note(TimeText(std::llround(elapsed)));
    }
    Show(typed, *run, summary, elapsed);
    return !saved ? kFailed : results_.FoundCount() > 0 ? kFound : kNothingFound;
  }

  int Refuse(const std::string& typed, const std::string& text) {
    const std::string quoted = TooLongText(typed) ? "" : ", '" + QuotedText(typed) + "'";
    Complain(line_ == 0 ? text : "line " + std::to_string(line_) + quoted + ": " + text);
    if (arguments_.json) {
      output_.Write(JsonObject().Text("pattern", typed).Text("refused", text).Line());
    }
    return kFailed;
  }

  void Show(const std::string& typed, const SearchRun& run, const std::string& summary, double elapsed) {
    WordSequence words = results_.WordsIn(arguments_.order);
    words.numbers =
        words.numbers.first(std::min(words.numbers.size(), arguments_.limit.value_or(words.numbers.size())));
    if (arguments_.json) {
      ShowJson(typed, run, summary, elapsed, words);
    } else if (arguments_.count) {
      output_.Write(std::to_string(results_.FoundCount()) + "\n");
    } else if (arguments_.limit == size_t{0}) {
      return;
    } else if (bold_ && arguments_.format == ExportFormat::Lines) {
      WriteInBold(output_.Writer(), words, FixedLetters(run.Prepared(), run.MatchedLists()));
    } else {
      WriteExport(output_.Writer(), words, arguments_.format, {.heading = !headed_, .stored = true});
      headed_ = true;
    }
  }

  void ShowJson(const std::string& typed, const SearchRun& run, const std::string& summary, double elapsed,
                const WordSequence& words) {
    JsonObject object;
    object.Text("pattern", typed)
        .Text("prepared", run.Prepared().text)
        .Number("kind", static_cast<int>(run.Prepared().kind))
        .TextsIfAny("conditions", ConditionTexts(run.Asked()))
        .Number("count", static_cast<int64_t>(results_.FoundCount()))
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
  }

  // Writes the files that are asked for; says of each that can't be written why.
  bool Save(const Search& search) {
    if (arguments_.saveFile.empty() && arguments_.saveLexicon.empty()) {
      return true;
    }
    const WithoutPipeSignal ignored;
    output_.Flush();
    std::vector<std::optional<FileError>> errors;
    bool saved = true;
    if (!arguments_.saveFile.empty()) {
      errors.push_back(WriteResultsFile(arguments_.saveFile, search, results_, arguments_.order));
    }
    if (!arguments_.saveLexicon.empty() && results_.FoundCount() == 0) {
      Complain("no word was found; " + arguments_.saveLexicon + " was not written");
      saved = false;
    } else if (!arguments_.saveLexicon.empty()) {
      errors.push_back(WriteResultsAsLexicon(arguments_.saveLexicon, results_, arguments_.order));
    }
    for (const auto& error : errors) {
      if (error) {
        Complain("can't write " + error->Text());
        saved = false;
      }
    }
    return saved;
  }

  const FindArguments& arguments_;
  const bool bold_;
  bool headed_ = false;  // The format's heading is written.
  int64_t line_ = 0;     // Of standard input; 0: the pattern is an argument.
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
