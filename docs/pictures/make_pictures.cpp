// Draws the pictures of docs/pictures: the real window over the given lexicon, driven through its own commands, and
// every dialog it opens. Usage: make_pictures DIRECTORY LEXICON [PREFIX [dark]]. Another scale: QT_SCALE_FACTOR.

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "app/main_window.h"
#include "app/start/start_up.h"
#include "base/window/qt_text.h"
#include "settings/settings_table.h"
#include "settings/window/ini_store.h"

namespace quorvane {
namespace {

// A directory as a user's may be, which the list of directories shows: the program's among others.
class Home {
 public:
  Home() {
    for (const char* name :
         {"Desktop",     "Documents", "Downloads", "Games",      "Languages", "Letters", "Music",   "Pictures",
          "Projects",    "Puzzles",   "quorvane",  "Recipes",    "School",    "Scores",  "Stories", "Travel",
          "Tournaments", "Videos",    "Walks",     "Wallpapers", "Work",      "Writing"}) {
      QDir(root_.path()).mkdir(name);
    }
  }
  QString path() const { return root_.filePath("quorvane"); }
  QString filePath(const QString& name) const { return QDir(path()).filePath(name); }

 private:
  QTemporaryDir root_;
};

// Saves a picture of every modal window that opens, and answers it.
class PictureDoor : public ScreenDoor {
 public:
  PictureDoor(QString directory, QString prefix) : directory_(std::move(directory)), prefix_(std::move(prefix)) {}

  Answer Ask(QWidget* parent, const Question& question) override {
    Plan("box");
    ScreenDoor::Ask(parent, question);
    return Answer::Ok;
  }
  int Run(QDialog& dialog) override {
    Plan(dialog.objectName());
    return ScreenDoor::Run(dialog);
  }
  void Beep() override {}

  void Save(QWidget& widget, const QString& name) {
    QTest::qWait(30);
    widget.grab().save(QDir(directory_).filePath(prefix_ + name + ".png"));
  }
  void NameNext(const QString& name) { next_ = name; }

 private:
  void Plan(const QString& name) {
    const QString used = next_.isEmpty() ? name : next_;
    next_.clear();
    QTimer::singleShot(200, qApp, [this, used] {
      QWidget* modal = QApplication::activeModalWidget();
      Save(*modal, used);
      static_cast<QDialog*>(modal)->reject();
    });
  }

  QString directory_;
  QString prefix_;
  QString next_;
};

class FirstWords : public RandomSource {
 public:
  double NextFraction() override { return fraction_ += 0.013; }

 private:
  double fraction_ = 0.1;
};

class Studio {
 public:
  Studio(const QString& directory, const QString& lexicon, const QString& prefix)
      : door_(directory, prefix),
        settings_(folder_.filePath("quorvane.conf"), [](const FileError&) {}),
        log_(ToText(folder_.filePath("quorvane.log")), SystemClock(), [](const FileError&) {}),
        services_{settings_, log_, door_, random_, ToText(folder_.path()), ToText(folder_.filePath("quorvane.conf"))} {
    std::filesystem::create_symlink(ToText(lexicon), ToText(folder_.filePath("words.lex")));
    std::filesystem::copy_file("app/Quorvane.hlp", ToText(folder_.filePath("Quorvane.hlp")));
    settings_.Save(kApplicationName, "Selection", "ExcludedChars", "aeiou");
    settings_.Save(kApplicationName, "Selection", "ScrabbleChars", "retains?");
    settings_.Save(kApplicationName, "Printer", "PrinterName", "PDF file");
    window_ = std::make_unique<MainWindow>(services_);
  }

  void Draw() {
    window_->show();
    StartUp(*window_, services_).Run();
    window_->ResizeToContents();
    Save("start");
    Search("*ell*");
    window_->results->List()->setCurrentIndex(window_->results->List()->model()->index(3, 0));
    Save("search");
    Type("=============");
    Save("refusal_scrabble");
    Search("listen");
    Click("rbAnagram");
    Search("listen");
    Save("anagrams");
    Type("list?n");
    Save("refusal_anagram");
    window_->Item("menWideScreen")->setChecked(true);
    window_->Command().ToggleWideScreen();
    Save("wide");
    window_->Item("menWideScreen")->setChecked(false);
    window_->Command().ToggleWideScreen();
    Menus();
    Dialogs();
    Colours();
  }

 private:
  void Save(const QString& name) { door_.Save(*window_, name); }

  void Type(const QString& text) {
    auto* box = window_->findChild<QLineEdit*>("tbInput");
    box->clear();
    QTest::keyClicks(box, text);
  }
  void Search(const QString& text) {
    Type(text);
    QTest::keyClick(window_->findChild<QLineEdit*>("tbInput"), Qt::Key_Return);
  }
  void Click(const QString& name) { QTest::mouseClick(window_->findChild<QWidget*>(name), Qt::LeftButton); }

  void Menus() {
    for (QMenu* menu : window_->menuBar()->findChildren<QMenu*>()) {
      emit menu->aboutToShow();
      menu->popup(window_->pos());
      door_.Save(*menu, "menu_" + menu->objectName());
      menu->hide();
    }
  }

  void Dialogs() {
    Commands& command = window_->Command();
    Search("ab*");
    for (const auto run :
         {&Commands::OpenNewLexicon, &Commands::ChangeSaveName, &Commands::SaveAsLexicon, &Commands::ChangeIncludeList,
          &Commands::ChangeExcludeList, &Commands::ChangeScrabbleList, &Commands::SetUpPrinter,
          &Commands::ChangeWeblink, &Commands::ColourMainText, &Commands::CountByLetter, &Commands::CountByLength,
          &Commands::ShowWildcards, &Commands::ShowHelp, &Commands::ShowAbout}) {
      (command.*run)();
    }
    Search("~12");
    door_.NameNext("frmLexProblem");
    const std::string bad = ToText(folder_.filePath("bad.lex"));
    std::ofstream(bad, std::ios::binary) << "abbey\r\nabbot\r\n\xE9lan\r\n";
    command.LoadLexiconFile(bad);
    window_->session.ended = false;
  }

  void Colours() {
    Search("*ell*");
    for (const auto& [key, value] : {std::pair{"MainBack", "&H00E0FFFF"}, {"ListBack", "&H00800000"}}) {
      settings_.Save(kApplicationName, "Colours", key, value);
    }
    window_->Command().ResetColours();
    Save("reset_colours");
  }

  Home folder_;
  PictureDoor door_;
  IniStore settings_;
  EventLog log_;
  FirstWords random_;
  Services services_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 3) {
    qWarning("usage: make_pictures DIRECTORY LEXICON [PREFIX [dark]]");
    return 2;
  }
  if (arguments.value(4) == "dark") {
    QPalette dark(QColor(0x2D, 0x2D, 0x2D), QColor(0x23, 0x23, 0x23));
    dark.setColor(QPalette::Base, QColor(0x1B, 0x1B, 0x1B));
    dark.setColor(QPalette::Link, QColor(0x6F, 0xB5, 0xFF));
    QApplication::setPalette(dark);
  }
  quorvane::Studio(arguments[1], arguments[2], arguments.value(3)).Draw();
  return 0;
}
