#include "lexicon/word_index.h"

#include <bit>
#include <functional>

#include "base/text.h"

namespace quorvane {

WordIndex::WordIndex(const Lexicon& lexicon)
    : lexicon_(lexicon), slots_(std::bit_ceil(static_cast<size_t>(lexicon.count()) * 2 + 2)) {
  for (WordNumber number = 1; number <= static_cast<WordNumber>(lexicon.count()); ++number) {
    slots_[SlotOf(lexicon.FoldedWord(number))] = number;
  }
}

bool WordIndex::Has(std::string_view word) const {
  return slots_[SlotOf(FoldText(word))] != 0;
}

// The slot of the word, or the free one where it belongs.
size_t WordIndex::SlotOf(std::string_view folded) const {
  const size_t mask = slots_.size() - 1;
  size_t slot = std::hash<std::string_view>()(folded) & mask;
  while (slots_[slot] != 0 && lexicon_.FoldedWord(slots_[slot]) != folded) {
    slot = (slot + 1) & mask;
  }
  return slot;
}

}  // namespace quorvane
