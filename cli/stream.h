// Searches that come in on standard input, for editors and scripts.
#pragma once

#include <memory>

#include "cli/arguments.h"
#include "cli/output.h"
#include "cli/read_pattern.h"
#include "lexicon/lexicon.h"

namespace quorvane::cli {

// Of so many characters a line may be.
inline constexpr size_t kLongestRequest = size_t{1} << 20;

// Answers each line with one JSON object on a line, before it waits for the next. The status that `find -` has; nothing
// is said elsewhere of what a line holds.
int AnswerStream(const FindArguments& arguments, const std::shared_ptr<const Lexicon>& lexicon, SeededRandom& random,
                 Output& output);

}  // namespace quorvane::cli
