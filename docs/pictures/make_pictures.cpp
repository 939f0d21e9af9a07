// Draws the pictures of docs/pictures: the real window over the given lexicon, driven through its own commands, and
// every dialog it opens. The same code draws the same pixels twice on one machine: what differs from run to run is
// handed in. Usage: make_pictures DIRECTORY LEXICON HOME CLOCK BUILT [PREFIX [dark]]. HOME is made anew and holds the
// program's folder; CLOCK is the time that the program sees, "2026-03-05T14:07:09"; BUILT is the build date that the
// about box shows. Another scale: QT_SCALE_FACTOR. What a screen reader sees of the window after a search is written
// beside the pictures, in "tree.txt".

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDateTime>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMetaEnum>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "app/main_window.h"
#include "base/window/qt_text.h"
#include "search/history.h"
#include "settings/settings_table.h"
#include "settings/window/ini_store.h"

namespace quorvane {
namespace {

// A directory as a user's may be, which the list of directories shows: the program's among others.
class Home {
 public:
  explicit Home(const QString& root) : root_(root) {
    root_.removeRecursively();
    root_.mkpath(".");
    for (const char* name :
         {"Desktop",     "Documents", "Downloads", "Games",      "Languages", "Letters", "Music",   "Pictures",
          "Projects",    "Puzzles",   "quorvane",  "Recipes",    "School",    "Scores",  "Stories", "Travel",
          "Tournaments", "Videos",    "Walks",     "Wallpapers", "Work",      "Writing"}) {
      root_.mkdir(name);
    }
  }
  QString path() const { return root_.filePath("quorvane"); }
  QString filePath(const QString& name) const { return QDir(path()).filePath(name); }

 private:
  QDir root_;
};

// Whether the button in a text box has faded in or out.
bool IsStill(const QWidget& widget) {
  const auto buttons = widget.findChildren<QToolButton*>();
  return std::none_of(buttons.begin(), buttons.end(), [](const QToolButton* button) {
    const double opacity = button->property("opacity").toDouble();
    return opacity > 0 && opacity < 1;
  });
}

// Saves a picture of every modal window that opens, and answers it.
class PictureDoor : public ScreenDoor {
 public:
  PictureDoor(QString directory, QString prefix, QString built)
      : directory_(std::move(directory)), prefix_(std::move(prefix)), built_(std::move(built)) {}

  Answer Ask(QWidget* parent, const Question& question) override {
    Plan("box");
    ScreenDoor::Ask(parent, question);
    return Answer::Ok;
  }
  int Run(QDialog& dialog) override {
    if (const QString lexicon = std::exchange(lexicon_, {}); !lexicon.isEmpty()) {
      auto* list = dialog.findChild<QListWidget*>("fbList");
      list->setCurrentItem(list->findItems(lexicon, Qt::MatchExactly).value(0));
      QTimer::singleShot(0, dialog.findChild<QPushButton*>("cmdOK"), &QPushButton::click);
    } else {
      Plan(dialog.objectName());
    }
    if (dialog.objectName() == "frmImport") {
      dialog.findChild<QPushButton*>("cmdBrowse")->click();
      dialog.findChild<QCheckBox*>("cbHeading")->click();
      dialog.findChild<QSpinBox*>("sbColumn")->setValue(2);
    }
    if (auto* built = dialog.findChild<QLabel*>("lblCompiled")) {
      built->setText(built_);
    }
    return ScreenDoor::Run(dialog);
  }
  QString AskOpenPath(QWidget*, const QString&, const QString&, const QString&) override { return list_; }
  void Beep() override {}

  void Save(QWidget& widget, const QString& name) {
    do {
      QTest::qWait(30);
    } while (!IsStill(widget));
    widget.grab().save(QDir(directory_).filePath(prefix_ + name + ".png"));
  }
  // The next dialog is the choice of a lexicon, which is answered with `name`.
  void ChooseNext(const QString& name) { lexicon_ = name; }
  // The file that is imported.
  void Import(const QString& list) { list_ = list; }

 private:
  void Plan(const QString& name) {
    QTimer::singleShot(200, qApp, [this, name] {
      QWidget* modal = QApplication::activeModalWidget();
      Save(*modal, name);
      static_cast<QDialog*>(modal)->reject();
    });
  }

  QString directory_;
  QString prefix_;
  QString built_;
  QString lexicon_;
  QString list_;
};

constexpr int kMostRows = 5;  // Of a list, in the description.

// A line for what a screen reader sees: role, name, value, state; then its children, indented.
void Describe(QAccessibleInterface* seen, const QString& indent, std::ostream& out) {
  const QAccessible::State state = seen->state();
  if (state.invisible != 0) {
    return;
  }
  const QString name = seen->text(QAccessible::Name);
  const QString value = seen->text(QAccessible::Value);
  QString line = indent + QMetaEnum::fromType<QAccessible::Role>().valueToKey(seen->role());
  line += name.isEmpty() ? "" : " \"" + name.trimmed() + '"';
  line += value.isEmpty() || value == name ? "" : " = " + value;
  for (const auto& [is, word] : {std::pair{state.focused, ", focused"},
                                 {state.selected, ", selected"},
                                 {state.checked, ", checked"},
                                 {state.disabled, ", disabled"}}) {
    line += is != 0 ? word : "";
  }
  out << ToText(line.replace('\n', ' ')) << '\n';
  const int children = seen->childCount();
  const int described = seen->role() == QAccessible::List ? std::min(children, kMostRows) : children;
  for (int i = 0; i < described; ++i) {
    Describe(seen->child(i), indent + "  ", out);
  }
  if (described < children) {
    out << ToText(indent) << "  ... " << children << " rows\n";
  }
}

class FirstWords : public RandomSource {
 public:
  double NextFraction() override { return fraction_ += 0.013; }

 private:
  double fraction_ = 0.1;
};

class Studio {
 public:
  Studio(const QString& directory, const QString& lexicon, const QString& home, const LocalClock& clock,
         const QString& built, const QString& prefix)
      : directory_(directory),
        folder_(home),
        door_(directory, prefix, built),
        settings_(folder_.filePath("quorvane.conf"), [](const FileError&) {}),
        log_(ToText(folder_.filePath("quorvane.log")), clock, [](const FileError&) {}),
        services_{settings_, log_, door_, random_, ToText(folder_.path()), ToText(folder_.filePath("quorvane.conf"))} {
    services_.clock = clock;
    std::filesystem::create_symlink(ToText(lexicon), ToText(folder_.filePath("words.lex")));
    std::filesystem::copy_file("app/Quorvane.hlp", ToText(folder_.filePath("Quorvane.hlp")));
    settings_.Save(kApplicationName, "Selection", "ExcludedChars", "aeiou");
    settings_.Save(kApplicationName, "Selection", "ScrabbleChars", "retains?");
    settings_.Save(kApplicationName, "Printer", "PrinterName", "PDF file");
    window_ = std::make_unique<MainWindow>(services_);
  }

  void Draw() {
    window_->show();
    window_->Start();
    window_->ResizeToContents();
    Save("start");
    Search("*ell*");
    auto* list = window_->findChild<QAbstractItemView*>("lbWordList");
    list->setCurrentIndex(list->model()->index(3, 0));
    Save("search");
    std::ofstream tree(ToText(QDir(directory_).filePath("tree.txt")));
    Describe(QAccessible::queryAccessibleInterface(window_.get()), {}, tree);
    Choose("menFindWithin");
    QTest::keyClicks(window_->findChild<QLineEdit*>("tbWithin"), "*s");
    Save("workbench_within");
    Type("=============");
    Save("refusal_scrabble");
    Search("listen");
    Click("rbAnagram");
    Search("listen");
    Save("anagrams");
    Type("list?n");
    Save("refusal_anagram");
    Choose("menWideScreen");
    Save("wide");
    Choose("menWideScreen");
    Menus();
    Searches();
    Dialogs();
    Workbench();
    Colours();
    BadLexicon();
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
  void Choose(const QString& item) { window_->findChild<QAction*>(item)->trigger(); }
  void Click(const QString& name) { QTest::mouseClick(window_->findChild<QWidget*>(name), Qt::LeftButton); }

  void Menus() {
    for (QMenu* menu : window_->menuBar()->findChildren<QMenu*>()) {
      emit menu->aboutToShow();
      menu->popup(window_->pos());
      door_.Save(*menu, "menu_" + menu->objectName());
      menu->hide();
    }
  }

  // Some of them of the days before.
  void Searches() {
    History history;
    history.Load(ToText(folder_.filePath(kHistoryName)));
    std::tm day = services_.clock();
    for (const auto& [text, mode, lengths, count, name] :
         {std::tuple{"=======", WordType::WordList, LengthRange{}, 3051, "Friday's rack"},
          {"un*able", WordType::WordList, {false, 7, 9}, 79, ""},
          {"retains", WordType::AnagramExact, {}, 9, "seven letters"}}) {
      HistoryEntry entry;
      entry.search = {text, mode, std::string(FactsOf(mode).noun), lengths, {"", "", "retains?"}, {}};
      entry.lexicon = "words.lex";
      entry.count = count;
      --day.tm_mday;
      day.tm_min += 17;
      entry.time = LocalTimeText(std::mktime(&day));
      entry.name = name;
      history.Append(entry);
    }
    Choose("menSearches");
    auto* searches = window_->findChild<QDialog*>("frmSearches");
    door_.Save(*searches, "frmSearches");
    searches->close();
  }

  void Dialogs() {
    Search("ab*");
    for (const char* item : {"menNewLex", "menFileSaveFile", "menSaveAsLex", "menSelectChars", "menExcludeChars",
                             "menScrabbleChars", "menFilePrinterSetup", "menChangeWeblink", "memMainText",
                             "menHelpByLetter", "menHelpByLength", "menWildcardSumm", "menHelpHelp", "menHelpAbout"}) {
      Choose(item);
    }
    Search("~12");
    std::ofstream(ToText(folder_.filePath("breakfast.csv")), std::ios::binary)
        << "No;Dish;Price\r\n1;Croissant;1.20\r\n2;Caf\xC3\xA9 cr\xC3\xA8me;2.40\r\n3;Porridge;3.00\r\n"
           "4;\"M\xC3\xBCsli\";2.80\r\n5;porridge;3.10\r\n6;Nr. 7;0.90\r\n";
    door_.Import(folder_.filePath("breakfast.csv"));
    Choose("menImport");
  }

  // What the menu of that name adds, one thing a picture.
  void Workbench() {
    auto* list = window_->findChild<QAbstractItemView*>("lbWordList");
    Choose("menLiveResults");
    Choose("menReading");
    Type("?r?s??o?d");
    Save("workbench_live");
    Choose("menMoreConditions");
    for (const auto& [box, text] : {std::pair{"tbInput", "*"}, {"tbAnd", "?a*"}, {"tbNot", "*s"}, {"tbWith", "zz"}}) {
      window_->findChild<QLineEdit*>(box)->clear();
      QTest::keyClicks(window_->findChild<QLineEdit*>(box), text);
    }
    Save("workbench_conditions");
    Choose("menMoreConditions");
    list->setCurrentIndex(list->model()->index(2, 0));
    QTimer::singleShot(200, qApp, [this] {
      QWidget* menu = QApplication::activePopupWidget();
      door_.Save(*menu, "workbench_word_menu");
      menu->close();
    });
    const QPoint place = list->visualRect(list->currentIndex()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list->viewport()->mapToGlobal(place));
    QApplication::sendEvent(list->viewport(), &event);
    list->setFocus();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    Save("workbench_copied");
    QTest::keyClicks(list, "ba");
    Save("workbench_typed");
    Choose("menExport");
    Search("q!=zzq");
    Save("workbench_empty");
    Choose("menWildcardsBeside");
    auto* beside = window_->findChild<QWidget*>("frmWildcards");
    door_.Save(*beside, "workbench_wildcards");
    beside->close();
    Choose("menLiveResults");
    Choose("menReading");
  }

  // Ends the program.
  void BadLexicon() {
    std::ofstream(ToText(folder_.filePath("bad.lex")), std::ios::binary) << "abbey\r\nabbot\r\n\xE9lan\r\n";
    door_.ChooseNext("bad.lex");
    Choose("menNewLex");
  }

  void Colours() {
    Search("*ell*");
    for (const auto& [key, value] : {std::pair{"MainBack", "&H00E0FFFF"}, {"ListBack", "&H00800000"}}) {
      settings_.Save(kApplicationName, "Colours", key, value);
    }
    Choose("menResetAllToDefault");
    Save("reset_colours");
  }

  QString directory_;
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
  const QDateTime time = QDateTime::fromString(arguments.value(4), Qt::ISODate);
  if (arguments.size() < 6 || !time.isValid()) {
    qWarning("usage: make_pictures DIRECTORY LEXICON HOME CLOCK BUILT [PREFIX [dark]]");
    return 2;
  }
  if (arguments.value(7) == "dark") {
    QPalette dark(QColor(0x2D, 0x2D, 0x2D), QColor(0x23, 0x23, 0x23));
    dark.setColor(QPalette::Base, QColor(0x1B, 0x1B, 0x1B));
    dark.setColor(QPalette::Link, QColor(0x6F, 0xB5, 0xFF));
    QApplication::setPalette(dark);
  }
  QApplication::setCursorFlashTime(0);
  const std::time_t seconds = time.toSecsSinceEpoch();
  const auto clock = [seconds] { return *std::localtime(&seconds); };
  quorvane::Studio(arguments[1], arguments[2], arguments[3], clock, arguments[5], arguments.value(6)).Draw();
  return 0;
}
