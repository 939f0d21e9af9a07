#include "lexicon/lexicon.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <span>

#include "base/file.h"
#include "base/text.h"

namespace quorvane {
namespace {

constexpr int kMaxRuns = 26;
constexpr size_t kBlockWords = LetterBitmaps::kBlockWords;
constexpr size_t kBlock = 64;               // Bytes of text looked at together...
constexpr size_t kChunk = size_t{1} << 14;  // ...and turned into words together.
constexpr int kLinesAtOnce = 8;
constexpr uint64_t kTopBit = uint64_t{1} << 63;  // Makes counting the zeros below the first one defined for 0.
// Lines that may be found past the most that can become words, before that is noticed.
constexpr size_t kMostLinesBehind = kBlock + kLinesAtOnce + 2;
constexpr size_t kReportEvery = size_t{1} << 20;  // Bytes of text between two reports of progress.

// What 64 bytes of text hold: a bit for each line feed, and whether any byte may change when folded.
struct BlockFacts {
  uint64_t lineFeeds;
  bool mayFold;
};

#ifdef QUORVANE_VECTORS

BlockFacts LookAt(const char* text) {
  uint64_t lineFeeds = 0;
  __m128i fold = _mm_setzero_si128();
  for (unsigned i = 0; i < kBlock; i += 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
    const auto found = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n'))));
    lineFeeds |= static_cast<uint64_t>(found) << i;
    const __m128i fromA = _mm_sub_epi8(bytes, _mm_set1_epi8('A'));
    const __m128i isUpper = _mm_cmpeq_epi8(_mm_min_epu8(fromA, _mm_set1_epi8(25)), fromA);
    fold = _mm_or_si128(fold, _mm_or_si128(isUpper, bytes));
  }
  return {lineFeeds, _mm_movemask_epi8(fold) != 0};
}

#else

BlockFacts LookAt(const char* text) {
  BlockFacts facts{0, false};
  for (unsigned i = 0; i < kBlock; ++i) {
    facts.lineFeeds |= static_cast<uint64_t>(text[i] == '\n') << i;
    facts.mayFold = facts.mayFold || Fold(text[i]) != text[i];
  }
  return facts;
}

#endif

}  // namespace

bool Lexicon::sorted() const {
  if (order_ == Order::Unknown) {
    WordNumber number = 1;  // Entry 0 stands before every word.
    while (number <= static_cast<WordNumber>(count_) && FoldedWord(number - 1) <= FoldedWord(number)) {
      ++number;
    }
    order_ = number > static_cast<WordNumber>(count_) ? Order::Sorted : Order::Unsorted;
  }
  return order_ == Order::Sorted;
}

class LexiconLoader {
 public:
  LexiconLoader(int32_t capacity, TextSource source, const std::function<void(int)>& progress)
      : capacity_(capacity), source_(source), progress_(progress), lexicon_(std::make_shared<Lexicon>()) {}

  LoadResult Load(const std::string& path) { return Read(path) ? LoadText() : Fail(error_); }

  LoadResult LoadBytes(std::string_view text) {
    lexicon_->text_ = BigBuffer<char>(text.size() + Lexicon::kPadding);
    std::copy(text.begin(), text.end(), lexicon_->text_.data());
    size_ = text.size();
    return LoadText();
  }

 private:
  LoadResult LoadText() {
    if (size_ == 0) {
      return Fail(MakeRunTimeError(kErrorInputPastEndOfFile));
    }
    // A word has a character and a line end, but for the last: more lines than that are an error or over the capacity.
    mostWords_ = std::min<size_t>(size_ / 2 + 1, static_cast<size_t>(capacity_));
    const size_t entries = mostWords_ + kMostLinesBehind + Lexicon::kArrayPadding;
    lexicon_->starts_ = BigBuffer<uint32_t>(entries);
    lexicon_->lengths_ = BigBuffer<uint8_t>(entries);
    lexicon_->letters_ = LetterBitmaps(entries);
    if (!Index()) {
      return Fail(error_);
    }
    return Finish();
  }

  // Reads the file into the block with one read. No lexicon within the limits is longer than the limit of the read: in
  // a longer file the capacity or a too long line is met before the limit.
  bool Read(const std::string& path) {
    const FileHandle file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr) {
      error_ = RunTimeErrorOfErrno(errno);
      return false;
    }
    std::error_code code;
    if (std::filesystem::is_directory(path, code)) {
      error_ = MakeRunTimeError(kErrorPathFileAccess);
      return false;
    }
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    const size_t limit = (static_cast<size_t>(capacity_) + 2) * (kMaxWordLength + 2) + 4096;
    const uintmax_t fileSize = std::filesystem::file_size(path, code);
    // A pipe has no size: such a source is read in growing pieces up to the limit.
    if (source_ == TextSource::Map && !code && fileSize > 0 && fileSize <= limit && Map(*file, fileSize)) {
      return true;
    }
    size_t room = code || fileSize == 0 ? size_t{1} << 20 : static_cast<size_t>(std::min<uintmax_t>(fileSize, limit));
    lexicon_->text_ = BigBuffer<char>(room + Lexicon::kPadding);
    for (;;) {
      size_ += std::fread(lexicon_->text_.data() + size_, 1, room - size_, file.get());
      if (std::ferror(file.get()) != 0) {
        error_ = RunTimeErrorOfErrno(errno);
        return false;
      }
      if (size_ < room || size_ >= limit) {
        return true;
      }
      const int next = std::fgetc(file.get());
      if (next == EOF) {
        return true;
      }
      const size_t larger = std::min(room * 2 + 1, limit);
      BigBuffer<char> grown(larger + Lexicon::kPadding);
      std::memcpy(grown.data(), lexicon_->text_.data(), size_);
      grown[size_++] = static_cast<char>(next);
      lexicon_->text_ = std::move(grown);
      room = larger;
    }
  }

  bool Map(std::FILE& file, size_t fileSize) {
    void* text = MapFile(fileno(&file), fileSize, Lexicon::kPadding);
    if (text == nullptr) {
      return false;
    }
    lexicon_->text_ = BigBuffer<char>::Adopt(text, fileSize + Lexicon::kPadding);
    size_ = fileSize;
    return true;
  }

  // The text is taken in chunks that stay in the nearest caches: first the chunk's lines are found, then the words they
  // make are measured and checked, at last their letter sets are made.
  bool Index() {
    size_t lines = 0;  // Lines that end before `chunk`; each is followed by its successor's start.
    for (size_t chunk = 0; chunk < size_; chunk += kChunk) {
      if (chunk % kReportEvery == 0 && progress_) {
        progress_(static_cast<int>(100 * chunk / size_));
      }
      const size_t end = std::min(chunk + kChunk, size_);
      const size_t before = lines;
      lines = FindLines(chunk, end, lines);
      if (end == size_ && lexicon_->text_[size_ - 1] != '\n') {
        lexicon_->starts_[++lines + 1] = static_cast<uint32_t>(size_ + 1);
      }
      if (!AddWords(before + 1, lines)) {
        return false;
      }
    }
    return true;
  }

  // Writes where the line behind each line feed from `from` to `end` starts; line 1 starts at 0. Gives the number of
  // lines that end before `end`, of which `lines` end before `from`. More than one line behind the last that can become
  // a word is of no interest.
  size_t FindLines(size_t from, size_t end, size_t lines) {
    const char* text = lexicon_->text_.data();
    uint32_t* starts = lexicon_->starts_.data();
    for (size_t block = from; block < end && lines <= mostWords_; block += kBlock) {
      const BlockFacts facts = LookAt(text + block);
      mayFold_ = mayFold_ || facts.mayFold;
      uint64_t lineFeeds =
          end - block < kBlock ? facts.lineFeeds & ((uint64_t{1} << (end - block)) - 1) : facts.lineFeeds;
      uint32_t* next = starts + lines + 2;
      lines += static_cast<size_t>(std::popcount(lineFeeds));
      // Eight at once, whether there are so many or not: a loop of unknown length costs more than the needless ones.
      do {
        for (int i = 0; i < kLinesAtOnce; ++i) {
          *next++ = static_cast<uint32_t>(block) + static_cast<uint32_t>(std::countr_zero(lineFeeds | kTopBit)) + 1;
          lineFeeds &= lineFeeds - 1;
        }
      } while (lineFeeds != 0);
    }
    return lines;
  }

  // Makes words of the lines `first` to `last`, up to the capacity.
  bool AddWords(size_t first, size_t last) {
    const size_t lastWord = std::min(last, static_cast<size_t>(capacity_));
    if (!MeasureWords(first, lastWord)) {
      return false;
    }
    lexicon_->count_ = static_cast<int32_t>(lastWord);
    CollectLetters(first, lastWord);
    full_ = last > lastWord;
    if (full_) {
      ++lexicon_->count_;
      error_ = MakeRunTimeError(kErrorSubscriptOutOfRange);
    }
    return !full_;
  }

  bool MeasureWords(size_t first, size_t last) {
    const char* text = lexicon_->text_.data();
    const uint32_t* starts = lexicon_->starts_.data();
    uint8_t* lengths = lexicon_->lengths_.data();
    Lexicon::LengthCount& lengthCount = lexicon_->lengthCount_;
    for (size_t number = first; number <= last; ++number) {
      const size_t start = starts[number];
      const size_t end = starts[number + 1] - size_t{1};
      const size_t length = end - start - (end > start && text[end - 1] == '\r' ? 1u : 0u);
      if (length - 1 >= kMaxWordLength) [[unlikely]] {
        return BadLength(number, length);
      }
      lengths[number] = static_cast<uint8_t>(length);
      ++lengthCount[length];
      if (static_cast<unsigned char>(text[start]) != previousFirst_ && !StartRun(number, text[start])) [[unlikely]] {
        return false;
      }
    }
    return true;
  }

  void CollectLetters(size_t first, size_t last) {
    const char* text = lexicon_->text_.data();
    const uint32_t* starts = lexicon_->starts_.data();
    const uint8_t* lengths = lexicon_->lengths_.data();
    const size_t firstOfBlock = first / kBlockWords * kBlockWords;
    LetterSet* letters = sets_.data();
    // The few long words get the rest of their letters afterwards: so no word waits to be asked how long it is.
    std::array<uint32_t, kChunk / kLettersAtOnce + 8> longWords;
    size_t longCount = 0;
    for (size_t number = first; number <= last; number += 4) {
      std::array<const char*, 4> heads;
      std::array<unsigned, 4> headLengths;
      for (size_t i = 0; i < 4; ++i) {
        const unsigned length = lengths[number + i];
        heads[i] = text + starts[number + i];
        headLengths[i] = std::min(length, kLettersAtOnce);
        longWords[longCount] = static_cast<uint32_t>(number + i);
        longCount += (kLettersAtOnce - length) >> 31;  // 1 for a long word, without a branch.
      }
      LetterSetsOfHeads(heads, headLengths, letters + (number - firstOfBlock));
    }
    for (const uint32_t number : std::span(longWords).first(longCount)) {
      for (unsigned done = kLettersAtOnce; done < lengths[number]; done += kLettersAtOnce) {
        letters[number - firstOfBlock] |=
            LetterSetOfHead(text + starts[number] + done, std::min(lengths[number] - done, kLettersAtOnce));
      }
    }
    const size_t unfinished = (last + 1) / kBlockWords * kBlockWords;
    for (size_t block = firstOfBlock; block < unfinished; block += kBlockWords) {
      lexicon_->letters_.Set(block / kBlockWords, letters + (block - firstOfBlock));
    }
    std::copy_n(letters + (unfinished - firstOfBlock), kBlockWords, letters);
  }

  // The bitmaps of the words in the last block.
  void FinishLetters() {
    const size_t words = static_cast<size_t>(lexicon_->count_) + 1;
    std::fill(sets_.begin() + static_cast<std::ptrdiff_t>(words % kBlockWords), sets_.end(), 0);
    lexicon_->letters_.Set(words / kBlockWords, sets_.data());
  }

  // An empty line is counted, begins a run of its own and has no initial; a line over 90 is not counted by length.
  bool BadLength(size_t number, size_t length) {
    lexicon_->count_ = static_cast<int32_t>(number);
    if (length == 0) {
      ++lexicon_->lengthCount_[0];
      ++runs_;
      error_ = MakeRunTimeError(kErrorInvalidProcedureCall);
    } else {
      longLine_ = length;
      error_ = MakeRunTimeError(kErrorSubscriptOutOfRange);
    }
    return false;
  }

  // A word whose first character differs from that of the word before. In another letter case it is the same initial.
  [[gnu::noinline]] bool StartRun(size_t number, char first) {
    previousFirst_ = static_cast<unsigned char>(first);
    const int initial = static_cast<unsigned char>(Fold(first));
    if (initial == previousInitial_) {
      return true;
    }
    ++runs_;
    const int entry = static_cast<unsigned char>(Upper(first)) - kFirstInitial;
    if (entry < 0 || entry >= kInitials) {
      lexicon_->count_ = static_cast<int32_t>(number);
      error_ = MakeRunTimeError(kErrorSubscriptOutOfRange);
      return false;
    }
    lexicon_->letterStart_[static_cast<size_t>(entry)] = static_cast<int32_t>(number) - 1;
    previousInitial_ = initial;
    return true;
  }

  LoadResult Finish() {
    Lexicon& lexicon = *lexicon_;
    lexicon.letterStart_[0] = 0;
    lexicon.letterStart_[26] = lexicon.count_;
    // An absent letter gets an empty range, but for those before the first word's initial, which stay 0.
    const int first = static_cast<unsigned char>(Upper(lexicon.text_[0])) - kFirstInitial + 1;
    for (int i = 25; i >= first; --i) {
      const auto entry = static_cast<size_t>(i);
      if (lexicon.letterStart_[entry] == 0) {
        lexicon.letterStart_[entry] = lexicon.letterStart_[entry + 1];
      }
    }
    LoadResult result = Result(LoadOutcome::NotSorted);
    if (runs_ <= kMaxRuns) {
      result.outcome = LoadOutcome::Ok;
      FinishLetters();
      FoldText();
      result.lexicon = std::move(lexicon_);
    }
    return result;
  }

  LoadResult Fail(const RunTimeError& error) {
    LoadResult result = Result(LoadOutcome::ListError);
    result.error = error;
    if (runs_ > kMaxRuns) {
      result.outcome = LoadOutcome::NotSortedError;
    } else if (full_) {
      result.outcome = LoadOutcome::Capacity;
      result.count = lexicon_->count_ = capacity_;
      FinishLetters();
      FoldText();
      result.lexicon = std::move(lexicon_);
    }
    return result;
  }

  LoadResult Result(LoadOutcome outcome) const {
    LoadResult result;
    result.outcome = outcome;
    result.count = lexicon_->count_;
    if (result.count > 0) {
      const auto last = static_cast<size_t>(std::min(result.count, capacity_));
      result.lastWord.assign(lexicon_->text_.data() + lexicon_->starts_[last],
                             std::min(kMostQuoted, std::max<size_t>(lexicon_->lengths_[last], longLine_)));
    }
    result.letterStart = lexicon_->letterStart_;
    result.lengthCount = lexicon_->lengthCount_;
    return result;
  }

  void FoldText() {
    const char* text = lexicon_->text_.data();
    if (!mayFold_ || std::none_of(text, text + size_, [](char c) { return Fold(c) != c; })) {
      return;
    }
    lexicon_->folded_ = BigBuffer<char>(size_ + Lexicon::kPadding);
    std::transform(text, text + size_, lexicon_->folded_.data(), Fold);
    lexicon_->folds_ = true;
  }

  // The letter sets of the words from the last unfinished block on; a chunk may be all lines of one character.
  std::array<LetterSet, kChunk / 2 + 2 * kBlockWords> sets_{};
  const int32_t capacity_;
  const TextSource source_;
  const std::function<void(int)>& progress_;
  std::shared_ptr<Lexicon> lexicon_;
  size_t size_ = 0;       // Of the text, in bytes.
  size_t mostWords_ = 0;  // That the text can hold and the lexicon may.
  RunTimeError error_;
  int runs_ = 0;
  int previousInitial_ = -1;
  int previousFirst_ = -1;  // First character of the word before.
  size_t longLine_ = 0;     // The length of the line that is too long.
  bool mayFold_ = false;
  bool full_ = false;  // More lines than the capacity.
};

LoadResult LoadLexicon(const std::string& path, int32_t capacity, TextSource source,
                       const std::function<void(int)>& progress) {
  return LexiconLoader(capacity, source, progress).Load(path);
}

LoadResult LoadLexiconBytes(std::string_view text) {
  return LexiconLoader(kLexiconCapacity, TextSource::Read, {}).LoadBytes(text);
}

}  // namespace quorvane
