#include "app/frm_about.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "base/text.h"
#include "base/version.h"
#include "base/window/labels.h"
#include "base/window/qt_text.h"

namespace quorvane {
namespace {

constexpr std::array kTools = {
    "kinfocenter",          "hardinfo2",        "hardinfo", "mate-system-monitor", "gnome-system-monitor",
    "plasma-systemmonitor", "xfce4-taskmanager"};
constexpr const char* kNoTool = "System Information Is Unavailable At This Time";

}  // namespace

QString SystemInformationTool() {
  for (const char* tool : kTools) {
    QString found = QStandardPaths::findExecutable(tool);
    if (!found.isEmpty()) {
      return found;
    }
  }
  return {};
}

FrmAbout::FrmAbout(const Services& services, const Session& session, QWidget* parent) : QDialog(parent) {
  setObjectName("frmAbout");
  setWindowTitle("About Quorvane");
  auto* layout = new QVBoxLayout(this);
  QLabel* title = MakeLabel("lblTitle", "Quorvane", {}, this);
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * 1.8);
  large.setBold(true);
  title->setFont(large);
  layout->addWidget(title);
  layout->addWidget(MakeLabel("lblPurpose", "Finds words for word games and puzzles", {}, this));
  layout->addSpacing(8);
  auto* form = new QFormLayout;
  const auto add = [&](const QString& name, const QString& caption, const QString& text) {
    QLabel* label = MakeLabel(name, text, {}, this);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAccessibleDescription(caption);
    form->addRow(caption, label);
  };
  add("lblVersion", "Version:", "v" + FromText(VersionText()));
  add("lblCompiled", "Compiled:", FromText(BuildDate()));
  add("lblFonts", "Fonts installed:", QString::number(session.fontCount));
  add("lblWordCount", "Words in lexicon:", FromText(FormatThousands(session.lexicon->count())));
  add("lblDirectory", "Program directory:", FromText(services.programDirectory));
  add("lblSettings", "Settings file:", FromText(services.settingsFile));
  layout->addLayout(form);
  layout->addSpacing(8);
  auto* buttons = new QHBoxLayout;
  auto* system = Named(new QPushButton("&System Info...", this), "cmdSysInfo", "Starts the system information tool");
  auto* ok = Named(new QPushButton("OK", this), "cmdOK");
  buttons->addWidget(system);
  buttons->addStretch();
  buttons->addWidget(ok);
  layout->addLayout(buttons);
  ok->setDefault(true);
  ok->setFocus();
  connect(system, &QPushButton::clicked, this, [this, &services] {
    const QString tool = SystemInformationTool();
    if (tool.isEmpty() || !QProcess::startDetached(tool, {})) {
      services.door.Show(this, kNoTool);
    }
  });
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace quorvane
