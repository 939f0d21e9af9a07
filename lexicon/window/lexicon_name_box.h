// A box for the name of a new lexicon, without its extension: what a name may not hold goes as it is typed.
#pragma once

#include <QLineEdit>
#include <string>

namespace quorvane {

class LexiconNameBox : public QLineEdit {
  Q_OBJECT

 public:
  LexiconNameBox(const QString& name, const QString& toolTip, QWidget* parent);

  std::string Name() const;

 private:
  void Clean();
};

}  // namespace quorvane
