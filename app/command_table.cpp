#include "app/command_table.h"

#include <algorithm>
#include <array>

#include "app/file_controller.h"
#include "app/history_controller.h"
#include "app/option_controller.h"
#include "app/option_table.h"
#include "app/search_controller.h"
#include "app/workbench_controller.h"
#include "settings/colours.h"

namespace quorvane {
namespace {

constexpr std::array kMenus = {
    MenuRow{Menu::File, "menFile", "&File"},
    MenuRow{Menu::Select, "menSelect", "&Select"},
    MenuRow{Menu::WordType, "menWordType", "Word &Type"},
    MenuRow{Menu::Options, "menOptions", "&Options"},
    MenuRow{Menu::Colours, "menColours", "&Colours"},
    MenuRow{Menu::Workbench, "menWorkbench", "Wor&kbench"},
    MenuRow{Menu::Help, "menHelp", "&Help"},
};

constexpr CommandRow Separator(Menu menu, std::string_view name) {
  return {.menu = menu, .name = name, .caption = {}};
}

bool HasFound(const CommandState& state) {
  return state.found > 0;
}

bool CanPrint(const CommandState& state) {
  return state.entries > 0 && state.found <= kMostPrintable && state.session.printerName != kUndefinedPrinter;
}

bool CanSaveAsLexicon(const CommandState& state) {
  return state.found > 0 && state.session.input.saveAsLexicon;
}

bool CanLookUp(const CommandState& state) {
  return state.found > 0 && state.wordSelected;
}

bool AnagramsAllowed(const CommandState& state) {
  return state.session.input.anagrams;
}

bool PalindromesAllowed(const CommandState& state) {
  return state.session.input.palindrome;
}

bool KeepsHistory(const CommandState& state) {
  const auto found = state.session.options.find(Option::KeepHistory);
  return found != state.session.options.end() && found->second;
}

constexpr std::array kFile = {
    CommandRow{Command::OpenLexicon, Menu::File, "menNewLex", "&Open new lexicon (F7)",
               [](const Controllers& c, int) { c.files.OpenNewLexicon(); }, 0, 7},
    Separator(Menu::File, "menSep"),
    CommandRow{Command::ChangeSaveFile, Menu::File, "menFileSaveFile", "Change Save &Filename",
               [](const Controllers& c, int) { c.files.ChangeSaveName(); }},
    CommandRow{Command::SaveList, Menu::File, "menFileSaveData", "&Save Current List (F8)",
               [](const Controllers& c, int) { c.files.SaveList(); }, 0, 8, HasFound},
    CommandRow{Command::SaveAsLexicon, Menu::File, "menSaveAsLex", "Save Current List (as le&xicon file)",
               [](const Controllers& c, int) { c.files.SaveAsLexicon(); }, 0, 0, CanSaveAsLexicon},
    Separator(Menu::File, "menSep2"),
    CommandRow{Command::ChangeResource, Menu::File, "menChangeWeblink", "Change &Definition link resource (F6)",
               [](const Controllers& c, int) { c.files.ChangeWeblink(); }, 0, 6},
    Separator(Menu::File, "menSep3"),
    CommandRow{Command::Print, Menu::File, "menFilePrint", "&Print", [](const Controllers& c, int) { c.files.Print(); },
               0, 0, CanPrint},
    CommandRow{Command::SetUpPrinter, Menu::File, "menFilePrinterSetup", "Printer S&etup",
               [](const Controllers& c, int) { c.files.SetUpPrinter(); }},
    Separator(Menu::File, "menSep6"),
    CommandRow{Command::Exit, Menu::File, "menExit", "E&xit", [](const Controllers& c, int) { c.files.Exit(); }},
    CommandRow{.command = Command::LookUp,
               .name = "cmdWebLink",
               .caption = "&Definition (F5)",
               .run = [](const Controllers& c, int) { c.files.LookUp(); },
               .functionKey = 5,
               .enabled = CanLookUp,
               .inMenu = false},
};

constexpr CommandRow List(ListKind kind, std::string_view name, std::string_view caption, int key) {
  return {Command::EditList,
          Menu::Select,
          name,
          caption,
          [](const Controllers& c, int which) { c.search.EditList(static_cast<ListKind>(which)); },
          static_cast<int>(kind),
          key};
}

constexpr std::array kLists = {
    List(ListKind::Include, "menSelectChars", "&Include Characters for #", 2),
    List(ListKind::Exclude, "menExcludeChars", "&Exlude", 3),
    List(ListKind::Scrabble, "menScrabbleChars", "&Scrabble", 4),
};

CommandRow ModeItem(const WordTypeFacts& mode) {
  return {.command = Command::ChooseMode,
          .menu = Menu::WordType,
          .name = mode.menuItem,
          .caption = mode.menuCaption,
          .run = [](const Controllers& c, int which) { c.search.SelectMode(static_cast<WordType>(which)); },
          .which = static_cast<int>(mode.type),
          .functionKey = mode.functionKey,
          .enabled = IsAnagram(mode.type)                ? AnagramsAllowed
                     : mode.type == WordType::Palindrome ? PalindromesAllowed
                                                         : nullptr,
          .ticked = [](const CommandState& state,
                       int which) { return state.session.input.selected == static_cast<WordType>(which); },
          .keyActsAlways = mode.type == WordType::Palindrome};
}

CommandRow OptionItem(const OptionRow& option) {
  return {.command = Command::ToggleOption,
          .menu = option.menu,
          .name = option.item,
          .caption = option.caption,
          .run = [](const Controllers& c, int which) { c.options.Toggle(static_cast<Option>(which)); },
          .which = static_cast<int>(option.option),
          .ticked =
              [](const CommandState& state, int which) {
                const auto found = state.session.options.find(static_cast<Option>(which));
                return found != state.session.options.end() && found->second;
              },
          .shortcut = option.shortcut};
}

CommandRow ColourItem(const ColourElementRow& colour) {
  return {.command = Command::ChooseColour,
          .menu = Menu::Colours,
          .name = colour.menuItem,
          .caption = colour.menuCaption,
          .run = [](const Controllers& c, int which) { c.options.ChooseColour(static_cast<ColourElement>(which)); },
          .which = static_cast<int>(colour.element)};
}

constexpr std::array kLog = {
    Separator(Menu::Options, "menSep7"),
    CommandRow{Command::ClearLog, Menu::Options, "menClearLog", "&Clear log file (created XX/YY/ZZ)",
               [](const Controllers& c, int) { c.options.ClearLog(); }},
};

constexpr std::array kColours = {
    Separator(Menu::Colours, "menSep8"),
    CommandRow{Command::ResetColours, Menu::Colours, "menResetAllToDefault", "&Reset all to default",
               [](const Controllers& c, int) { c.options.ResetColours(); }},
};

CommandRow WorkbenchItem(Command command, std::string_view name, std::string_view caption, std::string_view shortcut,
                         void (*run)(const Controllers&, int), bool (*enabled)(const CommandState&) = nullptr) {
  return {.command = command,
          .menu = Menu::Workbench,
          .name = name,
          .caption = caption,
          .run = run,
          .enabled = enabled,
          .shortcut = shortcut};
}

const std::array kWorkbench = {
    WorkbenchItem(Command::MoreConditions, "menMoreConditions", "&More conditions", "Ctrl+M",
                  [](const Controllers& c, int) { c.workbench.ToggleConditions(); }),
    WorkbenchItem(
        Command::FindWithin, "menFindWithin", "&Find within these", "Ctrl+F",
        [](const Controllers& c, int) { c.workbench.FindWithin(); }, HasFound),
    WorkbenchItem(
        Command::CopyAll, "menCopyAll", "&Copy all words", "Ctrl+Shift+C",
        [](const Controllers& c, int) { c.workbench.CopyAll(); }, HasFound),
    WorkbenchItem(Command::CopyAsCommand, "menCopyAsCommand", "Copy &as command", "Ctrl+Alt+C",
                  [](const Controllers& c, int) { c.workbench.CopyAsCommand(); }),
    WorkbenchItem(
        Command::Export, "menExport", "&Export ...", "Shift+F8",
        [](const Controllers& c, int) { c.workbench.Export(); }, HasFound),
    WorkbenchItem(Command::ImportList, "menImport", "&Import a word list ...", "Shift+F7",
                  [](const Controllers& c, int) { c.files.ImportList(); }),
    WorkbenchItem(Command::ShowWildcardsBeside, "menWildcardsBeside", "Wildcards &beside the work", "",
                  [](const Controllers& c, int) { c.workbench.ShowWildcardsBeside(); }),
    WorkbenchItem(
        Command::ShowSearches, "menSearches", "Searc&hes ...", "Ctrl+H",
        [](const Controllers& c, int) { c.history.ShowSearches(); }, KeepsHistory),
    WorkbenchItem(Command::GoToList, "menGoToList", "Go to the &list", "Ctrl+Down",
                  [](const Controllers& c, int) { c.workbench.GoToList(); }),
    WorkbenchItem(Command::GoToPattern, "menGoToPattern", "Go to the &pattern", "Ctrl+Up",
                  [](const Controllers& c, int) { c.workbench.GoToPattern(); }),
};

constexpr std::array kHelp = {
    CommandRow{Command::ShowHelp, Menu::Help, "menHelpHelp", "&Help (F1)",
               [](const Controllers& c, int) { c.options.ShowHelp(); }, 0, 1},
    Separator(Menu::Help, "menHelpBar"),
    CommandRow{Command::ShowAbout, Menu::Help, "menHelpAbout", "&About Quorvane",
               [](const Controllers& c, int) { c.options.ShowAbout(); }},
    Separator(Menu::Help, "menHelpBar2"),
    CommandRow{Command::CountByLetter, Menu::Help, "menHelpByLetter", "Count by &letter",
               [](const Controllers& c, int) { c.options.CountByLetter(); }},
    CommandRow{Command::CountByLength, Menu::Help, "menHelpByLength", "Count by le&ngth",
               [](const Controllers& c, int) { c.options.CountByLength(); }},
    Separator(Menu::Help, "menHelpBar3"),
    CommandRow{Command::ShowWildcards, Menu::Help, "menWildcardSumm", "&Wildcard Summary",
               [](const Controllers& c, int) { c.options.ShowWildcards(); }},
};

std::vector<CommandRow> MakeRows() {
  std::vector<CommandRow> rows;
  const auto add = [&rows](const auto& more) { rows.insert(rows.end(), more.begin(), more.end()); };
  add(kFile);
  add(kLists);
  for (const WordTypeFacts& mode : WordTypes()) {
    rows.push_back(ModeItem(mode));
  }
  const auto addOptions = [&rows](Menu menu) {
    for (const OptionRow& option : Options()) {
      if (!option.item.empty() && option.menu == menu) {
        rows.push_back(OptionItem(option));
      }
    }
  };
  addOptions(Menu::Options);
  add(kLog);
  for (const ColourElementRow& colour : ColourElements()) {
    rows.push_back(ColourItem(colour));
  }
  add(kColours);
  addOptions(Menu::Workbench);
  add(kWorkbench);
  add(kHelp);
  return rows;
}

}  // namespace

std::span<const MenuRow> Menus() {
  return kMenus;
}

const std::vector<CommandRow>& CommandRows() {
  static const std::vector<CommandRow> rows = MakeRows();
  return rows;
}

const CommandRow* CommandOfKey(int functionKey) {
  const auto& rows = CommandRows();
  const auto row =
      std::find_if(rows.begin(), rows.end(), [&](const CommandRow& r) { return r.functionKey == functionKey; });
  return row == rows.end() ? nullptr : &*row;
}

const CommandRow& RowOf(Command command) {
  const auto& rows = CommandRows();
  return *std::find_if(rows.begin(), rows.end(), [&](const CommandRow& r) { return r.command == command; });
}

}  // namespace quorvane
