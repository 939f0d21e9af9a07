// Files that are dropped on a window, wherever on it.
#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

class QDropEvent;
class QWidget;

namespace quorvane {

// Watches what is dragged over `window`: local files are its own, over every control; texts stay the controls'.
// Nothing is taken while a dialog or a menu is open.
class FileDrop : public QObject {
 public:
  // `take` is called once the drop is over.
  FileDrop(QWidget* window, std::function<void(const std::vector<std::string>& paths)> take);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Drop(const QDropEvent& event);

  QWidget& window_;
  const std::function<void(const std::vector<std::string>&)> take_;
};

}  // namespace quorvane
