// What every controller sees of the window.
#pragma once

#include <string>

class QWidget;

namespace quorvane {

class View {
 public:
  virtual ~View() = default;

  // The parent of dialogs and message boxes.
  virtual QWidget* Window() = 0;
  // The one way to write the status line: painted at once.
  virtual void ShowStatus(const std::string& text, bool bold = false) = 0;
  virtual void ShowTimer(const std::string& text) = 0;
  // The progress bar: a position out of a whole, painted at once.
  virtual void BeginProgress(int whole) = 0;
  virtual void ShowProgress(int position) = 0;
  virtual void EndProgress() = 0;
  // Shows what may be done now, and what is chosen, in menus and buttons.
  virtual void UpdateCommands() = 0;
};

}  // namespace quorvane
