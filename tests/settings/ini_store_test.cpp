// The settings file as other hands and full disks leave it.
#include "settings/window/ini_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "base/window/qt_text.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {
namespace {

class IniStoreTest : public testing::Test {
 protected:
  IniStore Open() {
    return IniStore(FromText(path), [this](const FileError& error) { failures.push_back(error.reason); });
  }
  static void Save(IniStore& store, const std::string& value) { store.Save(kApplicationName, "Options", "Key", value); }
  static std::string Value(const IniStore& store) { return store.Get(kApplicationName, "Options", "Key", "none"); }

  TemporaryDirectory dir;
  std::string path = dir.File("settings/quorvane.conf");
  std::vector<std::string> failures;
};

TEST_F(IniStoreTest, QuickSavesOfOneSizeAreAllKept) {
  IniStore store = Open();
  IniStore other = Open();
  for (int i = 0; i < 100; ++i) {
    const std::string value = std::to_string(100 + i % 3);
    Save(i % 5 == 4 ? other : store, value);
    ASSERT_EQ(Value(i % 5 == 4 ? other : store), value);
    ASSERT_EQ(ReadFile(path), "[Options]\nKey=" + value + "\n");
  }
  EXPECT_EQ(Value(Open()), "100");
}

TEST_F(IniStoreTest, AnOddFileIsMended) {
  for (const char* odd : {"a=1\n[]\na=1\n", "[/]\na=1\n[]\n=\n", "Key=x\n[Options\n", "[A]\nx=@Variant(\n"}) {
    SCOPED_TRACE(odd);
    std::filesystem::create_directory(dir.File("settings"));
    dir.Write("settings/quorvane.conf", odd);
    IniStore store = Open();
    Save(store, "1");
    EXPECT_EQ(Value(Open()), "1");
  }
  EXPECT_EQ(failures, std::vector<std::string>());
}

TEST_F(IniStoreTest, WhatCannotBeTheSettingsIsLeftAloneAndTheReasonToldOnce) {
  const auto tell = [this] {
    failures.clear();
    IniStore store = Open();
    Save(store, "1");
    Save(store, "2");
    EXPECT_EQ(Value(store), "2");
    return failures;
  };
  using Texts = std::vector<std::string>;
  dir.Write("settings", "in the way");
  EXPECT_EQ(tell(), Texts{"Not a directory"});
  std::filesystem::remove(dir.File("settings"));
  std::filesystem::create_directory(dir.File("settings"));
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);  // Opening it would wait for a writer.
  EXPECT_EQ(tell(), Texts{"it is a pipe, not a file"});
  std::filesystem::remove(path);
  dir.Write("settings/quorvane.conf", "[Options]\nKey=0\n");
  std::filesystem::resize_file(path, kMaxSmallFile + 1);
  EXPECT_EQ(tell(), Texts{"it is larger than 4 MB"});
  EXPECT_EQ(std::filesystem::file_size(path), kMaxSmallFile + 1);
}

}  // namespace
}  // namespace quorvane::test
