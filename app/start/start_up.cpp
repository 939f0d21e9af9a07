#include "app/start/start_up.h"

#include <QAction>
#include <QApplication>
#include <QFontDatabase>
#include <QPushButton>

#include "app/colour_scheme.h"
#include "base/text.h"
#include "base/version.h"
#include "base/window/qt_text.h"
#include "lexicon/window/frm_wait.h"
#include "lookup/window/lookup_panel.h"
#include "print/window/printing.h"
#include "results/window/appearance_panel.h"
#include "results/window/result_options_panel.h"
#include "results/window/sort_panel.h"
#include "search/window/frm_change_list.h"
#include "search/window/length_panel.h"
#include "search/window/lists_panel.h"
#include "search/window/pattern_panel.h"

namespace quorvane {
namespace {

constexpr int kListRegionTwips = 3540;
constexpr int kLiteratiListRegionTwips = 8900;

}  // namespace

StartUp::StartUp(MainWindow& window, Services& services) : window_(window), services_(services) {}

bool StartUp::Run() {
  BeginWindow();
  {
    const Hourglass hourglass;
    FrmWait wait(&window_);
    wait.ShowNow();
    OpenLog();
    // A question on the way may have been answered by the end of the program.
    if (window_.session.ended || !ReadSettingsAndLexicon() || window_.session.ended) {
      return false;
    }
  }
  Session& session = window_.session;
  if (session.abortFlag) {
    window_.close();
    return false;
  }
  LogStart();
  FillFontTable();
  RestoreInput();
  window_.ShowStatus(std::string(kWordPrompt), true);
  return true;
}

void StartUp::BeginWindow() {
  window_.session.stopFlag = false;
  window_.session.colours.fill("&H00000000");
  window_.ShowTimer("");
  window_.results->ClearPosition();
  window_.sort->Select(SortOrder::Alphabetic);
  window_.lookup->Button()->setEnabled(false);
  window_.setWindowTitle(window_.Title());
  window_.EndProgress();
}

void StartUp::OpenLog() {
  services_.settings.BeginBatch();
  SaveSetting(services_.settings, Setting::Version, VersionText());
  SaveSetting(services_.settings, Setting::Compiled, BuildDate());
  services_.settings.EndBatch();
  services_.log.Open();
  services_.log.SetIndicator(IsYes(GetSetting(services_.settings, Setting::WriteToLogFile)));
  window_.SetWide(IsYes(GetSetting(services_.settings, Setting::WideScreen)));
  services_.log.Write(event::kStart, "Application started (v" + VersionText() + ", compiled " + BuildDate() + ")");
}

bool StartUp::ReadSettingsAndLexicon() {
  const LexiconChoice lexicon = StartUpRead(services_.programDirectory, services_.settings, services_.log, *this).Run();
  window_.session.lexiconSetting = lexicon.setting;
  return window_.Command().LoadLexiconFile(lexicon.path);
}

void StartUp::LogStart() {
  Session& session = window_.session;
  session.lexiconIsDefault = session.lexiconSetting == kDefaultLexiconName;
  const int32_t count = session.lexicon->count();
  services_.log.Write(event::kWordCount, std::to_string(count) + " word" + std::string(PluralS(count)) +
                                             " defined in lexicon file '" + session.lexiconSetting + "'");
  window_.lookup->ShowResource("1");
  window_.lookup->ShowResource(GetSetting(services_.settings, Setting::Weblink));
  session.lists = StoredLists(services_.settings);
  services_.log.Write(event::kSelections, "Inc #" + session.lists.include + "   Exc !" + session.lists.exclude +
                                              "   Scr =" + session.lists.scrabble);
}

void StartUp::FillFontTable() {
  for (const QString& family : QFontDatabase::families()) {
    if (window_.session.fontTable.size() == kMaxFontTable) {
      break;
    }
    window_.session.fontTable.push_back(ToText(family));
  }
}

void StartUp::RestoreInput() {
  window_.session.input = InputQuestion();
  window_.ShowInput();
  for (const ListKind kind : kListKinds) {
    window_.ShowListCaption(kind, true);
    window_.lists->ShowList(kind, window_.session.lists.Of(kind));
  }
  window_.lengths->SelectAnyLength();
  window_.pattern->FocusPattern();
}

void StartUp::Apply(Setting setting, const std::string& value) {
  const bool yes = IsYes(value);
  switch (setting) {
    case Setting::LexiconFile:
      window_.lists->ShowLexicon(value);
      break;
    case Setting::SaveToFile:
      window_.resultOptions->SetAutoSave(yes);
      break;
    case Setting::Literati:
      window_.results->SetRegionHeight(PixelsOfTwips(yes ? kLiteratiListRegionTwips : kListRegionTwips));
      break;
    case Setting::TimerInd:
      window_.Item("menTimer")->setChecked(yes);
      break;
    case Setting::WriteToLogFile:
      services_.log.SetIndicator(yes);
      window_.Item("menWriteToLog")->setChecked(yes);
      break;
    case Setting::SelectedChars:
      window_.lists->ShowList(ListKind::Include, value);
      break;
    case Setting::ExcludedChars:
      window_.lists->ShowList(ListKind::Exclude, value);
      break;
    case Setting::ScrabbleChars:
      window_.lists->ShowList(ListKind::Scrabble, value);
      break;
    case Setting::MinLength:
      ParseInteger(value, minLength_);
      break;
    case Setting::MaxLength: {
      int maxLength = minLength_;
      ParseInteger(value, maxLength);
      window_.lengths->SetRange(minLength_, maxLength);
      break;
    }
    case Setting::ListBold:
      window_.appearance->SetBold(yes);
      break;
    case Setting::ListItalic:
      window_.appearance->SetItalic(yes);
      break;
    case Setting::ListFont:
      window_.appearance->SetFixedWidth(value == "Fixed");
      break;
    case Setting::PrinterName:
      window_.session.printerName = value;
      break;
    default:
      ApplyColourSetting(setting, value);
  }
}

void StartUp::ApplyColourSetting(Setting setting, const std::string& value) {
  for (const ColourElementRow& row : ColourElements()) {
    if (row.colour == setting) {
      ApplyColour(window_, row.element, value);
    }
  }
}

void StartUp::ShowBox(const std::string& title, const std::string& text, bool critical) {
  services_.door.Show(&window_, text, critical, FromText(title));
}

StartUpSite::Printers StartUp::ListPrinters() {
  Printers printers;
  for (const QString& name : PrinterNames()) {
    printers.names.push_back(ToText(name));
  }
  return printers;
}

}  // namespace quorvane
