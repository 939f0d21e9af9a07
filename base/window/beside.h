// Windows beside the work: not modal, closed with Esc and with the main window, whose function keys work in them.
#pragma once

class QDialog;
class QWidget;

namespace quorvane {

void BesideTheWork(QDialog* window);
bool IsBesideTheWork(const QWidget* window);

}  // namespace quorvane
