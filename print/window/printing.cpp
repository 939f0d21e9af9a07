#include "print/window/printing.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPdfWriter>
#include <QProcess>
#include <QStandardPaths>
#include <variant>

#include "base/file.h"
#include "base/text.h"
#include "base/window/qt_text.h"
#include "print/window/frm_print_preview.h"
#include "print/window/page_drawing.h"
#include "settings/printer_errors.h"

namespace quorvane {
namespace {

constexpr int kSubmitSeconds = 30;
constexpr int kDocumentDotsPerInch = 1200;
constexpr const char* kDocumentName = "Quorvane";
constexpr const char* kConfirmTitle = "Quorvane Print";
constexpr const char* kCancelledTitle = "Print Cancelled";
constexpr const char* kCancelledText = "Print request cancelled.";
constexpr const char* kPdfTitle = "Print to a PDF file";
constexpr const char* kPdfExtension = ".pdf";
// Of the printing system: unlike the toolkit it says when a job was refused.
constexpr const char* kSubmitCommand = "lp";
constexpr const char* kNoCommandText =
    "The command 'lp' is not there; to print on a printer, install the package 'cups-client'.";

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

// The status line never keeps what an earlier print left there.
void Fail(const PrintSite& site, const std::string& message, const std::string& status) {
  site.showStatus(status);
  site.reportErrors(message);
}

void Fail(const PrintSite& site, const std::string& message) {
  Fail(site, message, message);
}

void FailFor(const PrintSite& site, const std::string& reason) {
  Fail(site, reason + "  " + PrinterErrorText("FP", kPrinterFailed), reason);
}

// What keeps the printer from printing before it is asked anything; null if nothing does.
const char* ObstacleOf(const std::string& printerName) {
  if (printerName == kPdfPrinter) {
    return nullptr;
  }
  if (QStandardPaths::findExecutable(kSubmitCommand).isEmpty()) {
    return kNoCommandText;
  }
  return PrintingSystemIsSilent() ? kSilentText : nullptr;
}

}  // namespace

Printing::Printing(SettingsStore& settings, EventLog& log, Door& door, LocalClock clock)
    : settings_(settings), log_(log), door_(door), clock_(std::move(clock)) {}

PageLayoutInput Printing::MakeInput(const PrintJob& job, const PrintSettings& settings, const Sheet& sheet,
                                    const PageEstimate& estimate) const {
  const QSize size = SheetInTwips(sheet.layout);
  PageLayoutInput input;
  input.entryCount = job.entryCount;
  input.entry = job.entry;
  input.pageWidth = size.width();
  input.pageHeight = size.height();
  input.margins = sheet.margins;
  input.columns = settings.columns;
  input.font = {settings.fontName, settings.fontSize, settings.italic, false};
  input.estimate = estimate;
  input.found = job.found;
  input.search = job.search;
  input.now = clock_();
  input.measure = TextRuler();
  return input;
}

void Printing::Print(const PrintJob& job, const PrintSite& site) {
  const PrintSettings settings = ReadPrintSettings(settings_);
  if (const char* obstacle = ObstacleOf(job.printerName)) {
    FailFor(site, obstacle);
    return;
  }
  const std::optional<Sheet> sheet = SheetOfPrinter(job.printerName, settings);
  if (!sheet) {
    Fail(site, PrinterErrorText("FP", kPrinterFailed));
    return;
  }
  const auto estimated = EstimatePages(static_cast<int64_t>(job.entryCount), SheetInTwips(sheet->layout).height(),
                                       settings.fontSize, settings.columns);
  if (const auto* error = std::get_if<RunTimeError>(&estimated)) {
    Fail(site, "FP/" + std::to_string(error->number) + ": " + error->description);
    return;
  }
  const PageEstimate estimate = std::get<PageEstimate>(estimated);
  const PageLayoutInput input = MakeInput(job, settings, *sheet, estimate);
  if (!Confirm(input, site)) {
    Cancelled(site);
    return;
  }
  bool printed = false;
  if (job.printerName == kPdfPrinter) {
    const QString path = AskPdfPath(site);
    if (path.isEmpty()) {
      Cancelled(site);
      return;
    }
    printed = WritePdf(*sheet, input, path, site);
  } else {
    printed = Submit(job.printerName, *sheet, input, settings, site);
  }
  if (!printed) {
    return;
  }
  const auto found = static_cast<int64_t>(job.found);
  site.showStatus("The print contained " + PagesText(estimate) + "   " + std::to_string(found) + " word" +
                  std::string(PluralS(found)) + " were printed matching '" + job.search.text + "'.");
  log_.Write(event::kPrint, "Word list was printed - " + std::to_string(estimate.pages) + " page(s)");
}

bool Printing::Confirm(const PageLayoutInput& input, const PrintSite& site) {
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
    FrmPrintPreview preview(LayOutPages(input), {input.pageWidth, input.pageHeight}, site.parent);
    door_.Run(preview);
  }
}

// Empty when cancelled. A name without an extension gets one; that the completed name replaces a file is asked here,
// since only the name that was typed has been asked about.
QString Printing::AskPdfPath(const PrintSite& site) {
  for (;;) {
    QString path = door_.AskSavePath(site.parent, kPdfTitle, QString("words") + kPdfExtension, "PDF files (*.pdf)");
    const QFileInfo typed(path);
    if (path.isEmpty() || !typed.suffix().isEmpty() || (typed.exists() && !typed.isFile())) {
      return path;
    }
    path += path.endsWith('.') ? kPdfExtension + 1 : kPdfExtension;
    if (!QFileInfo::exists(path)) {
      return path;
    }
    Question question;
    question.title = kPdfTitle;
    question.text = path + " already exists.\nDo you want to replace it?";
    question.cancel = true;
    if (door_.Ask(site.parent, question) == Answer::Ok) {
      return path;
    }
  }
}

// Hands the pages as a document to the printing system, which says whether it took it.
bool Printing::Submit(const std::string& name, const Sheet& sheet, const PageLayoutInput& input,
                      const PrintSettings& settings, const PrintSite& site) {
  const Hourglass hourglass;
  const Document document = MakeDocument(sheet.layout, input);
  if (document.place != nullptr) {
    Fail(site, PrinterErrorText(document.place, kPrinterFailed));
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
    Fail(site, PrinterErrorText("FP", kPrinterFailed), problem);
  }
  return problem.empty();
}

bool Printing::WritePdf(const Sheet& sheet, const PageLayoutInput& input, const QString& path, const PrintSite& site) {
  const Hourglass hourglass;
  const Document document = MakeDocument(sheet.layout, input);
  if (document.place != nullptr) {
    Fail(site, PrinterErrorText(document.place, kPrinterFailed));
    return false;
  }
  const auto error = ReplaceFile(ToText(path), [&document](FileWriter& out) {
    out.Write({document.bytes.constData(), static_cast<size_t>(document.bytes.size())});
  });
  if (error) {
    FailFor(site, error->Text());
  }
  return !error;
}

void Printing::Cancelled(const PrintSite& site) {
  door_.Show(site.parent, kCancelledText, false, kCancelledTitle);
  log_.Write(event::kPrint, "Print request was cancelled");
}

}  // namespace quorvane
