#include "lexicon/word_starts.h"

#include <algorithm>

namespace quorvane {

void WordStarts::Write(size_t first, const uint32_t* starts, size_t count) {
  while (count > 0) {
    const size_t inGroup = std::min(count, kGroup - first % kGroup);
    uint32_t& group = groups_[first / kGroup];
    group = first % kGroup == 0 ? starts[0] : group;
    const uint32_t start = group;
    uint16_t* offsets = &offsets_[first];
    for (size_t i = 0; i < inGroup; ++i) {
      offsets[i] = static_cast<uint16_t>(starts[i] - start);
    }
    first += inGroup;
    starts += inGroup;
    count -= inGroup;
  }
}

}  // namespace quorvane
