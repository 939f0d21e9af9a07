// Tells where a lexicon file stopped being readable.
#pragma once

#include <QDialog>

#include "lexicon/lexicon.h"

namespace quorvane {

class FrmLexProblem : public QDialog {
  Q_OBJECT

 public:
  FrmLexProblem(const LoadResult& result, QWidget* parent);
};

}  // namespace quorvane
