// The column that shows the three character lists and the lexicon in use.
#pragma once

#include <QWidget>
#include <map>

#include "search/character_lists.h"

namespace quorvane {

class ClickLabel;

class ListsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ListsPanel(QWidget* parent);

  // The list as stored.
  void ShowList(ListKind kind, const std::string& list);
  void ShowLexicon(const std::string& name);

 signals:
  void ListClicked(quorvane::ListKind kind);
  void LexiconClicked();

 private:
  std::map<ListKind, ClickLabel*> lists_;
  ClickLabel* lblLex_ = nullptr;
};

}  // namespace quorvane
