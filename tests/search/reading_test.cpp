// Searches in words: the texts, and random ones read back into a test of words that is held against the matcher.

#if defined(__GNUC__) && !defined(__clang__)
// GCC 12 takes the library's own regular expressions for uninitialised under the sanitizers (its bug 105562).
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include "search/reading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <regex>
#include <set>

#include "base/text.h"
#include "search/conditions.h"
#include "search/match.h"

namespace quorvane::test {
namespace {

TEST(Reading, Texts) {
  const CharacterLists lists{"aeiou", "", "aeinrt?"};
  const struct {
    const char *text, *reading;
    WordType mode = WordType::WordList;
    LengthRange lengths{};
    std::vector<Condition> conditions{};
  } cases[] = {
      {"", ""},
      {"*", "any word"},
      {"Cat", "the word cat"},
      {"???", "3 letters"},
      {"?r?s??o?d", "9 letters: 2nd r, 4th s, 7th o, 9th d"},
      {"un*able", "6 letters or more: begins with un, ends with able"},
      {"1221", "4 letters: 1st = 4th, 2nd = 3rd"},
      {"@$@$@", "5 letters: vowel, no vowel, vowel, no vowel, vowel"},
      {"==c==", "5 letters: 3rd c, the others tiles of aeinrt and a blank"},
      {"=?=-=", "5 letters: 1st, 3rd and 5th tiles of aeinrt and a blank"},
      {"r#!", "3 letters: 1st r, 2nd #, 3rd !; # is one of aeiou; ! is anything"},
      {"?*@s", "3 letters or more: 2nd last vowel, last s"},
      {"*ell*", "3 letters or more: holds ell"},
      {"1*a1*s",
       "4 letters or more: ends with s, holds (2 letters: 1st a, 2nd = 1st of the word) from 2nd to 2nd last"},
      {"=*=c*",
       "3 letters or more: 1st a tile of aeinrt and a blank, holds (2 letters: 2nd c, the other a tile of "
       "those left, tried from the left, used ones stay used) from 2nd on"},
      {";abc~", "holds a, b, c in any order"},
      {";cc", "holds c, c in this order"},
      {"%2ss>", "ss at least twice, overlaps counted"},
      {"%2ss", "ss exactly twice, overlaps counted"},
      {"listen", "some or all of e i l n s t", WordType::Anagram},
      {"listen", "all of e i l n s t and no more", WordType::AnagramExact},
      {"?a*", "2 letters or more: 2nd a; a palindrome as written; 5 letters", WordType::Palindrome, {false, 5, 5}},
      {"~5", "5 random words", WordType::WordList, {false, 3, 4}},
      {"*",
       "any word; 3 to 4 letters; and (2 letters or more: 2nd a); not (ends with s); with e, e; without d; from "
       "tiles of aen and 2 blanks",
       WordType::WordList,
       {false, 3, 4},
       {{ConditionKind::And, "?a*"},
        {ConditionKind::Not, "*S"},
        {ConditionKind::With, "eE"},
        {ConditionKind::Without, "d"},
        {ConditionKind::From, "?aEn-"}}},
      {"te?", "", WordType::Anagram},
      {"*", "", WordType::WordList, {}, {{ConditionKind::And, "~5"}}},
  };
  for (const auto& [text, reading, mode, lengths, conditions] : cases) {
    EXPECT_EQ(Reading({text, mode, "", lengths, lists, conditions}), reading);
  }
}

std::vector<std::string> Split(const std::string& text, const std::string& between) {
  std::vector<std::string> parts(1);
  int depth = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    depth += text[i] == '(' ? 1 : text[i] == ')' ? -1 : 0;
    if (depth == 0 && text.compare(i, between.size(), between) == 0) {
      parts.emplace_back();
      i += between.size() - 1;
    } else {
      parts.back() += text[i];
    }
  }
  return parts;
}

bool Match(const std::string& text, std::smatch& parts, const char* expression) {
  static std::map<std::string, std::regex> made;
  return std::regex_match(text, parts, made.try_emplace(expression, expression).first->second);
}

// Reads the grammar of readings, and nothing else: no pattern.
class Reader {
 public:
  explicit Reader(const std::string& reading) : clauses_(Split(reading, "; ")) {
    for (const std::string& clause : clauses_) {
      if (clause.starts_with("# is") || clause.starts_with("! is")) {
        lists_[clause.substr(0, 1)] = clause;
      }
    }
  }

  bool Fits(const std::string& word) const {
    return Body(clauses_[0], FoldText(word)) &&
           std::all_of(clauses_.begin() + 1, clauses_.end(), [&](const auto& c) { return Clause(c, word); });
  }

 private:
  using Rack = std::map<char, int>;  // Blanks under "?".

  static Rack RackOf(const std::string& text) {
    std::smatch m;
    // Letters alone may begin with "a"; a blank follows "a " at once.
    const bool blanksAlone = text.find("blank") < text.find(" and ") && text.find(' ') < text.find(" and ");
    const std::string all = blanksAlone ? " and " + text : text;
    EXPECT_TRUE(Match(all, m, "([a-z]*)(?: and )?(?:(a|\\d+) blanks?)?")) << text;
    Rack rack;
    for (const char c : m[1].str()) {
      ++rack[c];
    }
    rack['?'] = m[2].matched ? (m[2] == "a" ? 1 : std::stoi(m[2])) : 0;
    return rack;
  }
  static bool Take(Rack& rack, char c) {
    return (IsLetter(c) && rack[c] > 0 ? rack[c] : rack['?'])-- > 0 || (++rack['?'], false);
  }

  static int Count(const std::string& word, char c) {
    return static_cast<int>(std::count(word.begin(), word.end(), c));
  }

  bool Clause(const std::string& clause, const std::string& stored) const {
    const std::string word = FoldText(stored);
    std::smatch m;
    if (clause == "a palindrome as written") {
      return std::equal(stored.begin(), stored.end(), stored.rbegin());
    }
    if (Match(clause, m, "(?:(\\d+) to )?(\\d+) letters?")) {
      const size_t most = std::stoul(m[2]);
      return word.size() <= most && word.size() >= (m[1].matched ? std::stoul(m[1]) : most);
    }
    if (clause.starts_with("and (") || clause.starts_with("not (")) {
      return Body(clause.substr(5, clause.size() - 6), word) == clause.starts_with("and");
    }
    if (clause.starts_with("from tiles of ")) {
      Rack rack = RackOf(clause.substr(14));
      return std::all_of(word.begin(), word.end(), [&](char c) { return Take(rack, c); });
    }
    const bool with = clause.starts_with("with ");
    if (with || clause.starts_with("without ")) {
      const auto letters = Split(clause.substr(clause.find(' ') + 1), ", ");
      return std::all_of(letters.begin(), letters.end(), [&](const std::string& letter) {
        return with ? Count(word, letter[0]) >= std::count(letters.begin(), letters.end(), letter)
                    : Count(word, letter[0]) == 0;
      });
    }
    return lists_.contains(clause.substr(0, 1));
  }

  bool Body(const std::string& body, const std::string& word) const {
    std::smatch m;
    if (body == "any word") {
      return true;
    }
    if (Match(body, m, "the word ([a-z]+)")) {
      return word == m[1];
    }
    if (Match(body, m, "(some or )?all of ([a-z ]+?)( and no more)?")) {
      std::string letters = m[2];
      std::erase(letters, ' ');
      return std::all_of(word.begin(), word.end(), [&](char c) { return Count(word, c) <= Count(letters, c); }) &&
             (m[1].matched || word.size() == letters.size());
    }
    if (Match(body, m, "([a-z]+) (exactly|at least) (?:once|twice|(\\d) times), overlaps counted")) {
      const int times = m[3].matched ? std::stoi(m[3]) : body.find(" once,") != std::string::npos ? 1 : 2;
      int found = 0;
      for (size_t at = 0; (at = word.find(m[1].str(), at)) != std::string::npos; ++at) {
        ++found;
      }
      return m[2] == "exactly" ? found == times : found >= times;
    }
    if (Match(body, m, "holds ([a-z](?:, [a-z])+) in (any|this) order")) {
      std::string letters = m[1];
      std::erase_if(letters, [](char c) { return !IsLetter(c); });
      size_t next = 0;
      for (const char c : word) {
        next += next < letters.size() && letters[next] == c ? 1u : 0u;
      }
      return m[2] == "this" ? next == letters.size() : std::all_of(letters.begin(), letters.end(), [&](char c) {
        return Count(word, c) >= Count(letters, c);
      });
    }
    return Places(body, word);
  }

  // The number of a place from 1; those counted from the end as the word has them.
  static size_t PlaceOf(const std::string& name, size_t size) {
    const size_t number = name.starts_with("last") ? 1 : std::stoul(name);
    return name.find("last") == std::string::npos ? number : size + 1 - number;
  }

  bool Is(const std::string& what, char c) const {
    static const std::map<std::string, std::string> kClasses = {
        {"vowel", "aeiou"},
        {"descender", "gjpqy"},
        {"ascender or apostrophe", "bdfhklt'"},
        {"letter without ascender or descender", "aceimnorsuvwxz"}};
    if (const auto found = kClasses.find(what); found != kClasses.end()) {
      return found->second.find(c) != std::string::npos;
    }
    if (what == "no vowel") {
      return !Is("vowel", c);
    }
    if (const auto found = lists_.find(what); found != lists_.end()) {
      const std::string& list = found->second;
      const std::string letters = list.substr(list.rfind(' ') + 1);
      const bool inside = list.ends_with(" a to z") ? IsLetter(c) : letters.find(c) != std::string::npos;
      return list.find(" one of ") != std::string::npos    ? inside
             : list.find(" none of ") != std::string::npos ? !inside
                                                           : list == "! is anything";
    }
    EXPECT_EQ(what.size(), 1u) << what;
    return what[0] == c;
  }

  // What items with places ask of a piece of a word.
  struct Asked {
    std::map<size_t, std::string> what;
    std::map<size_t, char> fixed;  // Equal to a place outside the piece.
    std::vector<std::vector<size_t>> same;
    std::set<size_t> tiles;
    std::string rack;
    std::vector<std::string> rest;
  };

  static Asked AskedBy(const std::vector<std::string>& items, size_t size, const std::string& whole) {
    static const std::string kPlace = "((?:\\d+(?:st|nd|rd|th) last|\\d+(?:st|nd|rd|th)|last))";
    static const std::regex kWhat(kPlace + " (.*)"), kAlone(kPlace);
    static const std::regex kTiles("(.*?)(?:a tile|tiles) of (.*)");
    Asked asked;
    std::smatch m;
    std::vector<size_t> pending;
    for (size_t i = 0; i < items.size(); ++i) {
      const std::string& item = items[i];
      if (item.starts_with("begins") || item.starts_with("ends") || item.starts_with("holds")) {
        asked.rest.push_back(item);
      } else if (item.find(" = ") != std::string::npos) {
        auto& group = asked.same.emplace_back();
        for (const std::string& name : Split(item, " = ")) {
          if (const size_t outer = name.find(" of the word"); outer != std::string::npos) {
            asked.fixed[group.front()] = whole[PlaceOf(name.substr(0, outer), whole.size()) - 1];
          } else {
            group.push_back(PlaceOf(name, size));
          }
        }
      } else if (std::regex_match(item, m, kAlone)) {
        pending.push_back(PlaceOf(item, size));
      } else if (std::regex_match(item, m, kTiles)) {
        asked.rack = m[2];
        for (size_t place = 1; place <= size; ++place) {
          const bool told = asked.what.contains(place) ||
                            std::any_of(asked.same.begin(), asked.same.end(),
                                        [&](const auto& g) { return std::find(g.begin(), g.end(), place) != g.end(); });
          if (!told && (m[1] == "" || m[1] == "all " || m[1].str().starts_with("the other"))) {
            asked.tiles.insert(place);
          }
        }
        asked.tiles.insert(pending.begin(), pending.end());
        if (std::isdigit(static_cast<unsigned char>(item[0])) != 0 || item.starts_with("last")) {
          for (const std::string& name : Split(m[1].str().substr(0, m[1].str().size() - 1), " and ")) {
            asked.tiles.insert(PlaceOf(name, size));
          }
        }
      } else if (std::regex_match(item, m, kWhat)) {
        asked.what[PlaceOf(m[1], size)] = m[2];
      } else {
        asked.what[i + 1] = item;
      }
    }
    return asked;
  }

  // From the left until a place does not fit; tiles are taken out of the rack.
  bool PieceFits(const Asked& asked, const std::string& piece, Rack& rack) const {
    for (size_t place = 1; place <= piece.size(); ++place) {
      const char c = piece[place - 1];
      const auto what = asked.what.find(place);
      const bool fits = (what == asked.what.end() || Is(what->second, c)) &&
                        (!asked.tiles.contains(place) || Take(rack, c)) &&
                        std::all_of(asked.same.begin(), asked.same.end(), [&](const std::vector<size_t>& group) {
                          const auto outer = asked.fixed.find(group.front());
                          return std::find(group.begin(), group.end(), place) == group.end() ||
                                 c == (outer != asked.fixed.end() ? outer->second : piece[group.front() - 1]);
                        });
      if (!fits) {
        return false;
      }
    }
    return true;
  }

  bool Places(std::string body, const std::string& word) const {
    std::smatch m;
    if (Match(body, m, "(\\d+) letters?( or more)?(?:: )?(.*)")) {
      const size_t size = std::stoul(m[1]);
      if (m[2].matched ? word.size() < size : word.size() != size) {
        return false;
      }
      body = std::string(m[3]);
    }
    const Asked asked = AskedBy(body.empty() ? std::vector<std::string>{} : Split(body, ", "), word.size(), word);
    Rack rack = RackOf(asked.rack.empty() ? "0 blanks" : asked.rack);
    return PieceFits(asked, word, rack) && std::all_of(asked.rest.begin(), asked.rest.end(),
                                                       [&](const std::string& item) { return Rest(item, word, rack); });
  }

  bool Rest(const std::string& item, const std::string& word, Rack& rack) const {
    std::smatch m;
    if (Match(item, m, "(begins|ends) with (.*)")) {
      return m[1] == "begins" ? word.starts_with(m[2].str()) : word.ends_with(m[2].str());
    }
    static const std::regex kHolds(
        "holds ([a-z]+|\\((\\d+) letters?(?:: (.*))?\\))(?: from (\\w+))?(?: on| (?:up )?to (.*))?");
    if (!std::regex_match(item, m, kHolds)) {
      ADD_FAILURE() << item;
      return false;
    }
    const size_t first = m[4].matched ? PlaceOf(m[4], word.size()) - 1 : 0;
    const size_t last = m[5].matched ? PlaceOf(m[5], word.size()) : word.size();
    const size_t size = m[2].matched ? std::stoul(m[2]) : m[1].str().size();
    const std::string tried = ", tried from the left, used ones stay used";
    std::string items = m[3];
    if (items.ends_with(tried)) {
      items.resize(items.size() - tried.size());
    }
    const Asked asked = m[2].matched ? AskedBy(Split(items, ", "), size, word) : Asked{};
    if (!asked.rack.empty() && asked.rack != "those left") {
      rack = RackOf(asked.rack);
    }
    for (size_t at = first; at + size <= last; ++at) {
      const std::string piece = word.substr(at, size);
      if (m[2].matched ? PieceFits(asked, piece, rack) : piece == m[1]) {
        return true;
      }
    }
    return false;
  }

  std::vector<std::string> clauses_;
  std::map<std::string, std::string> lists_;
};

class Random {
 public:
  int Below(int limit) { return static_cast<int>(engine_() % static_cast<unsigned>(limit)); }
  std::string Of(std::string_view characters, int least, int most) {
    std::string text;
    for (int left = least + Below(most - least + 1); left > 0; --left) {
      text += characters[static_cast<size_t>(Below(static_cast<int>(characters.size())))];
    }
    return text;
  }
  std::string Pattern() {
    switch (Below(10)) {
      case 0:
        return "%" + std::to_string(1 + Below(3)) + Of("ae", 1, 2) + (Below(2) == 0 ? ">" : "");
      case 1:
        return ";" + Of("aelt", 1, 3) + (Below(2) == 0 ? "~" : "");
      case 2:
        return Of("@$':,#!", 1, 3);
      default:
        return Of("aelt??@$':,#!==111222", 0, 3) + (Below(3) == 0 ? "" : "*") + Of("ael?@$':,#!==1122", 0, 3) +
               (Below(2) == 0 ? "" : "*") + Of("aelt?@$'#!=12", 0, 2);
    }
  }

 private:
  std::mt19937 engine_{20261121};
};

TEST(Reading, ReadBackItIsTheSearch) {
  Random random;
  int fitting = 0;
  for (int done = 0; done < 8000;) {
    Search search{random.Pattern()};
    search.lists = {random.Below(3) == 0 ? "abcdefghijklmnopqrstuvwxyz" : random.Of("aelT", 0, 2),
                    random.Of("aElt", 0, 2), random.Of("aeLlt?-", 0, 4)};
    search.mode = static_cast<WordType>(random.Below(8) > 3 ? 0 : random.Below(4));
    if (IsAnagram(search.mode)) {
      search.text = random.Of("aelt", 1, 6);
    }
    if (random.Below(4) == 0) {
      search.lengths = {false, 2, 2 + random.Below(3)};
    }
    for (int more = random.Below(3); more > 0; --more) {
      const auto kind = static_cast<ConditionKind>(random.Below(5));
      const bool pattern = FactsOf(kind).pattern;
      search.conditions.push_back(
          {kind, pattern ? random.Pattern() : random.Of("aelt", 1, 5) + (kind == ConditionKind::From ? "?" : "")});
    }
    const PreparedPattern prepared = PreparePattern(search.text, search.mode);
    const PreparedConditions conditions = PrepareConditions(search);
    const std::string reading = Reading(search);
    if (reading.empty()) {
      ASSERT_TRUE(search.text.empty() || prepared.refusal || conditions.refusal) << search.text;
      continue;
    }
    ++done;
    const Reader reader(reading);
    WordTest pattern(prepared, search.lists);
    for (int i = 0; i < 25; ++i) {
      std::string word = random.Of("aaeellt'g4\xE9", 1, 6);
      if (random.Below(3) == 0) {
        std::copy(word.begin(), word.begin() + static_cast<std::ptrdiff_t>(word.size() / 2), word.rbegin());
      }
      const auto size = static_cast<int>(word.size());
      const bool fits =
          pattern.Accepts(word) && (search.lengths.any || (size >= search.lengths.min && size <= search.lengths.max)) &&
          (search.mode != WordType::Palindrome || std::equal(word.begin(), word.end(), word.rbegin())) &&
          std::all_of(conditions.all.begin(), conditions.all.end(), [&](const PreparedCondition& condition) {
            return WordTest(condition.prepared, condition.lists).Accepts(word) == condition.mustFit;
          });
      ASSERT_EQ(reader.Fits(word), fits) << word << " by " << search.text << ": " << reading;
      fitting += fits ? 1 : 0;
    }
  }
  EXPECT_GT(fitting, 5000);
}

}  // namespace
}  // namespace quorvane::test
