#include "tests/window/window_fixture.h"

#include <sstream>

namespace quorvane::test {

Answer TestDoor::Ask(QWidget*, const Question& question) {
  questions.push_back(question);
  if (answers.empty()) {
    return Answer::Ok;
  }
  const Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

int TestDoor::Run(QDialog& dialog) {
  dialogs.push_back(ToText(dialog.objectName()));
  dialog.setModal(true);
  dialog.show();
  dialog.activateWindow();
  QApplication::processEvents();
  if (!scripts.empty()) {
    const auto script = scripts.front();
    scripts.pop_front();
    script(dialog);
  }
  const int result = dialog.isVisible() ? static_cast<int>(QDialog::Rejected) : dialog.result();
  dialog.hide();
  if (dialog.parentWidget() != nullptr) {
    dialog.parentWidget()->activateWindow();
    QApplication::processEvents();
  }
  return result;
}

QString TestDoor::AskSavePath(QWidget*, const QString&, const QString&, const QString&) {
  return savePath;
}

std::string TestDoor::TakeText() {
  std::string text;
  for (const Question& question : questions) {
    text += (text.empty() ? "" : " | ") + ToText(question.text);
  }
  questions.clear();
  return text;
}

std::vector<std::string> TestDoor::TakeDialogs() {
  return std::exchange(dialogs, {});
}

int TestDoor::TakeBeeps() {
  return std::exchange(beeps, 0);
}

double ScriptedRandom::NextFraction() {
  if (fractions.empty()) {
    return 0.5;
  }
  const double fraction = fractions.front();
  fractions.pop_front();
  return fraction;
}

WindowTest::WindowTest() {
  now.tm_year = 126;
  now.tm_mon = 2;
  now.tm_mday = 5;
  now.tm_hour = 14;
  now.tm_min = 7;
  now.tm_sec = 9;
  dir.Write("words.lex", Lines(kWords));
}

WindowTest::~WindowTest() {
  window.reset();
}

bool WindowTest::Start() {
  window.reset();
  settings = std::make_unique<IniStore>(FromText(dir.File("quorvane.conf")), [this](const FileError& error) {
    failures.push_back("settings " + error.Text());
  });
  log = std::make_unique<EventLog>(
      dir.File("quorvane.log"), [this] { return now; },
      [this](const FileError& error) { failures.push_back("log " + error.Text()); });
  services = std::make_unique<Services>(Services{*settings, *log, door, random, dir.path(), dir.File("quorvane.conf")});
  services->clock = [this] { return now; };
  services->ticks = [this] { return tick += tickStep; };
  services->endProcess = [this](int status) { exits.push_back(status); };
  services->screenCapacity = screenCapacity;
  window = std::make_unique<MainWindow>(*services);
  window->show();
  const bool ready = window->Start();
  window->ResizeToContents();
  window->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  return ready;
}

void WindowTest::Stop() {
  window->close();
  window.reset();
}

void WindowTest::Type(const QString& text) {
  auto* box = Find<QLineEdit>("tbInput");
  box->setFocus();
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Delete);
  QTest::keyClicks(box, text);
}

void WindowTest::Paste(const QString& text) {
  QApplication::clipboard()->setText(text);
  auto* box = Find<QLineEdit>("tbInput");
  box->setFocus();
  box->selectAll();
  QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
}

void WindowTest::Search(const QString& text) {
  Type(text);
  QTest::keyClick(Find("tbInput"), Qt::Key_Return);
}

void WindowTest::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(window->windowHandle(), key, modifiers);
}

void WindowTest::Click(const char* name) {
  ClickOn(Find(name));
}

void ChooseIn(QComboBox* list, const QString& entry) {
  const int row = list->findText(entry);
  ASSERT_GE(row, 0) << ToText(entry);
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Home);
  while (list->currentIndex() < row) {
    QTest::keyClick(list, Qt::Key_Down);
  }
}

void WindowTest::SelectEntry(int row) {
  auto* list = Find<QAbstractItemView>("lbWordList");
  const QModelIndex index = list->model()->index(row, 0);
  list->scrollTo(index);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(index).center());
}

std::vector<std::string> WindowTest::Entries() {
  std::vector<std::string> entries;
  const QAbstractItemModel* model = Find<QAbstractItemView>("lbWordList")->model();
  for (int row = 0; row < model->rowCount(); ++row) {
    entries.push_back(ToText(model->index(row, 0).data().toString()));
  }
  return entries;
}

std::string WindowTest::Text(const char* name) {
  auto* widget = Find(name);
  return ToText(widget->property("text").toString());
}

bool WindowTest::StatusIsBold() {
  return Find<QLabel>("lblStatus")->font().bold();
}

std::string WindowTest::Setting(const char* section, const char* key, const char* otherwise) {
  return settings->Get(kApplicationName, section, key, otherwise);
}

void WindowTest::Store(const char* section, const char* key, std::string_view value) {
  if (settings) {
    settings->Save(kApplicationName, section, key, value);
    return;
  }
  IniStore(FromText(dir.File("quorvane.conf")), [](const FileError&) {}).Save(kApplicationName, section, key, value);
}

std::vector<std::string> WindowTest::Log() {
  std::vector<std::string> entries;
  std::istringstream file(ReadFile(dir.File("quorvane.log")));
  for (std::string line; std::getline(file, line);) {
    EXPECT_TRUE(line.ends_with('\r')) << line;
    line.pop_back();
    constexpr std::string_view kStamp = " 03/05/26 14:07:09  ";
    const bool entry = line.size() > 8 && std::string_view(line).substr(8).starts_with(kStamp);
    if (entry) {
      line = line.substr(0, line.find(' ')) + " " + line.substr(8 + kStamp.size());
    } else if (!line.starts_with('=')) {
      // The text of an error may have lines of its own.
      EXPECT_FALSE(entries.empty()) << line;
      entries.back() += "\n" + line;
      continue;
    }
    for (size_t at = line.find(dir.path()); at != std::string::npos; at = line.find(dir.path())) {
      line.replace(at, dir.path().size(), "<dir>");
    }
    entries.push_back(line);
  }
  return entries;
}

std::vector<std::string> WindowTest::NewLog() {
  std::vector<std::string> entries = Log();
  const size_t seen = std::exchange(logSeen_, entries.size());
  entries.erase(entries.begin(), entries.begin() + static_cast<long>(std::min(seen, entries.size())));
  return entries;
}

int WindowTest::CountLog(std::string_view entry) {
  int count = 0;
  for (const std::string& line : Log()) {
    count += line.find(entry) != std::string::npos;
  }
  return count;
}

void ClickOn(QWidget* control) {
  const auto* button = qobject_cast<QAbstractButton*>(control);
  const bool markAtLeft = button != nullptr && (control->inherits("QRadioButton") || control->inherits("QCheckBox"));
  QTest::mouseClick(control, Qt::LeftButton, {}, markAtLeft ? QPoint(9, control->height() / 2) : QPoint());
}

std::function<void(QDialog&)> Press(const char* name) {
  return [name](QDialog& dialog) { ClickOn(In(dialog, name)); };
}

}  // namespace quorvane::test
