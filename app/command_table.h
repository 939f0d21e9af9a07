// The one table of commands: the whole menu tree with captions, function keys, rules and what each does.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "app/menu.h"
#include "app/session.h"
#include "search/character_lists.h"

namespace quorvane {

class SearchController;
class FileController;
class OptionController;
class WorkbenchController;
class HistoryController;

// Everything that carries a command out.
struct Controllers {
  SearchController& search;
  FileController& files;
  OptionController& options;
  WorkbenchController& workbench;
  HistoryController& history;
};

// What the rules of the commands look at.
struct CommandState {
  const Session& session;
  size_t found = 0;           // Words found.
  size_t entries = 0;         // Entries of the whole list.
  bool wordSelected = false;  // One of them is.
};

struct MenuRow {
  Menu menu;
  std::string_view name;
  std::string_view caption;
};

// Commands that come several times, for an option or a list each, are told apart by `which`.
enum class Command {
  None,  // A separator.
  OpenLexicon,
  ChangeSaveFile,
  SaveList,
  SaveAsLexicon,
  ChangeResource,
  Print,
  SetUpPrinter,
  Exit,
  EditList,      // A ListKind.
  ChooseMode,    // A WordType.
  ToggleOption,  // An Option.
  ClearLog,
  ChooseColour,  // A ColourElement.
  ResetColours,
  ShowHelp,
  ShowAbout,
  CountByLetter,
  CountByLength,
  ShowWildcards,
  LookUp,
  GoToList,
  GoToPattern,
  MoreConditions,
  FindWithin,
  ImportList,
  CopyAll,
  CopyAsCommand,
  Export,
  ShowWildcardsBeside,
  ShowSearches,
};

struct CommandRow {
  Command command = Command::None;
  Menu menu = Menu::File;
  std::string_view name = {};  // Of the menu item.
  std::string_view caption = {};
  void (*run)(const Controllers& controllers, int which) = nullptr;
  int which = 0;
  int functionKey = 0;  // 1 to 12; 0 for none.
  // Whether it may be chosen, and whether it is ticked; null for always, and for no tick.
  bool (*enabled)(const CommandState& state) = nullptr;
  bool (*ticked)(const CommandState& state, int which) = nullptr;
  bool keyActsAlways = false;   // The key acts even where the item may not be chosen.
  bool inMenu = true;           // Else the row is that of a button and its key.
  std::string_view shortcut{};  // Of a command beyond the function keys: "Ctrl+R".
};

std::span<const MenuRow> Menus();
// In the order of the menus.
const std::vector<CommandRow>& CommandRows();
// The command of a function key, or null.
const CommandRow* CommandOfKey(int functionKey);
// The row of a command.
const CommandRow& RowOf(Command command);

}  // namespace quorvane
