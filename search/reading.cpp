#include "search/reading.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/text.h"
#include "search/conditions.h"
#include "search/pattern.h"
#include "search/wildcards.h"

namespace quorvane {
namespace {

using Texts = std::vector<std::string>;

std::string Joined(const Texts& texts, std::string_view between) {
  std::string joined;
  for (const std::string& text : texts) {
    joined += (joined.empty() ? "" : std::string(between)) + text;
  }
  return joined;
}

// "a, b, c", or with blanks alone.
std::string Listed(std::string_view letters, std::string_view between) {
  Texts each;
  std::transform(letters.begin(), letters.end(), std::back_inserter(each), [](char c) { return std::string(1, c); });
  return Joined(each, between);
}

std::string Counted(size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + std::string(PluralS(static_cast<int64_t>(count)));
}

std::string Ordinal(size_t number) {
  constexpr std::array<std::string_view, 4> kEndings = {"th", "st", "nd", "rd"};
  const bool teen = number / 10 % 10 == 1;
  return std::to_string(number) + std::string(kEndings[teen || number % 10 > 3 ? 0 : number % 10]);
}

std::string FromEnd(size_t number) {
  return number == 1 ? "last" : Ordinal(number) + " last";
}

// "aeinrt and 2 blanks"
std::string RackText(std::string_view rack) {
  const std::string folded = FoldText(rack);
  std::string letters;
  std::copy_if(folded.begin(), folded.end(), std::back_inserter(letters), IsLetter);
  const size_t blanks = folded.size() - letters.size();
  const std::string blank = blanks == 1 ? "a blank" : std::to_string(blanks) + " blanks";
  return letters.empty() ? blank : blanks == 0 ? letters : letters + " and " + blank;
}

// What a character of a class is called; empty of every other.
std::string_view ClassName(char c) {
  switch (c) {
    case '@':
      return "vowel";
    case '$':
      return "no vowel";
    case '\'':
      return "ascender or apostrophe";
    case ',':
      return "descender";
    case ':':
      return "letter without ascender or descender";
    case '#':
      return "#";
    case '!':
      return "!";
    default:
      return "";
  }
}

bool IsWord(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsLetter);
}

// A character of the pattern and how its place is called.
struct Spot {
  char character;
  std::string name;
};

// Tells what one pattern with places asks.
class PlacesReader {
 public:
  PlacesReader(const PreparedPattern& prepared, const CharacterLists& lists)
      : prefix_(prepared.prefix),
        middle_(prepared.middle),
        suffix_(prepared.suffix),
        open_(prepared.kind != PatternKind::NoAsterisk),
        rack_(RackText(lists.scrabble)) {
    for (const char c : prefix_ + middle_ + suffix_) {
      ++count_[static_cast<unsigned char>(c)];
    }
  }

  std::string Text() {
    if (!open_) {
      return IsWord(prefix_) ? "the word " + prefix_ : Row(prefix_, false);
    }
    const Texts items = OpenItems();
    const size_t size = prefix_.size() + middle_.size() + suffix_.size();
    const std::string length = size > 1 ? Counted(size, "letter") + " or more" : "";
    return items.empty() ? (length.empty() ? "any word" : length)
                         : length + (length.empty() ? "" : ": ") + Joined(items, ", ");
  }

 private:
  // Whether it asks for nothing: a digit that stands alone does as "?" does.
  bool Free(char c) const {
    const Stands stands = StandsFor(c);
    return stands == Stands::AnyCharacter ||
           (stands == Stands::SameCharacter && count_[static_cast<unsigned char>(c)] == 1);
  }
  bool AllFree(std::string_view text) const {
    return std::all_of(text.begin(), text.end(), [this](char c) { return Free(c); });
  }

  Texts OpenItems() {
    std::string front = prefix_;
    std::string back = suffix_;
    while (!front.empty() && Free(front.back())) {
      front.pop_back();
    }
    back.erase(0, static_cast<size_t>(std::find_if_not(back.begin(), back.end(), [this](char c) { return Free(c); }) -
                                      back.begin()));
    std::vector<Spot> spots;
    for (size_t i = 0; i < front.size() && !IsWord(front); ++i) {
      spots.push_back({front[i], Ordinal(i + 1)});
    }
    for (size_t i = 0; i < back.size() && !IsWord(back); ++i) {
      spots.push_back({back[i], FromEnd(back.size() - i)});
    }
    Texts items = SpotItems(spots, "");
    if (IsWord(front)) {
      items.insert(items.begin(), "begins with " + front);
    }
    if (IsWord(back)) {
      items.push_back("ends with " + back);
    }
    const Texts tiles = TileItems(spots, false, rack_);
    items.insert(items.end(), tiles.begin(), tiles.end());
    for (const Spot& spot : spots) {
      if (StandsFor(spot.character) == Stands::SameCharacter && BoundAt(spot.character).empty()) {
        bound_[static_cast<size_t>(spot.character - '1')] = spot.name;
      }
    }
    if (!middle_.empty() && !AllFree(middle_)) {
      items.push_back("holds " + (IsWord(middle_) ? middle_ : "(" + Row(middle_, true) + ")") + Between());
    }
    return items;
  }

  // Where the middle may stand.
  std::string Between() const {
    const std::string from = Ordinal(prefix_.size() + 1);
    const std::string to = FromEnd(suffix_.size() + 1);
    return prefix_.empty() ? (suffix_.empty() ? "" : " up to " + to)
                           : " from " + from + (suffix_.empty() ? " on" : " to " + to);
  }

  std::string_view BoundAt(char digit) const { return bound_[static_cast<size_t>(digit - '1')]; }

  // Characters of which each has its place.
  std::string Row(const std::string& text, bool middle) const {
    const std::string length = Counted(text.size(), "letter");
    Texts items;
    if (std::none_of(text.begin(), text.end(), [](char c) { return ClassName(c).empty(); })) {
      std::transform(text.begin(), text.end(), std::back_inserter(items),
                     [](char c) { return std::string(ClassName(c)); });
    } else {
      std::vector<Spot> spots;
      for (size_t i = 0; i < text.size(); ++i) {
        spots.push_back({text[i], Ordinal(i + 1)});
      }
      items = SpotItems(spots, " of the word");
      const bool used = (prefix_ + suffix_).find('=') != std::string::npos;
      for (const std::string& tiles : TileItems(spots, true, middle && used ? "those left" : rack_)) {
        items.push_back(tiles + (middle ? ", tried from the left, used ones stay used" : ""));
      }
    }
    return items.empty() ? length : length + ": " + Joined(items, ", ");
  }

  // What each place asks but for the tiles. A digit that the ends have bound refers to its place there.
  Texts SpotItems(const std::vector<Spot>& spots, const std::string& ofTheEnds) const {
    Texts items;
    std::string told;
    for (const Spot& spot : spots) {
      const char c = spot.character;
      if (StandsFor(c) == Stands::SameCharacter) {
        if (told.find(c) == std::string::npos) {
          told += c;
          Texts same;
          for (const Spot& other : spots) {
            if (other.character == c) {
              same.push_back(other.name);
            }
          }
          if (!BoundAt(c).empty()) {
            same.push_back(std::string(BoundAt(c)) + ofTheEnds);
          }
          if (same.size() > 1) {
            items.push_back(Joined(same, " = "));
          }
        }
      } else if (StandsFor(c) != Stands::AnyCharacter && StandsFor(c) != Stands::Tile) {
        items.push_back(spot.name + " " + (ClassName(c).empty() ? std::string(1, c) : std::string(ClassName(c))));
      }
    }
    return items;
  }

  // "1st, 2nd and 4th tiles of abc"; at most one.
  Texts TileItems(const std::vector<Spot>& spots, bool whole, const std::string& rack) const {
    Texts names;
    bool others = whole;  // Every place without a tile has been told.
    for (const Spot& spot : spots) {
      if (StandsFor(spot.character) == Stands::Tile) {
        names.push_back(spot.name);
      }
      others = others && !Free(spot.character);
    }
    if (names.empty()) {
      return {};
    }
    const std::string last = names.back();
    const bool one = names.size() == 1;
    std::string places;
    if (others) {
      places = names.size() == spots.size() ? (one ? "" : "all ") : one ? "the other " : "the others ";
    } else {
      names.pop_back();
      places = (one ? "" : Joined(names, ", ") + " and ") + last + " ";
    }
    return {places + (one ? "a tile of " : "tiles of ") + rack};
  }

  const std::string prefix_;
  const std::string middle_;
  const std::string suffix_;
  const bool open_;  // The word may be longer than the pattern.
  const std::string rack_;
  std::array<size_t, 256> count_{};
  std::array<std::string, 3> bound_;  // The first place of each digit at the ends.
};

std::string SequenceText(const PreparedPattern& prepared) {
  const int times = prepared.times.value_or(0);
  const std::string count = times == 1 ? "once" : times == 2 ? "twice" : std::to_string(times) + " times";
  return prepared.letters + (prepared.orMore ? " at least " : " exactly ") + count + ", overlaps counted";
}

std::string LetterChoiceText(const PreparedPattern& prepared) {
  const std::string order = prepared.anyOrder ? " in any order" : " in this order";
  return "holds " + Listed(prepared.letters, ", ") + (prepared.letters.size() > 1 ? order : "");
}

// What one pattern asks.
std::string PatternText(const PreparedPattern& prepared, const CharacterLists& lists) {
  if (prepared.randomCount) {
    return Counted(static_cast<size_t>(std::max(*prepared.randomCount, 0)), "random word");
  }
  switch (prepared.kind) {
    case PatternKind::Anagram:
      return "some or all of " + Listed(SortLetters(prepared.letters), " ");
    case PatternKind::AnagramExact:
      return "all of " + Listed(SortLetters(prepared.letters), " ") + " and no more";
    case PatternKind::Sequence:
      return SequenceText(prepared);
    case PatternKind::LetterChoice:
      return LetterChoiceText(prepared);
    default:
      return PlacesReader(prepared, lists).Text();
  }
}

std::string ListText(ListKind kind, const CharacterLists& lists) {
  const std::string letters = FoldText(lists.Of(kind));
  const std::string said = SortList(letters) == "abcdefghijklmnopqrstuvwxyz" ? "a to z" : letters;
  if (kind == ListKind::Include) {
    return said.empty() ? "# is nothing" : "# is one of " + said;
  }
  return said.empty() ? "! is anything" : "! is none of " + said;
}

std::string ConditionReading(const Condition& condition, const CharacterLists& lists) {
  const std::string folded = FoldText(condition.text);
  switch (condition.kind) {
    case ConditionKind::With:
    case ConditionKind::Without:
      return std::string(FactsOf(condition.kind).legend) + " " + Listed(folded, ", ");
    case ConditionKind::From:
      return "from tiles of " + RackText(folded);
    default:
      return std::string(FactsOf(condition.kind).legend) + " (" +
             PatternText(PreparePattern(folded, WordType::WordList), lists) + ")";
  }
}

bool CanBeRead(const Search& search, const PreparedPattern& prepared) {
  const bool lettersMissing = prepared.letters.empty() &&
                              (prepared.kind == PatternKind::Sequence || prepared.kind == PatternKind::LetterChoice);
  return !search.text.empty() && !prepared.refusal && !lettersMissing && !PrepareConditions(search).refusal;
}

}  // namespace

std::string Reading(const Search& search) {
  const PreparedPattern prepared = PreparePattern(search.text, search.mode);
  if (!CanBeRead(search, prepared)) {
    return "";
  }
  Texts clauses{PatternText(prepared, search.lists)};
  if (search.mode == WordType::Palindrome) {
    clauses.emplace_back("a palindrome as written");
  }
  if (const LengthRange& lengths = search.lengths; !lengths.any && !prepared.randomCount) {
    const std::string shortest = lengths.min == lengths.max ? "" : std::to_string(lengths.min) + " to ";
    clauses.push_back(shortest + Counted(static_cast<size_t>(lengths.max), "letter"));
  }
  for (const ListKind kind : ListsNamedIn(search)) {
    if (kind != ListKind::Scrabble) {
      clauses.push_back(ListText(kind, search.lists));
    }
  }
  for (const Condition& condition : search.conditions) {
    clauses.push_back(ConditionReading(condition, search.lists));
  }
  return Joined(clauses, "; ");
}

}  // namespace quorvane
