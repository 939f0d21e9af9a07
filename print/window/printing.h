// Printing the word list.
#pragma once

#include <QPageLayout>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/window/door.h"
#include "print/page_layout.h"
#include "print/print_settings.h"
#include "settings/event_log.h"

class QPrinter;

namespace quorvane {

// Stands last in the list of printers: asks for a file when printing.
inline constexpr const char* kPdfPrinter = "PDF file";

// The desktop's printers and "PDF file".
QStringList PrinterNames();

// Paper and orientation as settings name them; an unknown paper leaves that of `own`.
QPageLayout PageLayoutOf(const PrintSettings& settings, const QPageLayout& own);
// The whole sheet in twips.
QSize SheetInTwips(const QPageLayout& layout);
// The printer's own paper as a whole sheet; nothing for a name that no printer has.
std::optional<QPageLayout> LayoutOfPrinter(const std::string& name);
// One of the desktop's printers, set up for whole sheets; null for a name that none has.
std::unique_ptr<QPrinter> OpenPrinter(const std::string& name);

struct PrintJob {
  std::string printerName;
  size_t entryCount = 0;
  std::function<std::string(size_t)> entry;
  size_t found = 0;  // Words, of the search below.
  Search search;
};

// What printing needs of the window around it.
struct PrintSite {
  QWidget* parent = nullptr;
  std::function<void(const std::string&)> showStatus;
  std::function<void(const std::string&)> reportErrors;
};

class Printing {
 public:
  Printing(SettingsStore& settings, EventLog& log, Door& door, LocalClock clock);

  // The whole command: settings, estimate, confirmation (with a preview), printing, status and log.
  void Print(const PrintJob& job, const PrintSite& site);

 private:
  PageLayoutInput MakeInput(const PrintJob& job, const PrintSettings& settings, QSize sheet,
                            const PageEstimate& estimate) const;
  bool Confirm(const QPageLayout& layout, const PageLayoutInput& input, const PrintSite& site);
  bool Draw(const std::string& name, const QPageLayout& layout, const PageLayoutInput& input, const PrintSite& site);
  bool WritePdf(const QPageLayout& layout, const PageLayoutInput& input, const QString& path, const PrintSite& site);
  bool Submit(const std::string& name, const QPageLayout& layout, const PageLayoutInput& input,
              const PrintSettings& settings, const PrintSite& site);
  void Cancelled(const PrintSite& site);

  SettingsStore& settings_;
  EventLog& log_;
  Door& door_;
  LocalClock clock_;
};

}  // namespace quorvane
