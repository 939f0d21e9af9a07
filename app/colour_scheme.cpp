#include "app/colour_scheme.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>

#include "app/main_window.h"
#include "base/window/labels.h"
#include "lookup/window/lookup_panel.h"
#include "results/window/appearance_panel.h"
#include "results/window/result_options_panel.h"
#include "results/window/sort_panel.h"
#include "search/window/length_panel.h"
#include "search/window/lists_panel.h"
#include "search/window/pattern_panel.h"
#include "settings/window/light_palette.h"

namespace quorvane {
namespace {

void SetRole(QWidget* widget, QPalette::ColorRole role, const QColor& colour) {
  QPalette palette = widget->palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, role, colour);
  }
  widget->setPalette(palette);
}

QList<QWidget*> ControlsOf(MainWindow& window, ColourElement element) {
  switch (element) {
    case ColourElement::MainText:
      return QList<QWidget*>{window.pattern->Caption(), window.results->Caption()} +
             window.lengths->MainTextControls() + window.sort->MainTextControls() +
             window.resultOptions->MainTextControls() + window.appearance->MainTextControls() +
             window.lists->MainTextControls() + window.lookup->MainTextControls();
    case ColourElement::StatusText:
      return {window.StatusLabel()};
    case ColourElement::TimerText:
      return {window.TimerLabel(), window.results->PositionLabel()};
    case ColourElement::LettersText:
      return {window.pattern->LettersLabel()};
    case ColourElement::WordChoiceText:
      return window.lists->WordChoiceControls();
    default:
      return {};
  }
}

}  // namespace

void ApplyColour(MainWindow& window, ColourElement element, const std::string& colour) {
  window.session.colours[static_cast<size_t>(element)] = colour;
  const QColor shown = ScreenColour(ParseColour(colour).value_or(0));
  switch (element) {
    case ColourElement::MainBack:
      SetRole(window.centralWidget(), QPalette::Window, shown);
      SetRole(&window, QPalette::Window, shown);
      for (QWidget* caption : window.pattern->ModeCaptions()) {
        SetRole(caption, QPalette::WindowText, ReadableInk(shown));
      }
      break;
    case ColourElement::ResultsBack:
      SetRole(window.results->List(), QPalette::Base, shown);
      break;
    case ColourElement::ResultsText:
      SetRole(window.results->List(), QPalette::Text, shown);
      break;
    case ColourElement::GroupText:
      // A frame draws its title in its text role; the lists and the marks of the choices inside keep their own.
      for (QGroupBox* frame : window.findChildren<QGroupBox*>()) {
        SetRole(frame, QPalette::Text, shown);
        SetRole(frame, QPalette::WindowText, shown);
        for (QComboBox* list : frame->findChildren<QComboBox*>()) {
          SetRole(list, QPalette::Text, Qt::black);
        }
        for (QRadioButton* choice : frame->findChildren<QRadioButton*>()) {
          SetRole(choice, QPalette::Text, Qt::black);
        }
      }
      ApplyColour(window, ColourElement::MainText,
                  window.session.colours[static_cast<size_t>(ColourElement::MainText)]);
      break;
    default:
      for (QWidget* control : ControlsOf(window, element)) {
        SetRole(control, QPalette::WindowText, shown);
      }
  }
  const QPalette list = window.results->List()->palette();
  window.appearance->ShowColours(list.color(QPalette::Text), list.color(QPalette::Base));
}

}  // namespace quorvane
