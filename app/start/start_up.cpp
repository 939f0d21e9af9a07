#include "app/start/start_up.h"

#include <QFontDatabase>
#include <algorithm>

#include "base/text.h"
#include "base/version.h"
#include "base/window/qt_text.h"
#include "lexicon/window/frm_wait.h"
#include "print/window/printers.h"
#include "search/window/frm_change_list.h"

namespace quorvane {

StartUp::StartUp(StartUpView& view, Session& session, Services& services, FileController& files,
                 OptionController& options)
    : view_(view), session_(session), services_(services), files_(files), options_(options) {}

bool StartUp::Run() {
  BeginWindow();
  {
    const Hourglass hourglass;
    FrmWait wait(view_.Window());
    wait.ShowNow();
    OpenLog();
    // A question on the way may have been answered by the end of the program.
    if (session_.ended || !ReadSettingsAndLexicon() || session_.ended) {
      return false;
    }
  }
  if (session_.abortFlag) {
    view_.Leave();
    return false;
  }
  LogStart();
  CountFonts();
  RestoreInput();
  view_.ShowStatus(std::string(FactsOf(WordType::WordList).prompt), true);
  return true;
}

void StartUp::BeginWindow() {
  session_.stopFlag = false;
  view_.ShowTimer("");
  view_.ClearPosition();
  view_.SelectOrder(SortOrder::Alphabetic);
  view_.UpdateCommands();
  view_.ShowCaption("");
  view_.EndProgress();
}

void StartUp::OpenLog() {
  {
    const SettingsBatch batch(services_.settings);
    SaveSetting(services_.settings, Setting::Version, VersionText());
    SaveSetting(services_.settings, Setting::Compiled, BuildDate());
  }
  services_.log.Open();
  services_.log.SetIndicator(IsYes(GetSetting(services_.settings, Setting::WriteToLogFile)));
  options_.Apply(Option::WideScreen, IsYes(GetSetting(services_.settings, Setting::WideScreen)));
  services_.log.Write(event::kStart, "Application started (v" + VersionText() + ", compiled " + BuildDate() + ")");
}

bool StartUp::ReadSettingsAndLexicon() {
  const LexiconChoice lexicon = StartUpRead(services_.programDirectory, services_.settings, services_.log, *this).Run();
  lexiconSetting_ = lexicon.setting;
  return files_.LoadLexiconFile(lexicon.path);
}

void StartUp::LogStart() {
  const int32_t count = session_.lexicon->count();
  services_.log.Write(event::kWordCount, std::to_string(count) + " word" + std::string(PluralS(count)) +
                                             " defined in lexicon file '" + lexiconSetting_ + "'");
  view_.ShowResource("1");
  view_.ShowResource(GetSetting(services_.settings, Setting::Weblink));
  const CharacterLists lists = StoredLists(services_.settings);
  services_.log.Write(event::kSelections,
                      "Inc #" + lists.include + "   Exc !" + lists.exclude + "   Scr =" + lists.scrabble);
}

void StartUp::CountFonts() {
  session_.fontCount = std::min(static_cast<size_t>(QFontDatabase::families().size()), kMaxFonts);
}

void StartUp::RestoreInput() {
  for (const OptionRow& option : Options()) {
    if (option.menu == Menu::Workbench) {
      options_.Apply(option.option, IsYes(GetSetting(services_.settings, option.setting)));
    }
  }
  session_.input = InputControls();
  view_.ShowText("", 0);
  view_.ShowInput();
  const CharacterLists lists = StoredLists(services_.settings);
  for (const ListKind kind : kListKinds) {
    view_.ShowListCaption(kind, ListMenuCaption(kind, lists.Of(kind), true));
    view_.ShowList(kind, lists.Of(kind));
  }
  view_.SelectAnyLength();
  view_.FocusPattern();
}

bool StartUp::Apply(Setting setting, const std::string& value) {
  if (const OptionRow* option = OptionOf(setting)) {
    options_.Apply(option->option, IsYes(value));
    return true;
  }
  switch (setting) {
    case Setting::LexiconFile:
      view_.ShowLexicon(value);
      return true;
    case Setting::SaveFileName:      // Asked for at each save.
    case Setting::RandomDisclaimer:  // Asked for at each search for random words.
      return true;
    case Setting::SelectedChars:
      view_.ShowList(ListKind::Include, value);
      return true;
    case Setting::ExcludedChars:
      view_.ShowList(ListKind::Exclude, value);
      return true;
    case Setting::ScrabbleChars:
      view_.ShowList(ListKind::Scrabble, value);
      return true;
    case Setting::MinLength:
      return ParseInteger(value, minLength_);
    case Setting::MaxLength: {
      int maxLength = minLength_;
      const bool isNumber = ParseInteger(value, maxLength);
      view_.SetLengths(minLength_, maxLength);
      return isNumber;
    }
    case Setting::ListFont:
      view_.SetFixedWidth(value == "Fixed");
      return true;
    case Setting::PrinterName:
      session_.printerName = value;
      return true;
    default:
      return ApplyColour(setting, value);
  }
}

bool StartUp::ApplyColour(Setting setting, const std::string& value) {
  for (const ColourElementRow& row : ColourElements()) {
    if (row.colour == setting) {
      view_.Colours().Apply(row.element, value);
      return true;
    }
  }
  return false;
}

void StartUp::ShowBox(const std::string& title, const std::string& text, bool critical) {
  services_.door.Show(view_.Window(), text, critical, FromText(title));
}

StartUpSite::Printers StartUp::ListPrinters() {
  if (GetSetting(services_.settings, Setting::PrinterName) == kPdfPrinter) {
    return {{kPdfPrinter}, {}, false};
  }
  const PrinterList list = quorvane::ListPrinters();
  Printers printers;
  printers.silent = list.silent;
  for (const QString& name : list.names) {
    printers.names.push_back(ToText(name));
  }
  return printers;
}

}  // namespace quorvane
