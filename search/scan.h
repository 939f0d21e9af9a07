// The scan over the lexicon: from a prepared pattern to the numbers of the words found.
#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "base/run_time_error.h"
#include "base/vector_width.h"
#include "search/conditions.h"
#include "search/emit.h"
#include "search/pattern.h"

namespace quorvane {

inline constexpr int kAnyMinLength = 1;
inline constexpr int kAnyMaxLength = 99;
// From this many found words on, repeats are no longer dropped.
inline constexpr size_t kRepeatCheckLimit = 32700;

struct ScanRequest {
  PreparedPattern prepared;
  CharacterLists lists;
  int minLength = kAnyMinLength;
  int maxLength = kAnyMaxLength;
  bool palindromes = false;                   // Keep only words that read the same both ways.
  std::vector<PreparedCondition> conditions;  // Not of random words.
  VectorWidth vectors = WidestVectors();      // Narrower ones are for tests.
};

class ScanObserver {
 public:
  virtual ~ScanObserver() = default;
  // Every word up to `index` has been looked at. `percent` is the figure that the program shows; it includes the
  // program's own skew of one step a thousand words.
  virtual void Progress(int index, int percent) = 0;
};

class RandomSource {
 public:
  virtual ~RandomSource() = default;
  // In [0, 1).
  virtual double NextFraction() = 0;
};

struct ScanError {
  RunTimeError error;
  std::string word;   // The word being processed; empty between words.
  std::string stage;  // "A" to "L", or the number of the pass over an initial and "J".
};

struct ScanOutcome {
  bool truncated = false;  // The screen list refused an entry; the numbers hold every word all the same.
  size_t listed = 0;       // Entries of the screen list.
  std::vector<ScanError> errors;
};

// Scans. `found` is overwritten; every accepted word is in it even when the screen list, which takes `screenCapacity`
// entries, refuses more. `wasTruncated` is the flag left by the search before: a random request alone leaves it set.
ScanOutcome PerformScan(const Lexicon& lexicon, const ScanRequest& request, FoundNumbers& found, RandomSource& random,
                        ScanObserver* observer = nullptr, size_t screenCapacity = std::numeric_limits<size_t>::max(),
                        bool wasTruncated = false);

}  // namespace quorvane
