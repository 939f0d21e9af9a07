// The entry of the window program.

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QSocketNotifier>
#include <algorithm>
#include <array>
#include <csignal>
#include <random>
#include <string_view>

#include "app/main_window.h"
#include "app/start/shut_down.h"
#include "app/start/single_instance.h"
#include "base/program_directory.h"
#include "base/version.h"
#include "base/window/qt_text.h"
#include "settings/window/ini_store.h"

namespace quorvane {
namespace {

// Random words differ from search to search: the generator is seeded from the clock.
class ClockSeededRandom : public RandomSource {
 public:
  ClockSeededRandom() : generator_(static_cast<uint32_t>(SystemTicks()() ^ std::random_device()())) {}
  double NextFraction() override { return static_cast<double>(generator_()) / 4294967296.0; }

 private:
  std::mt19937 generator_;
};

// The options; --help and --version end the process here.
QString DataDirectoryOption(const QCoreApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Finds words for word games and puzzles.");
  parser.addHelpOption();
  parser.addVersionOption();
  const QCommandLineOption dataDir("data-dir", "The program's directory: lexicons, log and results file.", "DIR");
  parser.addOption(dataDir);
  parser.process(application);
  return parser.value(dataDir);
}

// Whether the arguments ask for a text only, which needs no display.
bool AsksForText(int argc, char** argv) {
  return std::any_of(argv + 1, argv + argc, [](const std::string_view argument) {
    return argument == "--help" || argument == "-h" || argument == "--help-all" || argument == "--version" ||
           argument == "-v";
  });
}

// Written to when the process is asked to end; read by the event loop.
std::array<int, 2> signalPipe{-1, -1};

extern "C" void OnEndSignal(int) {
  const char byte = 0;
  [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
}

// A process that is asked to end (by a logout, by a terminal) leaves like a closed window.
void CloseOnSignals(MainWindow& window) {
  if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    return;
  }
  auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, &window);
  QObject::connect(notifier, &QSocketNotifier::activated, &window, [&window] { window.close(); });
  for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
    // What was to be ignored (by nohup, by a shell for its background) stays so.
    if (std::signal(number, OnEndSignal) == SIG_IGN) {
      std::signal(number, SIG_IGN);
    }
  }
}

void NameProgram() {
  QCoreApplication::setApplicationName("Quorvane");
  QCoreApplication::setApplicationVersion(FromText(VersionText()));
}

int Main(const QString& dataDir) {
  ScreenDoor door;
  SingleInstance instance;
  switch (instance.Claim()) {
    case SingleInstance::Outcome::Second:
      door.Show(nullptr, kSecondInstanceText);
      return 1;
    case SingleInstance::Outcome::NoLock:
      door.Show(nullptr, "The lock file " + ToText(instance.LockPath()) +
                             " can't be made; a second instance of the program would not be noticed.");
      break;
    case SingleInstance::Outcome::First:
      break;
  }
  const ProgramDirectory directory = SettleProgramDirectory(ProgramDirectoryInputOfProcess(ToText(dataDir)));
  if (directory.problem) {
    door.Show(nullptr, "The program's directory can't be set up:\r\n" + directory.problem->Text());
  }
  IniStore settings(SettingsFileName(), [&door](const FileError& error) {
    door.Show(nullptr,
              "The settings can't be stored in " + error.Text() + ".\r\nYour choices hold until the program ends.");
  });
  EventLog log(JoinPath(directory.path, kLogFileName), SystemClock(), [&door](const FileError& error) {
    door.Show(nullptr, "The log file can't be written: " + error.Text() + ".\r\nThe program goes on without it.");
  });
  ClockSeededRandom random;
  Services services{settings, log, door, random, directory.path, ToText(settings.FileName())};
  bool ended = false;
  int status = 0;
  services.endProcess = [&](int code) {
    ended = true;
    status = code;
    QCoreApplication::exit(code);
  };
  MainWindow window(services);
  QObject::connect(qApp, &QApplication::commitDataRequest, &window, [&window] { window.close(); });
  CloseOnSignals(window);
  window.show();
  if (!window.Start() || ended) {
    return status;
  }
  window.ResizeToContents();
  return QApplication::exec();
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  if (quorvane::AsksForText(argc, argv)) {
    const QCoreApplication application(argc, argv);
    quorvane::NameProgram();
    quorvane::DataDirectoryOption(application);
    return 0;
  }
  const QApplication application(argc, argv);
  quorvane::NameProgram();
  QApplication::setDesktopFileName("quorvane");
  QApplication::setWindowIcon(QIcon::fromTheme("quorvane"));
  QApplication::setQuitOnLastWindowClosed(false);
  return quorvane::Main(quorvane::DataDirectoryOption(application));
}
