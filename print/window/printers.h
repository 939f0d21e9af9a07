// The printers of the desktop, and "PDF file".
#pragma once

#include <QPageLayout>
#include <QStringList>
#include <memory>
#include <optional>
#include <string>

#include "print/page_layout.h"
#include "print/print_settings.h"

class QPrinter;

namespace quorvane {

// Stands last in the list of printers: asks for a file when printing.
inline constexpr const char* kPdfPrinter = "PDF file";
inline constexpr const char* kSilentText = "The printing system does not answer.";

// Whether the printing system takes a connection and then says nothing for two seconds; whoever asks it for something
// then waits for minutes. One that refuses is not silent: it has no printers. Without the command that finds it out
// (`lpstat`) it is taken to answer.
bool PrintingSystemIsSilent();

struct PrinterList {
  QStringList names;    // "PDF file" alone when the printing system is silent.
  bool silent = false;  // Which printers there are is not known.
};
PrinterList ListPrinters();

// Paper and orientation as settings name them; an unknown paper leaves that of `own`.
QPageLayout PageLayoutOf(const PrintSettings& settings, const QPageLayout& own);
// The whole sheet in twips.
QSize SheetInTwips(const QPageLayout& layout);

struct Sheet {
  QPageLayout layout;  // As it lies, without margins.
  SheetMargins margins;
};
// Both ask the printing system (not for "PDF file"), which must not be silent; nothing for a name that no printer has.
std::optional<Sheet> SheetOfPrinter(const std::string& name, const PrintSettings& settings);
// Set up for whole sheets.
std::unique_ptr<QPrinter> OpenPrinter(const std::string& name);

}  // namespace quorvane
