// The one door through which every modal question goes, so that a test can answer it and read what was asked.
#pragma once

#include <QDialog>
#include <QString>
#include <string_view>

namespace quorvane {

struct Question {
  QString title = "Quorvane";
  QString text;
  bool critical = false;
  bool cancel = false;  // Offers Cancel beside OK.
  QString extraButton;  // Caption of a third button, if any.
};

enum class Answer { Ok, Cancel, Extra };

// The property of a window that hides before any question, since it would lie over it.
inline constexpr const char* kGivesWay = "givesWay";

class Door {
 public:
  virtual ~Door() = default;
  virtual Answer Ask(QWidget* parent, const Question& question) = 0;
  // Shows a dialog modally; what QDialog::exec returns.
  virtual int Run(QDialog& dialog) = 0;
  // Asks where to write a file; empty when the question was cancelled.
  virtual QString AskSavePath(QWidget* parent, const QString& title, const QString& suggestion,
                              const QString& filter) = 0;
  // Asks for a file to read; the same.
  virtual QString AskOpenPath(QWidget* parent, const QString& title, const QString& suggestion,
                              const QString& filter) = 0;
  virtual void Beep() = 0;

  // A plain message with OK. Lines of `text` may be parted by CR LF.
  void Show(QWidget* parent, std::string_view text, bool critical = false, const QString& title = "Quorvane");
};

// The hourglass for as long as the object lives.
class Hourglass {
 public:
  Hourglass();
  ~Hourglass();
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

// The door to the screen.
class ScreenDoor : public Door {
 public:
  Answer Ask(QWidget* parent, const Question& question) override;
  int Run(QDialog& dialog) override;
  QString AskSavePath(QWidget* parent, const QString& title, const QString& suggestion, const QString& filter) override;
  QString AskOpenPath(QWidget* parent, const QString& title, const QString& suggestion, const QString& filter) override;
  void Beep() override;
};

}  // namespace quorvane
