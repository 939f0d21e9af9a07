// The one table of commands: the whole menu tree with captions, function keys and guards.
#pragma once

#include <span>
#include <string_view>

namespace quorvane {

class Commands;

enum class Menu { File, Select, WordType, Options, Colours, Help };

struct MenuRow {
  Menu menu;
  const char* name;
  const char* caption;
};

struct CommandRow {
  Menu menu;
  const char* name;  // Of the menu item; a separator has no caption.
  const char* caption;
  void (Commands::*run)() = nullptr;
  int functionKey = 0;  // 1 to 12; 0 for none.
  // Whether the key acts; null for keys without a guard.
  bool (Commands::*keyAllowed)() const = nullptr;
  bool checkable = false;

  bool IsSeparator() const { return caption == nullptr; }
};

std::span<const MenuRow> Menus();
std::span<const CommandRow> CommandRows();
// The function keys of commands that are no menu items.
std::span<const CommandRow> KeyOnlyRows();
// The command of a function key, or null.
const CommandRow* CommandOfKey(int functionKey);

}  // namespace quorvane
