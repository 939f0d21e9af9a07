// The menu bar and the function keys, made of the table of commands.
#pragma once

#include <QString>
#include <functional>
#include <map>
#include <string_view>
#include <vector>

#include "app/command_table.h"

class QAction;
class QMainWindow;
class QMenu;

namespace quorvane {

class CommandMenu {
 public:
  // Carries a command out; told its name, too.
  using Runner = std::function<void(std::string_view name, const std::function<void()>& command)>;
  // Makes the menus of `window`'s bar; `state` is asked when a key is pressed. All outlive this.
  CommandMenu(QMainWindow& window, Controllers controllers, std::function<CommandState()> state, Runner runner);

  // Called before a menu opens.
  void OnOpening(Menu menu, const std::function<void()>& handler);
  void SetCaption(Command command, int which, const QString& caption);
  // Shows what may be chosen and what is ticked.
  void Update(const CommandState& state);

  // Runs the command of a function key (1 to 12) where it may be chosen. The row that ran, or null.
  const CommandRow* RunKey(int functionKey) const;

 private:
  void Run(const CommandRow& row) const;

  struct Item {
    const CommandRow* row;
    QAction* action;
  };

  Controllers controllers_;
  std::function<CommandState()> state_;
  Runner runner_;
  std::map<Menu, QMenu*> menus_;
  std::vector<Item> items_;
};

}  // namespace quorvane
