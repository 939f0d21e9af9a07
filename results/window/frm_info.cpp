#include "results/window/frm_info.h"

#include <QGridLayout>
#include <QPushButton>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "results/statistics.h"
#include "search/wildcards.h"

namespace quorvane {
namespace {

constexpr size_t kRowsOfPair = 13;
constexpr const char* kLineEnd = "\r\n";

}  // namespace

FrmInfo::FrmInfo(const QString& name, const QString& caption, const QList<Column>& columns, QWidget* parent)
    : QDialog(parent) {
  setObjectName(name);
  setWindowTitle(caption);
  auto* layout = new QGridLayout(this);
  layout->setHorizontalSpacing(18);
  int next = 0;
  for (const Column& column : columns) {
    QLabel* label = MakeLabel(column.name, QString(column.text).replace("\r\n", "\n"), {}, this);
    label->setAlignment(column.alignment | Qt::AlignTop);
    layout->addWidget(label, 0, next++);
  }
  auto* close = Named(new QPushButton("Close", this), "cmdClose", "Close this window");
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  layout->addWidget(close, 1, 0, 1, next, Qt::AlignRight);
  if (parent != nullptr) {
    move(parent->pos() + QPoint(60, 80));
  }
}

template <class Rows>
FrmInfo* FrmInfo::Counts(const QString& name, const QString& caption, const Rows& rows, QWidget* parent) {
  QString labels[2];
  QString counts[2];
  for (size_t i = 0; i < rows.size(); ++i) {
    labels[i / kRowsOfPair] += FromText(rows[i].label) + kLineEnd;
    counts[i / kRowsOfPair] += QString::number(rows[i].count) + kLineEnd;
  }
  return new FrmInfo(name, caption,
                     {{"lblLet1", labels[0], Qt::AlignLeft},
                      {"lblCnt1", counts[0], Qt::AlignRight},
                      {"lblLet2", labels[1], Qt::AlignLeft},
                      {"lblCnt2", counts[1], Qt::AlignRight}},
                     parent);
}

FrmInfo* FrmInfo::ByLetter(const Lexicon& lexicon, QWidget* parent) {
  return Counts("frmInfoLetter", "Count by letter", CountByLetter(lexicon), parent);
}

FrmInfo* FrmInfo::ByLength(const Lexicon& lexicon, QWidget* parent) {
  return Counts("frmInfoLength", "Count by length", CountByLength(lexicon), parent);
}

FrmInfo* FrmInfo::Wildcards(QWidget* parent) {
  QString typed;
  QString meanings;
  for (const WildcardSummaryRow& row : WildcardSummary()) {
    typed += FromText(row.typed) + kLineEnd;
    meanings += FromText(row.meaning) + kLineEnd;
  }
  return new FrmInfo("frmWildSumm", "Wildcard Summary",
                     {{"lblWildList", typed, Qt::AlignLeft}, {"lblWildDesc", meanings, Qt::AlignLeft}}, parent);
}

}  // namespace quorvane
