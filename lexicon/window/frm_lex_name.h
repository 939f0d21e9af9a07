// Asks for the name of a new lexicon.
#pragma once

#include <QDialog>
#include <string>

#include "base/window/door.h"

namespace quorvane {

class LexiconNameBox;

class FrmLexName : public QDialog {
  Q_OBJECT

 public:
  FrmLexName(std::string directory, Door& door, QWidget* parent);

  // The accepted name, without directory and extension; empty when none was accepted.
  const std::string& Name() const { return name_; }

 private:
  void AcceptName();

  const std::string directory_;
  Door& door_;
  LexiconNameBox* tbName_ = nullptr;
  std::string name_;
};

}  // namespace quorvane
