#include "settings/window/frm_colour_choice.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <algorithm>

#include "base/window/labels.h"
#include "base/window/qt_text.h"
#include "settings/window/colour_swatch.h"
#include "settings/window/light_palette.h"

namespace quorvane {
namespace {

constexpr size_t kColumns = 8;
constexpr int kMaxChannel = 255;

QString CustomToolTip(const std::string& custom) {
  return "Custom colour - " + FromText(custom);
}

}  // namespace

FrmColourChoice::FrmColourChoice(ColourExchange& exchange, QWidget* parent) : QDialog(parent), exchange_(exchange) {
  setObjectName("frmColourChoice");
  setWindowTitle(FromText(exchange.caption));
  auto* layout = new QVBoxLayout(this);
  auto* paletteGrid = new QGridLayout;
  MakePalette(paletteGrid);
  layout->addLayout(paletteGrid);

  auto* custom = new QGroupBox("Custom colour", this);
  auto* grid = new QGridLayout(custom);
  const Rgb rgb = RgbOfCustom(exchange.custom);
  MakeChannel(red_, "Red", rgb.red, grid, 0);
  MakeChannel(green_, "Green", rgb.green, grid, 1);
  MakeChannel(blue_, "Blue", rgb.blue, grid, 2);
  grid->addWidget(boxes_[kCustomBox], 0, 3, 3, 1);
  layout->addWidget(custom);
  ShowCustom();

  auto* buttons = new QHBoxLayout;
  const auto button = [&](const QString& name, const QString& caption, const QString& toolTip) {
    auto* made = Named(new QPushButton(caption, this), name, toolTip);
    made->setAutoDefault(false);
    buttons->addWidget(made);
    return made;
  };
  buttons->addStretch();
  auto* defaultButton = button("cmdDefault", "&Default", "Use the default colour of this element");
  auto* customButton = button("cmdCustom", "C&ustom", "Use the custom colour");
  auto* cancel = button("cmdCancel", "&Cancel", "Keep the colour");
  layout->addLayout(buttons);
  connect(defaultButton, &QPushButton::clicked, this, [this] {
    exchange_.current = exchange_.defaultColour;
    accept();
  });
  connect(customButton, &QPushButton::clicked, this, [this] { Choose(kCustomBox); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmColourChoice::MakePalette(QGridLayout* grid) {
  size_t place = 0;
  for (size_t i = 0; i < kPaletteBoxes; ++i) {
    const ColourValue colour = ColourPalette()[i];
    boxes_[i] = Named(new ColourSwatch(this), "picColour_" + QString::number(i), FromText(ColourText(colour)));
    boxes_[i]->setAccessibleName("Colour " + FromText(ColourText(colour)));
    boxes_[i]->SetColour(ScreenColour(colour));
    connect(boxes_[i], &QAbstractButton::clicked, this, [this, i] { Choose(i); });
    if (i != kCustomBox) {
      grid->addWidget(boxes_[i], static_cast<int>(place / kColumns), static_cast<int>(place % kColumns));
      ++place;
    }
  }
}

void FrmColourChoice::MakeChannel(Channel& channel, const QString& name, int value, QGridLayout* grid, int row) {
  channel.slider = Named(new QSlider(Qt::Horizontal, this), "sli" + name, name + " part of the custom colour");
  channel.slider->setRange(0, kMaxChannel);
  channel.slider->setValue(value);
  channel.slider->setAccessibleName(name);
  channel.slider->setMinimumWidth(220);
  channel.box = Named(new QLineEdit(FromText(HexPair(value)), this), "tb" + name, name + ", two hexadecimal digits");
  channel.box->setAccessibleName(name + ", hexadecimal");
  channel.box->setMaxLength(2);
  channel.box->setMaximumWidth(channel.box->fontMetrics().horizontalAdvance("MMMM"));
  channel.box->installEventFilter(this);
  auto* label = new QLabel(name, this);
  label->setBuddy(channel.slider);
  grid->addWidget(label, row, 0);
  grid->addWidget(channel.slider, row, 1);
  grid->addWidget(channel.box, row, 2);
  connect(channel.slider, &QSlider::valueChanged, this, [this, &channel](int moved) {
    if (typedInto_ != &channel) {
      channel.box->setText(FromText(HexPair(moved)));
    }
    ShowCustom();
  });
  connect(channel.box, &QLineEdit::textChanged, this, [this, &channel] { BoxEdited(channel); });
}

void FrmColourChoice::BoxEdited(Channel& channel) {
  const QString text = channel.box->text();
  QString digits;
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
               [](QChar c) { return (c >= '0' && c <= '9') || (c.toLower() >= 'a' && c.toLower() <= 'f'); });
  if (digits != text) {
    channel.box->setText(digits);
    return;
  }
  bool isHex = false;
  const int value = digits.toInt(&isHex, 16);
  if (isHex) {
    typedInto_ = &channel;
    channel.slider->setValue(value);
    typedInto_ = nullptr;
  }
}

// Entering a box selects its digits, so that typing replaces them; leaving it shows two digits again.
bool FrmColourChoice::eventFilter(QObject* watched, QEvent* event) {
  for (Channel* channel : {&red_, &green_, &blue_}) {
    if (watched != channel->box) {
      continue;
    }
    if (event->type() == QEvent::FocusIn) {
      QTimer::singleShot(0, channel->box, &QLineEdit::selectAll);
    } else if (event->type() == QEvent::FocusOut) {
      channel->box->setText(FromText(HexPair(channel->slider->value())));
    }
  }
  return QDialog::eventFilter(watched, event);
}

Rgb FrmColourChoice::Custom() const {
  return {red_.slider->value(), green_.slider->value(), blue_.slider->value()};
}

void FrmColourChoice::ShowCustom() {
  if (red_.slider == nullptr || green_.slider == nullptr || blue_.slider == nullptr) {
    return;
  }
  const Rgb rgb = Custom();
  boxes_[kCustomBox]->SetColour(QColor(rgb.red, rgb.green, rgb.blue));
  const QString said = CustomToolTip(CustomColourText(rgb));
  boxes_[kCustomBox]->setToolTip(said);
  boxes_[kCustomBox]->setAccessibleName(said);
  boxes_[kCustomBox]->setAccessibleDescription(said);
}

void FrmColourChoice::Choose(size_t box) {
  if (box == kCustomBox) {
    exchange_.custom = CustomColourText(Custom());
    exchange_.current = "&H00" + exchange_.custom;
  } else {
    exchange_.current = ColourText(ColourPalette()[box]);
  }
  accept();
}

}  // namespace quorvane
