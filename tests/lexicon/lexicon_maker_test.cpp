// Lexicons made of plain word lists.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <vector>

#include "lexicon/lexicon.h"
#include "lexicon/lexicon_maker.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

using Words = std::vector<std::string>;

TEST(LexiconMaker, ReadsWordLists) {
  const std::string ninety(90, 'x');
  const struct {
    const char* name;
    std::vector<std::string> lists;
    Words words;
    int64_t lines;
    int64_t left[kLeftOutReasons];  // Empty, too long, other characters, repeated.
  } cases[] = {
      {"line ends", {"b\na\r\nc"}, {"a", "b", "c"}, 3, {}},
      {"nothing", {""}, {}, 0, {}},
      {"case", {"Zoo\nALPHA\nbeta\n"}, {"alpha", "beta", "zoo"}, 3, {}},
      {"repeats, also by case and across lists", {"cat\nCat\n", "dog\ncat\n"}, {"cat", "dog"}, 4, {0, 0, 0, 2}},
      {"repeats by accent", {"re\nr\xC3\xA9\n"}, {"re"}, 2, {0, 0, 0, 1}},
      {"first column", {"one 1\ntwo\t2\nthree,3\nfour;4\nfive, 5;6\n"}, {"five", "four", "one", "three", "two"}, 5, {}},
      {"nothing in the first column", {" lead\n\n,\n\t\n\r\nword\n"}, {"word"}, 6, {5}},
      {"byte-order mark", {"\uFEFFword\n"}, {"word"}, 1, {}},
      {"byte-order mark before an accent", {"\xEF\xBB\xBF\xC3\x89t\xC3\xA9\r\n"}, {"ete"}, 1, {}},
      {"UTF-8", {"\xC3\xA9t\xC3\xA9\nna\xC3\xAFve\n\xC3\x85ngstr\xC3\xB6m\n"}, {"angstrom", "ete", "naive"}, 3, {}},
      {"Latin-1", {"\xE9t\xE9\nna\xEFve\n\xC5ngstr\xF6m\n"}, {"angstrom", "ete", "naive"}, 3, {}},
      {"each list has its own encoding", {"\xE9t\xE9\n", "caf\xC3\xA9\n"}, {"cafe", "ete"}, 2, {}},
      {"letters that become two",
       {"stra\u00DFe\n\u00E6on\n\u0153uvre\n\u00DEor\n"},
       {"aeon", "oeuvre", "strasse", "thor"},
       4,
       {}},
      {"letters beyond Latin-1",
       {"\u0141\u00F3d\u017A\n\u010Das\n\u0218i\n\u1EA1\u1EF9\u1E9E\n\u0195\n"},
       {"ayss", "cas", "lodz", "si"},
       5,
       {0, 0, 1}},
      {"accents behind their letters", {"e\xCC\x81te\xCC\x81\n"}, {"ete"}, 1, {}},
      {"other characters", {"can't\nco-op\nx2\n\u03B1\u03B2\n3\u00D74\nab\u20AC\nok\n"}, {"ok"}, 7, {0, 0, 6}},
      {"other characters in Latin-1", {"a\xD7z\na\xF7z\na\xA0z\na\x9Cz\n"}, {}, 4, {0, 0, 4}},
      {"longest word", {ninety + "\n" + ninety + "y\n"}, {ninety}, 2, {0, 1}},
      {"too long once folded", {std::string(89, 'x') + "\xC3\x9F\n"}, {}, 1, {0, 1}},
  };
  for (const auto& [name, lists, words, lines, left] : cases) {
    SCOPED_TRACE(name);
    LexiconMaker maker;
    for (const std::string& list : lists) {
      maker.AddList(list);
    }
    EXPECT_EQ(maker.Finish(), words);
    EXPECT_EQ(maker.LinesRead(), lines);
    for (const LeftOut reason : {LeftOut::Empty, LeftOut::TooLong, LeftOut::OtherCharacters, LeftOut::Repeated}) {
      EXPECT_EQ(maker.Left(reason).count, left[static_cast<size_t>(reason)]) << DescriptionOf(reason);
    }
  }
}

TEST(LexiconMaker, AFullDiskIsAnError) {
  const auto error = WriteLexiconFile("/dev/full", {"ab", "cd"});
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Text(), "/dev/full: No space left on device");
}

}  // namespace
}  // namespace quorvane::test
