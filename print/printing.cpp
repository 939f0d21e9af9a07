#include "print/printing.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPageSize>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "base/file.h"
#include "base/qt_text.h"
#include "base/text.h"
#include "settings/printer_errors.h"

namespace quorvane {
namespace {

constexpr int kTwipsPerPoint = 20;
constexpr int kSubmitTimeout = 30000;  // Milliseconds.
constexpr const char* kConfirmTitle = "Quorvane Print";
constexpr const char* kCancelledTitle = "Print Cancelled";
constexpr const char* kCancelledText = "Print request cancelled.";
constexpr const char* kSubmitCommand =
    "lp";  // Of the printing system: unlike the toolkit it says when a job was refused.

// A font whose units are twips.
QFont ScreenFont(const PrintFont& font) {
  QFont made;
  made.setFamilies({FromText(font.name)});
  made.setPixelSize(font.size * kTwipsPerPoint);
  made.setItalic(font.italic);
  made.setBold(font.bold);
  made.setHintingPreference(QFont::PreferNoHinting);
  return made;
}

bool SameFont(const PrintFont& a, const PrintFont& b) {
  return a.size == b.size && a.italic == b.italic && a.bold == b.bold && a.name == b.name;
}

// Keeps the metrics of the font asked for last: a list is measured in one font, header lines apart.
class Ruler {
 public:
  int operator()(const std::string& text, const PrintFont& font) {
    if (metrics_ == nullptr || !SameFont(font, font_)) {
      font_ = font;
      metrics_ = std::make_shared<QFontMetricsF>(ScreenFont(font));
    }
    return qCeil(metrics_->horizontalAdvance(FromBytes(text)));
  }

 private:
  PrintFont font_;
  std::shared_ptr<QFontMetricsF> metrics_;
};

// The preview keeps its zoom and page buttons.
void HidePrintActions(QDialog& preview) {
  for (QAction* action : preview.findChildren<QAction*>()) {
    if (QStringList{"Print", "Page setup", "Portrait", "Landscape"}.contains(action->text())) {
      action->setVisible(false);
    }
  }
}

// Draws the placed texts; the place prefix of the error that stopped it, or null.
const char* DrawPages(QPrinter& printer, const std::vector<PlacedText>& pages) {
  QPainter painter;
  if (!painter.begin(&printer)) {
    return "FP";
  }
  const double scale = printer.resolution() / static_cast<double>(kTwipsPerInch);
  painter.scale(scale, scale);
  painter.setPen(Qt::black);
  int page = 1;
  const PrintFont* font = nullptr;
  double ascent = 0;
  for (const PlacedText& placed : pages) {
    if (placed.page != page) {
      page = placed.page;
      if (!printer.newPage()) {
        return "NP";
      }
    }
    if (font == nullptr || !SameFont(*font, placed.font)) {
      font = &placed.font;
      const QFont made = ScreenFont(*font);
      painter.setFont(made);
      ascent = QFontMetricsF(made).ascent();
    }
    painter.drawText(QPointF(placed.x, placed.y + ascent), FromBytes(placed.text));
  }
  return painter.end() ? nullptr : "FP";
}

}  // namespace

QStringList PrinterNames() {
  return QPrinterInfo::availablePrinterNames() + QStringList{kPdfPrinter};
}

QPageLayout PageLayoutOf(const PrintSettings& settings, const QPageLayout& own) {
  QPageLayout layout = own;
  if (const auto paper = PaperOfName(settings.paperName)) {
    const QPageSize::PageSizeId id = *paper == Paper::A4      ? QPageSize::A4
                                     : *paper == Paper::Legal ? QPageSize::Legal
                                                              : QPageSize::Letter;
    layout.setPageSize(QPageSize(id));
  }
  layout.setOrientation(settings.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  return layout;
}

QSize SheetInTwips(const QPageLayout& layout) {
  const QRectF points = layout.fullRect(QPageLayout::Point);
  return {qRound(points.width() * kTwipsPerPoint), qRound(points.height() * kTwipsPerPoint)};
}

std::unique_ptr<QPrinter> OpenPrinter(const std::string& name) {
  std::unique_ptr<QPrinter> printer;
  if (name == kPdfPrinter) {
    printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setPageSize(QPageSize(QPageSize::Letter));
  } else {
    const QPrinterInfo info = QPrinterInfo::printerInfo(FromText(name));
    if (info.isNull()) {
      return nullptr;
    }
    printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
  }
  printer->setFullPage(true);
  return printer;
}

Printing::Printing(SettingsStore& settings, EventLog& log, Door& door, LocalClock clock)
    : settings_(settings), log_(log), door_(door), clock_(std::move(clock)) {}

PageLayoutInput Printing::MakeInput(const PrintJob& job, const PrintSettings& settings, QSize sheet,
                                    const PageEstimate& estimate) const {
  PageLayoutInput input;
  input.entryCount = job.entryCount;
  input.entry = job.entry;
  input.pageWidth = sheet.width();
  input.pageHeight = sheet.height();
  input.columns = settings.columns;
  input.font = {settings.fontName, settings.fontSize, settings.italic, false};
  input.estimate = estimate;
  input.header = job.header;
  input.now = clock_();
  input.measure = Ruler();
  return input;
}

void Printing::Print(const PrintJob& job, const PrintSite& site) {
  const PrintSettings settings = ReadPrintSettings(settings_);
  const std::unique_ptr<QPrinter> printer = OpenPrinter(job.printerName);
  if (printer == nullptr) {
    site.reportErrors(PrinterErrorText("FP", kPrinterFailed));
    return;
  }
  printer->setPageLayout(PageLayoutOf(settings, printer->pageLayout()));
  printer->setFullPage(true);
  printer->setDocName("Quorvane");
  const QSize sheet = SheetInTwips(printer->pageLayout());
  const auto estimated =
      EstimatePages(static_cast<int64_t>(job.entryCount), sheet.height(), settings.fontSize, settings.columns);
  if (const auto* error = std::get_if<RunTimeError>(&estimated)) {
    site.reportErrors("FP/" + std::to_string(error->number) + ": " + error->description);
    return;
  }
  const PageEstimate estimate = std::get<PageEstimate>(estimated);
  const PageLayoutInput input = MakeInput(job, settings, sheet, estimate);
  if (!Confirm(*printer, input, site)) {
    Cancelled(site);
    return;
  }
  bool printed = false;
  if (job.printerName == kPdfPrinter) {
    const QString path = door_.AskSavePath(site.parent, "Print to a PDF file", "words.pdf", "PDF files (*.pdf)");
    if (path.isEmpty()) {
      Cancelled(site);
      return;
    }
    printed = DrawToPdf(*printer, input, path, site);
  } else {
    printed = QStandardPaths::findExecutable(kSubmitCommand).isEmpty() ? Draw(*printer, input, site)
                                                                       : Submit(*printer, input, settings, site);
  }
  if (!printed) {
    return;
  }
  const auto found = static_cast<int64_t>(job.header.count);
  site.showStatus("The print contained " + PagesText(estimate) + "   " + std::to_string(found) + " word" +
                  std::string(PluralS(found)) + " were printed matching '" + job.header.typed + "'.");
  log_.Write(event::kPrint, "Word list was printed - " + std::to_string(estimate.pages) + " page(s)");
}

bool Printing::Confirm(QPrinter& printer, const PageLayoutInput& input, const PrintSite& site) {
  Question question;
  question.title = kConfirmTitle;
  question.text = FromText("The print will contain " + PagesText(input.estimate));
  question.cancel = true;
  question.extraButton = "Pre&view";
  for (;;) {
    switch (door_.Ask(site.parent, question)) {
      case Answer::Ok:
        return true;
      case Answer::Cancel:
        return false;
      case Answer::Extra:
        break;
    }
    const auto pages = LayOutPages(input);
    // A sheet of its own: what is looked at changes nothing of what is printed, and only OK prints.
    const std::unique_ptr<QPrinter> sheet = OpenPrinter(kPdfPrinter);
    sheet->setPageLayout(printer.pageLayout());
    sheet->setFullPage(true);
    QPrintPreviewDialog preview(sheet.get(), site.parent);
    HidePrintActions(preview);
    preview.setObjectName("printPreview");
    preview.setWindowTitle("Print preview");
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested,
                     [&pages](QPrinter* painted) { DrawPages(*painted, pages); });
    door_.Run(preview);
  }
}

bool Printing::Draw(QPrinter& printer, const PageLayoutInput& input, const PrintSite& site) {
  const Hourglass hourglass;
  const char* place = DrawPages(printer, LayOutPages(input));
  if (place != nullptr || printer.printerState() == QPrinter::Error) {
    site.reportErrors(PrinterErrorText(place != nullptr ? place : "FP", kPrinterFailed));
    return false;
  }
  return true;
}

// Draws the pages as a document of their own and hands it to the printing system, which says whether it took it.
bool Printing::Submit(QPrinter& printer, const PageLayoutInput& input, const PrintSettings& settings,
                      const PrintSite& site) {
  const Hourglass hourglass;
  const QTemporaryDir folder;
  const QString name = printer.printerName();
  const std::unique_ptr<QPrinter> document = OpenPrinter(kPdfPrinter);
  document->setPageLayout(printer.pageLayout());
  document->setFullPage(true);
  document->setDocName(printer.docName());
  document->setOutputFileName(folder.filePath("pages.pdf"));
  if (const char* place = DrawPages(*document, LayOutPages(input))) {
    site.reportErrors(PrinterErrorText(place, kPrinterFailed));
    return false;
  }
  QStringList arguments{"-d", name, "-t", printer.docName()};
  if (PaperOfName(settings.paperName)) {
    arguments << "-o"
              << "media=" + FromText(settings.paperName);
  }
  QProcess command;
  command.start(kSubmitCommand, arguments << "--" << document->outputFileName());
  const bool taken = command.waitForFinished(kSubmitTimeout) && command.exitStatus() == QProcess::NormalExit &&
                     command.exitCode() == 0;
  if (!taken) {
    site.reportErrors(PrinterErrorText("FP", kPrinterFailed));
    site.showStatus("The printing system said: " + command.readAllStandardError().trimmed().toStdString());
  }
  return taken;
}

// The pages go to a file elsewhere first: the chosen one is replaced whole or not at all.
bool Printing::DrawToPdf(QPrinter& printer, const PageLayoutInput& input, const QString& path, const PrintSite& site) {
  const Hourglass hourglass;
  const QTemporaryDir folder;
  QFile drawn(folder.filePath("pages.pdf"));
  printer.setOutputFileName(drawn.fileName());
  if (const char* place = DrawPages(printer, LayOutPages(input))) {
    site.reportErrors(PrinterErrorText(place, kPrinterFailed));
    return false;
  }
  const QByteArray bytes = drawn.open(QIODevice::ReadOnly) ? drawn.readAll() : QByteArray();
  std::string problem;
  if (!bytes.trimmed().endsWith("%%EOF")) {
    problem = ToText(drawn.fileName()) + ": the pages are not complete";
  } else if (const auto error = ReplaceFile(ToText(path), [&bytes](FileWriter& out) {
               out.Write({bytes.constData(), static_cast<size_t>(bytes.size())});
             })) {
    problem = error->Text();
  }
  if (!problem.empty()) {
    site.reportErrors(PrinterErrorText("FP", kPrinterFailed) + "\r\n" + problem);
  }
  return problem.empty();
}

void Printing::Cancelled(const PrintSite& site) {
  door_.Show(site.parent, kCancelledText, false, kCancelledTitle);
  log_.Write(event::kPrint, "Print request was cancelled");
}

}  // namespace quorvane
