#include "app/frm_help.h"

#include <QFile>
#include <QPushButton>
#include <QScreen>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "search/wildcards.h"

namespace quorvane {
namespace {

constexpr const char* kTablePlace = "<!-- wildcards -->";

// The table of the pattern characters, from the one table that the status line uses, too.
QString WildcardTable() {
  QString rows;
  for (const WildcardSummaryRow& row : WildcardSummary()) {
    rows += "<tr><td><code>" + FromText(row.typed).toHtmlEscaped() + "</code></td><td>" +
            FromText(row.meaning).toHtmlEscaped() + "</td></tr>";
  }
  QString details;
  for (const Wildcard& wildcard : Wildcards()) {
    if (wildcard.statusText.empty()) {
      continue;
    }
    details += "<li>" + FromText(wildcard.statusText).toHtmlEscaped().trimmed() +
               (wildcard.statusText.ends_with(' ') ? " the list" : "") + "</li>";
  }
  return "<table cellpadding='4'>" + rows + "</table><ul>" + details + "</ul>";
}

}  // namespace

std::optional<QString> ReadHelp(const std::string& path) {
  QFile file(FromText(path));
  if (!file.open(QIODevice::ReadOnly)) {
    return std::nullopt;
  }
  return QString::fromUtf8(file.readAll()).replace(kTablePlace, WildcardTable());
}

FrmHelp::FrmHelp(const QString& html, QWidget* parent) : QDialog(parent) {
  setObjectName("frmHelp");
  setWindowTitle("Quorvane Help");
  auto* layout = new QVBoxLayout(this);
  auto* browser = Named(new QTextBrowser(this), "helpText", "The help");
  browser->setAccessibleName("Help");
  browser->setOpenLinks(true);
  browser->setHtml(html);
  layout->addWidget(browser);
  auto* close = Named(new QPushButton("Close", this), "cmdClose", "Close this window");
  layout->addWidget(close, 0, Qt::AlignRight);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  resize(QSize(720, 640).boundedTo(screen()->availableSize() * 0.9));
}

}  // namespace quorvane
