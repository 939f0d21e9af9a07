#include "app/command_table.h"

#include <array>

#include "app/commands.h"

namespace quorvane {
namespace {

constexpr std::array kMenus = {
    MenuRow{Menu::File, "menFile", "&File"},
    MenuRow{Menu::Select, "menSelect", "&Select"},
    MenuRow{Menu::WordType, "menWordType", "Word &Type"},
    MenuRow{Menu::Options, "menOptions", "&Options"},
    MenuRow{Menu::Colours, "menColours", "&Colours"},
    MenuRow{Menu::Help, "menHelp", "&Help"},
};

constexpr CommandRow Separator(Menu menu, const char* name) {
  return {menu, name, nullptr};
}

constexpr CommandRow Item(Menu menu, const char* name, const char* caption, void (Commands::*run)(), int key = 0,
                          bool (Commands::*keyAllowed)() const = nullptr, bool checkable = false) {
  return {menu, name, caption, run, key, keyAllowed, checkable};
}

constexpr CommandRow Tick(Menu menu, const char* name, const char* caption, void (Commands::*run)(), int key = 0,
                          bool (Commands::*keyAllowed)() const = nullptr) {
  return Item(menu, name, caption, run, key, keyAllowed, true);
}

constexpr std::array kRows = {
    Item(Menu::File, "menNewLex", "&Open new lexicon (F7)", &Commands::OpenNewLexicon, 7),
    Separator(Menu::File, "menSep"),
    Item(Menu::File, "menFileSaveFile", "Change Save &Filename", &Commands::ChangeSaveName),
    Item(Menu::File, "menFileSaveData", "&Save Current List (F8)", &Commands::SaveList, 8, &Commands::CanSave),
    Item(Menu::File, "menSaveAsLex", "Save Current List (as le&xicon file)", &Commands::SaveAsLexicon),
    Separator(Menu::File, "menSep2"),
    Item(Menu::File, "menChangeWeblink", "Change &Definition link resource (F6)", &Commands::ChangeWeblink, 6),
    Separator(Menu::File, "menSep3"),
    Item(Menu::File, "menFilePrint", "&Print", &Commands::Print),
    Item(Menu::File, "menFilePrinterSetup", "Printer S&etup", &Commands::SetUpPrinter),
    Separator(Menu::File, "menSep6"),
    Item(Menu::File, "menExit", "E&xit", &Commands::Exit),

    Item(Menu::Select, "menSelectChars", "&Include Characters for #", &Commands::ChangeIncludeList, 2),
    Item(Menu::Select, "menExcludeChars", "&Exlude", &Commands::ChangeExcludeList, 3),
    Item(Menu::Select, "menScrabbleChars", "&Scrabble", &Commands::ChangeScrabbleList, 4),

    Tick(Menu::WordType, "menWordTypeWordList", "F9: &Word List", &Commands::ChooseWordList, 9),
    Tick(Menu::WordType, "menWordTypePalindrome", "F10: &Palindrome", &Commands::ChoosePalindrome, 10),
    Tick(Menu::WordType, "menWordTypeAnagram", "F11: &Anagram (All words)", &Commands::ChooseAnagram, 11,
         &Commands::CanChooseAnagram),
    Tick(Menu::WordType, "menWordTypeAnagramExact", "F12: Anagra&m (Exact length)", &Commands::ChooseAnagramExact, 12,
         &Commands::CanChooseAnagram),

    Tick(Menu::Options, "menTimer", "Use &timer", &Commands::ToggleTimer),
    Tick(Menu::Options, "menWriteToLog", "Write to &log file", &Commands::ToggleLog),
    Tick(Menu::Options, "menWideScreen", "&Wide Screen", &Commands::ToggleWideScreen),
    Separator(Menu::Options, "menSep7"),
    Item(Menu::Options, "menClearLog", "&Clear log file (created XX/YY/ZZ)", &Commands::ClearLog),

    Item(Menu::Colours, "menMainBack", "&Main Background", &Commands::ColourMainBack),
    Item(Menu::Colours, "memMainText", "Main Te&xt", &Commands::ColourMainText),
    Item(Menu::Colours, "menResBack", "Results box &Background", &Commands::ColourResultsBack),
    Item(Menu::Colours, "menResText", "Results box &Text", &Commands::ColourResultsText),
    Item(Menu::Colours, "menLettersText", "# &Letters Text", &Commands::ColourLettersText),
    Item(Menu::Colours, "menGroupText", "&Group Text", &Commands::ColourGroupText),
    Item(Menu::Colours, "menWordChText", "&Word choice Text", &Commands::ColourWordChoiceText),
    Item(Menu::Colours, "menStatusText", "&Status Text", &Commands::ColourStatusText),
    Item(Menu::Colours, "menTimerText", "T&imer Text", &Commands::ColourTimerText),
    Separator(Menu::Colours, "menSep8"),
    Item(Menu::Colours, "menResetAllToDefault", "&Reset all to default", &Commands::ResetColours),

    Item(Menu::Help, "menHelpHelp", "&Help (F1)", &Commands::ShowHelp, 1),
    Separator(Menu::Help, "menHelpBar"),
    Item(Menu::Help, "menHelpAbout", "&About Quorvane", &Commands::ShowAbout),
    Separator(Menu::Help, "menHelpBar2"),
    Item(Menu::Help, "menHelpByLetter", "Count by &letter", &Commands::CountByLetter),
    Item(Menu::Help, "menHelpByLength", "Count by le&ngth", &Commands::CountByLength),
    Separator(Menu::Help, "menHelpBar3"),
    Item(Menu::Help, "menWildcardSumm", "&Wildcard Summary", &Commands::ShowWildcards),
};

constexpr std::array kKeyOnly = {
    Item(Menu::File, "cmdWebLink", "&Definition (F5)", &Commands::LookUp, 5, &Commands::CanLookUp),
};

}  // namespace

std::span<const MenuRow> Menus() {
  return kMenus;
}

std::span<const CommandRow> CommandRows() {
  return kRows;
}

std::span<const CommandRow> KeyOnlyRows() {
  return kKeyOnly;
}

const CommandRow* CommandOfKey(int functionKey) {
  for (const auto rows : {CommandRows(), KeyOnlyRows()}) {
    for (const CommandRow& row : rows) {
      if (row.functionKey == functionKey) {
        return &row;
      }
    }
  }
  return nullptr;
}

}  // namespace quorvane
