#include "lexicon/lexicon.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "base/file.h"
#include "base/text.h"

namespace quorvane {
namespace {

constexpr int kMaxRuns = 26;
constexpr size_t kBlock = 64;
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

class LexiconLoader {
 public:
  LexiconLoader(int32_t capacity, TextSource source, const std::function<void(int)>& progress)
      : capacity_(capacity), source_(source), progress_(progress), lexicon_(std::make_shared<Lexicon>()) {}

  LoadResult Load(const std::string& path) {
    if (!Read(path)) {
      return Fail(error_);
    }
    if (size_ == 0) {
      return Fail(MakeRunTimeError(kErrorInputPastEndOfFile));
    }
    const size_t mostWords = std::min<size_t>(size_ / 2 + 1, static_cast<size_t>(capacity_)) + 1;
    lexicon_->starts_ = BigBuffer<uint32_t>(mostWords + Lexicon::kArrayPadding);
    lexicon_->lengths_ = BigBuffer<uint8_t>(mostWords + Lexicon::kArrayPadding);
    lexicon_->letters_ = BigBuffer<LetterSet>(mostWords + Lexicon::kArrayPadding);
    if (!Index()) {
      return Fail(error_);
    }
    return Finish();
  }

 private:
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

  // One pass over the text: each line becomes a word.
  bool Index() {
    const char* text = lexicon_->text_.data();
    size_t wordStart = 0;
    for (size_t block = 0; block < size_; block += kBlock) {
      if (block % kReportEvery == 0 && progress_) {
        progress_(static_cast<int>(100 * block / size_));
      }
      BlockFacts facts = LookAt(text + block);
      mayFold_ = mayFold_ || facts.mayFold;
      while (facts.lineFeeds != 0) {
        const size_t end = block + static_cast<size_t>(std::countr_zero(facts.lineFeeds));
        facts.lineFeeds &= facts.lineFeeds - 1;
        if (end >= size_) {
          break;
        }
        if (!AddWord(wordStart, end)) {
          return false;
        }
        wordStart = end + 1;
      }
    }
    return wordStart == size_ || AddWord(wordStart, size_);
  }

  [[gnu::always_inline]] bool AddWord(size_t start, size_t end) {
    Lexicon& lexicon = *lexicon_;
    const char* text = lexicon.text_.data();
    if (lexicon.count_ == capacity_) [[unlikely]] {
      ++lexicon.count_;
      error_ = MakeRunTimeError(kErrorSubscriptOutOfRange);
      return false;
    }
    const size_t length = end - start - (end > start && text[end - 1] == '\r' ? 1u : 0u);
    const auto number = static_cast<size_t>(++lexicon.count_);
    lastStart_ = start;
    lastLength_ = length;
    if (length - 1 >= kMaxWordLength) [[unlikely]] {
      return BadLength(length);
    }
    lexicon.starts_[number] = static_cast<uint32_t>(start);
    lexicon.lengths_[number] = static_cast<uint8_t>(length);
    ++lexicon.lengthCount_[length];
    if (static_cast<unsigned char>(text[start]) != previousFirst_ && !StartRun(text[start])) [[unlikely]] {
      return false;
    }
    lexicon.letters_[number] = LetterSetInBlock(text + start, static_cast<unsigned>(length));
    return true;
  }

  // An empty line is counted, begins a run of its own and has no initial; a line over 90 is not counted by length.
  bool BadLength(size_t length) {
    if (length == 0) {
      ++lexicon_->lengthCount_[0];
      ++runs_;
      error_ = MakeRunTimeError(kErrorInvalidProcedureCall);
    } else {
      error_ = MakeRunTimeError(kErrorSubscriptOutOfRange);
    }
    return false;
  }

  // A word whose first character differs from that of the word before. In another letter case it is the same initial.
  [[gnu::noinline]] bool StartRun(char first) {
    previousFirst_ = static_cast<unsigned char>(first);
    const int initial = static_cast<unsigned char>(Fold(first));
    if (initial == previousInitial_) {
      return true;
    }
    ++runs_;
    const int entry = static_cast<unsigned char>(Upper(first)) - kFirstInitial;
    if (entry < 0 || entry >= kInitials) {
      error_ = MakeRunTimeError(kErrorSubscriptOutOfRange);
      return false;
    }
    lexicon_->letterStart_[static_cast<size_t>(entry)] = lexicon_->count_ - 1;
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
    } else if (lexicon_->count_ > capacity_) {
      result.outcome = LoadOutcome::Capacity;
      result.count = lexicon_->count_ = capacity_;
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
      result.lastWord.assign(lexicon_->text_.data() + lastStart_, lastLength_);
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

  const int32_t capacity_;
  const TextSource source_;
  const std::function<void(int)>& progress_;
  std::shared_ptr<Lexicon> lexicon_;
  size_t size_ = 0;  // Of the text, in bytes.
  RunTimeError error_;
  int runs_ = 0;
  int previousInitial_ = -1;
  int previousFirst_ = -1;  // First character of the word before.
  size_t lastStart_ = 0;
  size_t lastLength_ = 0;
  bool mayFold_ = false;
};

LoadResult LoadLexicon(const std::string& path, int32_t capacity, TextSource source,
                       const std::function<void(int)>& progress) {
  return LexiconLoader(capacity, source, progress).Load(path);
}

}  // namespace quorvane
