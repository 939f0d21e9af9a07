// What the program writes where: words in their formats, files, pipes, a terminal, and all of these when they fail.

#include <string>

#include "tests/cli/command_line.h"

namespace quorvane::test {
namespace {

using namespace std::string_literals;

TEST_F(CommandLine, ManySearchesKeepTheirLexicon) {
  // Two pipes in step: between two patterns the file is rewritten in place, then emptied.
  const Row row = {
      "mkfifo in out; q find - <in >out & exec 3>in 4<out; try() { echo '?t' >&3; read word <&4; echo $word; }; try; "
      "printf 'xx\\r\\nyy\\r\\n' 1<>words.lex; try; : >words.lex; try; exec 3>&-; cat <&4; wait $!",
      0, "at\nat\nat\n", "1 word found\n1 word found\n1 word found\n"};
  Try(row);
}

TEST_F(CommandLine, ALexiconThatVanishesDuringOneSearchIsAnError) {
  // The program is stuck in writing to the pipe when the file is emptied.
  const Result result =
      Run("seq 140000 | sed s/^/abcdefgh/ >big.lex; mkfifo pipe; q find '*' --lexicon big.lex --save pipe >out & "
          "exec 3<pipe; : >big.lex; cat <&3 >all; wait $!");
#ifdef __SANITIZE_ADDRESS__  // Nothing is mapped then.
  EXPECT_EQ(result.status, 0);
#else
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.err.find("quorvane-cli: the lexicon file was shortened"), std::string::npos) << result.err;
#endif
}

TEST_F(CommandLine, ManySearchesEndWithTheirReader) {
  // More lines than the pipe between the two holds.
  const Row row = {
      "trap '' PIPE; yes at | head -300000 | q find - 2>err | head -1; test $(wc -l <err) -lt 300000; echo $?", 0,
      "at\n0\n", "..."};
  Try(row);
}

TEST_F(CommandLine, AStreamGoesOnBehindWhatItCanNotRead) {
  directory_.Write(
      "bad",
      "{\"id\": 1, \"pattern\": \"c?t\", \"and\": \"*a*\", \"limit\": 1}\nc?t\r\n\nt\0ea\n[1]\n"
      "{\"id\": \"x\", \"pattern\": 5}\n{\"id\": [1]}\n{\"id\": 2, \"lexicon\": \"words\"}\n{\"with\": []}\n"
      "{\"pattern\": \"*\", \"with\": [\"b\", 1]}\n{\"pattern\": \"c\0t\"}\n{\"pattern\": \"\xFF\"}\n"
      "{\"pattern\": \"a\", \"limit\": -1}\n{\"pattern\": \"a\", \"type\": \"x\"}\n{\"not\": \"*e*\", \"count\": "
      "true}\n{\"pattern\": \"~1\", \"seed\": -1}\n{\"pattern\": \"a&t\", \"explain\": true}\n{\"pattern\": "
      "\"a&t\", \"strict\": true}\n{\"pattern\": \"at"s);
  const Row rows[] = {
      {"q find --stream <bad | tr '\"' '`' | sed 's/line 1.*`}/...`}/'", 0,
       "{`id`: 1, `pattern`: `c?t`, `count`: 1, `words`: [`cat`]}\n{`pattern`: `c?t`, `count`: 2, `words`: [`cat`, "
       "`cut`]}\n"
       "{`error`: `Please enter a word selection.`}\n{`pattern`: `t\\u0000ea`, `text`: `tea`, `count`: 1, `words`: "
       "[`tea`]}\n"
       "{`pattern`: `[1]`, `text`: `1`, `count`: 0, `words`: []}\n{`id`: `x`, `error`: `'pattern' takes a text`}\n"
       "{`error`: `'id' takes a text or a number`}\n{`id`: 2, `error`: `there is no key 'lexicon'`}\n"
       "{`error`: `there is no pattern`}\n{`error`: `'with' takes a text`}\n"
       "{`error`: `parse error at ...`}\n{`error`: `parse error at ...`}\n"
       "{`error`: `--limit: '-1' is no whole number from 0`}\n"
       "{`error`: `--type: 'x' is none of word, palindrome, anagram and exact`}\n{`pattern`: `*`, `count`: 7}\n"
       "{`error`: `'seed' takes a number from 0 to 4294967295`}\n"
       "{`pattern`: `a&t`, `text`: `at`, `reading`: `the word at`, `count`: 1, `words`: [`at`]}\n"
       "{`error`: `--strict: only 'at' of the pattern can be searched`}\n{`error`: `parse error at ...`}\n",
       ""},
      {"q find --stream <bad >/dev/null", 2, "", ""},
      {"echo cat | q find --stream >/dev/full", 2, "", "quorvane-cli: standard output: No space left on device\n"},
      {"q find --stream </", 2, "", "quorvane-cli: can't read standard input: Is a directory\n"},
      {"q find --stream cat", 2, "", "...PATTERN excludes --stream"},
      {"q find --stream --words - </dev/null", 2, "",
       "quorvane-cli: standard input is either the patterns or the list\n"},
      {"printf 'c?t\\na**\\nzzz\\n' | q find - --between -- 2>/dev/null", 2, "cat\ncut\n--\n--\n", ""},
      {"q find cat --between=", 2, "", "quorvane-cli: --between goes with find - only, and not with --json\n"},
  };
  Try(rows);
#ifdef __SANITIZE_ADDRESS__  // It takes memory of its own.
  const std::string little;
#else
  const std::string little = "ulimit -v 200000; ";
#endif
  Try({("(head -c 100000000 /dev/zero; echo; echo cat) | (" + little + "q find --stream)").c_str(), 2,
       "{\"error\": \"the line has more than 1,048,576 characters\"}\n"
       "{\"pattern\": \"cat\", \"count\": 1, \"words\": [\"cat\"]}\n",
       ""});
  // An answer comes before the next request is sent; a reader that goes away ends the stream.
  const Result result =
      Run("mkfifo in out; q find --stream <in >out & exec 3>in 4<out\n"
          "for word in cat at; do echo $word >&3; read -r answer <&4; echo \"$answer\"; done\n"
          "exec 4<&-; trap '' PIPE; while echo cat >&3 2>/dev/null; do :; done; wait $!; echo $?");
  EXPECT_EQ(result.out,
            "{\"pattern\": \"cat\", \"count\": 1, \"words\": [\"cat\"]}\n"
            "{\"pattern\": \"at\", \"count\": 1, \"words\": [\"at\"]}\n141\n");
}

TEST_F(CommandLine, FormatsAndLimits) {
  directory_.Write("odd.lex", "a,b\r\na\"b\r\na\tb\r\n");
  const Row rows[] = {
      {"q find 'c?t' --format csv", 0, "word,length\r\ncat,3\r\ncut,3\r\n", "2 words found\n"},
      {"q find 'caf?' --format tsv --upper", 0, "word\tlength\nCAF\u00C9\t4\n", "1 word found\n"},
      {"q find 'a*' --format comma --sort long", 0, "abba, ate, at\n", "3 words found\n"},
      {"q find 'x*' --format comma", 1, "\n", "0 words found\n"},
      {"q find 'a?b' --format csv --lexicon odd.lex", 0, "word,length\r\n\"a,b\",3\r\n\"a\"\"b\",3\r\na\tb,3\r\n",
       "..."},
      {"printf 'x*\nat\n;\nz*\n' | q find - --format csv 2>err", 2, "word,length\r\nat,2\r\nzoo,3\r\n", ""},
      {"q find 'a*' --limit 2 --save out.txt --save-lexicon out.lex && tail -2 out.txt && cat out.lex", 0,
       "Abba\nat\nate\r\n--- END OF LIST ---\r\nAbba\r\nat\r\nate\r\n", "3 words found\n"},
      {"q find 'a*' --limit 4 --sort short", 0, "at\nate\nabba\n", "3 words found\n"},
      {"q find 'a*' --limit 1 --count", 0, "3\n", "3 words found\n"},
      {"q find 'a*' --limit 0 --format csv", 0, "", "3 words found\n"},
      {"q find 'a*' --limit 1 --json | sed '1d; s/.*count/count/; s/\"ms.*, //'", 0,
       "count\": 3, \"status\": \"3 words found\", \"words\": [\"Abba\"]}\n", "3 words found\n"},
      {"q find a --limit -1", 2, "", "quorvane-cli: --limit: '-1' is no whole number from 0\n"},
      {"q find a --limit 3x", 2, "", "quorvane-cli: --limit: '3x' is no whole number from 0\n"},
      {"q find a --format xml", 2, "", "quorvane-cli: --format: 'xml' is none of lines, csv, tsv and comma\n"},
      {"q find a --format comma --json", 2, "", "quorvane-cli: --format comma does not go with --json\n"},
  };
  Try(rows);
}

TEST_F(CommandLine, ThePatternsOwnLettersAreBold) {
  // + and - stand for what switches bold on and off.
  directory_.Write("bold.sh", "\"$Q\" find --color always \"$@\" 2>/dev/null | sed 's/\x1b.1m/+/g; s/\x1b.0m/-/g'");
  directory_.Write("tea.lex", "tea\r\n");
  directory_.Write("middle.lex", "banana\r\ncabbage\r\nSassen\r\n");
  const Row rows[] = {
      {"sh bold.sh 'c?t'", 0, "+c-a+t-\n+c-u+t-\n", ""},
      {"sh bold.sh 'L*n' --upper", 0, "+L-ISTE+N-\n", ""},
      {"sh bold.sh '*an*' --lexicon middle.lex", 0, "b+an-ana\n", ""},
      {"sh bold.sh 's*1e*' --lexicon middle.lex", 0, "+S-ass+e-n\n", ""},
      {"sh bold.sh '*n1*1' --lexicon middle.lex", 0, "ba+n-ana\n", ""},
      {"sh bold.sh '*ab*a?e' --lexicon middle.lex", 0, "c+ab-b+a-g+e-\n", ""},
      {"for p in ';ea' '%1ea'; do q find --lexicon tea.lex --color always $p 2>err; done", 0, "tea\ntea\n", ""},
      {"q find --type exact --color always tea 2>err; q find --format comma --color always tea 2>err", 0,
       "ate\neat\ntea\ntea\n", ""},
      {"q find 'z*' --color never 2>err; q find 'z*' 2>err", 0, "zoo\nzoo\n", ""},
      {"t() { script -qec \"'$Q' find 'zo*' 2>err\" /dev/null; }; t; NO_COLOR=1 t; NO_COLOR= t; TERM=dumb t", 0,
       "\x1b[1mzo\x1b[0mo\r\nzoo\r\n\x1b[1mzo\x1b[0mo\r\nzoo\r\n", ""},
      {"q find a --color on", 2, "", "quorvane-cli: --color: 'on' is none of auto, always and never\n"},
  };
  Try(rows);
}

TEST_F(CommandLine, SavesToPipesAndOpenFiles) {
  directory_.Write("all.sh", "seq 140000 | sed s/^/abcdefgh/ >big");
  const char* saved =
      "2 words found matching the word pattern \"c?t\"\n\n--- START OF LIST ---\ncat\ncut\n--- END OF LIST ---\n";
  const std::string both = saved + std::string("cat\ncut\n");
  const std::string all = "2 words found\n" + std::string(saved);
  const Row rows[] = {
      {"sh all.sh; bash -c '\"$Q\" find \"*\" --lexicon big --save >(gzip >x) >all; wait $!'; cmp all big; "
       "gzip -dc x | tr -d '\\r' | sed '1,3d;$d' | cmp - big",
       0, "", "140000 words found\n"},
      {"bash -c '\"$Q\" find \"*\" --lexicon big --save >(head -1 >x) >all; echo $?'; cmp all big", 0, "2\n",
       "...: Broken pipe\n"},
      {"q find 'c?t' --save /dev/stdout >x; tr -d '\\r' <x", 0, both.c_str(), "2 words found\n"},
      {"q find 'c?t' --save /dev/stdout | tr -d '\\r'", 0, both.c_str(), "2 words found\n"},
      {"q find 'c?t' --save /dev/stderr 2>x; tr -d '\\r' <x >&2", 0, "cat\ncut\n", all.c_str()},
  };
  Try(rows);
}

TEST_F(CommandLine, Saves) {
  const struct {
    const char *command, *file, *bytes;
    int status = 0;
  } cases[] = {
      {"q find 'a*' --sort long --upper --save home/out.txt", "home/out.txt",
       "3 words found matching the word pattern \"a*\"\r\n\r\n--- START OF LIST ---\r\nABBA\r\nATE\r\nAT\r\n"
       "--- END OF LIST ---\r\n"},
      {"q find '%1Ss>' --save out.txt", "out.txt", "0 sequenced words found (1 or more of 'Ss')\r\n", 1},
      {"q find 'c*' --save-lexicon new.lex && q lexicon check new.lex", "new.lex",
       "can't\r\ncaf\xE9\r\ncat\r\ncut\r\n"},
  };
  for (const auto& [command, file, bytes, status] : cases) {
    SCOPED_TRACE(command);
    EXPECT_EQ(Run(command).status, status);
    EXPECT_EQ(ReadFile(directory_.File(file)), bytes);
  }
  const Row failures[] = {
      {"q find at --save none/out.txt", 2, "at\n",
       "1 word found\nquorvane-cli: can't write none/out.txt: No such file or directory\n"},
      {"q find at --save home", 2, "at\n", "1 word found\nquorvane-cli: can't write home: Is a directory\n"},
      {"q find at --save /dev/full --save-lexicon home", 2, "at\n",
       "1 word found\nquorvane-cli: can't write /dev/full: No space left on device\n"
       "quorvane-cli: can't write home: Is a directory\n"},
      {"q find at --save none/out.txt --save-lexicon at.lex 2>/dev/null; cat at.lex", 0, "at\nat\r\n", ""},
      {"q find 'x*' --save-lexicon words.lex", 2, "",
       "0 words found\nquorvane-cli: no word was found; words.lex was not written\n"},
      {"q find '~2' --save-lexicon words.lex", 2, "", "...random words can't be saved as a lexicon"},
      {"q find at --save= --count", 2, "", "...--save: needs a value"},
      {"q find ';' --save out2.txt; ls out2.txt", 2, "", "...No such file"},
  };
  Try(failures);
  EXPECT_EQ(ReadFile(directory_.File("words.lex")), kWords);
}

TEST_F(CommandLine, OutputThatFails) {
  ASSERT_EQ(Run("yes abcdefghijklmnop | head -40000 | awk '{print $0 NR}' >big.lex").status, 0);
  for (const char* command : {"find '*'", "find '*' --count", "find '*' --json", "find '*' --lexicon big.lex", "stats",
                              "explain a", "lexicon check words.lex", "lexicon check words.lex --json"}) {
    SCOPED_TRACE(command);
    const Result full = Run("q " + std::string(command) + " >/dev/full");
    EXPECT_EQ(full.status, 2);
    EXPECT_NE(full.err.find("standard output: No space left on device"), std::string::npos) << full.err;
    EXPECT_EQ(Run("q " + std::string(command) + " >&-").status, 2);
  }
  // A reader that has gone, for a program that is told by a signal and for one that is told by an error.
  for (const char* trap : {"", "trap '' PIPE; "}) {
    const Result closed = Run(trap + std::string("q find '*' --lexicon big.lex | head -1"));
    EXPECT_EQ(closed.out, "abcdefghijklmnop1\n");
    EXPECT_EQ(closed.err.find("quorvane-cli"), std::string::npos) << closed.err;
  }
}

TEST_F(CommandLine, HelpThatCanNotBeWrittenIsAnError) {
  for (const char* command : {"q --version >/dev/full", "q find --help >/dev/full"}) {
    EXPECT_EQ(Run(command).status, 2) << command;
  }
}

}  // namespace
}  // namespace quorvane::test
