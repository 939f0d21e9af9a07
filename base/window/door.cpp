#include "base/window/door.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "base/window/qt_text.h"

namespace quorvane {
namespace {

// A message box of the program: plain text, whatever the text holds; no hourglass while it is open.
class Box : public QMessageBox {
 public:
  Box(QWidget* parent, const quorvane::Question& question) : QMessageBox(parent) {
    setObjectName("messageBox");
    setWindowTitle(question.title);
    setTextFormat(Qt::PlainText);
    setText(question.text);
    setIcon(question.critical ? QMessageBox::Critical : QMessageBox::NoIcon);
    setDefaultButton(addButton(QMessageBox::Ok));
    if (question.cancel) {
      addButton(QMessageBox::Cancel);
    }
    if (!question.extraButton.isEmpty()) {
      extra_ = addButton(question.extraButton, QMessageBox::ActionRole);
    }
  }

  Answer Choose() {
    const int result = exec();
    if (extra_ != nullptr && clickedButton() == extra_) {
      return Answer::Extra;
    }
    return result == QMessageBox::Ok ? Answer::Ok : Answer::Cancel;
  }

 private:
  QPushButton* extra_ = nullptr;
};

// The plain cursor while a modal window is open, whatever the program shows around it.
class PlainCursor {
 public:
  PlainCursor() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->property(kGivesWay).toBool()) {
        window->hide();
      }
    }
    QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~PlainCursor() { QApplication::restoreOverrideCursor(); }
  PlainCursor(const PlainCursor&) = delete;
  PlainCursor& operator=(const PlainCursor&) = delete;
};

}  // namespace

void Door::Show(QWidget* parent, std::string_view text, bool critical, const QString& title) {
  Question question;
  question.title = title.isEmpty() ? question.title : title;
  question.text = ScreenText(text);
  question.critical = critical;
  Ask(parent, question);
}

Hourglass::Hourglass() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
}

Hourglass::~Hourglass() {
  QApplication::restoreOverrideCursor();
}

Answer ScreenDoor::Ask(QWidget* parent, const Question& question) {
  const PlainCursor cursor;
  return Box(parent, question).Choose();
}

int ScreenDoor::Run(QDialog& dialog) {
  const PlainCursor cursor;
  return dialog.exec();
}

QString ScreenDoor::AskSavePath(QWidget* parent, const QString& title, const QString& suggestion,
                                const QString& filter) {
  const PlainCursor cursor;
  return QFileDialog::getSaveFileName(parent, title, suggestion, filter);
}

QString ScreenDoor::AskOpenPath(QWidget* parent, const QString& title, const QString& suggestion,
                                const QString& filter) {
  const PlainCursor cursor;
  return QFileDialog::getOpenFileName(parent, title, suggestion, filter);
}

void ScreenDoor::Beep() {
  QApplication::beep();
}

}  // namespace quorvane
