// Writes the found words for other programs: the form, a look at the first lines, the file.
#pragma once

#include <QDialog>
#include <functional>
#include <optional>
#include <string>

#include "base/window/door.h"
#include "results/export.h"
#include "settings/settings_store.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace quorvane {

class FrmExport : public QDialog {
  Q_OBJECT

 public:
  // Why a file may not be written; nothing when it may.
  using Refusal = std::function<std::optional<std::string>(const std::string& path)>;

  // The list of `words` outlives the dialog. A name without a directory lies in `directory`.
  FrmExport(SettingsStore& settings, Door& door, const WordSequence& words, std::string directory, Refusal refusal,
            QWidget* parent);

  // The file that was written; empty when none was.
  const std::string& Written() const { return written_; }

 private:
  ExportFormat Format() const;
  void ShowPreview();
  void FormatChosen();
  void Browse();
  void Write();

  SettingsStore& settings_;
  Door& door_;
  const WordSequence words_;
  const std::string directory_;
  const Refusal refusal_;
  QComboBox* cbFormat_ = nullptr;
  QLabel* lblPreview_ = nullptr;
  QLineEdit* tbFile_ = nullptr;
  std::string written_;
};

}  // namespace quorvane
