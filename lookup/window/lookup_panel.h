// The look-up button and the name of the resource it uses.
#pragma once

#include <QWidget>
#include <string>

class QPushButton;

namespace quorvane {

class ClickLabel;

class LookupPanel : public QWidget {
  Q_OBJECT

 public:
  explicit LookupPanel(QWidget* parent);

  // The resource that the stored value chooses; a value that chooses none leaves the label as it is.
  void ShowResource(const std::string& setting);
  void AllowLookup(bool allowed);

 signals:
  void LookupRequested();
  void ResourceClicked();

 private:
  QPushButton* cmdWebLink_ = nullptr;
  ClickLabel* lblWebLink_ = nullptr;
};

// Opens the address of a word in the browser; false when the setting chooses no resource. A browser that does not start
// is not reported.
bool OpenLookup(const std::string& setting, const std::string& word);

}  // namespace quorvane
