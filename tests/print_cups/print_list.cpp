// The real window on the printers of the machine, driven line by line from standard input; what it shows goes to
// standard output, one JSON object a line. FOLDER is its program directory and holds the lexicon "words.lex".
//
// Usage: print_list FOLDER [SECTION/KEY=VALUE]...
// Lines read: "search PATTERN", "print", "quit" and, while a question is open, "ok" or "cancel".
// Lines written: {"ready"}, {"asked"}, {"done"}, each with what the window says then.

#include <QAction>
#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <cstdio>
#include <iostream>
#include <string>

#include "app/main_window.h"
#include "app/start/start_up.h"
#include "base/window/qt_text.h"
#include "print/window/printing.h"
#include "settings/settings_table.h"
#include "settings/window/ini_store.h"

namespace quorvane {
namespace {

void Say(const char* what, QJsonObject facts) {
  facts["event"] = what;
  std::puts(QJsonDocument(facts).toJson(QJsonDocument::Compact).constData());
  std::fflush(stdout);
}

std::string NextLine() {
  std::string line;
  return std::getline(std::cin, line) ? line : "quit";
}

// Passes every question with a Cancel on to whoever reads the output; plain messages are written and closed with OK.
class PipeDoor : public Door {
 public:
  Answer Ask(QWidget* /*parent*/, const Question& question) override {
    Say(question.cancel ? "asked" : "told", {{"title", question.title}, {"text", question.text}});
    return !question.cancel || NextLine() == "ok" ? Answer::Ok : Answer::Cancel;
  }
  int Run(QDialog& dialog) override {
    Say("dialog", {{"name", dialog.objectName()}});
    return QDialog::Rejected;
  }
  QString AskSavePath(QWidget* /*parent*/, const QString& title, const QString& /*suggestion*/,
                      const QString& /*filter*/) override {
    Say("path", {{"title", title}});
    return {};
  }
  void Beep() override {}
};

class NoRandom : public RandomSource {
 public:
  double NextFraction() override { return 0.5; }
};

int Drive(const QStringList& arguments) {
  const std::string folder = ToText(arguments[1]);
  const auto complain = [](const FileError& error) { std::cerr << error.Text() << '\n'; };
  IniStore settings(FromText(folder + "/quorvane.conf"), complain);
  for (const QString& setting : arguments.mid(2)) {
    const std::string name = ToText(setting.section('=', 0, 0));
    const size_t slash = name.find('/');
    settings.Save(kApplicationName, name.substr(0, slash), name.substr(slash + 1), ToText(setting.section('=', 1)));
  }
  EventLog log(folder + "/quorvane.log", SystemClock(), complain);
  PipeDoor door;
  NoRandom random;
  Services services{settings, log, door, random, folder, folder + "/quorvane.conf"};
  MainWindow window(services);
  window.show();
  if (!StartUp(window, services).Run()) {
    std::cerr << "The window did not start.\n";
    return 1;
  }

  const auto state = [&window] {
    return QJsonObject{{"status", window.StatusLabel()->text()},
                       {"entries", static_cast<qint64>(window.results->Results().EntryCount())},
                       {"canPrint", window.Item("menFilePrint")->isEnabled()},
                       {"printers", PrinterNames().join('\n')}};
  };
  Say("ready", state());
  for (std::string line = NextLine(); line != "quit"; line = NextLine()) {
    if (line == "print") {
      window.Item("menFilePrint")->trigger();
    } else if (line.starts_with("search ")) {
      auto* box = window.findChild<QLineEdit*>("tbInput");
      box->clear();
      QTest::keyClicks(box, FromText(line.substr(7)));
      QTest::keyClick(box, Qt::Key_Return);
    } else {
      std::cerr << "Not understood: " << line << '\n';
      return 2;
    }
    Say("done", state());
  }
  return 0;
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (QApplication::arguments().size() < 2) {
    std::cerr << "usage: print_list FOLDER [SECTION/KEY=VALUE]...\n";
    return 2;
  }
  return quorvane::Drive(QApplication::arguments());
}
