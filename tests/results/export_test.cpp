// Found words as other programs read them.

#include "results/export.h"

#include <gtest/gtest.h>

#include <random>

#include "base/text.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

struct Found {
  explicit Found(const std::vector<std::string>& words) {
    lexicon = LoadLexicon(directory.Write("words.lex", Lines(words))).lexicon;
    for (WordNumber number = 1; number <= words.size(); ++number) {
      numbers.push_back(number);
    }
  }
  WordSequence Words() const { return {lexicon.get(), numbers}; }
  std::string Exported(ExportFormat format, const ExportSettings& settings = {}) const {
    const std::string path = directory.File("out");
    EXPECT_FALSE(ExportToFile(path, Words(), format, settings));
    return ReadFile(path);
  }

  TemporaryDirectory directory;
  std::shared_ptr<const Lexicon> lexicon;
  std::vector<WordNumber> numbers;
};

// RFC 4180, read to the letter.
std::vector<std::vector<std::string>> ReadCsv(const std::string& text) {
  std::vector<std::vector<std::string>> rows(1, {""});
  bool quoted = false;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"' && quoted && text[i + 1] == '"') {
      rows.back().back() += text[++i];
    } else if (text[i] == '"') {
      quoted = !quoted;
    } else if (!quoted && text[i] == ',') {
      rows.back().emplace_back();
    } else if (!quoted && text.compare(i, 2, "\r\n") == 0) {
      rows.push_back({""});
      ++i;
    } else {
      EXPECT_TRUE(quoted || (text[i] != '\r' && text[i] != '\n'));
      rows.back().back() += text[i];
    }
  }
  EXPECT_FALSE(quoted);
  EXPECT_EQ(rows.back(), std::vector<std::string>{""}) << "the last line ends";
  rows.pop_back();
  return rows;
}

TEST(Export, CsvComesBackAsItWas) {
  std::mt19937 random(4180);
  constexpr std::string_view kCharacters = "ab,\"\r\t' \xE9\x80";
  for (int round = 0; round < 20; ++round) {
    std::vector<std::string> words(random() % 200 + 1);
    std::vector<std::vector<std::string>> expected = {{"word", "length"}};
    for (std::string& word : words) {
      word = "a";
      for (size_t length = random() % 6; length > 0; --length) {
        word += kCharacters[random() % kCharacters.size()];
      }
      word += 'z';  // A carriage return at the end would belong to the line.
      expected.push_back({Utf8FromBytes(word), std::to_string(word.size())});
    }
    EXPECT_EQ(ReadCsv(Found(words).Exported(ExportFormat::Csv)), expected);
  }
}

TEST(Export, FormatsAndTheirPreviews) {
  const Found found({"a\tb", "a,b", "a\xE9"});
  const struct {
    ExportFormat format;
    ExportSettings settings;
    const char *text, *preview;  // Of two lines.
  } cases[] = {
      {ExportFormat::Lines, {}, "a\tb\na,b\na\u00E9\n", "a\tb\na,b\n...\n"},
      {ExportFormat::Lines, {.stored = true}, "a\tb\na,b\na\xE9\n", "a\tb\na,b\n...\n"},
      {ExportFormat::Csv,
       {},
       "word,length\r\na\tb,3\r\n\"a,b\",3\r\na\u00E9,2\r\n",
       "word,length\r\na\tb,3\r\n...\r\n"},
      {ExportFormat::Tsv, {.heading = false}, "\"a\tb\"\t3\na,b\t3\na\u00E9\t2\n", "word\tlength\n\"a\tb\"\t3\n...\n"},
      {ExportFormat::Comma, {}, "a\tb, a,b, a\u00E9\n", "a\tb, a,b, ...\n"},
  };
  for (const auto& [format, settings, text, preview] : cases) {
    EXPECT_EQ(found.Exported(format, settings), text);
    EXPECT_EQ(Preview(found.Words(), format, 2), preview);
    EXPECT_EQ(Preview(found.Words(), format, 4), Found({"a\tb", "a,b", "a\xE9"}).Exported(format));
    EXPECT_EQ(Preview(found.Words(), format, 0), "");
  }
}

}  // namespace
}  // namespace quorvane::test
