// The page estimate, the laid-out pages and the print settings.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "print/page_estimate.h"
#include "print/page_layout.h"
#include "print/print_settings.h"
#include "tests/support/map_store.h"

namespace quorvane::test {
namespace {

struct Sheet {
  const char* name;
  int width, height;
};
constexpr Sheet kSheets[] = {
    {"Letter", 12240, 15840}, {"Letter landscape", 15840, 12240},
    {"Legal", 12240, 20160},  {"Legal landscape", 20160, 12240},
    {"A4", 11906, 16838},     {"A4 landscape", 16838, 11906},
};

PageEstimate Estimate(int64_t entries, int height, int fontSize, int columns) {
  return std::get<PageEstimate>(EstimatePages(entries, height, fontSize, columns));
}

TEST(PageEstimate, PagesOfAList) {
  struct Row {
    int64_t entries;
    int height, fontSize, columns, words, pages;
  };
  for (const auto& [entries, height, fontSize, columns, words, pages] : {
           // 56 / 12 * (10 - 0.75) + 0.5 = 43.67.
           Row{0, 15840, 12, 1, 44, 0},
           Row{1, 15840, 12, 1, 44, 1},
           Row{45, 15840, 12, 1, 44, 2},
           Row{133, 15840, 12, 3, 132, 2},
           Row{32767, 15840, 12, 3, 132, 249},
           // 56 / 14 * 9.25 + 0.5 = 37.5, to the even number.
           Row{38, 15840, 14, 1, 38, 1},
           // 56 / 6 * 9.25 + 0.5 = 86.83.
           Row{87 * 8 + 1, 15840, 6, 8, 696, 2},
           // 56 / 25 * (7.5 - 0.75) + 0.5 = 15.62.
           Row{100, 12240, 25, 1, 16, 7},
       }) {
    const PageEstimate estimate = Estimate(entries, height, fontSize, columns);
    EXPECT_EQ(estimate.wordsPerPage, words) << fontSize;
    EXPECT_EQ(estimate.pages, pages) << entries;
  }
  EXPECT_EQ(EstimateText(Estimate(0, 15840, 12, 1)), "These settings will yield 44 words per page.");
  EXPECT_EQ(EstimateText(Estimate(45, 15840, 12, 1)), "For current selection : 2 page(s), with 44 words per page.");
  EXPECT_EQ(PagesText(Estimate(45, 15840, 12, 1)), "2 page(s), with up to 44 words per page.");
  for (const int height : {0, 1440, 2520, 100000000}) {  // Too low for a line, or beyond 16 bits.
    EXPECT_TRUE(std::holds_alternative<RunTimeError>(EstimatePages(10, height, 12, 8))) << height;
  }
}

// Every character is as wide as a twelfth of an inch at 10 points.
int Measure(const std::string& text, const PrintFont& font) {
  return static_cast<int>(text.size()) * font.size * 12;
}

PageLayoutInput Input(const Sheet& sheet, int fontSize, int columns, size_t entries) {
  PageLayoutInput input;
  input.entryCount = entries;
  input.entry = [](size_t i) { return "w" + std::to_string(i); };
  input.pageWidth = sheet.width;
  input.pageHeight = sheet.height;
  input.columns = columns;
  input.font = {"Body", fontSize, false, false};
  input.estimate = Estimate(static_cast<int64_t>(entries), sheet.height, fontSize, columns);
  input.found = entries;
  input.search.text = "w*";
  input.now.tm_year = 126;
  input.now.tm_mon = 2;
  input.now.tm_mday = 5;
  input.now.tm_hour = 14;
  input.now.tm_min = 7;
  input.measure = Measure;
  return input;
}

TEST(PageLayout, EveryWordOnceInOrderInsidePageAndColumnForAllSettings) {
  std::set<std::string> differing;  // Lines a column: estimated and laid out.
  for (const Sheet& sheet : kSheets) {
    for (int fontSize = kMinFontSize; fontSize <= kMaxFontSize; ++fontSize) {
      for (int columns = 1; columns <= kMaxColumns; ++columns) {
        SCOPED_TRACE(std::string(sheet.name) + " " + std::to_string(fontSize) + " " + std::to_string(columns));
        PageLayoutInput input = Input(sheet, fontSize, columns, 0);
        const int perColumn = input.estimate.linesPerColumn;
        const size_t entries = static_cast<size_t>(perColumn + 2) * static_cast<size_t>(columns) * 2 + 3;
        input = Input(sheet, fontSize, columns, entries);
        // Every seventh word is too long for any column.
        input.entry = [](size_t i) {
          return "w" + std::to_string(i) + (i % 7 == 3 ? std::string(300, 'x') : std::string());
        };
        const int columnWidth = static_cast<int>(std::nearbyint(static_cast<double>(sheet.width) / columns));
        size_t next = 0;
        int page = 1;
        int column = 0;
        int lastY = 1 << 30;
        int inColumn = 0;
        int laidOut = 0;
        for (const PlacedText& placed : LayOutPages(input)) {
          ASSERT_GE(placed.page, page);
          ASSERT_TRUE(placed.x >= 0 && placed.x + Measure(placed.text, placed.font) <= sheet.width) << placed.text;
          ASSERT_TRUE(placed.y >= 0 && placed.y <= sheet.height - placed.font.size * 20) << placed.text;
          if (placed.font.name != "Body") {
            continue;
          }
          if (placed.page != page || placed.y < lastY) {
            column = placed.page != page || column == columns ? 1 : column + 1;
            laidOut = std::max(laidOut, inColumn);
            inColumn = 0;
            page = placed.page;
            ASSERT_EQ(placed.y, 1080);
          }
          ++inColumn;
          lastY = placed.y;
          ASSERT_EQ(placed.x, 100 + (column - 1) * columnWidth);
          // A blank's width is free in front of the next column.
          ASSERT_LE(Measure(placed.text + (column < columns ? " " : ""), placed.font), columnWidth);
          // The body ends above the footer.
          ASSERT_LE(placed.y, static_cast<int>(input.estimate.usableHeight * 1440));
          const std::string word = input.entry(next++);
          ASSERT_TRUE(placed.text == word || (placed.text.ends_with('\x85') &&
                                              word.starts_with(placed.text.substr(0, placed.text.size() - 1))))
              << placed.text;
        }
        ASSERT_EQ(next, entries);
        ASSERT_GT(page, 1);
        if (columns == 1 && laidOut != perColumn) {
          differing.insert(std::string(sheet.name) + " " + std::to_string(fontSize) + ": " + std::to_string(perColumn) +
                           "/" + std::to_string(laidOut));
        }
      }
    }
  }
  const std::set<std::string> known = {
      "Letter 14: 38/37",           "Letter landscape 6: 64/63",  "Letter landscape 9: 42/43",
      "Letter landscape 14: 28/27", "Letter landscape 18: 22/21", "Legal 14: 50/49",
      "Legal landscape 6: 64/63",   "Legal landscape 9: 42/43",   "Legal landscape 14: 28/27",
      "Legal landscape 18: 22/21",
  };
  EXPECT_EQ(differing, known);
}

// Whatever a printer does not reach: no text stands there, none on another, words keep their order and page.
TEST(PageLayout, StandsWithinWhatThePrinterReaches) {
  for (const Sheet& sheet : kSheets) {
    for (const SheetMargins& margins : {SheetMargins{360, 720, 360, 720},
                                        {720, 360, 720, 360},
                                        {360, 400, 90, 965},
                                        {0, 801, 0, 0},
                                        {240, 1300, 240, 1500},
                                        {0, 0, 0, 1000}}) {
      for (const char* typed : {"w*", "w#*", "w#=!"}) {
        for (int fontSize = kMinFontSize; fontSize <= kMaxFontSize; ++fontSize) {
          SCOPED_TRACE(std::string(sheet.name) + " " + std::to_string(margins.top) + " " + typed + " " +
                       std::to_string(fontSize));
          PageLayoutInput input = Input(sheet, fontSize, 3, 400);
          input.search.text = typed;
          input.search.lists.include = std::string(60, 'x');
          const std::vector<PlacedText> plain = LayOutPages(input);
          input.margins = margins;
          const std::vector<PlacedText> placed = LayOutPages(input);
          const auto body = [](const PlacedText& text) { return text.font.name == "Body"; };
          size_t from = 0;
          for (const PlacedText& text : placed) {
            const int bottom = text.y + text.font.size * 23;
            ASSERT_GE(text.x, margins.left + 100);
            ASSERT_LE(text.x + Measure(text.text, text.font), sheet.width - margins.right) << text.text;
            ASSERT_GE(text.y, margins.top);
            ASSERT_LE(bottom, sheet.height - margins.bottom) << text.text;
            ASSERT_GE(text.font.size, std::min(5, fontSize)) << text.text;
            if (!body(text)) {  // Header lines stand above the columns, but for a pixel of the last one's descent.
              ASSERT_TRUE(text.y > sheet.height / 2 || bottom <= std::max(1080, margins.top + 279) + 20) << text.text;
              continue;
            }
            from = static_cast<size_t>(std::find_if(plain.begin() + static_cast<ptrdiff_t>(from), plain.end(), body) -
                                       plain.begin());
            ASSERT_EQ(text.text + std::to_string(text.page), plain[from].text + std::to_string(plain[from].page));
            ++from;
          }
        }
      }
    }
  }
  // What is reached stays, to the twip.
  PageLayoutInput input = Input(kSheets[0], 12, 3, 300);
  const std::vector<PlacedText> plain = LayOutPages(input);
  input.margins = {0, 300, 0, 833};
  const std::vector<PlacedText> placed = LayOutPages(input);
  EXPECT_TRUE(std::ranges::equal(placed, plain, [](const PlacedText& a, const PlacedText& b) {
    return a.x == b.x && a.y == b.y && a.font.size == b.font.size && a.text == b.text;
  }));
}

TEST(PageLayout, TheLastWordStartsNoNewPage) {
  for (const int columns : {1, 3}) {
    const PageLayoutInput probe = Input(kSheets[0], 12, columns, 0);
    const auto full = static_cast<size_t>(probe.estimate.wordsPerPage);
    EXPECT_EQ(LayOutPages(Input(kSheets[0], 12, columns, full)).back().page, 1);
    EXPECT_EQ(LayOutPages(Input(kSheets[0], 12, columns, full + 1)).back().page, 2);
  }
}

std::vector<PlacedText> HeaderOf(const std::string& typed, const std::string& noun, size_t count,
                                 WordType mode = WordType::WordList) {
  PageLayoutInput input = Input(kSheets[0], 12, 1, 50);
  input.found = count;
  input.search = {typed, mode, noun, {}, {"ABC", "x", "tt?"}};
  std::vector<PlacedText> header;
  for (const PlacedText& placed : LayOutPages(input)) {
    if (placed.font.name != "Body" && placed.page == 2) {
      header.push_back(placed);
    }
  }
  return header;
}

TEST(PageLayout, TitleLegendAndFooterOfEveryPage) {
  using Texts = std::vector<std::string>;
  const std::string printed = "Printed on 5 Mar 2026 at 14:07";
  struct Row {
    const char *typed, *noun;
    size_t count;
    Texts texts;
  };
  for (const auto& [typed, noun, count, texts] : {
           Row{"w*", "word", 50, {"50 words found matching the word pattern \"w*\"", printed, "Page 2 of 2"}},
           Row{"w!=#",
               "word",
               1,
               {"1 word found matching the word pattern \"w!=#\"", "# : any of      [abc]", "= : max 1 each of [tt?]",
                "! : not any of [x]", printed, "Page 2 of 2"}},
           Row{"%2ss>", "sequenced word", 3, {"3 sequenced words found (2 or more of 'ss')", printed, "Page 2 of 2"}},
           Row{"~50", "Random word", 50, {"50 Random words found", printed, "Page 2 of 2"}},
       }) {
    Texts found;
    for (const PlacedText& placed : HeaderOf(typed, noun, count)) {
      found.push_back(placed.text);
    }
    EXPECT_EQ(found, texts) << typed;
  }
  // The title stands at 300 twips around the centre, that of anagrams to its left; the footer 400 twips below the body.
  const auto titleCentre = [](WordType mode) {
    const PlacedText title = HeaderOf("abc", "word", 2, mode).front();
    EXPECT_EQ(title.y, 300);
    return title.x + Measure(title.text, title.font) / 2;
  };
  EXPECT_NEAR(titleCentre(WordType::WordList), 6120, 1);
  EXPECT_NEAR(titleCentre(WordType::Anagram), 5620, 1);
  EXPECT_NEAR(titleCentre(WordType::AnagramExact), 5120, 1);
  EXPECT_NEAR(titleCentre(WordType::Palindrome), 6120, 1);
  const auto header = HeaderOf("w*", "word", 50);
  EXPECT_EQ(header[1].x, 100);
  EXPECT_EQ(header[2].x + Measure(header[2].text, header[2].font), 12240 - 500);
  EXPECT_EQ(header[1].y, 14400 + 400);
  EXPECT_EQ(header[2].y, 14400 + 400);
  const auto legend = HeaderOf("w!=#", "word", 1);
  for (const int line : {0, 1, 2}) {
    EXPECT_EQ(legend[static_cast<size_t>(line) + 1].y, 580 + 165 * line);
  }
}

TEST(PrintSettings, ReadForPrintingAndForTheSetup) {
  struct Row {
    const char *key, *stored;
    const char* printed;  // As UpdatedPrintSettingsText shows it.
    const char* shown;
  };
  const auto textOf = [](const PrintSettings& settings) { return UpdatedPrintSettingsText(settings, "X"); };
  for (const auto& [key, stored, printed, shown] : {
           Row{"PrinterColumns", nullptr, "/C=1/", "/C=3/"},  // Two defaults, on purpose.
           Row{"PrinterColumns", "10", "/C=3/", "/C=3/"},
           Row{"PrinterColumns", "0", "/C=3/", "/C=3/"},
           Row{"PrinterColumns", "8", "/C=8/", "/C=8/"},
           Row{"FontSize", "5", "/S=12/", "/S=12/"},
           Row{"FontSize", "25", "/S=25/", "/S=25/"},
           Row{"FontSize", "26", "/S=12/", "/S=12/"},
           Row{"FontSize", "abc", "/S=12/", "/S=12/"},
           Row{"Italic", "Yes", "/I=Yes/", "/I=Yes/"},
           Row{"Italic", "yes", "/I=No/", "/I=No/"},
           Row{"PaperSize", "Legal", "/P=Legal", "/P=Legal"},
           Row{"PaperSize", "A3", "/P=A3", "/P=Letter"},
           Row{"PrinterOrientation", "Landscape", ":O=Land/", ":O=Land/"},
       }) {
    MapStore store;
    if (stored != nullptr) {
      store.values["Printer/" + std::string(key)] = stored;
    }
    const auto before = store.values;
    EXPECT_NE(textOf(ReadPrintSettings(store)).find(printed), std::string::npos) << key << " " << stored;
    EXPECT_EQ(store.values, before);
    const PrintSettings setup = ReadSetupSettings(store);
    EXPECT_NE(textOf(setup).find(shown), std::string::npos) << key << " " << stored;
    // What the setup shows is what it stored.
    EXPECT_EQ(textOf(ReadPrintSettings(store)), textOf(setup)) << key << " " << stored;
  }
}

}  // namespace
}  // namespace quorvane::test
