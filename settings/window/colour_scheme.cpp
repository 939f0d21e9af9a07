#include "settings/window/colour_scheme.h"

#include <QComboBox>
#include <QPalette>
#include <QRadioButton>
#include <QVariant>
#include <array>
#include <utility>

#include "base/window/labels.h"
#include "settings/window/colour_swatch.h"
#include "settings/window/light_palette.h"

namespace quorvane {
namespace {

constexpr const char* kBlack = "&H00000000";

// The property of a control that holds the element it shows in a use.
constexpr std::array kProperties = {
    std::pair{ColourUse::Text, "quorvaneText"},
    std::pair{ColourUse::Title, "quorvaneTitle"},
    std::pair{ColourUse::Background, "quorvaneBackground"},
    std::pair{ColourUse::ReadableText, "quorvaneReadableText"},
    std::pair{ColourUse::ListText, "quorvaneListText"},
    std::pair{ColourUse::ListBackground, "quorvaneListBackground"},
    std::pair{ColourUse::Swatch, "quorvaneSwatch"},
};

void SetRole(QWidget* widget, QPalette::ColorRole role, const QColor& colour) {
  QPalette palette = widget->palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, role, colour);
  }
  widget->setPalette(palette);
}

void Show(QWidget* control, ColourUse use, const QColor& colour) {
  switch (use) {
    case ColourUse::Text:
      SetRole(control, QPalette::WindowText, colour);
      break;
    case ColourUse::Title:
      // A frame draws its title in its text role.
      SetRole(control, QPalette::Text, colour);
      SetRole(control, QPalette::WindowText, colour);
      for (QComboBox* list : control->findChildren<QComboBox*>()) {
        SetRole(list, QPalette::Text, Qt::black);
      }
      for (QRadioButton* choice : control->findChildren<QRadioButton*>()) {
        SetRole(choice, QPalette::Text, Qt::black);
      }
      break;
    case ColourUse::Background:
      SetRole(control, QPalette::Window, colour);
      break;
    case ColourUse::ReadableText:
      SetRole(control, QPalette::WindowText, ReadableInk(colour));
      break;
    case ColourUse::ListText:
      SetRole(control, QPalette::Text, colour);
      break;
    case ColourUse::ListBackground:
      SetRole(control, QPalette::Base, colour);
      break;
    case ColourUse::Swatch:
      if (auto* swatch = qobject_cast<ColourSwatch*>(control)) {
        swatch->SetColour(colour);
      }
      break;
  }
}

}  // namespace

void ShowsColour(QWidget* control, ColourElement element, ColourUse use) {
  control->setProperty(kProperties[static_cast<size_t>(use)].second, static_cast<int>(element));
}

void ColourScheme::Apply(ColourElement element, const std::string& colour) {
  colours_[element] = colour;
  const QColor shown = ScreenColour(ParseColour(colour).value_or(0));
  const QVariant wanted(static_cast<int>(element));
  for (QWidget* control : QList<QWidget*>{&window_} + window_.findChildren<QWidget*>()) {
    for (const auto& [use, property] : kProperties) {
      if (control->property(property) == wanted) {
        Show(control, use, shown);
      }
    }
  }
}

std::string ColourScheme::Colour(ColourElement element) const {
  const auto found = colours_.find(element);
  return found == colours_.end() ? kBlack : found->second;
}

}  // namespace quorvane
