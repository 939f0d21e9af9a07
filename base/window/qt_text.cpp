#include "base/window/qt_text.h"

#include <QStringDecoder>

#include "base/text.h"

namespace quorvane {
namespace {

constexpr char kNoSuchCharacter = '\x7F';

}  // namespace

QString FromBytes(std::string_view bytes) {
  QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
  for (size_t i = 0; i < bytes.size(); ++i) {
    text[static_cast<qsizetype>(i)] = QChar(CodePointOf(bytes[i]));
  }
  return text;
}

std::string ToBytes(const QString& text) {
  std::string bytes;
  bytes.reserve(static_cast<size_t>(text.size()));
  for (const QChar c : text) {
    bytes += ByteOf(c.unicode(), kNoSuchCharacter);
  }
  return bytes;
}

QString FromText(std::string_view text) {
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString decoded = decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  return decoder.hasError() ? FromBytes(text) : decoded;
}

std::string ToText(const QString& text) {
  return text.toStdString();
}

QString ScreenText(std::string_view text) {
  return FromText(text).replace("\r\n", "\n").replace("\n\r", "\n");
}

}  // namespace quorvane
