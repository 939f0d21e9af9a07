// What the start says and logs where printers, old files and fonts are not as they should be.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "settings/start_up_read.h"
#include "tests/support/map_store.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

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
  bool Apply(Setting setting, const std::string& value) override {
    applied[setting] = value;
    return true;
  }
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
  TemporaryDirectory dir;
  MapStore store;
  Printers printers{{"Office", "PDF file"}, std::nullopt};
  std::vector<std::string> boxes;
  std::map<Setting, std::string> applied;
};

using Texts = std::vector<std::string>;

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
  EXPECT_EQ(store.values["Options/SaveToFile"], "Yes");
}

}  // namespace
}  // namespace quorvane::test
