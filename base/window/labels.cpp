#include "base/window/labels.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace quorvane {
namespace {

constexpr QColor kPlate(0x38, 0x38, 0x38);
constexpr double kLeastContrast = 2.0;

double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

// 1 for the same colour to 21 for black and white.
double Contrast(const QColor& a, const QColor& b) {
  const double one = Luminance(a) + 0.05;
  const double other = Luminance(b) + 0.05;
  return std::max(one, other) / std::min(one, other);
}

class AccessibleClickLabel : public QAccessibleWidget {
 public:
  explicit AccessibleClickLabel(ClickLabel* label) : QAccessibleWidget(label, QAccessible::Button), label_(label) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? label_->SpokenName() : QAccessibleWidget::text(kind);
  }
  QStringList actionNames() const override { return QStringList{pressAction()} + QAccessibleWidget::actionNames(); }
  // The screen reader does not wait for the dialog that a press may open.
  void doAction(const QString& action) override {
    if (action == pressAction()) {
      QMetaObject::invokeMethod(label_, &ClickLabel::Clicked, Qt::QueuedConnection);
    } else {
      QAccessibleWidget::doAction(action);
    }
  }

 private:
  ClickLabel* label_;
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  if (auto* label = qobject_cast<ClickLabel*>(object)) {
    return new AccessibleClickLabel(label);
  }
  if (auto* note = qobject_cast<NoteLabel*>(object); note != nullptr && note->IsAlert()) {
    return new QAccessibleWidget(note, QAccessible::AlertMessage);
  }
  return nullptr;
}

void InstallAccessibleLabels() {
  [[maybe_unused]] static const bool installed = (QAccessible::installFactory(MakeAccessible), true);
}

}  // namespace

QColor ReadableInk(const QColor& ground) {
  return Contrast(Qt::black, ground) >= Contrast(Qt::white, ground) ? Qt::black : Qt::white;
}

ClickLabel::ClickLabel(const QString& name, const QString& text, const QString& toolTip, QWidget* parent)
    : QLabel(text, parent) {
  InstallAccessibleLabels();
  Named(this, name, toolTip);
  setTextFormat(Qt::PlainText);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::TabFocus);
}

QString ClickLabel::SpokenName() const {
  return caption_.isEmpty() ? text() : caption_ + ": " + (text().isEmpty() ? "none" : text());
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
    emit Clicked();
  }
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space) {
    emit Clicked();
  } else {
    QLabel::keyPressEvent(event);
  }
}

void ClickLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  update();
}

void ClickLabel::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  update();
}

void ClickLabel::paintEvent(QPaintEvent* event) {
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
  if (shown == text()) {
    QLabel::paintEvent(event);
  } else {
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
  }
  if (hasFocus()) {
    QPainter painter(this);
    QStyleOptionFocusRect option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
  }
}

void ReadableLabel::paintEvent(QPaintEvent* event) {
  const QColor ink = palette().color(QPalette::WindowText);
  const QColor ground = palette().color(QPalette::Window);
  if (!text().isEmpty() && Contrast(ink, ground) < kLeastContrast) {
    QPainter painter(this);
    // The label's indent is kept at the edges that the text is aligned to.
    const QRect area = contentsRect().adjusted(indent(), (alignment() & Qt::AlignTop) != 0 ? indent() : 0, 0, 0);
    const QRect plate = fontMetrics().boundingRect(area, static_cast<int>(alignment()), text());
    painter.fillRect(plate.adjusted(-3, -1, 3, 1).intersected(rect()), kPlate);
  }
  QLabel::paintEvent(event);
}

NoteLabel::NoteLabel(const QString& name, bool alert, QWidget* parent) : QLabel(parent), alert_(alert) {
  InstallAccessibleLabels();
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  setPalette(QToolTip::palette());
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  setAutoFillBackground(true);
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setMargin(1);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void NoteLabel::ShowAt(const QPoint& place, Qt::Corner corner, const QString& text) {
  setText(text);
  setAccessibleName(text);
  adjustSize();
  move(place - QPoint(width(), corner == Qt::TopRightCorner ? 0 : height()));
  show();
  if (alert_) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(this, text);
#else
    QAccessibleEvent event(this, QAccessible::Alert);
#endif
    QAccessible::updateAccessibility(&event);
  }
}

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(), shown,
                        foregroundRole());
}

QLabel* MakeReadableLabel(const QString& name, const QString& toolTip, QWidget* parent) {
  auto* label = new ReadableLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setIndent(3);
  return Named(label, name, toolTip);
}

QLabel* MakeLabel(const QString& name, const QString& text, const QString& toolTip, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  return Named(label, name, toolTip);
}

}  // namespace quorvane
