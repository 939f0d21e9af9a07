#include "lexicon/word_collector.h"

#include <algorithm>
#include <utility>

#include "lexicon/lexicon.h"

namespace quorvane {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr size_t kKeyLetters = 12;  // Of 5 bits each.
constexpr unsigned kLetterBits = 5;
constexpr size_t kMostExpected = size_t{64} << 20;

uint64_t KeyOf(std::string_view word) {
  uint64_t key = 0;
  const size_t letters = std::min(word.size(), kKeyLetters);
  for (size_t i = 0; i < letters; ++i) {
    key = key << kLetterBits | (static_cast<unsigned char>(word[i]) & 31u);
  }
  return key << kLetterBits * (kKeyLetters - letters);
}

std::string_view TailOf(std::string_view word) {
  return word.substr(std::min(word.size(), kKeyLetters));
}

}  // namespace

void WordCollector::Expect(size_t bytes) {
  const size_t more = std::min(bytes + bytes / 8, kMostExpected);
  text_.reserve(text_.size() + more);
  entries_.reserve(entries_.size() + more / 12);
}

void WordCollector::Add(std::string_view word, LineKind kind, MakeReport& report) {
  if (!entries_.empty()) {
    const int order = WordOf(entries_.back()).compare(word);
    if (order == 0) {
      report.Repeat(kind, word);
      return;
    }
    sorted_ = sorted_ && order < 0;
  }
  if (entries_.size() >= room_) {
    MakeRoom(report);
  }
  if (overfull_) {
    return;
  }
  entries_.push_back({static_cast<uint32_t>(text_.size()), static_cast<uint8_t>(word.size()), kind});
  text_.append(word).append(kLineEnd);
}

void WordCollector::MakeRoom(MakeReport& report) {
  if (overfull_) {
    return;
  }
  SortAndDropRepeats(report);
  room_ = entries_.size() + step_;
  overfull_ = entries_.size() > static_cast<size_t>(kLexiconCapacity);
  sorted_ = false;
}

std::vector<WordCollector::Keyed> WordCollector::SortedKeys() const {
  std::vector<Keyed> keys;
  keys.reserve(entries_.size());
  for (const Entry& entry : entries_) {
    keys.push_back({KeyOf(WordOf(entry)), static_cast<uint32_t>(keys.size())});
  }
  std::sort(keys.begin(), keys.end(), [this](const Keyed& a, const Keyed& b) {
    if (a.key != b.key) {
      return a.key < b.key;
    }
    const int tails = TailOf(WordOf(entries_[a.index])).compare(TailOf(WordOf(entries_[b.index])));
    return tails != 0 ? tails < 0 : a.index < b.index;
  });
  return keys;
}

void WordCollector::SortAndDropRepeats(MakeReport& report) {
  if (sorted_) {
    return;
  }
  const std::vector<Keyed> keys = SortedKeys();
  std::string text;
  text.reserve(text_.size());
  std::vector<Entry> entries;
  entries.reserve(entries_.size());
  std::vector<uint32_t> repeats;
  std::string_view last;
  for (const Keyed& keyed : keys) {
    const Entry& entry = entries_[keyed.index];
    const std::string_view word = WordOf(entry);
    if (word == last) {
      repeats.push_back(keyed.index);
      continue;
    }
    last = word;
    entries.push_back({static_cast<uint32_t>(text.size()), entry.length, entry.kind});
    text.append(text_, entry.start, entry.length + kLineEnd.size());
  }
  // The first of the list are the examples.
  std::partial_sort(repeats.begin(), repeats.begin() + static_cast<std::ptrdiff_t>(std::min<size_t>(repeats.size(), 3)),
                    repeats.end());
  for (const uint32_t index : repeats) {
    report.Repeat(entries_[index].kind, WordOf(entries_[index]));
  }
  text_ = std::move(text);
  entries_ = std::move(entries);
  sorted_ = true;
}

std::string WordCollector::Finish(MakeReport& report) {
  SortAndDropRepeats(report);
  entries_ = {};
  return std::move(text_);
}

}  // namespace quorvane
