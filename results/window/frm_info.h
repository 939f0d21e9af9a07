// The small information windows: counts by letter and by length, and the wildcard summary.
#pragma once

#include <QDialog>

#include "lexicon/lexicon.h"

namespace quorvane {

class FrmInfo : public QDialog {
  Q_OBJECT

 public:
  static FrmInfo* ByLetter(const Lexicon& lexicon, QWidget* parent);  // frmInfoLetter
  static FrmInfo* ByLength(const Lexicon& lexicon, QWidget* parent);  // frmInfoLength
  static FrmInfo* Wildcards(QWidget* parent);                         // frmWildSumm

 private:
  struct Column {
    QString name;
    QString text;
    Qt::Alignment alignment;
  };
  FrmInfo(const QString& name, const QString& caption, const QList<Column>& columns, QWidget* parent);

  template <class Rows>
  static FrmInfo* Counts(const QString& name, const QString& caption, const Rows& rows, QWidget* parent);
};

}  // namespace quorvane
