// The result summary: what the status line and the log say after a search and after a sort,
// and what a file or a page of the list is headed with.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "search/search.h"

namespace quorvane {

// "12 words": the count and the noun, with its plural s.
std::string CountedNoun(size_t count, std::string_view noun);
// "  (of length 5 letters)", "  (of 3 to 5 letters in length)", or nothing for any length.
std::string RangeText(const LengthRange& range);
// "12 words found  (of 3 to 5 letters in length)"
std::string SummaryStatus(size_t count, const Search& search);
// "12 words found using pattern 'a*'  (of 3 to 5 letters in length)"
std::string SummaryLog(size_t count, const Search& search);
// What is in force beside the text when nothing was found: "Nothing found. In force: 3 to 5 letters; # is one of
// [abc]"; empty when nothing is.
std::string EmptyListText(const Search& search);
// "Writing 12 words to file ..."
std::string WritingStatus(size_t count, const Search& search);
// "12 words found matching the word pattern "a*"": the first line of the results file and the title of a printed page.
std::string HeaderLine(size_t count, const Search& search);
// "Time = 1.23s": half a hundredth is rounded up, with a point in every locale.
std::string TimeText(int64_t milliseconds);
// "Word # 3", a line break and "Length : 5". From 65,536 found words on the position is left out.
std::string PositionText(int64_t position, int64_t length, int64_t foundCount);

}  // namespace quorvane
