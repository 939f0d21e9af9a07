// Collects words in any order and gives them back in order, each once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lexicon/make_report.h"

namespace quorvane {

class WordCollector {
 public:
  // Repeats are looked for whenever so many words have come in; lowered by tests only.
  explicit WordCollector(size_t room = 4'100'000) : step_(room), room_(room) {}

  // `word` holds 1 to 90 of the letters "a" to "z"; it was counted as `kind`. What repeats another word is counted as
  // that in `report`, here or later.
  void Add(std::string_view word, LineKind kind, MakeReport& report);

  // Room for words of about so many bytes.
  void Expect(size_t bytes);

  // The words as a lexicon file holds them. Ends the collection.
  std::string Finish(MakeReport& report);

  // There were so many words over a lexicon's capacity that not all were kept; repeats among the others are counted as
  // words.
  bool Overfull() const { return overfull_; }

 private:
  struct Entry {
    uint32_t start;
    uint8_t length;
    LineKind kind;
  };
  // A word's first letters in one number, by which most comparisons are decided.
  struct Keyed {
    uint64_t key;
    uint32_t index;
  };

  std::string_view WordOf(const Entry& entry) const { return {text_.data() + entry.start, entry.length}; }
  void MakeRoom(MakeReport& report);
  void SortAndDropRepeats(MakeReport& report);
  std::vector<Keyed> SortedKeys() const;

  const size_t step_;
  size_t room_;       // Entries that are taken before repeats are looked for.
  std::string text_;  // As in the file, in the order of `entries_`.
  std::vector<Entry> entries_;
  bool sorted_ = true;
  bool overfull_ = false;
};

}  // namespace quorvane
