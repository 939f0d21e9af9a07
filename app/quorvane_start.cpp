// The entry of the window program.

#include <QApplication>
#include <QCommandLineParser>
#include <random>

#include "app/main_window.h"
#include "app/shut_down.h"
#include "app/single_instance.h"
#include "app/start_up.h"
#include "base/program_directory.h"
#include "base/qt_text.h"
#include "base/version.h"
#include "settings/ini_store.h"

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

int Main(QApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Finds words for word games and puzzles.");
  parser.addHelpOption();
  parser.addVersionOption();
  const QCommandLineOption dataDir("data-dir", "The program's directory: lexicons, log and results file.", "DIR");
  parser.addOption(dataDir);
  parser.process(application);

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
  const ProgramDirectory directory =
      SettleProgramDirectory(ProgramDirectoryInputOfProcess(ToText(parser.value(dataDir))));
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
  QObject::connect(&application, &QApplication::commitDataRequest, &window, [&window] { window.close(); });
  window.show();
  if (!StartUp(window, services).Run() || ended) {
    return status;
  }
  window.adjustSize();
  return QApplication::exec();
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Quorvane");
  QApplication::setApplicationVersion(quorvane::FromText(quorvane::VersionText()));
  QApplication::setDesktopFileName("quorvane");
  QApplication::setQuitOnLastWindowClosed(false);
  return quorvane::Main(application);
}
