// Printing the word list.
#pragma once

#include <QString>
#include <functional>
#include <string>

#include "base/window/door.h"
#include "print/page_layout.h"
#include "print/print_settings.h"
#include "print/window/printers.h"
#include "settings/event_log.h"

namespace quorvane {

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
  PageLayoutInput MakeInput(const PrintJob& job, const PrintSettings& settings, const Sheet& sheet,
                            const PageEstimate& estimate) const;
  bool Confirm(const PageLayoutInput& input, const PrintSite& site);
  QString AskPdfPath(const PrintSite& site);
  bool WritePdf(const Sheet& sheet, const PageLayoutInput& input, const QString& path, const PrintSite& site);
  bool Submit(const std::string& name, const Sheet& sheet, const PageLayoutInput& input, const PrintSettings& settings,
              const PrintSite& site);
  void Cancelled(const PrintSite& site);

  SettingsStore& settings_;
  EventLog& log_;
  Door& door_;
  LocalClock clock_;
};

}  // namespace quorvane
