#include "base/window/beside.h"

#include <QDialog>
#include <QVariant>

namespace quorvane {
namespace {

constexpr const char* kBeside = "besideTheWork";

}  // namespace

void BesideTheWork(QDialog* window) {
  window->setProperty(kBeside, true);
  window->setModal(false);
  window->setAttribute(Qt::WA_DeleteOnClose);
}

bool IsBesideTheWork(const QWidget* window) {
  return window->property(kBeside).toBool();
}

}  // namespace quorvane
