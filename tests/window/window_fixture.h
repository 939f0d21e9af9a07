// A running program on a directory of its own: the real window, settings file, log and start-up; every modal question
// is answered by the test.
#pragma once

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/main_window.h"
#include "app/services.h"
#include "base/version.h"
#include "base/window/qt_text.h"
#include "settings/window/ini_store.h"
#include "tests/support/temporary_directory.h"

namespace quorvane::test {

// Keeps what was asked and shown. A dialog is on the screen, modal, while its script runs; without a script it is
// closed unanswered.
class TestDoor : public Door {
 public:
  Answer Ask(QWidget* parent, const Question& question) override;
  int Run(QDialog& dialog) override;
  QString AskSavePath(QWidget* parent, const QString& title, const QString& suggestion, const QString& filter) override;
  QString AskOpenPath(QWidget*, const QString&, const QString&, const QString&) override { return openPath; }
  void Beep() override { ++beeps; }

  // The text of the last message and whether there were exactly that many since the last call.
  std::string TakeText();
  std::vector<std::string> TakeDialogs();
  int TakeBeeps();

  std::vector<Question> questions;
  std::deque<Answer> answers;  // OK when none is left.
  std::vector<std::string> dialogs;
  std::deque<std::function<void(QDialog&)>> scripts;
  QString savePath;
  QString openPath;
  int beeps = 0;
};

class ScriptedRandom : public RandomSource {
 public:
  double NextFraction() override;
  std::deque<double> fractions;
};

// Chooses an entry of a combo box with the keys.
void ChooseIn(QComboBox* list, const QString& entry);

class WindowTest : public testing::Test {
 protected:
  static constexpr const char* kWords[] = {"a",     "ab",    "abba",   "aha",  "bat",    "cat", "cot", "deed",   "eat",
                                           "inlet", "kayak", "listen", "noon", "silent", "tab", "tea", "tinsel", "zoo"};

  WindowTest();
  ~WindowTest() override;

  // A new window over the files as they are. True when it reached its ready state.
  bool Start();
  // Ends the window by its close button and forgets it.
  void Stop();

  template <class Kind = QWidget>
  Kind* Find(const char* name) {
    Kind* found = window->findChild<Kind*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  QAction* Item(const char* name) { return Find<QAction>(name); }
  // Replaces the pattern, key by key.
  void Type(const QString& text);
  void Paste(const QString& text);
  void Search(const QString& text);
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void Click(const char* name);
  void Choose(const char* name, const QString& entry) { ChooseIn(Find<QComboBox>(name), entry); }
  void SelectEntry(int row);
  std::vector<std::string> Entries();

  std::string Text(const char* name);
  std::string Status() { return Text("lblStatus"); }
  bool StatusIsBold();
  std::string Setting(const char* section, const char* key, const char* otherwise = "(none)");
  void Store(const char* section, const char* key, std::string_view value);
  // Every entry as "CODE message", the directory's name as "<dir>"; separator lines as they stand.
  std::vector<std::string> Log();
  // What was logged since the last call.
  std::vector<std::string> NewLog();
  int CountLog(std::string_view entry);

  TemporaryDirectory dir;
  TestDoor door;
  ScriptedRandom random;
  uint32_t tick = 0;
  uint32_t tickStep = 1;  // Every look at the clock moves it on.
  std::tm now{};
  std::vector<int> exits;
  std::vector<std::string> failures;  // Of settings and log, each said once.
  std::unique_ptr<IniStore> settings;
  std::unique_ptr<EventLog> log;
  std::unique_ptr<Services> services;
  std::unique_ptr<MainWindow> window;
  size_t screenCapacity = std::numeric_limits<size_t>::max();

 private:
  size_t logSeen_ = 0;
};

// A click where the control reacts.
void ClickOn(QWidget* control);
template <class Kind = QWidget>
Kind* In(QDialog& dialog, const char* name) {
  Kind* found = dialog.findChild<Kind*>(name);
  EXPECT_NE(found, nullptr) << name;
  return found;
}
// A script that clicks one control.
std::function<void(QDialog&)> Press(const char* name);

using Texts = std::vector<std::string>;

}  // namespace quorvane::test
