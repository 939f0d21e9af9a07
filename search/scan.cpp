#include "search/scan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "base/text.h"
#include "search/sieve.h"
#include "search/verify.h"

namespace quorvane {
namespace {

// An exact anagram of more letters is error 9.
constexpr size_t kMostExactLetters = 60;

int NearestEven(double value) {
  return static_cast<int>(std::nearbyint(value));
}

class Scan {
 public:
  Scan(const Lexicon& lexicon, const ScanRequest& request, FoundNumbers& found, ScanObserver* observer,
       size_t screenCapacity, bool wasTruncated)
      : lexicon_(lexicon),
        request_(request),
        found_(found),
        observer_(observer),
        screenCapacity_(screenCapacity),
        step_(lexicon.ProgressStep()) {
    outcome_.truncated = wasTruncated;
    found_.Clear();
  }

  ScanOutcome Random(RandomSource& random) {
    for (int i = 0; i < *request_.prepared.randomCount; ++i) {
      const int index = NearestEven(random.NextFraction() * lexicon_.count());
      AddOne(static_cast<WordNumber>(index));
    }
    return Finish();
  }

  ScanOutcome Blocks() {
    outcome_.truncated = false;
    const PreparedPattern& prepared = request_.prepared;
    if (prepared.kind == PatternKind::Sequence && !prepared.times) {
      outcome_.errors.push_back({MakeRunTimeError(kErrorTypeMismatch), "", "C"});
      return Finish();
    }
    if (prepared.kind == PatternKind::AnagramExact && prepared.letters.size() > kMostExactLetters) {
      outcome_.errors.push_back({MakeRunTimeError(kErrorSubscriptOutOfRange), "", "A"});
      return Finish();
    }
    Sieve sieve(request_);
    const Initials initials = FirstLetters(prepared, request_.lists);
    if (initials.wholeLexicon) {
      Range(sieve, 0, lexicon_.count());
    }
    int pass = 0;
    for (const char initial : initials.letters) {
      ++pass;
      // Both ends are included: the last word before the block is looked at too.
      const int entry = static_cast<unsigned char>(initial) - kFirstInitial;
      if (entry < 0 || entry + 1 >= kInitials) {
        outcome_.errors.push_back({MakeRunTimeError(kErrorSubscriptOutOfRange), "", std::to_string(pass) + "J"});
        continue;
      }
      const auto& starts = lexicon_.letterStart();
      Range(sieve, starts[static_cast<size_t>(entry)], starts[static_cast<size_t>(entry) + 1]);
    }
    return Finish();
  }

 private:
  // The words `from` to `to`, cut where progress is to be reported. Number 0 is no word.
  void Range(Sieve& sieve, int from, int to) {
    if (from == 0 && to >= 0) {
      Report(0);
    }
    for (int next = std::max(from, 1); next <= to;) {
      const int lastOfStep = step_ > 0 ? (next + step_ - 1) / step_ * step_ : to;
      const auto first = static_cast<WordNumber>(next);
      const int last = std::min({to, lastOfStep, static_cast<int>(LastOfChunk(first))});
      Chunk(sieve, first, static_cast<WordNumber>(last));
      Report(last);
      next = last + 1;
    }
  }

  void Report(int index) {
    if (observer_ != nullptr && step_ > 0 && index % step_ == 0) {
      const int thousands = index / 1000;
      const double skewed = thousands + index;
      observer_->Progress(index, static_cast<int>(std::floor(skewed / lexicon_.count() * 100)));
    }
  }

  void Chunk(Sieve& sieve, WordNumber first, WordNumber last) {
    sieve.Keep(lexicon_, first, last, survivors_);
    // A list that refuses no entry takes the words as they come; palindromes are sorted out before.
    if (screenCapacity_ == std::numeric_limits<size_t>::max()) {
      if (request_.palindromes) {
        KeepPalindromes(lexicon_, survivors_);
      }
      const size_t before = found_.size();
      Emit(survivors_, found_);
      DropRepeats(before);
      return;
    }
    FoundNumbers accepted;
    Emit(survivors_, accepted);
    for (const WordNumber number : accepted.Span()) {
      AddOne(number);
    }
  }

  bool SameWord(WordNumber a, WordNumber b) const { return lexicon_.Word(a) == lexicon_.Word(b); }

  // Of the numbers from `from` on, drops each word that equals the word listed just before it.
  void DropRepeats(size_t from) {
    if (from >= kRepeatCheckLimit) {
      return;
    }
    size_t dropped = 0;
    for (const uint32_t i : Doubtful(std::max<size_t>(from, 1))) {
      if (i - dropped >= kRepeatCheckLimit) {
        break;
      }
      if (SameWord(found_[i - 1], found_[i])) {
        repeats_[dropped++] = i;
      }
    }
    for (size_t i = 0; i < dropped; ++i) {
      const size_t end = i + 1 < dropped ? repeats_[i + 1] : found_.size();
      std::copy(&found_[0] + repeats_[i] + 1, &found_[0] + end, &found_[0] + repeats_[i] - i);
    }
    found_.Resize(found_.size() - dropped);
  }

  // Which of the found words, from `from` (above 0) on, are as long as the one before. They are few, and lie in far
  // memory: their text is asked for before any of it is looked at.
  std::span<const uint32_t> Doubtful(size_t from) {
    const uint8_t* lengths = lexicon_.Lengths();
    const WordStarts& starts = lexicon_.Starts();
    size_t count = 0;
    for (size_t i = from; i < found_.size(); ++i) {
      starts.Fetch(found_[i]);
      doubtful_[count] = static_cast<uint32_t>(i);
      count += lengths[found_[i - 1]] == lengths[found_[i]] ? 1u : 0u;
    }
    const std::span<const uint32_t> doubtful = std::span(doubtful_).first(count);
    for (const uint32_t i : doubtful) {
      FetchEarly(lexicon_.Text() + starts[found_[i - 1]]);
      FetchEarly(lexicon_.Text() + starts[found_[i]]);
    }
    return doubtful;
  }

  // One accepted word. Once the screen list has refused an entry, words are counted without further tests.
  void AddOne(WordNumber number) {
    if (!outcome_.truncated) {
      const size_t count = found_.size();
      const bool repeat = count >= 1 && count < kRepeatCheckLimit && SameWord(found_[count - 1], number);
      if (repeat || number == 0 || (request_.palindromes && !IsPalindrome(lexicon_.Word(number)))) {
        return;
      }
      if (outcome_.listed < screenCapacity_) {
        ++outcome_.listed;
      } else {
        outcome_.truncated = true;
      }
    }
    found_.Add(number);
  }

  ScanOutcome Finish() {
    if (screenCapacity_ == std::numeric_limits<size_t>::max() && !outcome_.truncated) {
      outcome_.listed = found_.size();
    }
    return outcome_;
  }

  const Lexicon& lexicon_;
  const ScanRequest& request_;
  FoundNumbers& found_;
  ScanObserver* const observer_;
  const size_t screenCapacity_;
  const int step_;
  ScanOutcome outcome_;
  Survivors survivors_;
  std::array<uint32_t, Survivors::kWords> doubtful_;
  std::array<uint32_t, Survivors::kWords> repeats_;
};

}  // namespace

ScanOutcome PerformScan(const Lexicon& lexicon, const ScanRequest& request, FoundNumbers& found, RandomSource& random,
                        ScanObserver* observer, size_t screenCapacity, bool wasTruncated) {
  Scan scan(lexicon, request, found, observer, screenCapacity, wasTruncated);
  return request.prepared.randomCount ? scan.Random(random) : scan.Blocks();
}

}  // namespace quorvane
