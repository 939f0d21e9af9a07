#include "app/file_drop.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "base/window/qt_text.h"

namespace quorvane {
namespace {

std::vector<std::string> LocalFiles(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) {
      paths.push_back(ToText(url.toLocalFile()));
    }
  }
  return paths;
}

bool IsAsking() {
  return QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr;
}

}  // namespace

FileDrop::FileDrop(QWidget* window, std::function<void(const std::vector<std::string>& paths)> take)
    : QObject(window), window_(*window), take_(std::move(take)) {
  window->setAcceptDrops(true);
  qApp->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
  const bool drop = event->type() == QEvent::Drop;
  if (!drop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
    return false;
  }
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != &window_) {
    return false;
  }
  auto* dragged = static_cast<QDropEvent*>(event);
  if (IsAsking()) {
    dragged->ignore();
    return true;
  }
  // What a control of the program drags is none of ours.
  if (dragged->source() != nullptr || LocalFiles(*dragged->mimeData()).empty()) {
    return false;
  }
  dragged->setDropAction(Qt::CopyAction);
  dragged->accept();
  if (drop) {
    Drop(*dragged);
  }
  return true;
}

// The program that the files come from waits for the end of the drop: a question must not hold it.
void FileDrop::Drop(const QDropEvent& event) {
  const auto taken = [this, paths = LocalFiles(*event.mimeData())] {
    if (!IsAsking()) {
      take_(paths);
    }
  };
  QMetaObject::invokeMethod(this, taken, Qt::QueuedConnection);
}

}  // namespace quorvane
