// Printer, columns, font, paper and orientation, each stored at its click, with the page estimate.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "base/window/door.h"
#include "print/print_settings.h"
#include "settings/event_log.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QRadioButton;
class QVBoxLayout;

namespace quorvane {

class FrmPrinterSetup : public QDialog {
  Q_OBJECT

 public:
  // `currentPrinter` is the program's: it is read here and set when another printer is chosen. `entryCount` is what the
  // estimate is for.
  FrmPrinterSetup(SettingsStore& settings, EventLog& log, Door& door, std::string& currentPrinter, size_t entryCount,
                  std::function<void(const std::string&)> reportErrors, QWidget* parent);

 private:
  void MakeControls(QFormLayout* form);
  void MakeButtons(QVBoxLayout* layout);
  void FillLists();
  void ShowSettings();
  void CheckFont();
  void ShowEstimate();
  void ShowSample();
  void PaperChosen();
  void StoreAll();
  PrintSettings Shown() const;

  SettingsStore& settings_;
  EventLog& log_;
  Door& door_;
  std::string& currentPrinter_;
  const size_t entryCount_;
  const std::function<void(const std::string&)> reportErrors_;
  QComboBox* cbPrinter_ = nullptr;
  QComboBox* cbColumns_ = nullptr;
  QComboBox* cbFont_ = nullptr;
  QComboBox* cbFontSize_ = nullptr;
  QComboBox* cbPaperSize_ = nullptr;
  QCheckBox* chkItalic_ = nullptr;
  QRadioButton* rbPortrait_ = nullptr;
  QRadioButton* rbLandscape_ = nullptr;
  QLabel* lblPageInfo_ = nullptr;
  QLabel* lblSample_ = nullptr;
  bool silent_ = false;  // Nothing is asked of the printing system.
};

// The installed fonts that print at any size; "Arial" is always among them.
QStringList PrintFontNames();

}  // namespace quorvane
