// The window's own figures. Usage: window_figures LEXICON WHAT, where WHAT is
//   empty   shows an empty window and ends (to compare with)
//   start   shows the program's window over LEXICON, ready for input, and ends
//   keys    prints the median and the worst time from a key press to the painted status, in milliseconds
//   search  prints the median time from Enter to the painted list of a search for "*"
//   within  prints the times of the keys that narrow that list
//   history prints the times of a step through a full history and of opening its window, to the painted window
//   list    prints the times of a letter typed in that list, which goes to a word, and of selecting all its words

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "app/main_window.h"
#include "base/window/qt_text.h"
#include "search/history.h"
#include "settings/window/ini_store.h"

namespace {

using namespace quorvane;

constexpr int kRuns = 9;

class NoRandom : public RandomSource {
 public:
  double NextFraction() override { return 0.5; }
};

// Everything that a paint needs: what is queued is handled, and the window system has seen it.
void Settle() {
  QApplication::sendPostedEvents();
  QApplication::processEvents();
}

void KeepSearches(const std::string& path) {
  History history;
  history.Load(path);
  for (size_t i = 0; i < kHistoryKept; ++i) {
    HistoryEntry entry;
    entry.search.text = "un*a?e" + std::string(i % 50, 'x') + std::string(i / 50, 'y');
    entry.lexicon = "words.lex";
    entry.time = LocalTimeText(static_cast<std::time_t>(i) * 1000);
    history.Append(std::move(entry));
  }
}

struct Program {
  explicit Program(const QString& lexicon, bool history)
      : settings(folder.filePath("quorvane.conf"), [](const FileError&) {}),
        log(ToText(folder.filePath("quorvane.log")), SystemClock(), [](const FileError&) {}),
        services{settings, log, door, random, ToText(folder.path()), ""} {
    std::filesystem::create_symlink(std::filesystem::absolute(ToText(lexicon)), ToText(folder.filePath("words.lex")));
    settings.Save(kApplicationName, "Options", "SaveToFile", "No");
    if (history) {
      KeepSearches(ToText(folder.filePath(kHistoryName)));
    }
    window = std::make_unique<MainWindow>(services);
    window->show();
    window->Start();
    Settle();
  }

  double Press(int key, const QString& text, const char* where = "tbInput", Qt::KeyboardModifiers with = {}) {
    QWidget* control = window->findChild<QWidget*>(where);
    QElapsedTimer timer;
    timer.start();
    QKeyEvent press(QEvent::KeyPress, key, with, text);
    QApplication::sendEvent(control, &press);
    Settle();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
  }

  // What each key of ten searches takes as they are typed.
  std::vector<double> TypeSearches(const char* where) {
    std::vector<double> times;
    for (const char* typed :
         {"str?ng", "un*able", "*ell*", "1221", "@$@$@", ";aeiou~", "%2ss>", "?r?s??o?d", "*ing", "qu*k"}) {
      window->findChild<QLineEdit*>(where)->clear();
      Settle();
      for (const QChar c : QString(typed)) {
        times.push_back(Press(0, c, where));
      }
    }
    return times;
  }

  QTemporaryDir folder;
  ScreenDoor door;
  NoRandom random;
  IniStore settings;
  EventLog log;
  Services services;
  std::unique_ptr<MainWindow> window;
};

void Report(const char* what, std::vector<double> times) {
  std::sort(times.begin(), times.end());
  std::printf("%s: median %.2f ms, worst %.2f ms\n", what, times[times.size() / 2], times.back());
}

// A step through the history, and its window.
void MeasureHistory(Program& program) {
  std::vector<double> steps(kRuns);
  std::vector<double> windows;
  windows.reserve(kRuns);
  for (double& step : steps) {
    step = program.Press(Qt::Key_Up, "");
    QElapsedTimer timer;
    timer.start();
    program.window->findChild<QAction*>("menSearches")->trigger();
    Settle();
    windows.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    program.window->findChild<QWidget*>("frmSearches")->close();
    Settle();
  }
  Report("first step through the history to painted search", steps);
  Report("window of the searches", windows);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  const QString what = arguments.value(2);
  if (what == "empty") {
    QWidget empty;
    empty.resize(700, 550);
    empty.show();
    Settle();
    return 0;
  }
  Program program(arguments.value(1), what == "history");
  if (what == "keys") {
    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run) {
      for (const QChar c : QString("un?a@$*e")) {
        times.push_back(program.Press(0, c));
      }
      program.window->findChild<QLineEdit*>("tbInput")->clear();
      Settle();
    }
    Report("key press to painted status", times);
  } else if (what == "live") {
    // Each key of ten searches as they are typed, with results while typing; the first key after a load by itself.
    program.window->findChild<QAction*>("menLiveResults")->trigger();
    Report("first live key after a load", {program.Press(0, "s")});
    Report("live key to painted list", program.TypeSearches("tbInput"));
  } else if (what == "within") {
    program.Press(0, "*");
    program.Press(Qt::Key_Return, "");
    program.window->findChild<QAction*>("menFindWithin")->trigger();
    Report("key of 'within these' to painted list", program.TypeSearches("tbWithin"));
    program.Press(Qt::Key_Escape, "", "tbWithin");
    program.window->findChild<QWidget*>("rbSortLength")->setFocus();
    program.Press(Qt::Key_Space, " ", "rbSortLength");
    program.window->findChild<QAction*>("menFindWithin")->trigger();
    Report("the same in a list in order of length", program.TypeSearches("tbWithin"));
  } else if (what == "search") {
    program.Press(0, "*");
    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run) {
      times.push_back(program.Press(Qt::Key_Return, ""));
    }
    Report("search of * to painted list", times);
  } else if (what == "history") {
    MeasureHistory(program);
  } else if (what == "list") {
    program.Press(0, "*");
    program.Press(Qt::Key_Return, "");
    std::vector<double> letters;
    std::vector<double> all;
    for (int run = 0; run < kRuns; ++run) {
      letters.push_back(program.Press(0, run % 2 == 0 ? "y" : "b", "lbWordList"));
      program.Press(Qt::Key_Escape, "", "lbWordList");
      all.push_back(program.Press(Qt::Key_A, "", "lbWordList", Qt::ControlModifier));
    }
    Report("letter typed in the list to painted word", letters);
    Report("all words selected to painted list", all);
  }
  return 0;
}
