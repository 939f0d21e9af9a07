#include "print/window/frm_printer_setup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "print/page_estimate.h"
#include "print/window/frm_sample_text.h"
#include "print/window/printers.h"
#include "settings/printer_errors.h"

namespace quorvane {
namespace {

constexpr const char* kDefaultFont = "Arial";

QComboBox* MakeList(const QString& name, const QString& label, QFormLayout* form, QWidget* parent) {
  auto* list = Named(new QComboBox(parent), name);
  list->setAccessibleName(QString(label).remove('&').remove(':'));
  form->addRow(label, list);
  return list;
}

}  // namespace

QStringList PrintFontNames() {
  QStringList names;
  for (const QString& family : QFontDatabase::families()) {
    if (QFontDatabase::isSmoothlyScalable(family) && !QFontDatabase::isPrivateFamily(family)) {
      names.push_back(family);
    }
  }
  if (!names.contains(kDefaultFont)) {
    names.push_back(kDefaultFont);
    names.sort(Qt::CaseInsensitive);
  }
  return names;
}

FrmPrinterSetup::FrmPrinterSetup(SettingsStore& settings, EventLog& log, Door& door, std::string& currentPrinter,
                                 size_t entryCount, std::function<void(const std::string&)> reportErrors,
                                 QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      log_(log),
      door_(door),
      currentPrinter_(currentPrinter),
      entryCount_(entryCount),
      reportErrors_(std::move(reportErrors)) {
  setObjectName("frmPrinterSetup");
  setWindowTitle("Printer Setup");
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  MakeControls(form);
  layout->addLayout(form);
  lblSample_ = MakeLabel("lblSample", "", "Sample of the print font", this);
  lblSample_->setFrameShape(QFrame::StyledPanel);
  lblSample_->setMinimumHeight(56);
  lblSample_->setMinimumWidth(420);
  lblSample_->setMaximumWidth(640);
  layout->addWidget(lblSample_);
  lblPageInfo_ = MakeLabel("lblPageInfo", kNoPrinterText, "How many pages the current list takes", this);
  layout->addWidget(lblPageInfo_);
  MakeButtons(layout);
  FillLists();
  ShowSettings();
  CheckFont();
  if (silent_) {
    log_.Write(event::kPrintError, kSilentText);
    door_.Show(parent, std::string(kSilentText) + "  Only \"" + kPdfPrinter + "\" can be chosen; the printer stays.");
  } else if (currentPrinter_ != kUndefinedPrinter && !SheetOfPrinter(currentPrinter_, Shown())) {
    reportErrors_(PrinterErrorText("PFL", kPrinterFailed));
  }
  ShowSample();
  ShowEstimate();
}

void FrmPrinterSetup::MakeControls(QFormLayout* form) {
  cbPrinter_ = MakeList("cbPrinter", "P&rinter:", form, this);
  cbColumns_ = MakeList("cbColumns", "&Columns:", form, this);
  cbFont_ = MakeList("cbFont", "&Font:", form, this);
  cbFontSize_ = MakeList("cbFontSize", "Font &size:", form, this);
  chkItalic_ = Named(new QCheckBox("&Italic", this), "chkItalic");
  form->addRow("", chkItalic_);
  cbPaperSize_ = MakeList("cbPaperSize", "&Paper size:", form, this);
  auto* orientation = new QHBoxLayout;
  rbPortrait_ = Named(new QRadioButton("Por&trait", this), "rbPortrait");
  rbLandscape_ = Named(new QRadioButton("&Landscape", this), "rbLandscape");
  orientation->addWidget(rbPortrait_);
  orientation->addWidget(rbLandscape_);
  orientation->addStretch();
  form->addRow("Orientation:", orientation);

  const auto store = [this](QComboBox* list, Setting setting) {
    connect(list, &QComboBox::activated, this, [this, list, setting] {
      SaveSetting(settings_, setting, ToText(list->currentText()));
      ShowSample();
      ShowEstimate();
    });
  };
  store(cbColumns_, Setting::PrinterColumns);
  store(cbFont_, Setting::FontName);
  store(cbFontSize_, Setting::FontSize);
  connect(cbPaperSize_, &QComboBox::activated, this, &FrmPrinterSetup::PaperChosen);
  connect(cbPrinter_, &QComboBox::activated, this, [this] {
    currentPrinter_ = ToText(cbPrinter_->currentText());
    SaveSetting(settings_, Setting::PrinterName, currentPrinter_);
    ShowEstimate();
  });
  connect(chkItalic_, &QCheckBox::clicked, this, [this](bool on) {
    SaveYesNo(settings_, Setting::Italic, on);
    ShowSample();
    ShowEstimate();
  });
  connect(rbPortrait_, &QRadioButton::clicked, this, &FrmPrinterSetup::ShowEstimate);
  connect(rbLandscape_, &QRadioButton::clicked, this, &FrmPrinterSetup::ShowEstimate);
}

void FrmPrinterSetup::MakeButtons(QVBoxLayout* layout) {
  auto* buttons = new QHBoxLayout;
  auto* text = Named(new QPushButton("Sample te&xt ...", this), "cmdText", "Change the text of the sample");
  auto* ok = Named(new QPushButton("OK", this), "cmdOK", "Store the orientation and close this window");
  auto* cancel = Named(new QPushButton("Cancel", this), "cmdCancel", "Close this window");
  text->setAutoDefault(false);
  ok->setDefault(true);
  buttons->addWidget(text);
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
  connect(text, &QPushButton::clicked, this, [this] {
    FrmSampleText sample(settings_, door_, this);
    door_.Run(sample);
    ShowSample();
  });
  connect(ok, &QPushButton::clicked, this, [this] {
    StoreAll();
    accept();
  });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmPrinterSetup::FillLists() {
  for (int size = kMinFontSize; size <= kMaxFontSize; ++size) {
    cbFontSize_->addItem(QString::number(size));
  }
  for (int columns = 1; columns <= kMaxColumns; ++columns) {
    cbColumns_->addItem(QString::number(columns));
  }
  for (const Paper paper : {Paper::Letter, Paper::Legal, Paper::A4}) {
    cbPaperSize_->addItem(FromText(NameOf(paper)));
  }
  const PrinterList printers = ListPrinters();
  silent_ = printers.silent;
  cbPrinter_->addItems(printers.names);
  cbPrinter_->setCurrentIndex(cbPrinter_->findText(FromText(currentPrinter_)));
  cbFont_->addItems(PrintFontNames());
}

void FrmPrinterSetup::ShowSettings() {
  const PrintSettings read = ReadSetupSettings(settings_);
  cbColumns_->setCurrentText(QString::number(read.columns));
  cbFontSize_->setCurrentText(QString::number(read.fontSize));
  cbFont_->setCurrentIndex(cbFont_->findText(FromText(read.fontName)));
  chkItalic_->setChecked(read.italic);
  cbPaperSize_->setCurrentIndex(cbPaperSize_->findText(FromText(read.paperName)));
  (read.landscape ? rbLandscape_ : rbPortrait_)->setChecked(true);
}

void FrmPrinterSetup::CheckFont() {
  if (cbFont_->currentIndex() < 0) {
    log_.Write(event::kInvalidFont,
               "Invalid Font Name (" + GetSetting(settings_, Setting::FontName) + ") found; defaulting to 'Arial'.");
    cbFont_->setCurrentText(kDefaultFont);
    SaveSetting(settings_, Setting::FontName, kDefaultFont);
  }
}

PrintSettings FrmPrinterSetup::Shown() const {
  PrintSettings shown;
  shown.columns = cbColumns_->currentText().toInt();
  shown.fontSize = cbFontSize_->currentText().toInt();
  shown.fontName = ToText(cbFont_->currentText());
  shown.italic = chkItalic_->isChecked();
  shown.paperName = ToText(cbPaperSize_->currentText());
  shown.landscape = rbLandscape_->isChecked();
  return shown;
}

void FrmPrinterSetup::ShowEstimate() {
  if (currentPrinter_ == kUndefinedPrinter) {
    return;
  }
  const PrintSettings shown = Shown();
  const QSize sheet = SheetInTwips(PageLayoutOf(shown, QPageLayout()));
  const auto estimate = EstimatePages(static_cast<int64_t>(entryCount_), sheet.height(), shown.fontSize, shown.columns);
  if (const auto* pages = std::get_if<PageEstimate>(&estimate)) {
    lblPageInfo_->setText(FromText(EstimateText(*pages)));
  } else {
    const auto& error = std::get<RunTimeError>(estimate);
    const std::string text = "Page estimate: error " + std::to_string(error.number) + " (" + error.description + ")";
    lblPageInfo_->setText(FromText(text));
    log_.Write(event::kPrintError, text);
  }
}

void FrmPrinterSetup::ShowSample() {
  const PrintSettings shown = Shown();
  QFont font;
  font.setFamilies({FromText(shown.fontName)});
  font.setPointSize(shown.fontSize);
  font.setItalic(shown.italic);
  lblSample_->setFont(font);
  lblSample_->setText(FromText(GetSetting(settings_, Setting::SampleText)));
}

void FrmPrinterSetup::PaperChosen() {
  SaveSetting(settings_, Setting::PaperSize, ToText(cbPaperSize_->currentText()));
  if (!silent_ && currentPrinter_ != kUndefinedPrinter && currentPrinter_ != kPdfPrinter) {
    const auto printer = OpenPrinter(currentPrinter_);
    if (printer == nullptr || !printer->setPageLayout(PageLayoutOf(Shown(), printer->pageLayout()))) {
      reportErrors_(PrinterErrorText("PS", kPrinterFailed));
    }
  }
  ShowEstimate();
}

void FrmPrinterSetup::StoreAll() {
  const PrintSettings shown = Shown();
  SaveSetting(settings_, Setting::PrinterOrientation, shown.landscape ? "Landscape" : "Portrait");
  log_.Write(event::kPrintUpdated, UpdatedPrintSettingsText(shown, currentPrinter_));
}

}  // namespace quorvane
