// The dialog that edits a character list: one class for all three.
#pragma once

#include <QDialog>

#include "base/window/door.h"
#include "search/character_lists.h"
#include "settings/event_log.h"
#include "settings/settings_store.h"

class QLabel;
class QLineEdit;

namespace quorvane {

class FrmChangeList : public QDialog {
  Q_OBJECT

 public:
  FrmChangeList(ListKind kind, SettingsStore& settings, EventLog& log, Door& door, QWidget* parent);

 private:
  void Clean();
  void ShowCount();
  void Store();

  const ListKind kind_;
  SettingsStore& settings_;
  EventLog& log_;
  Door& door_;
  QLineEdit* tbChangeInput_ = nullptr;
  QLabel* lblNoChars_ = nullptr;  // Of the Scrabble list only.
};

// Stores a list and writes it to the log.
void StoreList(ListKind kind, const std::string& list, SettingsStore& settings, EventLog& log);
// A list as it stands in the store.
std::string StoredList(const SettingsStore& settings, ListKind kind);
CharacterLists StoredLists(const SettingsStore& settings);

}  // namespace quorvane
