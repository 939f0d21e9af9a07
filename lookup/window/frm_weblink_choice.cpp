#include "lookup/window/frm_weblink_choice.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "lookup/resources.h"
#include "settings/settings_table.h"

namespace quorvane {

FrmWeblinkChoice::FrmWeblinkChoice(SettingsStore& settings, EventLog& log, QWidget* parent) : QDialog(parent) {
  setObjectName("frmWeblinkChoice");
  setWindowTitle("Definitions link choice");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(MakeLabel("lblChoose", "Please choose one of the online resources above", {}, this));
  auto* resources = new QGroupBox("Online resources", this);
  auto* column = new QVBoxLayout(resources);
  const std::string chosen = GetSetting(settings, Setting::Weblink);
  size_t next = 0;
  for (const LookupResource& resource : LookupResources()) {
    const std::string number = std::to_string(++next);
    auto* option = Named(new QRadioButton(FromText(resource.optionCaption), resources), "rbWeblink" + FromText(number));
    option->setChecked(number == chosen);
    column->addWidget(option);
    connect(option, &QRadioButton::clicked, this,
            [&settings, number] { SaveSetting(settings, Setting::Weblink, number); });
  }
  layout->insertWidget(0, resources);
  auto* ok = Named(new QPushButton("OK", this), "cmdOK");
  layout->addWidget(ok, 0, Qt::AlignRight);
  connect(ok, &QPushButton::clicked, this, [this, &settings, &log] {
    if (const LookupResource* resource = FindLookupResource(GetSetting(settings, Setting::Weblink))) {
      log.Write(event::kWeblink, "Web-link resource defined as '" + std::string(resource->label) + "'");
    }
    accept();
  });
}

}  // namespace quorvane
