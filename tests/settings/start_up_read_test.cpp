// The settings as the start reads them: the whole store and what is said and logged.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "settings/start_up_read.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

using Values = std::map<std::string, std::string>;

class MapStore : public SettingsStore {
 public:
  std::string Get(std::string_view, std::string_view section, std::string_view key,
                  std::string_view otherwise) const override {
    const auto found = values.find(std::string(section) + "/" + std::string(key));
    return found == values.end() ? std::string(otherwise) : found->second;
  }
  void Save(std::string_view, std::string_view section, std::string_view key, std::string_view value) override {
    values[std::string(section) + "/" + std::string(key)] = value;
  }
  Values values;
};

class StartUpReadTest : public testing::Test, public StartUpSite {
 protected:
  StartUpReadTest() { dir.Write("words.lex", "cat\r\n"); }

  LexiconChoice Run() {
    boxes.clear();
    applied.clear();
    std::filesystem::remove(dir.File("quorvane.log"));
    EventLog log(
        dir.File("quorvane.log"), [] { return std::tm{}; }, [](const FileError&) {});
    log.Open();
    return StartUpRead(dir.path(), store, log, *this).Run();
  }
  void Apply(Setting setting, const std::string& value) override { applied[setting] = value; }
  void ShowBox(const std::string& title, const std::string& text, bool critical) override {
    boxes.push_back(title + (critical ? "!" : ":") + text);
  }
  Printers ListPrinters() override { return printers; }

  std::vector<std::string> Log() const {
    std::vector<std::string> entries;
    std::istringstream file(ReadFile(dir.File("quorvane.log")));
    for (std::string line; std::getline(file, line);) {
      line.pop_back();
      entries.push_back(line.substr(0, line.find(' ')) + " " + line.substr(28));
    }
    return entries;
  }
  Values FirstStart() const {
    return {{"Locations/LexiconFile", "words.lex"},
            {"Locations/SaveFileName", dir.File("outlist.txt")},
            {"Options/SaveToFile", "Yes"},
            {"Options/Literati", "No"},
            {"Options/TimerInd", "No"},
            {"Options/WriteToLogFile", "Yes"},
            {"Options/RandomDisclaimer", "Yes"},
            {"Selection/SelectedChars", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
            {"Selection/ExcludedChars", ""},
            {"Selection/ScrabbleChars", ""},
            {"Settings/MinLength", "1"},
            {"Settings/MaxLength", "8"},
            {"Settings/ListBold", "No"},
            {"Settings/ListItalic", "No"},
            {"Settings/ListFont", "Prop"},
            {"Printer/PrinterName", "(undefined)"},
            {"Colours/MainBack", "&H8000000F"},
            {"Colours/MainText", "&H00000000"},
            {"Colours/SelectionText", "&H00C00000"},
            {"Colours/StatusText", "&H000000FF"},
            {"Colours/TimerText", "&H0000FFFF"},
            {"Colours/LettersText", "&H00FF0000"},
            {"Colours/ListBack", "&H00FFFFFF"},
            {"Colours/ListText", "&H00FF0000"}};
  }

  TemporaryDirectory dir;
  MapStore store;
  Printers printers{{"Office", "PDF file"}, std::nullopt};
  std::vector<std::string> boxes;
  std::map<Setting, std::string> applied;
};

using Texts = std::vector<std::string>;

TEST_F(StartUpReadTest, AnEmptyStoreGetsEveryDefault) {
  const LexiconChoice lexicon = Run();
  EXPECT_EQ(lexicon.path, dir.File("words.lex"));
  EXPECT_EQ(store.values, FirstStart());
  EXPECT_EQ(Log(), Texts{"EMP-OUT An empty output file, " + dir.File("outlist.txt") + ", was created"});
  EXPECT_EQ(ReadFile(dir.File("outlist.txt")), "Dummy file - this will be replaced by your selection.\r\n");
  EXPECT_EQ(boxes, Texts{});
  Run();
  EXPECT_EQ(store.values, FirstStart());
  EXPECT_EQ(Log(), Texts{});
}

TEST_F(StartUpReadTest, GoodValuesAreKeptAndApplied) {
  dir.Write("mine.lex", "dog\r\n");
  dir.Write("found.txt", "mine");
  store.values = {{"Locations/LexiconFile", "mine.lex"},
                  {"Locations/SaveFileName", dir.File("found.txt")},
                  {"Options/SaveToFile", "No"},
                  {"Options/Literati", "Yes"},
                  {"Options/TimerInd", "Yes"},
                  {"Options/WriteToLogFile", "No"},
                  {"Options/RandomDisclaimer", "No"},
                  {"Selection/SelectedChars", "xYz"},
                  {"Selection/ExcludedChars", "aeiou"},
                  {"Selection/ScrabbleChars", "aa?-"},
                  {"Settings/MinLength", "3"},
                  {"Settings/MaxLength", "60"},
                  {"Settings/ListBold", "Yes"},
                  {"Settings/ListItalic", "Yes"},
                  {"Settings/ListFont", "Prop"},
                  {"Printer/PrinterName", "Office"},
                  {"Colours/MainBack", "&H80000005"},
                  {"Colours/MainText", "&H00112233"},
                  {"Colours/SelectionText", "&H00aabbcc"},
                  {"Colours/StatusText", "&H00000001"},
                  {"Colours/TimerText", "&H00000002"},
                  {"Colours/LettersText", "&H00000003"},
                  {"Colours/ListBack", "&H00000004"},
                  {"Colours/ListText", "&H00000005"},
                  {"Colours/GroupText", "odd"},
                  {"Other/Key", "kept"}};
  const Values before = store.values;
  EXPECT_EQ(Run().path, dir.File("mine.lex"));
  EXPECT_EQ(store.values, before);
  EXPECT_EQ(Log(), Texts{});
  EXPECT_EQ(ReadFile(dir.File("found.txt")), "mine");
  for (const SettingRow& row : SettingRows()) {
    const auto value = before.find(std::string(row.section) + "/" + std::string(row.key));
    if (value != before.end() && row.setting != Setting::ColourGroupText) {
      EXPECT_EQ(applied[row.setting], value->second) << row.key;
    }
  }
}

TEST_F(StartUpReadTest, DamagedValuesAreRepaired) {
  store.values = FirstStart();
  for (auto& [key, value] : store.values) {
    value = "?\x01 junk";
  }
  store.values["Options/RandomDisclaimer"] = "junk";
  store.values["Settings/MinLength"] = "5";
  store.values["Settings/MaxLength"] = "3";
  store.values["Locations/SaveFileName"] = "no/such/place/x.txt";
  Run();
  Values expected = FirstStart();
  expected["Locations/SaveFileName"] = "out.txt";
  expected["Options/SaveToFile"] = "No";
  expected["Options/WriteToLogFile"] = "No";
  expected["Options/RandomDisclaimer"] = "junk";  // Only a "Yes" is written back.
  expected["Selection/SelectedChars"] = "junk";
  expected["Selection/ExcludedChars"] = "junk";
  expected["Selection/ScrabbleChars"] = "?junk";
  expected["Settings/MinLength"] = "5";
  expected["Settings/MaxLength"] = "5";
  EXPECT_EQ(store.values, expected);
  EXPECT_EQ(applied[Setting::RandomDisclaimer], "No");
  const std::string missing = dir.File("?\x01 junk");
  EXPECT_EQ(boxes, Texts{"!Lexicon file specified \r\n\r\n" + missing +
                         "\r\n\r\ncould not be found.  Defaulting to use 'words.lex'."});
  EXPECT_EQ(Log(), (Texts{"LEX-ERR Lexicon file " + missing + " could not be found; defaulting to 'words.lex'",
                          "ERROR RS/76: Path not found at Pos PRF SaveFile corrected; SaveFileName reset"}));
}

TEST_F(StartUpReadTest, TheFixedFontLivesThroughOneRestart) {
  store.values["Settings/ListFont"] = "Fixed";
  Run();
  EXPECT_EQ(applied[Setting::ListFont] + "|" + store.values["Settings/ListFont"], "Fixed|");
  Run();
  EXPECT_EQ(applied[Setting::ListFont] + "|" + store.values["Settings/ListFont"], "Prop|Prop");
}

TEST_F(StartUpReadTest, APrinterThatHasGoneOrFails) {
  store.values["Printer/PrinterName"] = "Cellar";
  Run();
  EXPECT_EQ(store.values["Printer/PrinterName"], "(undefined)");
  store.values["Printer/PrinterName"] = "Office";
  printers = {{}, 484};
  Run();
  const std::string text =
      "RS/484: Problem getting printer information from the system; ensure printer is set up correctly. (Pos PRT PrNm)";
  EXPECT_EQ(boxes, Texts{":" + text});
  EXPECT_EQ(Log(), Texts{"ERROR " + text});
  EXPECT_EQ(applied.size(), 23U + 1U);  // The read goes on to the colours.
}

TEST_F(StartUpReadTest, TheOldListIsRetiredInPlaceOfAnOlderOne) {
  dir.Write("words.txt", "new");
  dir.Write("words_old.lex", "older");
  Run();
  EXPECT_EQ(ReadFile(dir.File("words_old.lex")), "new");
  EXPECT_FALSE(std::filesystem::exists(dir.File("words.txt")));
  EXPECT_EQ(Log().front(), "TXT_LEX Old lexicon file 'words.txt' was renamed to 'words_old.lex'");
}

TEST_F(StartUpReadTest, AnOldFileIsTakenOverOnce) {
  dir.Write("mine.lex", "dog\r\n");
  dir.Write("Quorvane.INI",
            "[Locations]\r\nLexiconFile=mine.lex\r\nSaveFileName=list.txt\r\n[Options]\r\nSaveToFile=No\r\n"
            "WideScreen=Yes\r\nWriteToLogFile=Yes\r\nSelectedChars=abc\r\nScrabbleChars=qu?\r\nMinLength=4\r\n"
            "PrinterColumns=2\r\nPrinterName=Office\r\nPaperSize=A4\r\n");
  store.values["Other/Key"] = "kept";
  Run();
  Values expected = FirstStart();
  expected["Other/Key"] = "kept";
  expected["Locations/SaveFileName"] = dir.File("list.txt");
  expected["Options/SaveToFile"] = "No";
  expected["Options/WideScreen"] = "Yes";
  expected["Selection/SelectedChars"] = "abc";
  expected["Selection/ScrabbleChars"] = "qu?";
  expected["Settings/UseRegistry"] = "Yes";
  expected["Printer/PrinterName"] = "Office";
  expected["Printer/PrinterColumns"] = "2";
  expected["Printer/PaperSize"] = "A4";
  for (const char* key : {"FontSize", "Italic", "PrinterOrientation", "FontName"}) {
    expected["Printer/" + std::string(key)] = "NotFound";  // The print settings meet their own rules.
  }
  EXPECT_EQ(store.values, expected);
  EXPECT_EQ(Log(), (Texts{"EMP-OUT An empty output file, " + dir.File("list.txt") + ", was created",
                          "INI-CNV INI conversion", "INI-DEL INI file removed"}));
  EXPECT_EQ(ReadFile(dir.File("list.txt")), "Dummy file - will be replaced by your selection.\r\n");
  EXPECT_FALSE(std::filesystem::exists(dir.File("Quorvane.INI")));
  EXPECT_EQ(boxes, Texts{});
  Run();
  EXPECT_EQ(store.values, expected);
  EXPECT_EQ(Log(), Texts{});
}

TEST_F(StartUpReadTest, AnOldFileThatCannotBeReadIsKept) {
  const std::string path = dir.Write("quorvane.ini", "SaveToFile=No\r\n");
  std::filesystem::permissions(path, std::filesystem::perms::none);
  if (std::ifstream(path).is_open()) {
    GTEST_SKIP() << "this user may read every file";
  }
  Run();
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_TRUE(boxes[0].starts_with("Quorvane Initialisation error:INI File Open Failed for ")) << boxes[0];
  EXPECT_TRUE(boxes[1].starts_with(":INI File Load error.  Return Code is: ")) << boxes[1];
  EXPECT_TRUE(Log().front().starts_with("INI-ERR Error loading INI file - return code ")) << Log().front();
  EXPECT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(store.values, FirstStart());
}

}  // namespace
}  // namespace quorvane::test
