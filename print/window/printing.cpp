#include "print/window/printing.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QStandardPaths>

#include "base/file.h"
#include "base/text.h"
#include "base/window/qt_text.h"
#include "settings/printer_errors.h"

namespace quorvane {
namespace {

constexpr int kTwipsPerPoint = 20;
constexpr int kSubmitSeconds = 30;
constexpr int kDocumentDotsPerInch = 1200;
constexpr const char* kDocumentName = "Quorvane";
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
const char* DrawPages(QPagedPaintDevice& sheets, const std::vector<PlacedText>& pages) {
  QPainter painter;
  if (!painter.begin(&sheets)) {
    return "FP";
  }
  const double scale = sheets.logicalDpiX() / static_cast<double>(kTwipsPerInch);
  painter.scale(scale, scale);
  painter.translate(sheets.pageLayout().margins(QPageLayout::Point).left() * kTwipsPerPoint, 0);
  painter.setPen(Qt::black);
  int page = 1;
  const PrintFont* font = nullptr;
  double ascent = 0;
  for (const PlacedText& placed : pages) {
    if (placed.page != page) {
      page = placed.page;
      if (!sheets.newPage()) {
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

struct Document {
  QByteArray bytes;             // A PDF file.
  const char* place = nullptr;  // The place prefix of the error that stopped it.
};

// Made in memory and without asking the printing system, which may be slow to answer.
Document MakeDocument(const QPageLayout& layout, const PageLayoutInput& input) {
  Document document;
  QBuffer buffer(&document.bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(kDocumentName);
  writer.setResolution(kDocumentDotsPerInch);
  writer.setPageLayout(layout);
  document.place = DrawPages(writer, LayOutPages(input));
  return document;
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

std::optional<QPageLayout> LayoutOfPrinter(const std::string& name) {
  QPageLayout layout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF());
  if (name != kPdfPrinter) {
    const std::unique_ptr<QPrinter> printer = OpenPrinter(name);
    if (printer == nullptr) {
      return std::nullopt;
    }
    layout = printer->pageLayout();
    layout.setMargins(layout.minimumMargins());
  }
  layout.setMode(QPageLayout::FullPageMode);
  return layout;
}

std::unique_ptr<QPrinter> OpenPrinter(const std::string& name) {
  const QPrinterInfo info = QPrinterInfo::printerInfo(FromText(name));
  if (info.isNull()) {
    return nullptr;
  }
  auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
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
  input.found = job.found;
  input.search = job.search;
  input.now = clock_();
  input.measure = Ruler();
  return input;
}

void Printing::Print(const PrintJob& job, const PrintSite& site) {
  const PrintSettings settings = ReadPrintSettings(settings_);
  const auto own = LayoutOfPrinter(job.printerName);
  if (!own) {
    site.reportErrors(PrinterErrorText("FP", kPrinterFailed));
    return;
  }
  const QPageLayout layout = PageLayoutOf(settings, *own);
  const QSize sheet = SheetInTwips(layout);
  const auto estimated =
      EstimatePages(static_cast<int64_t>(job.entryCount), sheet.height(), settings.fontSize, settings.columns);
  if (const auto* error = std::get_if<RunTimeError>(&estimated)) {
    site.reportErrors("FP/" + std::to_string(error->number) + ": " + error->description);
    return;
  }
  const PageEstimate estimate = std::get<PageEstimate>(estimated);
  // Columns are placed from the edge that the printer reaches.
  const QMarginsF margins = layout.margins(QPageLayout::Point);
  const int unprintable = qRound((margins.left() + margins.right()) * kTwipsPerPoint);
  const PageLayoutInput input = MakeInput(job, settings, {sheet.width() - unprintable, sheet.height()}, estimate);
  if (!Confirm(layout, input, site)) {
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
    printed = WritePdf(layout, input, path, site);
  } else if (QStandardPaths::findExecutable(kSubmitCommand).isEmpty()) {
    printed = Draw(job.printerName, layout, input, site);
  } else {
    printed = Submit(job.printerName, layout, input, settings, site);
  }
  if (!printed) {
    return;
  }
  const auto found = static_cast<int64_t>(job.found);
  site.showStatus("The print contained " + PagesText(estimate) + "   " + std::to_string(found) + " word" +
                  std::string(PluralS(found)) + " were printed matching '" + job.search.text + "'.");
  log_.Write(event::kPrint, "Word list was printed - " + std::to_string(estimate.pages) + " page(s)");
}

bool Printing::Confirm(const QPageLayout& layout, const PageLayoutInput& input, const PrintSite& site) {
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
    QPrinter sheet(QPrinter::HighResolution);
    sheet.setOutputFormat(QPrinter::PdfFormat);
    sheet.setPageLayout(layout);
    QPrintPreviewDialog preview(&sheet, site.parent);
    HidePrintActions(preview);
    preview.setObjectName("printPreview");
    preview.setWindowTitle("Print preview");
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested,
                     [&pages](QPrinter* painted) { DrawPages(*painted, pages); });
    door_.Run(preview);
  }
}

bool Printing::Draw(const std::string& name, const QPageLayout& layout, const PageLayoutInput& input,
                    const PrintSite& site) {
  const Hourglass hourglass;
  const std::unique_ptr<QPrinter> printer = OpenPrinter(name);
  const char* place = "FP";
  if (printer != nullptr) {
    printer->setPageLayout(layout);
    printer->setDocName(kDocumentName);
    place = DrawPages(*printer, LayOutPages(input));
  }
  if (place == nullptr && printer->printerState() == QPrinter::Error) {
    place = "FP";
  }
  if (place != nullptr) {
    site.reportErrors(PrinterErrorText(place, kPrinterFailed));
  }
  return place == nullptr;
}

// Hands the pages as a document to the printing system, which says whether it took it.
bool Printing::Submit(const std::string& name, const QPageLayout& layout, const PageLayoutInput& input,
                      const PrintSettings& settings, const PrintSite& site) {
  const Hourglass hourglass;
  const Document document = MakeDocument(layout, input);
  if (document.place != nullptr) {
    site.reportErrors(PrinterErrorText(document.place, kPrinterFailed));
    return false;
  }
  QStringList arguments{"-d", FromText(name), "-t", kDocumentName};
  if (PaperOfName(settings.paperName)) {
    arguments << "-o"
              << "media=" + FromText(settings.paperName);
  }
  QProcess command;
  command.start(kSubmitCommand, arguments);
  command.write(document.bytes);
  command.closeWriteChannel();
  std::string problem;
  const bool finished = command.waitForFinished(kSubmitSeconds * 1000);
  if (!finished && command.error() == QProcess::Timedout) {
    problem = "The printing system did not answer within " + std::to_string(kSubmitSeconds) + " seconds.";
    command.kill();
    command.waitForFinished();
  } else if (!finished || command.exitStatus() != QProcess::NormalExit || command.exitCode() != 0) {
    const QByteArray said = command.readAllStandardError().trimmed();
    problem = "The printing system said: " + ToText(said.isEmpty() ? command.errorString() : QString::fromUtf8(said));
  }
  if (!problem.empty()) {
    site.reportErrors(PrinterErrorText("FP", kPrinterFailed));
    site.showStatus(problem);
  }
  return problem.empty();
}

bool Printing::WritePdf(const QPageLayout& layout, const PageLayoutInput& input, const QString& path,
                        const PrintSite& site) {
  const Hourglass hourglass;
  const Document document = MakeDocument(layout, input);
  if (document.place != nullptr) {
    site.reportErrors(PrinterErrorText(document.place, kPrinterFailed));
    return false;
  }
  const auto error = ReplaceFile(ToText(path), [&document](FileWriter& out) {
    out.Write({document.bytes.constData(), static_cast<size_t>(document.bytes.size())});
  });
  if (error) {
    site.reportErrors(PrinterErrorText("FP", kPrinterFailed) + "  " + error->Text());
    site.showStatus(error->Text());
  }
  return !error;
}

void Printing::Cancelled(const PrintSite& site) {
  door_.Show(site.parent, kCancelledText, false, kCancelledTitle);
  log_.Write(event::kPrint, "Print request was cancelled");
}

}  // namespace quorvane
