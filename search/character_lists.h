// The three lists of characters that "#", "!" and "=" stand for.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

enum class ListKind { Include, Exclude, Scrabble };
inline constexpr std::array kListKinds = {ListKind::Include, ListKind::Exclude, ListKind::Scrabble};

// The three lists as stored, letter case and all.
struct CharacterLists {
  std::string include;
  std::string exclude;
  std::string scrabble;

  const std::string& Of(ListKind kind) const;
  std::string& Of(ListKind kind);
};

// Everything that tells the three lists apart.
struct ListFacts {
  ListKind kind;
  std::string CharacterLists::*list;
  char wildcard;
  std::string_view option;       // On the command line, without its dashes.
  std::string_view usual;        // What the option is when it is not given, in lower case.
  std::string_view settingsKey;  // In the section "Selection".
  bool blankTiles;               // "?" and "-" are allowed beside letters.
  bool repeats;                  // A character may occur more than once.
  bool mayBeEmpty;
  std::string_view name;         // "Inclusion", as the status texts begin.
  std::string_view menuCaption;  // The menu caption before the bracket form.
  std::string_view logCode;
  std::string_view logText;      // The log text before the list and its closing "]".
  std::string_view fileLegend;   // The line of the results file before the bracket form.
  std::string_view printLegend;  // The line of the printed page before the bracket form.
};
const ListFacts& FactsOf(ListKind kind);

inline constexpr std::string_view kEmptyListRefusal = "You must enter at least one character.";
// At start, when the menu opens and at a search the Scrabble caption has three blanks behind its "=".
std::string ListMenuCaption(ListKind kind, std::string_view list, bool wideScrabbleGap);
std::string ListStatusText(ListKind kind, std::string_view list, bool changed);

// "[" + the list in lower case + "]".
std::string BracketForm(std::string_view list);

// The text without the characters that the list does not allow and, for lists without repeats, without later
// occurrences of a character (case counts: "aA" holds no repeat).
std::string CleanList(ListKind kind, std::string_view typed);

// The tiles of a rack that a word can use: of each the first 90, as many as the longest word has letters.
std::string UsableTiles(std::string_view rack);

// The lists whose wildcards occur in the text, in the order of the results file.
std::vector<ListKind> ListsNamedIn(std::string_view text);

}  // namespace quorvane
