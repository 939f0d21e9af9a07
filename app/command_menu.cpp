#include "app/command_menu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "base/window/qt_text.h"

namespace quorvane {

CommandMenu::CommandMenu(QMainWindow& window, Controllers controllers, std::function<CommandState()> state,
                         Runner runner)
    : controllers_(controllers), state_(std::move(state)), runner_(std::move(runner)) {
  for (const MenuRow& row : Menus()) {
    menus_[row.menu] = window.menuBar()->addMenu(FromText(row.caption));
    menus_[row.menu]->setObjectName(FromText(row.name));
  }
  for (const CommandRow& row : CommandRows()) {
    if (!row.inMenu) {
      continue;
    }
    QMenu* menu = menus_[row.menu];
    QAction* action = row.command == Command::None ? menu->addSeparator() : menu->addAction(FromText(row.caption));
    action->setObjectName(FromText(row.name));
    action->setCheckable(row.ticked != nullptr);
    if (!row.shortcut.empty()) {
      action->setShortcut(QKeySequence(FromText(row.shortcut)));
    }
    items_.push_back({&row, action});
    if (row.run != nullptr) {
      QObject::connect(action, &QAction::triggered, &window, [this, &row] { Run(row); });
    }
  }
}

void CommandMenu::Run(const CommandRow& row) const {
  runner_(row.caption, [&] { row.run(controllers_, row.which); });
}

void CommandMenu::OnOpening(Menu menu, const std::function<void()>& handler) {
  QObject::connect(menus_[menu], &QMenu::aboutToShow, menus_[menu], handler);
}

void CommandMenu::SetCaption(Command command, int which, const QString& caption) {
  for (const Item& item : items_) {
    if (item.row->command == command && item.row->which == which) {
      item.action->setText(caption);
    }
  }
}

void CommandMenu::Update(const CommandState& state) {
  for (const auto& [row, action] : items_) {
    if (row->enabled != nullptr) {
      action->setEnabled(row->enabled(state));
    }
    if (row->ticked != nullptr) {
      action->setChecked(row->ticked(state, row->which));
    }
  }
}

const CommandRow* CommandMenu::RunKey(int functionKey) const {
  const CommandRow* row = CommandOfKey(functionKey);
  if (row != nullptr && (row->enabled == nullptr || row->keyActsAlways || row->enabled(state_()))) {
    Run(*row);
    return row;
  }
  return nullptr;
}

}  // namespace quorvane
