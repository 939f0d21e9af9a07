// The help, in a window of the program.
#pragma once

#include <QDialog>
#include <optional>
#include <string>

namespace quorvane {

inline constexpr const char* kHelpFileName = "Quorvane.hlp";

// The help file's text, with the wildcard table put in its place; nothing when the file can't be read.
std::optional<QString> ReadHelp(const std::string& path);

class FrmHelp : public QDialog {
  Q_OBJECT

 public:
  FrmHelp(const QString& html, QWidget* parent);
};

}  // namespace quorvane
