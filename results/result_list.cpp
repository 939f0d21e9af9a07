#include "results/result_list.h"

#include <algorithm>
#include <functional>

#include "base/text.h"
#include "search/search_texts.h"

namespace quorvane {
namespace {

// Keeps those of the set; `numbers` may be those of `kept`.
void KeepThose(std::span<const WordNumber> numbers, const WordSet& words, FoundNumbers& kept) {
  kept.Resize(numbers.size());
  size_t count = 0;
  for (const WordNumber number : numbers) {
    kept[count] = number;  // Whether it counts or not: no branch to guess.
    count += words.Has(number) ? 1U : 0U;
  }
  kept.Resize(count);
}

}  // namespace

std::string WordSequence::Word(size_t i) const {
  switch (letterCase) {
    case LetterCase::Lower:
      return std::string(lexicon->FoldedWord(numbers[i]));
    case LetterCase::Upper:
      return UpperText(lexicon->Word(numbers[i]));
    case LetterCase::AsStored:
      break;
  }
  return std::string(lexicon->Word(numbers[i]));
}

void ResultList::EndSearch(const Search& search, std::shared_ptr<const Lexicon> lexicon, const ScanOutcome& outcome,
                           bool upperCase) {
  search_ = search;
  lexicon_ = std::move(lexicon);
  listed_ = outcome.listed;
  truncated_ = lastScanTruncated_ = outcome.truncated;
  foundCase_ = copyCase_ = shownCase_ = upperCase ? LetterCase::Upper : LetterCase::AsStored;
}

void ResultList::Clear() {
  search_.reset();
  found_.Clear();
  listed_ = 0;
  truncated_ = false;
  copyIsSorted_ = false;
  showsCopy_ = false;
  foundSet_.reset();
  ShowAll();
  ++edition_;
}

void ResultList::Sort(SortOrder order, bool upperCase) {
  shownCase_ = upperCase ? LetterCase::Upper : LetterCase::Lower;
  const auto arrange = RowOf(order).arrange;
  showsCopy_ = arrange != nullptr;
  if (showsCopy_ && lexicon_ != nullptr) {
    arrange(*lexicon_, found_.Span(), sorted_);
    copyIsSorted_ = true;
    copyCase_ = shownCase_;
  }
  truncated_ = false;
  listed_ = found_.size();
  ShowNarrowed();
}

void ResultList::Narrow(const std::string& pattern, const PreparedCondition& prepared) {
  if (lexicon_ == nullptr) {
    return;
  }
  MakeReadyToNarrow();
  narrowed_.emplace(Narrowing{pattern, foundSet_->Meeting(*lexicon_, prepared, shown_)});
  if (showsCopy_ || !ascending_) {
    ShowNarrowed();
  }
}

void ResultList::MakeReadyToNarrow() {
  if (!foundSet_ && lexicon_ != nullptr) {
    const auto found = found_.Span();
    foundSet_.emplace(*lexicon_, found);
    ascending_ = std::adjacent_find(found.begin(), found.end(), std::greater_equal<>()) == found.end();
    shown_.MakeReady(found.size());
  }
}

void ResultList::ShowNarrowed() {
  if (narrowed_) {
    KeepThose(Whole().numbers, narrowed_->words, shown_);
  }
}

void ResultList::KeepNarrowed() {
  if (!narrowed_ || !search_) {
    return;
  }
  search_->conditions.push_back({ConditionKind::And, narrowed_->pattern});
  KeepThose(found_.Span(), narrowed_->words, found_);
  if (copyIsSorted_) {
    KeepThose(sorted_.Span(), narrowed_->words, sorted_);
  }
  truncated_ = false;
  listed_ = found_.size();
  foundSet_.reset();
  ShowAll();
}

int ResultList::LongestFound() const {
  int longest = 0;
  for (const WordNumber number : found_.Span()) {
    longest = std::max(longest, static_cast<int>(lexicon_->Lengths()[number]));
  }
  return longest;
}

WordSequence ResultList::FoundWordsCopy() const {
  return {lexicon_.get(), copyIsSorted_ ? sorted_.Span() : found_.Span(), copyCase_};
}

WordSequence ResultList::Whole() const {
  return {lexicon_.get(), (showsCopy_ ? FoundWordsCopy() : FoundWords()).numbers, shownCase_};
}

WordSequence ResultList::Shown() const {
  return narrowed_ ? WordSequence{lexicon_.get(), shown_.Span(), shownCase_} : Whole();
}

std::span<const WordNumber> ResultList::Entries() const {
  return narrowed_ ? shown_.Span() : Whole().numbers.first(listed_);
}

std::optional<size_t> ResultList::Find(std::string_view word) const {
  const std::string folded = FoldText(word);
  const auto numbers = Entries();
  for (size_t i = 0; i < numbers.size(); ++i) {
    const WordNumber number = numbers[i];
    if (lexicon_->Lengths()[number] == folded.size() && lexicon_->FoldedWord(number) == folded) {
      return i;
    }
  }
  return std::nullopt;
}

std::optional<size_t> ResultList::FindPrefix(std::string_view typed, size_t from) const {
  const std::string prefix = FoldText(typed);
  const auto numbers = Entries();
  const size_t count = EntryCount();
  const bool lastEntryBegins = count > numbers.size() && FoldText(kTruncatedEntry).starts_with(prefix);
  if (lexicon_ == nullptr || !lexicon_->sorted() || !std::is_sorted(found_.Span().begin(), found_.Span().end())) {
    for (size_t k = 0; k < count; ++k) {
      const size_t i = (from + k) % count;
      if (i < numbers.size() ? lexicon_->FoldedWord(numbers[i]).starts_with(prefix) : lastEntryBegins) {
        return i;
      }
    }
    return std::nullopt;
  }
  size_t least = count;  // How far the nearest one found is behind `from`.
  const auto offer = [&](size_t begin, size_t end) {
    if (begin < end) {
      const size_t first = begin <= from && from < end ? from : begin;
      least = std::min(least, (first + count - from) % count);
    }
  };
  // The words are in order as a whole, or each run of one length is.
  for (auto run = numbers.begin(); run != numbers.end();) {
    const auto end = !showsCopy_ ? numbers.end() : std::partition_point(run, numbers.end(), [&](WordNumber number) {
      return lexicon_->Lengths()[number] == lexicon_->Lengths()[*run];
    });
    const auto first =
        std::partition_point(run, end, [&](WordNumber number) { return lexicon_->FoldedWord(number) < prefix; });
    const auto last = std::partition_point(
        first, end, [&](WordNumber number) { return lexicon_->FoldedWord(number).starts_with(prefix); });
    offer(static_cast<size_t>(first - numbers.begin()), static_cast<size_t>(last - numbers.begin()));
    run = end;
  }
  offer(numbers.size(), lastEntryBegins ? count : numbers.size());
  return least < count ? std::optional((from + least) % count) : std::nullopt;
}

std::string ResultList::Entry(size_t i) const {
  return narrowed_ ? Shown().Word(i) : WholeEntry(i);
}

std::string ResultList::WholeEntry(size_t i) const {
  return i < listed_ ? Whole().Word(i) : std::string(kTruncatedEntry);
}

}  // namespace quorvane
