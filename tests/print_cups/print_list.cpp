// Prints a list from the real window on a printer of the machine. FOLDER is its program directory, with lexicon and
// settings. Written, a line each: what the window tells, and its status at the end.
//
// Usage: print_list FOLDER PATTERN ANSWER COMMAND. The question is answered with ANSWER, "ok" or "cancel", after the
// shell has run COMMAND while it was open; with "none" COMMAND runs before the question.

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/main_window.h"
#include "base/window/qt_text.h"
#include "settings/window/ini_store.h"

namespace quorvane {
namespace {

class PipeDoor : public Door {
 public:
  PipeDoor(std::string_view answer, const char* command) : ok_(answer == "ok"), command_(command) {}

  Answer Ask(QWidget* /*parent*/, const Question& question) override {
    std::puts(ToText(question.title + ": " + question.text).c_str());
    return !question.cancel || (std::system(command_) == 0 && ok_) ? Answer::Ok : Answer::Cancel;
  }
  int Run(QDialog& /*dialog*/) override { return QDialog::Rejected; }
  QString AskSavePath(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
  QString AskOpenPath(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
  void Beep() override {}

 private:
  bool ok_;
  const char* command_;
};

class NoRandom : public RandomSource {
 public:
  double NextFraction() override { return 0.5; }
};

int Drive(const std::string& folder, const char* pattern, const char* answer, const char* command) {
  const auto complain = [](const FileError& error) { std::puts(error.Text().c_str()); };
  IniStore settings(FromText(folder + "/quorvane.conf"), complain);
  EventLog log(folder + "/quorvane.log", SystemClock(), complain);
  PipeDoor door(answer, command);
  NoRandom random;
  Services services{settings, log, door, random, folder, folder + "/quorvane.conf"};
  MainWindow window(services);
  window.show();
  if (!window.Start()) {
    return 1;
  }
  auto* box = window.findChild<QLineEdit*>("tbInput");
  QTest::keyClicks(box, pattern);
  QTest::keyClick(box, Qt::Key_Return);
  if (std::string_view(answer) == "none" && std::system(command) != 0) {
    return 1;
  }
  QTest::mouseClick(window.findChild<QWidget*>("cmdPrint"), Qt::LeftButton);
  std::puts(ToText(window.findChild<QLabel*>("lblStatus")->text()).c_str());
  return 0;
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  return argc == 5 ? quorvane::Drive(argv[1], argv[2], argv[3], argv[4]) : 2;
}
