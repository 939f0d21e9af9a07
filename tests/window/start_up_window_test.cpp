// The program's real start over settings files of every kind: the whole file and the whole log afterwards.

#include "tests/window/window_fixture.h"

namespace quorvane::test {
namespace {

// The settings file behind a first start, with what stands in place of the default of some keys, and keys of others.
class StartUpTest : public WindowTest {
 protected:
  using Values = std::map<std::string, std::map<std::string, std::string>>;

  static std::string FileOf(const Values& values) {
    std::string text;
    for (const auto& [section, keys] : values) {
      text += (text.empty() ? "[" : "\n[") + section + "]\n";
      for (const auto& [key, value] : keys) {
        text += key + "=" + value + "\n";
      }
    }
    return text;
  }

  Values FirstStart() const {
    return {
        {"Colours",
         {{"LettersText", "&H00FF0000"},
          {"ListBack", "&H00FFFFFF"},
          {"ListText", "&H00FF0000"},
          {"MainBack", "&H8000000F"},
          {"MainText", "&H00000000"},
          {"SelectionText", "&H00C00000"},
          {"StatusText", "&H000000FF"},
          {"TimerText", "&H0000FFFF"}}},
        {"Locations", {{"LexiconFile", "words.lex"}, {"SaveFileName", dir.File("outlist.txt")}}},
        {"Options",
         {{"Literati", "No"},
          {"RandomDisclaimer", "Yes"},
          {"SaveToFile", "Yes"},
          {"TimerInd", "No"},
          {"WriteToLogFile", "Yes"}}},
        {"Printer", {{"PrinterName", "(undefined)"}}},
        {"Selection", {{"ExcludedChars", ""}, {"ScrabbleChars", ""}, {"SelectedChars", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"}}},
        {"Settings",
         {{"ListBold", "No"}, {"ListFont", "Prop"}, {"ListItalic", "No"}, {"MaxLength", "8"}, {"MinLength", "1"}}},
        {"Startup", {{"Compiled", BuildDate()}, {"Version", VersionText()}}}};
  }

  // Starts and ends the program over the file; the log's entries between START and SELECTS.
  Texts Run(const Values& values) {
    dir.Write("quorvane.conf", FileOf(values));
    std::filesystem::remove(dir.File("quorvane.log"));
    EXPECT_TRUE(Start());
    Stop();
    Texts entries = Log();
    EXPECT_TRUE(failures.empty());
    entries.erase(entries.begin(), entries.begin() + static_cast<long>(std::min<size_t>(entries.size(), 2)));
    entries.resize(entries.size() - std::min<size_t>(entries.size(), 3));  // SELECTS, END and SHUTDOWN.
    return entries;
  }
  std::string Stored() const { return ReadFile(dir.File("quorvane.conf")); }

  const std::string counted_ = "WORDCT 18 words defined in lexicon file 'words.lex'";
};

TEST_F(StartUpTest, AnEmptyFileGetsEveryDefault) {
  EXPECT_EQ(Run({}), (Texts{"EMP-OUT An empty output file, <dir>/outlist.txt, was created", counted_}));
  EXPECT_EQ(Stored(), FileOf(FirstStart()));
  EXPECT_EQ(Run(FirstStart()), Texts{counted_});
  EXPECT_EQ(Stored(), FileOf(FirstStart()));
  EXPECT_EQ(door.TakeText(), "");
}

TEST_F(StartUpTest, GoodValuesAreKept) {
  dir.Write("mine.lex", "dog\r\n");
  dir.Write("found.txt", "mine");
  Values good = FirstStart();
  good["Colours"] = {{"GroupText", "&H00000006"},  {"LettersText", "&H00000003"},   {"ListBack", "&H00000004"},
                     {"ListText", "&H00000005"},   {"MainBack", "&H80000005"},      {"MainText", "&H00112233"},
                     {"StatusText", "&H00000001"}, {"SelectionText", "&H00aabbcc"}, {"TimerText", "&H00000002"}};
  good["Locations"] = {{"LexiconFile", "mine.lex"}, {"SaveFileName", dir.File("found.txt")}};
  good["Options"] = {{"Literati", "Yes"}, {"RandomDisclaimer", "No"}, {"SaveToFile", "No"},     {"TimerInd", "Yes"},
                     {"Weblink", "5"},    {"WideScreen", "Yes"},      {"WriteToLogFile", "Yes"}};
  good["Other"] = {{"Key", "kept"}};
  good["Printer"] = {{"FontSize", "10"}, {"PrinterColumns", "2"}, {"PrinterName", "PDF file"}};
  good["Selection"] = {{"ExcludedChars", "aeiou"}, {"ScrabbleChars", "aa?-"}, {"SelectedChars", "xYz"}};
  good["Settings"] = {
      {"ListBold", "Yes"}, {"ListFont", "Prop"}, {"ListItalic", "Yes"}, {"MaxLength", "60"}, {"MinLength", "3"}};
  EXPECT_EQ(Run(good), Texts{"WORDCT 1 word defined in lexicon file 'mine.lex'"});
  EXPECT_EQ(Stored(), FileOf(good));
  EXPECT_EQ(ReadFile(dir.File("found.txt")), "mine");
}

TEST_F(StartUpTest, DamagedValuesAreRepaired) {
  Values damaged = FirstStart();
  for (const char* section : {"Colours", "Options", "Printer", "Selection", "Settings"}) {
    for (auto& [key, value] : damaged[section]) {
      value = "? junk";
    }
  }
  damaged["Locations"] = {{"LexiconFile", "gone.lex"}, {"SaveFileName", "no/such/place/x.txt"}};
  damaged["Settings"]["MinLength"] = "5";
  damaged["Settings"]["MaxLength"] = "3";
  // With the log off nothing is logged; that it is off is what the damaged "WriteToLogFile" means.
  damaged["Options"]["WriteToLogFile"] = "Yes";
  Values repaired = FirstStart();
  repaired["Locations"]["SaveFileName"] = "out.txt";
  repaired["Options"]["SaveToFile"] = "No";
  repaired["Options"]["RandomDisclaimer"] = "? junk";  // Only a "Yes" is written back.
  repaired["Selection"] = {{"ExcludedChars", "junk"}, {"ScrabbleChars", "?junk"}, {"SelectedChars", "junk"}};
  repaired["Settings"]["MinLength"] = "5";
  repaired["Settings"]["MaxLength"] = "5";
  EXPECT_EQ(Run(damaged),
            (Texts{"LEX-ERR Lexicon file <dir>/gone.lex could not be found; defaulting to 'words.lex'",
                   "ERROR RS/76: Path not found at Pos PRF SaveFile corrected; SaveFileName reset", counted_}));
  EXPECT_EQ(Stored(), FileOf(repaired));
  EXPECT_EQ(door.TakeText(), "Lexicon file specified \n\n" + dir.File("gone.lex") +
                                 "\n\ncould not be found.  Defaulting to use 'words.lex'.");
}

TEST_F(StartUpTest, AnOldFileIsTakenOverOnce) {
  dir.Write("mine.lex", "dog\r\n");
  dir.Write("Quorvane.INI",
            "[Locations]\r\nLexiconFile=mine.lex\r\nSaveFileName=l\xEFst.txt\r\n[Options]\r\nSaveToFile=No\r\n"
            "WideScreen=Yes\r\nWriteToLogFile=Yes\r\nSelectedChars=abc\r\nScrabbleChars=qu?\r\nMinLength=4\r\n"
            "PrinterColumns=2\r\nPrinterName=PDF file\r\nPaperSize=A4\r\n");
  Values expected = FirstStart();
  expected["Locations"]["SaveFileName"] = dir.File("l\u00EFst.txt");
  expected["Options"]["SaveToFile"] = "No";
  expected["Options"]["WideScreen"] = "Yes";
  expected["Other"]["Key"] = "kept";
  // The print settings meet their own rules when they are used.
  expected["Printer"] = {{"FontName", "NotFound"},
                         {"FontSize", "NotFound"},
                         {"Italic", "NotFound"},
                         {"PaperSize", "A4"},
                         {"PrinterColumns", "2"},
                         {"PrinterName", "PDF file"},
                         {"PrinterOrientation", "NotFound"}};
  expected["Selection"]["SelectedChars"] = "abc";
  expected["Selection"]["ScrabbleChars"] = "qu?";
  expected["Settings"]["UseRegistry"] = "Yes";
  EXPECT_EQ(Run({{"Other", {{"Key", "kept"}}}}),
            (Texts{"EMP-OUT An empty output file, <dir>/l\u00EFst.txt, was created", "INI-CNV INI conversion",
                   "INI-DEL INI file removed", counted_}));
  EXPECT_EQ(Stored(), FileOf(expected));
  EXPECT_EQ(ReadFile(dir.File("l\u00EFst.txt")), "Dummy file - will be replaced by your selection.\r\n");
  EXPECT_FALSE(std::filesystem::exists(dir.File("Quorvane.INI")));
  EXPECT_EQ(Run(expected), Texts{counted_});
  EXPECT_EQ(Stored(), FileOf(expected));
  // Values that can't be stored are still in the old file.
  dir.Write("Quorvane.INI", "[Options]\r\nMinLength=4\r\n");
  std::filesystem::remove(dir.File("quorvane.conf"));
  std::filesystem::create_directory(dir.File("quorvane.conf"));
  ASSERT_TRUE(Start());
  EXPECT_TRUE(std::filesystem::exists(dir.File("Quorvane.INI")));
}

}  // namespace
}  // namespace quorvane::test
