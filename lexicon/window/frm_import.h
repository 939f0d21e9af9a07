// Makes a lexicon of a word list: the file, a look at its first lines, how they are read, what becomes of them.
#pragma once

#include <QDialog>
#include <functional>
#include <optional>
#include <string>

#include "base/window/door.h"
#include "lexicon/lexicon_maker.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QTableWidget;
class QVBoxLayout;

namespace quorvane {

class LexiconNameBox;

class FrmImport : public QDialog {
  Q_OBJECT

 public:
  // Why a lexicon may not be written to a path; nothing when it may.
  using Refusal = std::function<std::optional<std::string>(const std::string& path)>;

  // Lexicons are made in `directory`. `file` is shown first; none where it is empty.
  FrmImport(Door& door, std::string directory, Refusal refusal, const std::string& file, QWidget* parent);

  // The file name of the lexicon that was made; empty when none was.
  const std::string& Made() const { return made_; }
  // Whether it is to be opened.
  bool OpenNow() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddFile(QVBoxLayout* layout);
  void AddOptions(QFormLayout* form);
  void AddTarget(QVBoxLayout* layout);
  void AddButtons(QVBoxLayout* layout);
  void Browse();
  // Reads the start of the file whose name stands in its box, if that is another one.
  void ReadHead();
  MakerOptions Options() const;
  // Shows what the chosen options make of the start of the file.
  void ShowPreview();
  void ShowLines(const MakerPreview& preview);
  void ShowSeparators(Separator found);
  void MarkColumn();
  void Make();
  // Whether a lexicon may be written there, which may be a question.
  bool MayWrite(const std::string& path);
  // Null, with a message, when the file is no lexicon.
  std::optional<MadeLexicon> MakeOfAll();

  Door& door_;
  const std::string directory_;
  const Refusal refusal_;
  std::string path_;  // Of the file that is shown.
  std::string head_;  // Its start.
  bool whole_ = false;
  QLineEdit* tbFile_ = nullptr;
  QTableWidget* tblLines_ = nullptr;
  QSpinBox* sbColumn_ = nullptr;
  QComboBox* cbSeparator_ = nullptr;
  QCheckBox* cbHeading_ = nullptr;
  QComboBox* cbPhrases_ = nullptr;
  QPlainTextEdit* txtReport_ = nullptr;
  LexiconNameBox* tbSaveAs_ = nullptr;
  QCheckBox* cbOpenNow_ = nullptr;
  QProgressBar* pbImport_ = nullptr;
  QPushButton* cmdOK_ = nullptr;
  std::string made_;
};

}  // namespace quorvane
