#include "lexicon/lexicon.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <vector>

#include "base/file.h"
#include "base/text.h"
#include "lexicon/letter_collector.h"

namespace quorvane {
namespace {

constexpr int kMaxRuns = 26;
constexpr size_t kChunk = LoadKernel::kFetchAhead;  // Bytes of text that are turned into words together.
// Lines of one character, and the end of one from before.
constexpr size_t kMostWordsOfChunk = kChunk / 2 + 1;
// Lines that end in a chunk, and entries that are written behind them. So many may be measured past the most that can
// be words, before an empty one is noticed.
constexpr size_t kMostLinesOfChunk = kChunk + 32;
constexpr size_t kReportEvery = size_t{1} << 20;  // Bytes of text between two reports of progress.
static_assert(WordStarts::kGroup * (kMaxWordLength + 2) < WordStarts::kMostApart);

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
  LexiconLoader(int32_t capacity, TextSource source, const std::function<void(int)>& progress, VectorWidth vectors)
      : kernel_(LoadKernelFor(vectors)),
        lineStarts_(kMostLinesOfChunk + Lexicon::kArrayPadding),
        letters_(kMostWordsOfChunk, kernel_),
        capacity_(capacity),
        source_(source),
        progress_(progress),
        lexicon_(std::make_shared<Lexicon>()) {}

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
    const size_t entries = mostWords_ + kMostLinesOfChunk + Lexicon::kArrayPadding;
    lexicon_->starts_ = WordStarts(entries);
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
  // make are measured and checked, at last their letters are collected.
  bool Index() {
    size_t lines = 0;  // Lines that end before `chunk`.
    for (size_t chunk = 0; chunk < size_; chunk += kChunk) {
      if (chunk % kReportEvery == 0 && progress_) {
        progress_(static_cast<int>(100 * chunk / size_));
      }
      const size_t end = std::min(chunk + kChunk, size_);
      LoadKernel::Facts facts;
      size_t found = kernel_.findLines(lexicon_->text_.data(), chunk, end, static_cast<char>(previousFirst_),
                                       &lineStarts_[1], facts);
      mayFold_ = mayFold_ || facts.mayFold;
      if (end == size_ && lexicon_->text_[size_ - 1] != '\n') {
        lineStarts_[++found] = static_cast<uint32_t>(size_ + 1);
      }
      if (found > 0 && !AddWords(facts, lines + 1, lines + found)) {
        return false;
      }
      lines += found;
      lineStarts_[0] = lineStarts_[found];
    }
    return true;
  }

  // Makes words of the lines `first` to `last`, up to the capacity; these start where `lineStarts_` says.
  bool AddWords(const LoadKernel::Facts& facts, size_t first, size_t last) {
    const size_t lastWord = std::min(last, static_cast<size_t>(capacity_));
    // Behind a line that is too long they are wrong, but never asked for.
    lexicon_->starts_.Write(first, lineStarts_.data(), lastWord + 2 - first);
    if (!MeasureAlike(facts, first, lastWord) && !MeasureWords(first, lastWord)) {
      return false;
    }
    lexicon_->count_ = static_cast<int32_t>(lastWord);
    letters_.Add(lexicon_->text_.data(), lineStarts_.data(), &lexicon_->lengths_[first], first, lastWord,
                 lexicon_->letters_);
    full_ = last > lastWord;
    if (full_) {
      ++lexicon_->count_;
      error_ = MakeRunTimeError(kErrorSubscriptOutOfRange);
    }
    return !full_;
  }

  // The words of a sorted list begin as the one before, but for a few, and their lines end alike: then they are
  // measured without a question to each.
  bool MeasureAlike(const LoadKernel::Facts& facts, size_t first, size_t last) {
    const uint32_t* starts = lineStarts_.data();
    uint8_t* lengths = &lexicon_->lengths_[first];
    const size_t count = last + 1 - first;
    // The last line may have no end.
    const bool ended = lexicon_->text_[starts[count] - size_t{1}] == '\n';
    if (facts.otherFirst || facts.bareFeed == facts.pairedFeed || !ended ||
        static_cast<unsigned char>(lexicon_->text_[starts[0]]) != previousFirst_ ||
        kernel_.measure(starts, count, facts.pairedFeed ? 2 : 1, lengths) >= kMaxWordLength) {
      return false;
    }
    for (size_t i = 0; i < count; ++i) {
      ++lexicon_->lengthCount_[lengths[i]];
    }
    return true;
  }

  bool MeasureWords(size_t first, size_t last) {
    const char* text = lexicon_->text_.data();
    uint8_t* lengths = lexicon_->lengths_.data();
    Lexicon::LengthCount& lengthCount = lexicon_->lengthCount_;
    for (size_t number = first; number <= last; ++number) {
      const size_t start = lineStarts_[number - first];
      const size_t end = lineStarts_[number - first + 1] - size_t{1};
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
      letters_.Finish(static_cast<size_t>(lexicon_->count_) + 1, lexicon_->letters_);
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
      letters_.Finish(static_cast<size_t>(lexicon_->count_) + 1, lexicon_->letters_);
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

  const LoadKernel& kernel_;
  std::vector<uint32_t> lineStarts_;  // Of the lines that end in the chunk, and of the one behind.
  LetterCollector letters_;
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
                       const std::function<void(int)>& progress, VectorWidth vectors) {
  return LexiconLoader(capacity, source, progress, vectors).Load(path);
}

LoadResult LoadLexiconBytes(std::string_view text) {
  return LexiconLoader(kLexiconCapacity, TextSource::Read, {}, WidestVectors()).LoadBytes(text);
}

}  // namespace quorvane
