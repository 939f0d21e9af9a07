// The lexicon: every word of one file in memory, with what a search looks at first.
//
// The file's bytes stand in one block. Per word, numbered from 1 in the file's order, two arrays say where it starts in
// the block and how long it is, and bitmaps say which letters it holds and with which it ends. Entry 0 is an empty word
// that is never used.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/big_buffer.h"
#include "base/run_time_error.h"
#include "base/vector_width.h"
#include "lexicon/letter_bitmaps.h"
#include "lexicon/word_starts.h"

namespace quorvane {

using WordNumber = uint32_t;

inline constexpr int kLexiconCapacity = 2'000'000;
inline constexpr int kMaxWordLength = 90;  // In characters; a longer line is an error.
inline constexpr int kFirstInitial = 65;   // Code of "A", the first initial a word may have in upper case.
inline constexpr int kInitials = 31;       // "A" to "Z" and the five codes after it, "[" to "_".

class Lexicon {
 public:
  // For entry i, the initial with the code 65 + i: the number of the last word before that initial's block.
  using LetterStart = std::array<int32_t, kInitials>;
  // The number of words of each length, 0 to 90.
  using LengthCount = std::array<int32_t, kMaxWordLength + 1>;

  // How many bytes may be read behind the last character of any word.
  static constexpr size_t kPadding = 192;
  // How many entries of the arrays may be read behind the last word's.
  static constexpr size_t kArrayPadding = 64;

  int32_t count() const { return count_; }
  const LetterStart& letterStart() const { return letterStart_; }
  const LengthCount& lengthCount() const { return lengthCount_; }

  // The word as read, or as compared (lower case). `number` is 0 (the empty word) to count().
  std::string_view Word(WordNumber number) const { return {text_.data() + starts_[number], lengths_[number]}; }
  std::string_view FoldedWord(WordNumber number) const { return {FoldedText() + starts_[number], lengths_[number]}; }
  // Whether each word, as compared, stands behind the one before it or equals it, by character codes. Found out when it
  // is asked for first, by a look at every word.
  bool sorted() const;

  // The arrays themselves, for the passes that look at every word.
  const char* Text() const { return text_.data(); }
  const char* FoldedText() const { return folds_ ? folded_.data() : text_.data(); }
  const WordStarts& Starts() const { return starts_; }  // Of the line behind the last word's, too.
  const uint8_t* Lengths() const { return lengths_.data(); }
  const LetterBitmaps& Bitmaps() const { return letters_; }

  // The count divided by 20, rounded down: how many words a scan walks between two reports of its progress.
  int32_t ProgressStep() const { return count_ / 20; }

 private:
  friend class LexiconLoader;
  enum class Order : char { Unknown, Sorted, Unsorted };

  BigBuffer<char> text_;
  BigBuffer<char> folded_;  // The text in lower case; used only when some character folds.
  bool folds_ = false;
  WordStarts starts_;
  BigBuffer<uint8_t> lengths_;
  LetterBitmaps letters_;
  int32_t count_ = 0;
  mutable std::atomic<Order> order_ = Order::Unknown;
  LetterStart letterStart_{};
  LengthCount lengthCount_{};
};

enum class LoadOutcome {
  Ok,
  Capacity,        // More words than the capacity: usable, with the first words up to the capacity.
  NotSorted,       // Read to its end, but its initials change 27 times or more.
  NotSortedError,  // An error while reading, after 27 changes of initial or more.
  ListError,       // Any other error while reading.
};

struct LoadResult {
  LoadOutcome outcome = LoadOutcome::ListError;
  // Owned by whoever keeps it; null unless the lexicon is usable (Ok and Capacity).
  std::shared_ptr<const Lexicon> lexicon;
  RunTimeError error;    // Set for all outcomes but Ok and NotSorted.
  int32_t count = 0;     // The number of the word at which reading stopped; 0 when the file could not be opened.
  std::string lastWord;  // The word read last; of a long line the first 200 characters.
  Lexicon::LetterStart letterStart{};  // As they stood when reading stopped.
  Lexicon::LengthCount lengthCount{};

  bool Usable() const { return lexicon != nullptr; }
};

// How the text gets into memory. A program that lives on reads the file, so that what happens to the file later is
// nothing to it; one that searches once and ends maps it, which saves the copy.
enum class TextSource { Read, Map };

// Reads, indexes and checks the file at `path`. Lines end with CR LF or LF; the last line end may be missing. Of each
// run of equal initials (letter case apart) the start is kept; more than 26 runs count as unsorted. Tests alone
// lower `capacity` and `vectors`.
// `progress`, if given, is told now and then how many percent of the text are indexed.
LoadResult LoadLexicon(const std::string& path, int32_t capacity = kLexiconCapacity,
                       TextSource source = TextSource::Read, const std::function<void(int percent)>& progress = {},
                       VectorWidth vectors = WidestVectors());

// The same of a text in memory, of at most 4 GB, which is copied.
LoadResult LoadLexiconBytes(std::string_view text);

}  // namespace quorvane
