// The command line as a script uses it: the real program, run by a shell.

#include <algorithm>
#include <filesystem>

#include "tests/cli/command_line.h"

namespace quorvane::test {
namespace {

namespace fs = std::filesystem;

// JSON as the rows below hold it: without its times, and with ` for ".
std::string Plain(std::string json) {
  constexpr std::string_view kTime = "ms`: ";
  std::replace(json.begin(), json.end(), '"', '`');
  for (size_t at = json.find(kTime); at != std::string::npos; at = json.find(kTime, at + 1)) {
    const size_t number = at + kTime.size();
    const size_t length = json.find_first_not_of("0123456789.", number) - number;
    json.replace(number, length, length > 0 ? "T" : "");
  }
  return json;
}

// The same number `count` times, parted as in JSON.
std::string Repeat(int count, const std::string& number) {
  std::string list = number;
  for (; count > 1; --count) {
    list += ", " + number;
  }
  return list;
}

TEST_F(CommandLine, Finds) {
  const Row rows[] = {
      {"q find 'c?t'", 0, "cat\ncut\n", "2 words found\n"},
      {"q find 'x*'", 1, "", "0 words found\n"},
      {"q find CAT --count", 0, "1\n", "1 word found\n"},
      {"q find --length 2 '*'", 0, "at\n", "1 word found  (of length 2 letters)\n"},
      {"q find '*' --length=4-5", 0, "Abba\ncan't\ncaf\xE9\nlevel\n", "4 words found  (of 4 to 5 letters in length)\n"},
      {"q find 'a*' --sort long", 0, "abba\nate\nat\n", "3 words found\n"},
      {"q find 'a*' --sort=long --upper", 0, "ABBA\nATE\nAT\n", "3 words found\n"},
      {"q find 'caf?' --upper", 0, "CAF\xC9\n", "1 word found\n"},
      {"q find tea --type anagram", 0, "at\nate\neat\ntea\n", "4 full anagrams found\n"},
      {"q find listen --type=exact", 0, "listen\nsilent\n", "2 exact-length anagrams found\n"},
      {"q find '%2e'", 0, "level\ntee\n", "2 sequenced words found\n"},
      {"q find '#at'", 0, "cat\neat\n", "2 words found\n"},
      {"q find '#at' --include bC", 0, "cat\n", "1 word found\n"},
      {"q find '!at' --exclude=C", 0, "eat\n", "1 word found\n"},
      {"q find '=ea' --rack T", 0, "tea\n", "1 word found\n"},
      {"q find '==' --rack='-?'", 0, "at\n", "1 word found\n"},
      {"q find '?t' --include= --exclude= --rack=", 0, "at\n", "1 word found\n"},
      {"q find --include= --exclude= --rack= '#t'", 1, "", "0 words found\n"},
      {"q find --include '' --exclude '' --rack '' '!t'", 0, "at\n", "1 word found\n"},
      {"q find -- -t", 0, "at\n", "1 word found\n"},
      {"q find 'c&a t'", 0, "cat\n", "pattern 'c&a t' was read as 'cat'\n1 word found\n"},
      {"q find 'caf\xE9'", 1, "", "pattern 'caf\xE9' was read as 'caf'\n0 words found\n"},
      {"q find '~12345' --count >/dev/null", 0, "", "...pattern '~12345' was read as '~1234'\n"},
      {"q find cat --time", 0, "cat\n", "...1 word found\nTime = 0.0"},
      {"cat words.lex | q find 'c?t' --lexicon /dev/stdin", 0, "cat\ncut\n", "2 words found\n"},
      {"seq 140000 | sed s/^/abcdefgh/ | tee big | q find '*' --lexicon /dev/stdin --save out >all; cmp all big; "
       "tr -d '\\r' <out | tail -n +4 | head -n -1 | cmp - big",
       0, "", "140000 words found\n"},
  };
  Try(rows);
}

TEST_F(CommandLine, Refuses) {
  const Row rows[] = {
      {"q find ''", 2, "", "quorvane-cli: Please enter a word selection.\n"},
      {"q find '' --type exact", 2, "", "quorvane-cli: Please enter an anagram selection (no wildcards).\n"},
      {"q find ';'", 2, "", "quorvane-cli: ';' allows selection of letter(s) in a word\n"},
      {"q find '%2'", 2, "", "quorvane-cli: Enter up to 8 letters, followed by an optional '>'\n"},
      {"q find '%x1'", 2, "", "quorvane-cli: '%' allows selection on sequences - enter a number\n"},
      {"q find 'a?' --type anagram", 2, "", "...'a?' can't be searched with --type anagram"},
      {"q find aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa --type exact", 2, "",
       "quorvane-cli: Error #9 processing word '' (Subscript out of range)\n"},
      {"q find -t", 2, "", "...a pattern that begins with - stands behind --"},
      {"q find --at", 2, "", "...a pattern that begins with - stands behind --"},
      {"q find a --type words", 2, "", "...--type: 'words'"},
      {"q find a --length 0", 2, "", "...--length: '0'"},
      {"q find a --length 5-3", 2, "", "...--length: '5-3'"},
      {"q find a --sort size", 2, "", "...--sort: 'size'"},
      {"q find a --include a1", 2, "", "...--include: '1' in 'a1' is not allowed"},
      {"q find a --include abca", 2, "", "...--include: 'a' stands more than once"},
      {"q find a --rack 'a b'", 2, "", "...--rack: ' ' in 'a b' is not allowed"},
      {"q find a --seed x", 2, "", "...--seed"},
      {"q find 'c&t' --strict", 2, "", "quorvane-cli: --strict: only 'ct' of the pattern can be searched\n"},
      {"for c in find explain; do q $c $(yes a | head -32768 | tr -d '\\n'); done", 2, "",
       "quorvane-cli: the pattern has 32,768 characters, more than the 32,767 that can be searched\n"
       "quorvane-cli: the pattern has 32,768 characters, more than the 32,767 that can be searched\n"},
      {"q find $(yes a | head -32767 | tr -d '\\n')", 1, "", "0 words found\n"},
      {"q find", 2, "", "...PATTERN"},
      {"q find a --nonsense", 2, "", "...--nonsense"},
      {"q", 2, "", "...required"},
      {"q find a --lexicon ./none.lex", 2, "", "..../none.lex: There appears to be a problem with the Lexicon file"},
      {"q find a --lexicon .", 2, "", "...(error 75, Path/File access error)"},
      {": >empty.lex; q find a --lexicon empty.lex", 2, "", "...Word #0 '' (error 62, Input past end of file)"},
  };
  Try(rows);
}

TEST_F(CommandLine, FindsEachLineOfStandardInput) {
  const Row rows[] = {
      {"printf 'c?t\\r\\nx*\\nz*' | q find -", 0, "cat\ncut\nzoo\n", "2 words found\n0 words found\n1 word found\n"},
      {"printf 'at\\n;\\nz*\\n' | q find -", 2, "at\nzoo\n",
       "1 word found\nquorvane-cli: line 2, ';': ';' allows selection of letter(s) in a word\n1 word found\n"},
      {"(yes a | head -32768 | tr -d '\\n'; printf '\\nat\\n') | q find -", 2, "at\n",
       "quorvane-cli: line 1: the pattern has 32,768 characters, more than the 32,767 that can be searched\n"
       "1 word found\n"},
      {"printf 'a&t\\nat\\n' | q find - --strict", 2, "at\n",
       "quorvane-cli: line 1, 'a&t': --strict: only 'at' of the pattern can be searched\n1 word found\n"},
      {"printf 'at\\n\\n' | q find -", 2, "at\n",
       "1 word found\nquorvane-cli: line 2, '': Please enter a word selection.\n"},
      {"printf '' | q find -", 1, "", ""},
      {"q find - <home", 2, "", "quorvane-cli: can't read standard input: Is a directory\n"},
      {"printf 'c?t\\nx*\\na*\\n' | q find - --count", 0, "2\n0\n3\n", "2 words found\n0 words found\n3 words found\n"},
      {"printf 'tea\\n' | q find - --type exact --length 3", 0, "ate\neat\ntea\n",
       "3 exact-length anagrams found  (of length 3 letters)\n"},
      {"printf 'at\\n' | q find - --save out.txt; s=$?; ls out.txt; exit $s", 2, "", "...find -"},
  };
  Try(rows);
}

TEST_F(CommandLine, Json) {
  directory_.Write("odd.lex", "a\x80\r\na\x81\r\na\x8D\r\na\x8F\r\na\x90\r\na\x9D\r\na\"\r\na\\\r\na\t\r\n");
  const struct {
    const char* command;
    int status;
    const char* lines;  // Without the first.
  } cases[] = {
      {"q find 'C-t' --json", 0,
       "{`pattern`: `C-t`, `prepared`: `c?t`, `kind`: 0, `count`: 2, `status`: `2 words found`, `ms`: T, "
       "`words`: [`cat`, `cut`]}\n"},
      {"q find 'caf?' --json --upper", 0,
       "{`pattern`: `caf?`, `prepared`: `caf?`, `kind`: 0, `count`: 1, `status`: `1 word found`, `ms`: T, "
       "`words`: [`CAF\u00C9`]}\n"},
      {"q find 'a*t*' --json --count --length 3-4", 0,
       "{`pattern`: `a*t*`, `prepared`: `a*t*`, `kind`: 8, `count`: 1, "
       "`status`: `1 word found  (of 3 to 4 letters in length)`, `ms`: T}\n"},
      {"q find tea --json --count --type anagram", 0,
       "{`pattern`: `tea`, `prepared`: `tea`, `kind`: 9, `count`: 4, `status`: `4 full anagrams found`, `ms`: T}\n"},
      {"q find 'c\"a\\t' --json", 0,
       "{`pattern`: `c\\`a\\\\t`, `prepared`: `cat`, `kind`: 0, `count`: 1, `status`: `1 word found`, `ms`: T, "
       "`words`: [`cat`]}\n"},
      {"printf 'at\\n=\\n%%1z\\n' | q find - --json", 2,
       "{`pattern`: `at`, `prepared`: `at`, `kind`: 0, `count`: 1, `status`: `1 word found`, `ms`: T, "
       "`words`: [`at`]}\n"
       "{`pattern`: `=`, `refused`: `There are no characters defined in the 'Scrabble' string`}\n"
       "{`pattern`: `%1z`, `prepared`: `%1z`, `kind`: 11, `count`: 1, `status`: `1 sequenced word found`, `ms`: T, "
       "`words`: [`zoo`]}\n"},
  };
  for (const auto& [command, status, lines] : cases) {
    SCOPED_TRACE(command);
    const Result result = Run(command);
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(Plain(result.out),
              "{`lexicon`: `" + directory_.path() + "/words.lex`, `words`: 14, `load_ms`: T}\n" + lines);
  }
  EXPECT_EQ(Plain(Run("mv odd.lex 'l\xE9x'; q find 'a?' --json --lexicon 'l\xE9x'").out),
            "{`lexicon`: `l\u00E9x`, `words`: 9, `load_ms`: T}\n"
            "{`pattern`: `a?`, `prepared`: `a?`, `kind`: 0, `count`: 9, `status`: `9 words found`, `ms`: T, `words`: "
            "[`a\u20AC`, `a\u0081`, `a\u008D`, `a\u008F`, `a\u0090`, `a\u009D`, `a\\``, `a\\\\`, `a\\u0009`]}\n");
}

TEST_F(CommandLine, RandomWordsFollowTheSeed) {
  const Result first = Run("q find '~30' --seed 7");
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(Run("q find '~30' --seed 7").out, first.out);
  EXPECT_NE(Run("q find '~30' --seed 8").out, first.out);
  for (const char* command : {"q find '~30'", "q find '~30' --seed 4294967295"}) {
    EXPECT_EQ(Run(std::string(command) + " | tr a-z A-Z | sort -u | while read w; do grep -qi \"^$w\" words.lex "
                                         "|| echo \"$w\"; done")
                  .out,
              "")
        << "words of the lexicon only";
  }
}

TEST_F(CommandLine, Explains) {
  const struct {
    const char *command, *json;
  } cases[] = {
      {"q explain 'a*b*c*d*' --paste",
       "{`text`: `a*b*c`, `typing_kind`: 2, `noun`: `word`, `status`: `A maximum of two asterisks may be entered`, "
       "`letters`: `(min. 3 letters)`, `can_search`: true, `anagrams`: false, `palindrome`: true, "
       "`save_as_lexicon`: true, `beeps`: 12, `prepared`: `a*b*c`, `kind`: 8, "
       "`reading`: `3 letters or more: begins with a, ends with c, holds b from 2nd to 2nd last`, "
       "`command`: `quorvane-cli find -- 'a*b*c'`}"},
      {"q explain '%2sS>' --type palindrome",
       "{`text`: `%2sS>`, `typing_kind`: 11, `noun`: `sequenced word`, "
       "`status`: `Add more letters or an optional '>' (specifies 2 or more)`, "
       "`letters`: `Words with >=2 counts of 'sS'`, `can_search`: true, `anagrams`: false, `palindrome`: false, "
       "`save_as_lexicon`: true, `beeps`: 0, `prepared`: `%2ss>`, `kind`: 11, "
       "`reading`: `ss at least twice, overlaps counted`, `command`: `quorvane-cli find -- '%2sS>'`}"},
      {"q explain Tea= --type exact --rack=",
       "{`text`: `Tea`, `typing_kind`: 0, `noun`: `exact-length anagram`, "
       "`status`: `There are no characters defined in the 'Scrabble' string`, `letters`: `(3 letters)`, "
       "`can_search`: true, `anagrams`: true, `palindrome`: true, `save_as_lexicon`: true, `beeps`: 4, "
       "`prepared`: `tea`, `kind`: 10, `reading`: `all of a e t and no more`, "
       "`command`: `quorvane-cli find --type exact -- Tea`}"},
      {"q explain % --with e",
       "{`text`: `%`, `typing_kind`: 11, `noun`: `sequenced word`, "
       "`status`: `'%' allows selection on sequences - enter a number`, `letters`: ``, `can_search`: false, "
       "`anagrams`: false, `palindrome`: false, `save_as_lexicon`: true, `beeps`: 0, `prepared`: `%`, `kind`: 11, "
       "`conditions`: [`with: e`], `reading`: ``, `command`: ``}"},
  };
  for (const auto& [command, json] : cases) {
    SCOPED_TRACE(command);
    const Result result = Run(command);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Plain(result.out), json + std::string("\n"));
    EXPECT_EQ(result.err, "");
  }
}

TEST_F(CommandLine, ChecksLexicons) {
  directory_.Write("b.lex", "b\r\nmm\r\n");
  directory_.Write("bad.lex", "b\r\n\xE9t\xE9\r\n");
  directory_.Write("unsorted.lex", [] {
    std::string text;
    for (int i = 0; i < 27; ++i) {
      text += i % 2 == 0 ? "a\n" : "b\n";
    }
    return text;
  }());
  EXPECT_EQ(Plain(Run("q lexicon check b.lex --json").out),
            "{`outcome`: `ok`, `message`: ``, `count`: 2, `word`: `mm`, `letter_start`: [" + Repeat(2, "0") + ", " +
                Repeat(11, "1") + ", " + Repeat(14, "2") + ", " + Repeat(4, "0") + "], `length_count`: [0, 1, 1, " +
                Repeat(88, "0") + "]}\n");
  const struct {
    const char* command;
    int status;
    const char* begins;
  } cases[] = {
      {"q lexicon check words.lex", 0, "words.lex: 14 words, usable\n"},
      {"q lexicon check bad.lex --json", 2,
       "{`outcome`: `list_err`, `message`: `There appears to be a problem with the Lexicon file, specifically at the "
       "following point:`, `count`: 2, `word`: `\u00E9t\u00E9`, `letter_start`: [0, "},
      {"q lexicon check bad.lex", 2,
       "bad.lex: There appears to be a problem with the Lexicon file, specifically at "
       "the following point: Word #2 '\xE9t\xE9' (error 9"},
      {"q lexicon check unsorted.lex --json", 2,
       "{`outcome`: `notalpha`, `message`: `Word list is not sorted alphabetically.  You must sort it or use another "
       "list.`, `count`: 27, `word`: `a`, "},
      {"yes ab | head -2000001 >big.lex; q lexicon check big.lex --json", 0,
       "{`outcome`: `capacity`, `message`: `Word list exceeds 2,000,000 words.`, `count`: 2000000, `word`: `ab`, "},
      {"q find '*b' --lexicon big.lex 2>&1", 0, "quorvane-cli: big.lex: Word list exceeds 2,000,000 words.\n"},
      {"head -1500000 big.lex | q find 'ab' --json --lexicon /dev/stdin", 0,
       "{`lexicon`: `/dev/stdin`, `words`: 1500000, "},
      {"q stats --lexicon b.lex", 0, "2 words in b.lex\n\nCount by letter\n    A         0\n    B         1\n"},
      {"q stats --lexicon b.lex | tail -26", 0, "    1         1\n    2         1\n    3         0\n"},
  };
  for (const auto& [command, status, begins] : cases) {
    SCOPED_TRACE(command);
    const Result result = Run(command);
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(Plain(result.out).substr(0, std::string_view(begins).size()), begins);
  }
}

TEST_F(CommandLine, MakesLexicons) {
  directory_.Write("one.txt", "\xEF\xBB\xBFZoo 1\r\n\xC3\x89t\xC3\xA9\r\ncan't\r\nx2\r\nco-op\r\n4\r\n\r\n");
  directory_.Write("two.txt", "zoo\ncaf\xE9\tx\n" + std::string(91, 'a'));
  directory_.Write("old.lex", "old\r\n");
  const std::string report =
      "10 lines: 2 words, 1 cut to the first word ('Zoo 1' becomes zoo), 1 repeated ('zoo'), 6 left out: 1 empty, "
      "1 longer than 90 letters ('" +
      std::string(60, 'a') + "...'), 4 with characters other than letters ('can't', 'x2', 'co-op')\n";
  const Row rows[] = {
      {"q lexicon make one.txt two.txt -o old.lex && cat old.lex", 0, "cafe\r\nete\r\nzoo\r\n", report.c_str()},
      {"printf 'b\\na\\n' | q lexicon make - two.txt -o new.lex 2>err && cat new.lex", 0, "a\r\nb\r\ncafe\r\nzoo\r\n",
       ""},
      {"q lexicon make - -o old.lex <home", 2, "", "quorvane-cli: can't read standard input: Is a directory\n"},
      {"q lexicon make none.txt -o old.lex", 2, "", "quorvane-cli: can't read none.txt: No such file or directory\n"},
      {"q lexicon make . -o old.lex", 2, "", "quorvane-cli: can't read .: Is a directory\n"},
      {"q lexicon make one.txt -o /dev/full", 2, "", "...can't write /dev/full: No space left on device\n"},
      {"echo 4 >four.txt; q lexicon make four.txt -o old.lex", 2, "", "...nothing was written\n"},
      {"seq 2000001 | tr 0-9 a-j | q lexicon make /dev/stdin -o old.lex", 2, "",
       "2,000,001 lines: 2,000,001 words\n"
       "quorvane-cli: 2,000,001 words are more than a lexicon holds (2,000,000); nothing was written\n"},
  };
  Try(rows);
  EXPECT_EQ(ReadFile(directory_.File("old.lex")), "cafe\r\nete\r\nzoo\r\n") << "a failure leaves what was there";
}

TEST_F(CommandLine, LexiconsByName) {
  for (const char* file : {"data/gb.lex", "data/gb", "data/fr", "gb.lex/here", "here"}) {
    fs::create_directories(fs::path(directory_.File(file)).parent_path());
    directory_.Write(file,
                     std::string(file) == "data/gb.lex" ? "first\r\n" : fs::path(file).filename().string() + "\r\n");
  }
  const Row rows[] = {
      {"q find '*' --lexicon gb --data-dir data", 0, "first\n", "1 word found\n"},
      {"q find '*' --lexicon fr --data-dir data", 0, "fr\n", "1 word found\n"},
      {"q find '*' --lexicon here --data-dir gb.lex", 0, "here\n", "1 word found\n"},
      {"cd data; q stats --lexicon words | head -1 | sed 's: in .*/: in :'", 0, "14 words in words.lex\n", ""},
      {"q find '*' --lexicon it --data-dir data", 2, "",
       "quorvane-cli: can't read it: No such file or directory\nlexicons of the program's directory: gb.lex\n"},
      {"q stats --lexicon it --data-dir home", 2, "",
       "quorvane-cli: can't read it: No such file or directory\nlexicons of the program's directory: none\n"},
  };
  Try(rows);
}

TEST_F(CommandLine, TheProgramsDirectory) {
  for (const char* name : {"app/bin", "app/share/quorvane", "data", "env"}) {
    fs::create_directories(directory_.File(name));
  }
  const std::string program = directory_.File("app/bin/quorvane-cli");
  fs::copy_file(QUORVANE_CLI, program);
  directory_.Write("app/share/quorvane/words.lex", "installed\r\n");
  directory_.Write("data/words.lex", "data\r\n");
  directory_.Write("env/words.lex", "env\r\n");
  const struct {
    const char* command;
    int status;
    const char* out;
  } cases[] = {
      {"QUORVANE_DIR=env q find '*' --data-dir data; ls home", 0, "data\n"},
      {"QUORVANE_DIR= XDG_DATA_HOME=$PWD/home q find '*'; ls home/quorvane", 0, "installed\nwords.lex\n"},
      {"echo mine >home/quorvane/words.lex; QUORVANE_DIR= XDG_DATA_HOME=$PWD/home q find '*'", 0, "mine\n"},
      {"QUORVANE_DIR= q find '*'; ls home/.local/share/quorvane", 0, "installed\nwords.lex\n"},
      {"cp data/words.lex app/bin; QUORVANE_DIR= q find '*'; rm app/bin/words.lex", 0, "data\n"},
      {"QUORVANE_DIR=none q find '*'", 2, ""},
      {"QUORVANE_DIR= XDG_DATA_HOME=$PWD/words.lex q find '*'", 2, ""},
  };
  for (const auto& [command, status, out] : cases) {
    SCOPED_TRACE(command);
    const Result result = Run(command, program);
    EXPECT_EQ(result.status, status) << result.err;
    EXPECT_EQ(result.out, out);
  }
  EXPECT_FALSE(fs::exists(directory_.File("none")));
  EXPECT_NE(Run("QUORVANE_DIR= XDG_DATA_HOME=$PWD/words.lex q find '*'", program).err.find("Not a directory"),
            std::string::npos);
}

}  // namespace
}  // namespace quorvane::test
