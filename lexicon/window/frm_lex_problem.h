// Tells where a lexicon file stopped being readable.
#pragma once

#include <QDialog>
#include <string>

#include "lexicon/lexicon.h"

namespace quorvane {

class FrmLexProblem : public QDialog {
  Q_OBJECT

 public:
  // `path` is the file that was read.
  FrmLexProblem(const std::string& path, const LoadResult& result, QWidget* parent);
};

}  // namespace quorvane
