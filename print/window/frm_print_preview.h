// Shows laid-out pages one at a time. It asks no printing system and draws only the page that is seen.
#pragma once

#include <QDialog>
#include <vector>

#include "print/page_layout.h"

class QLabel;
class QPushButton;

namespace quorvane {

class PagePicture;

class FrmPrintPreview : public QDialog {
  Q_OBJECT

 public:
  // `sheet` is in twips.
  FrmPrintPreview(std::vector<PlacedText> pages, QSize sheet, QWidget* parent);

 private:
  void ShowPage(int page);
  void ShowZoom(int zoom);

  const int pageCount_;
  PagePicture* picture_ = nullptr;
  QPushButton* cmdPrevious_ = nullptr;
  QPushButton* cmdNext_ = nullptr;
  QPushButton* cmdZoomOut_ = nullptr;
  QPushButton* cmdZoomIn_ = nullptr;
  QLabel* lblPage_ = nullptr;
};

}  // namespace quorvane
