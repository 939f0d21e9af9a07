#include "cli/stream.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstring>

#include "base/text.h"
#include "cli/json.h"
#include "cli/line_reader.h"
#include "cli/request.h"
#include "search/reading.h"
#include "search/search_texts.h"

namespace quorvane::cli {
namespace {

using Clock = std::chrono::steady_clock;

// An answer waits no longer than that for those to the lines that came with its own.
constexpr auto kLongestHeld = std::chrono::milliseconds(1);

class Stream {
 public:
  Stream(const FindArguments& usual, const std::shared_ptr<const Lexicon>& lexicon, SeededRandom& random,
         Output& output)
      : usual_(usual), lexicon_(lexicon), random_(random), output_(output) {}

  int Run() {
    LineReader lines(STDIN_FILENO, kLongestRequest, [this] { Flush(); });
    while (const auto line = lines.Next()) {
      line->tooLong ? Refuse({}, "the line has more than " + FormatThousands(kLongestRequest) + " characters")
                    : Answer(ReadRequest(line->text, usual_));
      if (Clock::now() - flushed_ > kLongestHeld) {
        Flush();
      }
      if (output_.Failed()) {
        break;
      }
    }
    if (lines.error() != 0) {
      Complain(std::string("can't read standard input: ") + std::strerror(lines.error()));
      refused_ = true;
    }
    return refused_ ? kFailed : found_ ? kFound : kNothingFound;
  }

 private:
  void Flush() {
    output_.Flush();
    flushed_ = Clock::now();
  }

  static JsonObject Begin(const Request& request) {
    JsonObject object;
    if (!request.id.empty()) {
      object.Json("id", request.id);
    }
    return object;
  }

  void Refuse(const Request& request, const std::string& why) {
    refused_ = true;
    output_.Write(Begin(request).Path("error", why).Line());
  }

  void Answer(const Request& request) {
    if (request.problem) {
      return Refuse(request, *request.problem);
    }
    if (request.seed) {
      random_ = SeededRandom(*request.seed);
    }
    const FindArguments& find = request.find;
    const auto [refusal, run] = Read(find.asked.pattern, find.asked.search, find.strict);
    if (refusal) {
      return Refuse(request, *refusal);
    }
    const ScanOutcome outcome = run->List(lexicon_, random_, {find.upper}, results_);
    if (!outcome.errors.empty()) {
      return Refuse(request, ReportOf(outcome.errors.front()).statusText);
    }
    if (find.order != SortOrder::Alphabetic) {
      results_.Sort(find.order, find.upper);
    }
    found_ = found_ || results_.FoundCount() > 0;
    Show(request, run->Asked());
  }

  void Show(const Request& request, const Search& search) {
    const FindArguments& find = request.find;
    JsonObject object = Begin(request);
    object.Text("pattern", find.asked.pattern);
    if (search.text != find.asked.pattern) {
      object.Text("text", search.text);
    }
    if (find.explain) {
      object.Text("reading", Reading(search));
    }
    object.Number("count", static_cast<int64_t>(results_.FoundCount()));
    if (!find.count) {
      const WordSequence words = results_.WordsIn(find.order);
      object.BeginTexts("words");
      for (size_t i = 0, shown = std::min(words.numbers.size(), find.limit.value_or(words.numbers.size())); i < shown;
           ++i) {
        object.Item(words.Word(i));
      }
      object.EndTexts();
    }
    output_.Write(object.Line());
  }

  const FindArguments& usual_;
  const std::shared_ptr<const Lexicon>& lexicon_;
  SeededRandom& random_;
  Output& output_;
  ResultList results_;
  bool found_ = false;
  bool refused_ = false;
  Clock::time_point flushed_ = Clock::now();
};

}  // namespace

int AnswerStream(const FindArguments& arguments, const std::shared_ptr<const Lexicon>& lexicon, SeededRandom& random,
                 Output& output) {
  return Stream(arguments, lexicon, random, output).Run();
}

}  // namespace quorvane::cli
