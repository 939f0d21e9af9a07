#include "search/character_lists.h"

#include <algorithm>

#include "base/text.h"
#include "lexicon/lexicon.h"

namespace quorvane {
namespace {

constexpr std::string_view kAllLetters = "abcdefghijklmnopqrstuvwxyz";

constexpr std::array kFacts = {
    ListFacts{ListKind::Include, &CharacterLists::include, '#', "include", kAllLetters, "SelectedChars", false, false,
              false, "Inclusion", "F2: &Include chars for # ... currently ", "SEL-UPD", "Updated Inc #[",
              " # stands for ", "# : any of      "},
    ListFacts{ListKind::Exclude, &CharacterLists::exclude, '!', "exclude", "", "ExcludedChars", false, false, true,
              "Exclusion", "F3: &Exclude chars for ! ... currently ", "EXC-UPD", "Updated Exc ![", " ! stands for ",
              "! : not any of "},
    ListFacts{ListKind::Scrabble, &CharacterLists::scrabble, '=', "rack", "", "ScrabbleChars", true, true, true,
              "Scrabble", "F4: &Scrabble chars for = ... currently ", "SCR-UPD", "Updated Scr =[", " = stands for ",
              "= : max 1 each of "},
};

static_assert(std::equal(kFacts.begin(), kFacts.end(), kListKinds.begin(), kListKinds.end(),
                         [](const ListFacts& facts, ListKind kind) { return facts.kind == kind; }));

constexpr std::string_view kWideScrabbleCaption = "F4: &Scrabble chars for =   ... currently ";

}  // namespace

const ListFacts& FactsOf(ListKind kind) {
  return kFacts[static_cast<size_t>(kind)];
}

std::string ListMenuCaption(ListKind kind, std::string_view list, bool wideScrabbleGap) {
  const bool wide = wideScrabbleGap && kind == ListKind::Scrabble;
  return std::string(wide ? kWideScrabbleCaption : FactsOf(kind).menuCaption) + BracketForm(list);
}

std::string ListStatusText(ListKind kind, std::string_view list, bool changed) {
  return std::string(FactsOf(kind).name) + (changed ? " list is now set to " : " list was unchanged, and remains as ") +
         BracketForm(list);
}

std::string BracketForm(std::string_view list) {
  return "[" + FoldText(list) + "]";
}

std::string CleanList(ListKind kind, std::string_view typed) {
  return KeepLetters(typed, FactsOf(kind).blankTiles, FactsOf(kind).repeats);
}

std::string UsableTiles(std::string_view rack) {
  std::array<size_t, 256> counts{};
  std::string usable;
  for (const char tile : rack) {
    if (++counts[static_cast<unsigned char>(tile)] <= kMaxWordLength) {
      usable += tile;
    }
  }
  return usable;
}

std::vector<ListKind> ListsNamedIn(std::string_view text) {
  std::vector<ListKind> named;
  for (const ListKind kind : kListKinds) {
    if (text.find(FactsOf(kind).wildcard) != std::string_view::npos) {
      named.push_back(kind);
    }
  }
  return named;
}

const std::string& CharacterLists::Of(ListKind kind) const {
  return this->*FactsOf(kind).list;
}

std::string& CharacterLists::Of(ListKind kind) {
  return this->*FactsOf(kind).list;
}

}  // namespace quorvane
