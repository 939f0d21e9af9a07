// The commands about word lists and the history, run by a shell.

#include <sys/stat.h>

#include "tests/cli/command_line.h"

namespace quorvane::test {
namespace {

using Lists = CommandLine;

constexpr const char* kTable = "Word;Count\n\"ice cream\";1\nNew York;2\nCaf\u00E9;3\ncafe;4\n";

TEST_F(Lists, MakeTakesColumnsSeparatorsHeadingsAndPhrases) {
  directory_.Write("t.csv", kTable);
  directory_.Write("old.lex", "old\r\n");
  directory_.Write("a.gz", "\x1F\x8B");
  const Row rows[] = {
      {"q lexicon make t.csv -o a.lex && cat a.lex", 0, "cafe\r\nnew\r\nword\r\n",
       "5 lines: 2 words, 1 cut to the first word ('New York' becomes new), 1 repeated ('cafe'), 1 left out: 1 with "
       "characters other than letters ('\"ice cream\"')\n"},
      {"q lexicon make --phrases join --heading - -o a.lex <t.csv && cat a.lex", 0, "cafe\r\nicecream\r\nnewyork\r\n",
       "5 lines: 1 word, 2 joined ('ice cream' becomes icecream, 'New York' becomes newyork), 1 heading "
       "('Word;Count'), 1 repeated ('cafe')\n"},
      {"printf 'a,Sea\\nb\\n' | q lexicon make --column 2 --separator , - -o a.lex && cat a.lex", 0, "sea\r\n",
       "2 lines: 1 word, 1 left out: 1 without that column ('b')\n"},
      {"q lexicon make --column 3 t.csv -o old.lex", 2, "", "...quorvane-cli: no word was kept; nothing was written\n"},
      {"q lexicon make --column 0 t.csv -o old.lex", 2, "", "quorvane-cli: --column: columns are counted from 1\n"},
      {"q lexicon make --separator x t.csv -o old.lex", 2, "",
       "quorvane-cli: --separator: 'x' is none of auto, any, blank, tab, comma, semicolon and none\n"},
      {"q lexicon make --phrases all t.csv -o old.lex", 2, "",
       "quorvane-cli: --phrases: 'all' is none of skip, join and first\n"},
      {"q lexicon make a.gz -o old.lex", 2, "",
       "quorvane-cli: can't read a.gz: it is compressed (gzip); unpack it first, with gunzip\n"},
      {"truncate -s 3G big; q lexicon make big -o old.lex", 2, "",
       "quorvane-cli: can't read big: it is larger than 1 GB, the most that a lexicon is made of\n"},
      {"cat old.lex", 0, "old\r\n", ""},
  };
  Try(rows);
}

TEST_F(Lists, FindAndHasTakeListsInAnyOrder) {
  directory_.Write("b.txt", "Zebra\nant\nzoo\nbee\nAce\nzeal\n");
  directory_.Write("mixed.lex", "cat\r\napple\r\ndog\r\nCAB\r\nabc\r\n");
  const Row rows[] = {
      {"q find --words b.txt 'z*'", 0, "zeal\nzebra\nzoo\n", "6 lines: 6 words\n3 words found\n"},
      {"echo zulu | q find --words b.txt --words - 'z*u*' 2>&1", 0, "7 lines: 7 words\n1 word found\nzulu\n", ""},
      {"q find --words none.txt a", 2, "", "quorvane-cli: can't read none.txt: No such file or directory\n"},
      {"q find --words - -", 2, "", "quorvane-cli: standard input is either the patterns or the list\n"},
      {"q find --words b.txt --lexicon words.lex a", 2, "", "...excludes"},
      {"q has ABBA cut 2>&1", 0, "ABBA: yes\ncut: yes\n", ""},
      {"q has --lexicon mixed cab apple cat bat", 1, "cab: yes\napple: yes\ncat: yes\nbat: no\n", ""},
      {"printf 'ace\\r\\nnone\\n\\n' | q has --words b.txt - zoo 2>&1", 1,
       "6 lines: 6 words\nace: yes\nnone: no\n: no\nzoo: yes\n", ""},
      {"q has --words - -", 2, "", "quorvane-cli: standard input is either the words or the list\n"},
      {"q has --lexicon none word", 2, "", "...can't read none"},
      {"printf 'b\\n\\n' >bad.lex; q lexicon list", 0, "        5  mixed.lex\n       14  words.lex\n", "...bad.lex: "},
      {"q lexicon list --data-dir home", 1, "", ""},
  };
  Try(rows);
}

TEST_F(Lists, TheHistoryIsListedAndItsNamedSearchesRun) {
  const std::string lines =
      "{\"v\":1,\"pattern\":\"c?t\",\"time\":\"T1\",\"lexicon\":\"words.lex\",\"count\":2}\n"
      "no record\n"
      "{\"v\":1,\"pattern\":\"te*\",\"time\":\"T2\",\"lexicon\":\"words.lex\",\"count\":2,\"upper\":true,"
      "\"sort\":\"long\",\"length\":\"3\",\"name\":\"my \\\"t\\\"\"}\n";
  directory_.Write("history.jsonl", lines);
  const char* unreadable = "quorvane-cli: 1 line of the history can't be read; what the file holds is kept\n";
  const std::string found = std::string(unreadable) + "2 words found  (of length 3 letters)\n";
  const Row rows[] = {
      {"q history", 0, "T1  c?t  (word; 2 in words.lex)\nT2  te*  (word, of length 3-3; 2 in words.lex)  'my \"t\"'\n",
       unreadable},
      {"q history --json 2>/dev/null | head -1", 0,
       "{\"count\":2,\"exclude\":\"\",\"include\":\"\",\"lexicon\":\"words.lex\",\"pattern\":\"c?t\",\"rack\":\"\","
       "\"sort\":\"alpha\",\"time\":\"T1\",\"type\":\"word\",\"upper\":false,\"v\":1}\n",
       ""},
      {"q find --named 'my \"t\"'", 0, "TEA\nTEE\n", found.c_str()},
      {"q find --named none", 2, "", "...no search is named 'none' in "},
      {"q find --named x c?t", 2, "", "...excludes"},
      {"q find", 2, "", "PATTERN is required\nRun with --help for more information.\n"},
      {"q history --data-dir home", 1, "", ""},
  };
  Try(rows);
  EXPECT_EQ(ReadFile(directory_.File("history.jsonl")), lines);
}

}  // namespace
}  // namespace quorvane::test
