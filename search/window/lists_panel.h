// The column that shows the three character lists and the lexicon in use.
#pragma once

#include <QWidget>
#include <map>

#include "search/character_lists.h"

class QLabel;

namespace quorvane {

class ClickLabel;

class ListsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ListsPanel(QWidget* parent);

  // The list as stored.
  void ShowList(ListKind kind, const std::string& list);
  QString ShownList(ListKind kind) const;
  void ShowLexicon(const std::string& name);

  QList<QWidget*> MainTextControls() const;
  QList<QWidget*> WordChoiceControls() const;

 signals:
  void ListClicked(quorvane::ListKind kind);
  void LexiconClicked();

 private:
  std::map<ListKind, ClickLabel*> literals_;
  std::map<ListKind, ClickLabel*> lists_;
  QLabel* lblLexLit_ = nullptr;
  ClickLabel* lblLex_ = nullptr;
};

}  // namespace quorvane
