#include "print/window/printers.h"

#include <QPageSize>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>

#include "base/window/qt_text.h"

namespace quorvane {
namespace {

constexpr int kTwipsPerPoint = 20;
constexpr int kAnswerMilliseconds = 2000;
// Asks for the default printer. (Whether the scheduler runs, `-r`, says no more than that it takes connections.)
constexpr const char* kAskCommand = "lpstat";
constexpr const char* kAskForDefault = "-d";

// Which way the printer turns a sheet that lies across is not known: both its ends keep what is the wider of the two.
SheetMargins MarginsOf(const QMarginsF& points, bool landscape) {
  const auto twips = [](double margin) { return qCeil(margin * kTwipsPerPoint); };
  const SheetMargins upright{twips(points.left()), twips(points.top()), twips(points.right()), twips(points.bottom())};
  if (!landscape) {
    return upright;
  }
  const int ends = std::max(upright.top, upright.bottom);
  const int sides = std::max(upright.left, upright.right);
  return {ends, sides, ends, sides};
}

}  // namespace

bool PrintingSystemIsSilent() {
  QProcess command;
  command.setStandardInputFile(QProcess::nullDevice());
  command.start(kAskCommand, {kAskForDefault});
  if (command.waitForFinished(kAnswerMilliseconds) || command.error() != QProcess::Timedout) {
    return false;
  }
  command.kill();
  command.waitForFinished();
  return true;
}

PrinterList ListPrinters() {
  PrinterList list;
  list.silent = PrintingSystemIsSilent();
  if (!list.silent) {
    list.names = QPrinterInfo::availablePrinterNames();
  }
  list.names.push_back(kPdfPrinter);
  return list;
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

std::optional<Sheet> SheetOfPrinter(const std::string& name, const PrintSettings& settings) {
  Sheet sheet{QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF()), {}};
  if (name != kPdfPrinter) {
    const std::unique_ptr<QPrinter> printer = OpenPrinter(name);
    if (printer == nullptr) {
      return std::nullopt;
    }
    // Margins are of a paper; the printer gives them for the sheet upright, however it lies.
    printer->setPageSize(PageLayoutOf(settings, printer->pageLayout()).pageSize());
    const QPageLayout own = printer->pageLayout();
    sheet.layout.setPageSize(own.pageSize());
    sheet.margins = MarginsOf(own.minimumMargins(), settings.landscape);
  }
  sheet.layout.setMode(QPageLayout::FullPageMode);
  sheet.layout = PageLayoutOf(settings, sheet.layout);
  return sheet;
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

}  // namespace quorvane
