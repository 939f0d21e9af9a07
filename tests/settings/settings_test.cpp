// Settings table, old initialisation file, log, colours and stopwatch.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "settings/colours.h"
#include "settings/event_log.h"
#include "settings/old_ini_file.h"
#include "settings/printer_errors.h"
#include "settings/settings_table.h"
#include "settings/stop_watch.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

TEST(Repair, OfEveryKind) {
  struct Row {
    Setting setting;
    std::string value, repaired;
  };
  for (const auto& [setting, value, repaired] : {
           Row{Setting::MinLength, "0", "1"},
           Row{Setting::MinLength, "61", "60"},
           Row{Setting::MinLength, "abc", "1"},
           Row{Setting::MinLength, "99999999999999999999", "60"},
           Row{Setting::MaxLength, "99", "60"},
           Row{Setting::MaxLength, "abc", "8"},
           Row{Setting::MaxLength, " 7 ", "7"},
           Row{Setting::SaveToFile, "yes", "No"},
           Row{Setting::SaveToFile, "NotFound", "Yes"},
           Row{Setting::TimerInd, "NotFound", "No"},
           Row{Setting::SelectedChars, "a1b;b a", "ab"},
           Row{Setting::SelectedChars, "NotFound", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
           Row{Setting::SelectedChars, "123", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
           Row{Setting::ExcludedChars, "e-e?x", "ex"},
           Row{Setting::ScrabbleChars, "aab?-3", "aab?-"},
           Row{Setting::ColourMainBack, "&H80000F", "&H8000000F"},
           Row{Setting::ColourStatusText, "&H00ab12CD", "&H00ab12CD"},
           Row{Setting::ColourStatusText, "&H01000000", "&H000000FF"},
           Row{Setting::ColourStatusText, "red", "&H000000FF"},
           Row{Setting::ColourListText, "&H80000100", "&H00FF0000"},
       }) {
    EXPECT_EQ(Repaired(setting, value), repaired) << RowOf(setting).key << " " << value;
  }
}

TEST(Colours, CustomColoursAreBlueGreenRed) {
  EXPECT_EQ(PadCustomColour("C0", "000000"), "0000C0");
  EXPECT_EQ(PadCustomColour("12Ab", "000000"), "0012Ab");
  EXPECT_EQ(PadCustomColour("C0C0C00", "800000"), "800000");
  EXPECT_EQ(PadCustomColour("red", "FFFFFF"), "FFFFFF");
  const Rgb rgb = RgbOfCustom("0A80FF");
  EXPECT_EQ((std::array{rgb.red, rgb.green, rgb.blue}), (std::array{255, 128, 10}));
  EXPECT_EQ(CustomColourText(rgb), "0A80FF");
  EXPECT_EQ(ColourText(*ParseColour("&H000a80ff")), "&H000A80FF");
}

TEST(PrinterErrors, OneFamilyOfTexts) {
  EXPECT_EQ(
      PrinterErrorText("FP", 482),
      "FP/482: Printer error - check connections to your printer and that it can cope with this kind of printing.");
  EXPECT_EQ(
      PrinterErrorText("PS", 482),
      "PS/482: Printer error - check connections to your printer and that it can cope with this kind of printing, "
      "or that a printer has been defined - will ignore.");
  EXPECT_EQ(PrinterErrorText("PFL", 482),
            "PFL/482: Printer error - check connections to your printer and that it can cope with this kind of "
            "printing. - will ignore.");
  EXPECT_EQ(PrinterErrorText("PS", 481), "PS/481: Invalid printer picture.");
  EXPECT_TRUE(PrinterErrorText("RS", 486).ends_with("perhaps an upgrade is needed."));
}

class OldIni : public testing::Test {
 protected:
  OldIniFile::ReadResult Read(std::string_view text, std::string_view name = "quorvane.ini") {
    dir.Write(name, text);
    return ini.Read(dir.path(), "quorvane");
  }
  TemporaryDirectory dir;
  OldIniFile ini;
};

TEST_F(OldIni, FieldsAreCutLookedUpAndStored) {
  const auto result = Read(
      "[Locations]\r\n;Comment=1\nLexiconFile=my.lex\r\nSelectedChars=abc,d=e\n  Spaced = x \nNoEquals\n=empty\n"
      "Quoted=\"a=b\"\nLexiconFile=second.lex",
      "QUORVANE.Ini");
  EXPECT_EQ(result.code, OldIniFile::kReadOk);
  EXPECT_EQ(ini.LookUp("LexiconFile"), "my.lex");
  EXPECT_EQ(ini.LookUp("SelectedChars"), "abc");
  EXPECT_EQ(ini.LookUp("d"), "e");
  EXPECT_EQ(ini.LookUp("  Spaced "), " x ");
  EXPECT_EQ(ini.LookUp("Spaced"), "NotFound");
  EXPECT_EQ(ini.LookUp(";Comment"), "NotFound");
  EXPECT_EQ(ini.LookUp("NoEquals"), "NotFound");
  EXPECT_EQ(ini.LookUp("Quoted"), "\"a=b\"");
  EXPECT_EQ(ini.LookUp(""), "Invalid");
  EXPECT_EQ(ini.Store("", "x"), 36);
  EXPECT_EQ(ini.Store("SelectedChars", "new"), 40);
  EXPECT_EQ(ini.Store("Fresh", "1"), 40);
  EXPECT_EQ(ini.LookUp("SelectedChars") + ini.LookUp("Fresh"), "new1");
}

TEST_F(OldIni, OddFiles) {
  EXPECT_EQ(ini.Store("a", "b"), 12);
  std::string keys;
  for (int i = 1; i <= 300; ++i) {
    keys += "k" + std::to_string(i) + "=" + std::to_string(i) + "\r\n";
  }
  Read(keys);
  EXPECT_EQ(ini.LookUp("k200"), "200");
  EXPECT_EQ(ini.LookUp("k201"), "NotFound");
  EXPECT_EQ(ini.Store("k201", "x"), 40);
  EXPECT_EQ(ini.LookUp("k201"), "NotFound");
  Read("big=" + std::string(1 << 20, 'x') + "\nafter=1");
  EXPECT_EQ(ini.LookUp("big").size(), 1U << 20);
  EXPECT_EQ(ini.LookUp("after"), "1");
  EXPECT_EQ(ini.LookUp("k1"), "NotFound");
}

TEST_F(OldIni, AFileThatIsNotThereOrCannotBeReadIsNamed) {
  auto result = ini.Read(dir.path(), "quorvane");
  EXPECT_EQ(result.code, 53);
  EXPECT_EQ(result.boxTitle, "Quorvane Initialisation file not found");
  EXPECT_EQ(result.boxText,
            "Initialisation file QUORVANE.INI was not found.  This file needs \r\nto be in the same directory as the "
            "application file QUORVANE.EXE.  \r\nThat directory is:   " +
                dir.path() + "\r\nMove the INI file there and try again.");
  EXPECT_FALSE(ini.Loaded());
  std::filesystem::create_symlink("quorvane.ini", dir.File("quorvane.ini"));  // Leads to itself: it can't be opened.
  result = ini.Read(dir.path(), "quorvane");
  EXPECT_NE(result.code, OldIniFile::kReadOk);
  EXPECT_FALSE(ini.Loaded());
  std::filesystem::remove(dir.File("quorvane.ini"));
  ASSERT_EQ(mkfifo(dir.File("quorvane.ini").c_str(), 0600), 0);  // Opening it would wait for a writer.
  EXPECT_TRUE(ini.Read(dir.path(), "quorvane").boxText.ends_with("Error #75 (it is a pipe, not a file)"));
  std::filesystem::remove(dir.File("quorvane.ini"));
  dir.Write("quorvane.ini", "a=1");
  std::filesystem::resize_file(dir.File("quorvane.ini"), kMaxSmallFile + 1);
  EXPECT_TRUE(ini.Read(dir.path(), "quorvane").boxText.ends_with("Error #75 (it is larger than 4 MB)"));
}

class Log : public testing::Test {
 protected:
  Log() {
    time.tm_year = 126;
    time.tm_mon = 11;
    time.tm_mday = 3;
    time.tm_hour = 9;
    time.tm_sec = 5;
  }
  std::unique_ptr<EventLog> Open(const std::string& path) {
    auto log = std::make_unique<EventLog>(
        path, [this] { return time; }, [this](const FileError&) { ++failures; });
    log->Open();
    return log;
  }
  std::string Text() const { return ReadFile(path); }

  TemporaryDirectory dir;
  const std::string path = dir.File("quorvane.log");
  std::tm time{};
  int failures = 0;
};

TEST_F(Log, LinesAndSeparators) {
  const auto log = Open(path);
  log->Write("NEWLOG", "New log file started");
  log->Write("RESTARTED", "  x, y ");
  // Every entry is on disk behind its call.
  EXPECT_EQ(Text(), "NEWLOG   12/03/26 09:00:05  New log file started\r\n" + std::string(80, '=') +
                        "\r\nRESTARTE 12/03/26 09:00:05    x, y \r\n");
  log->SwitchOff();
  log->Write("START", "not written");
  const std::string off = Text();
  EXPECT_TRUE(off.ends_with("LOGDEA   12/03/26 09:00:05  Logging deactivated\r\n" + [] {
    std::string line;
    for (int i = 0; i < 20; ++i) {
      line += "==--";
    }
    return line + "\r\n";
  }()));
  log->SetIndicator(false);
  EXPECT_FALSE(log->Clear());
  EXPECT_EQ(Text(), "");
  EXPECT_TRUE(std::filesystem::exists(path));
  log->SwitchOn();
  EXPECT_EQ(Text(), "LOGACT   12/03/26 09:00:05  Logging reactivated\r\n");
  log->Close();
  const auto again = Open(path);
  again->Write("END", "Application ended successfully");
  EXPECT_EQ(Text(),
            "LOGACT   12/03/26 09:00:05  Logging reactivated\r\n"
            "END      12/03/26 09:00:05  Application ended successfully\r\n");
  EXPECT_EQ(failures, 0);
}

TEST_F(Log, TheClearCaptionTakesTheSecondField) {
  const std::string entry = "START    01/02/03 10:11:12  Application started (v1.0, compiled 05 Mar 2026)\r\n";
  for (const auto& [text, caption] : {
           std::pair{std::string(80, '=') + "\r\n" + entry, "&Clear log file (created 01/02/03)"},
           {std::string(), "&Clear log file (empty)"},
           {std::string("NEWLOG   12/03/26 09:00:05  New log file started\r\n"), "&Clear log file (empty)"},
           {"NEWLOG   x\r\n" + entry, "&Clear log file (created 01/02/03)"},
           {std::string("a,b\r\n"), "&Clear log file (created )"},
       }) {
    dir.Write("quorvane.log", text);
    const auto log = Open(path);
    EXPECT_EQ(log->ClearCaption(), caption);
    EXPECT_TRUE(log->IsOpen());
    EXPECT_EQ(Text(), text);
  }
}

TEST_F(Log, OfAnEntryThatDoesNotFitNothingStays) {
  const auto log = Open(path);
  log->Write("A", "whole");
  const std::string before = Text();
  {
    const FileSizeLimit limit(before.size() + 10);
    EXPECT_TRUE(log->Write("START", "torn"));
  }
  EXPECT_EQ(Text(), before);
  EXPECT_FALSE(log->Write("A", "whole"));
  EXPECT_EQ(Text(), before + before);
}

TEST_F(Log, AFileThatCannotBeWrittenIsToldOnce) {
  if (std::filesystem::exists("/dev/full")) {
    std::filesystem::create_symlink("/dev/full", dir.File("full.log"));
    const auto full = Open(dir.File("full.log"));
    EXPECT_TRUE(full->Write("A", "b"));
    EXPECT_TRUE(full->Write("A", "b"));
    EXPECT_EQ(failures, 1);
  }
  failures = 0;
  std::filesystem::create_directory(path);
  const auto log = Open(path);
  EXPECT_FALSE(log->IsOpen());
  EXPECT_FALSE(log->Write("A", "b"));
  EXPECT_TRUE(log->Clear());
  EXPECT_TRUE(std::filesystem::is_directory(path));
  EXPECT_EQ(failures, 1);
}

TEST(StopWatch, BeginsOnAFreshTick) {
  std::vector<uint32_t> ticks = {10, 10, 10, 11, 12, 12, 40};
  size_t next = 0;
  const CStopWatch watch([&] { return ticks[next++]; });
  EXPECT_EQ(std::get<int32_t>(watch.Elapsed()), 0);
  EXPECT_EQ(std::get<int32_t>(watch.Elapsed()), 28);
}

TEST(StopWatch, TextsAndBorders) {
  struct Row {
    uint32_t elapsed;
    const char* text;
  };
  for (const auto& [elapsed, text] : {Row{3723456, "01:02:03.456"}, Row{0, "00:00:00.000"}, Row{999, "00:00:00.999"},
                                      Row{86399999, "23:59:59.999"}, Row{86400000 + 61007, "00:01:01.007"}}) {
    // Started just before the counter wraps.
    uint32_t now = 0xFFFFFFF0U;
    bool started = false;
    const CStopWatch watch([&] { return started ? now : ++now; });
    started = true;
    now += elapsed;
    EXPECT_EQ(watch.FormatHMS(true), text);
    EXPECT_EQ(watch.FormatHMS(false), std::string(text).substr(0, 8));
  }
  uint32_t now = 0;
  bool started = false;
  const CStopWatch watch([&] { return started ? now : ++now; });
  started = true;
  now += 0x7FFFFFFFU;
  EXPECT_EQ(std::get<int32_t>(watch.Elapsed()), 0x7FFFFFFF);
  ++now;
  EXPECT_EQ(std::get<RunTimeError>(watch.Elapsed()).number, kErrorOverflow);
  EXPECT_EQ(watch.ElapsedOrLongest(), 0x7FFFFFFF);
}

}  // namespace
}  // namespace quorvane::test
