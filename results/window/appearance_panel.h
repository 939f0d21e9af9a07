// The look of the results list: font, bold, italic and its two colours.
#pragma once

#include <QFont>
#include <QGroupBox>

#include "settings/settings_store.h"

class QPushButton;

namespace quorvane {

class AppearancePanel : public QGroupBox {
  Q_OBJECT

 public:
  AppearancePanel(SettingsStore& settings, QWidget* parent);

  void SetFixedWidth(bool fixed);
  void SetBold(bool bold);
  void SetItalic(bool italic);
  // The family is what is asked for; the platform may show another one in its place.
  QFont ListFont() const;

 signals:
  void FontChanged();
  void BoldClicked();
  void ItalicClicked();
  void Status(const std::string& text);
  void TextColourClicked();
  void BackColourClicked();

 private:
  void ToggleFont();

  SettingsStore& settings_;
  bool fixed_ = false;
  bool bold_ = false;
  bool italic_ = false;
  QPushButton* cmdFontToggle_ = nullptr;
};

}  // namespace quorvane
