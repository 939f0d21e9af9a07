// What a search asks for, in words.
#pragma once

#include <string>

#include "search/search.h"

namespace quorvane {

// "9 letters: 2nd r, 4th s"; "6 letters or more: begins with un, ends with able; 7 to 9 letters; not (ends with s)".
// Nothing of an empty text and of what can't be searched.
//
// Letters are characters, apostrophes and the like, too. What a list or a rack holds is said in small letters, the
// rack's letters in its own order. Not said is what no word of a lexicon should show: that a pattern character also
// fits itself, and that "!" stands for no "~".
std::string Reading(const Search& search);

}  // namespace quorvane
