// The words found by the last search: what was found, the order of the last sort, and what the screen shows.
//
// A found word is its number in a lexicon that the list keeps alive, plus the letter case it was listed in.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "lexicon/lexicon.h"
#include "results/sort_order.h"
#include "search/conditions.h"
#include "search/emit.h"
#include "search/scan.h"
#include "search/search.h"
#include "search/word_set.h"

namespace quorvane {

enum class LetterCase { AsStored, Lower, Upper };

// A run of found words in one order and one letter case.
struct WordSequence {
  const Lexicon* lexicon = nullptr;
  std::span<const WordNumber> numbers;
  LetterCase letterCase = LetterCase::AsStored;

  std::string Word(size_t i) const;
};

class ResultList {
 public:
  // What a scan writes into; its memory is kept from search to search.
  FoundNumbers& BeginSearch() {
    Clear();
    return found_;
  }
  // Fetches the memory that a search of so many words may need.
  void MakeReady(size_t words) { found_.MakeReady(words); }
  // The scan is over: the list shows what was found, in the lexicon's case or in upper case.
  void EndSearch(const Search& search, std::shared_ptr<const Lexicon> lexicon, const ScanOutcome& outcome,
                 bool upperCase);
  // Nothing found and nothing shown.
  void Clear();

  // Shows the words in another order, in lower or upper case. Any but the order found is kept for saving.
  void Sort(SortOrder order, bool upperCase);

  // What the next Narrow would take time for.
  void MakeReadyToNarrow();
  // Shows only those of the found words that fit the pattern, too; what was found stays. `prepared` is that of the
  // pattern, which must fit. Until ShowAll or another list.
  void Narrow(const std::string& pattern, const PreparedCondition& prepared);
  void ShowAll() { narrowed_.reset(); }
  bool Narrowed() const { return narrowed_.has_value(); }
  // The words that are shown become all that were found, and the search that made the list gets the condition.
  void KeepNarrowed();
  // Another one after each search, and once the list was cleared.
  size_t Edition() const { return edition_; }

  // The search that made the list; nothing before the first one and once the list was cleared.
  const std::optional<Search>& MadeBy() const { return search_; }
  size_t FoundCount() const { return found_.size(); }
  bool ListTruncated() const { return truncated_; }
  // Whether the screen list refused an entry of the last search, cleared or sorted since or not.
  bool LastScanTruncated() const { return lastScanTruncated_; }
  // The longest found word in characters; 0 for none.
  int LongestFound() const;

  // All found words: in the order found (`FoundWords`) and in that of the last sort into another (`FoundWordsCopy`).
  WordSequence FoundWords() const { return {lexicon_.get(), found_.Span(), foundCase_}; }
  WordSequence FoundWordsCopy() const;
  // What is saved while that order is chosen.
  WordSequence WordsIn(SortOrder order) const {
    return order == SortOrder::Alphabetic ? FoundWords() : FoundWordsCopy();
  }

  // The screen list: its entries, with a last one that says so when the list was truncated.
  size_t EntryCount() const { return narrowed_ ? shown_.size() : WholeCount(); }
  std::string Entry(size_t i) const;
  // The same of the list as it is when it is not narrowed.
  size_t WholeCount() const { return listed_ + (truncated_ ? 1 : 0); }
  std::string WholeEntry(size_t i) const;
  // All found words, or those that the list is narrowed to, as the screen shows them.
  WordSequence Shown() const;
  // The entry that shows the word, letter case apart; nothing when none does.
  std::optional<size_t> Find(std::string_view word) const;
  // The first entry that begins with `typed`, letter case apart, from `from` (below EntryCount()) on and around. Where
  // the words are in order it is found by halving, else by looking at each.
  std::optional<size_t> FindPrefix(std::string_view typed, size_t from) const;

 private:
  struct Narrowing {
    std::string pattern;
    WordSet words;
  };

  // All found words in the order and the case of the screen.
  WordSequence Whole() const;
  // The words that are on the screen, without an entry that only says something.
  std::span<const WordNumber> Entries() const;
  void ShowNarrowed();

  std::optional<Search> search_;
  std::shared_ptr<const Lexicon> lexicon_;
  FoundNumbers found_;
  FoundNumbers sorted_;
  bool copyIsSorted_ = false;  // The copy is `sorted_`; else it equals what was found.
  LetterCase foundCase_ = LetterCase::AsStored;
  LetterCase copyCase_ = LetterCase::AsStored;
  bool showsCopy_ = false;
  LetterCase shownCase_ = LetterCase::AsStored;
  size_t listed_ = 0;
  bool truncated_ = false;
  bool lastScanTruncated_ = false;
  std::optional<WordSet> foundSet_;  // Once the list was to be narrowed.
  bool ascending_ = false;           // What was found is, by its numbers; set with `foundSet_`.
  std::optional<Narrowing> narrowed_;
  FoundNumbers shown_;  // While the list is narrowed.
  size_t edition_ = 0;
};

}  // namespace quorvane
