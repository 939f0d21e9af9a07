#include "print/window/frm_print_preview.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "base/window/labels.h"
#include "print/window/page_drawing.h"

namespace quorvane {

namespace {
constexpr int kDotsPerInch = 96;  // At 100 percent.
constexpr int kFirstZoom = 75;    // In percent, as all zooms.
constexpr int kZoomStep = 25;
constexpr int kLeastZoom = 25;
constexpr int kGreatestZoom = 300;
constexpr QSize kFirstSize{760, 720};
}  // namespace

// The sheet with the texts of one page.
class PagePicture : public QWidget {
 public:
  PagePicture(std::vector<PlacedText> pages, QSize sheet, QWidget* parent)
      : QWidget(parent), pages_(std::move(pages)), sheet_(sheet) {
    setObjectName("pagePicture");
  }

  int Page() const { return page_; }
  int Zoom() const { return zoom_; }
  void Show(int page, int zoom) {
    page_ = page;
    zoom_ = zoom;
    resize((QSizeF(sheet_) * Scale()).toSize());
    update();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(Scale(), Scale());
    DrawTexts(painter, TextsOfPage(pages_, page_));
  }

 private:
  double Scale() const { return zoom_ / 100.0 * kDotsPerInch / kTwipsPerInch; }

  const std::vector<PlacedText> pages_;
  const QSize sheet_;
  int page_ = 1;
  int zoom_ = kFirstZoom;
};

FrmPrintPreview::FrmPrintPreview(std::vector<PlacedText> pages, QSize sheet, QWidget* parent)
    : QDialog(parent), pageCount_(pages.empty() ? 1 : pages.back().page) {
  setObjectName("printPreview");
  setWindowTitle("Print preview");
  auto* layout = new QVBoxLayout(this);
  auto* buttons = new QHBoxLayout;
  const auto add = [this, buttons](const char* name, const char* caption, const char* tip, const QKeySequence& key) {
    auto* button = Named(new QPushButton(caption, this), name, tip);
    button->setAutoDefault(false);
    button->setShortcut(key);
    buttons->addWidget(button);
    return button;
  };
  cmdPrevious_ = add("cmdPrevious", "Previous", "Show the page before this one (Page Up)", Qt::Key_PageUp);
  cmdNext_ = add("cmdNext", "Next", "Show the page behind this one (Page Down)", Qt::Key_PageDown);
  lblPage_ = MakeLabel("lblPage", "", "Which page is shown", this);
  buttons->addWidget(lblPage_);
  buttons->addStretch();
  cmdZoomOut_ = add("cmdZoomOut", "Smaller", "Show the page smaller", QKeySequence::ZoomOut);
  cmdZoomIn_ = add("cmdZoomIn", "Larger", "Show the page larger", QKeySequence::ZoomIn);
  auto* close = add("cmdClose", "Close", "Close the preview; nothing is printed", {});
  layout->addLayout(buttons);
  auto* area = Named(new QScrollArea(this), "previewArea");
  area->setAccessibleName("Page");
  area->setBackgroundRole(QPalette::Dark);
  area->setAlignment(Qt::AlignCenter);
  picture_ = new PagePicture(std::move(pages), sheet, area);
  area->setWidget(picture_);
  layout->addWidget(area);
  connect(cmdPrevious_, &QPushButton::clicked, this, [this] { ShowPage(picture_->Page() - 1); });
  connect(cmdNext_, &QPushButton::clicked, this, [this] { ShowPage(picture_->Page() + 1); });
  connect(cmdZoomOut_, &QPushButton::clicked, this, [this] { ShowZoom(picture_->Zoom() - kZoomStep); });
  connect(cmdZoomIn_, &QPushButton::clicked, this, [this] { ShowZoom(picture_->Zoom() + kZoomStep); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  resize(kFirstSize);
  ShowPage(1);
  ShowZoom(kFirstZoom);
  area->setFocus();
}

void FrmPrintPreview::ShowPage(int page) {
  picture_->Show(page, picture_->Zoom());
  lblPage_->setText(QString("Page %1 of %2").arg(page).arg(pageCount_));
  cmdPrevious_->setEnabled(page > 1);
  cmdNext_->setEnabled(page < pageCount_);
}

void FrmPrintPreview::ShowZoom(int zoom) {
  picture_->Show(picture_->Page(), zoom);
  cmdZoomOut_->setEnabled(zoom > kLeastZoom);
  cmdZoomIn_->setEnabled(zoom < kGreatestZoom);
}

}  // namespace quorvane
