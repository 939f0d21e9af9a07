// The look of the results list: font, bold, italic and its two colours.
#pragma once

#include <QFont>
#include <QGroupBox>

#include "settings/settings_store.h"

class QLabel;
class QPushButton;

namespace quorvane {

class ColourSwatch;

class AppearancePanel : public QGroupBox {
  Q_OBJECT

 public:
  AppearancePanel(SettingsStore& settings, QWidget* parent);

  // As stored; the list's font follows.
  void SetFixedWidth(bool fixed);
  void SetBold(bool bold);
  void SetItalic(bool italic);
  // The family is what is asked for; the platform may show another one in its place.
  QFont ListFont() const;

  void ShowColours(const QColor& text, const QColor& back);
  QList<QWidget*> MainTextControls() const;

 signals:
  void FontChanged();
  void Status(const std::string& text);
  void TextColourClicked();
  void BackColourClicked();

 private:
  void ToggleFont();
  void ToggleBold();
  void ToggleItalic();

  SettingsStore& settings_;
  bool fixed_ = false;
  bool bold_ = false;
  bool italic_ = false;
  QPushButton* cmdFontToggle_ = nullptr;
  QPushButton* cmdV_ = nullptr;
  QPushButton* cmdW_ = nullptr;
  ColourSwatch* textColour_ = nullptr;
  ColourSwatch* backColour_ = nullptr;
  QLabel* lblTextCol_ = nullptr;
  QLabel* lblBack_ = nullptr;
};

}  // namespace quorvane
