// Offers the lexicons of the program's directory.
#pragma once

#include <QDialog>
#include <string>

class QListWidget;

namespace quorvane {

class FrmNewLex : public QDialog {
  Q_OBJECT

 public:
  FrmNewLex(const std::string& directory, const std::string& currentLexicon, QWidget* parent);

  // The file name chosen; empty while none is.
  const std::string& Chosen() const { return chosen_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Choose();

  QListWidget* fbList_ = nullptr;
  std::string chosen_;
};

}  // namespace quorvane
