// Names of lexicon files: the rule of a new one and the list of those there are.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

inline constexpr std::string_view kLexiconExtension = ".lex";
inline constexpr std::string_view kLexiconNameCharacters = "abcdefghijklmnopqrstuvwxyz01234567890@#$%_- ";

// The text in lower case without the characters that a lexicon's name may not hold.
std::string CleanLexiconName(std::string_view typed);

// The files of `directory` whose names end in ".lex", whatever the letter case, in alphabetical order. Names that hold
// "\" are left out: a stored value that holds one counts as a path.
std::vector<std::string> LexiconFilesIn(const std::string& directory);

// The file of `directory` that a lexicon's name without "/" means on the command line: NAME.lex, else NAME.
std::optional<std::string> LexiconNamed(const std::string& directory, const std::string& name);

}  // namespace quorvane
