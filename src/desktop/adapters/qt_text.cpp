// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"

#include <QStringDecoder>

namespace zor {

QString toQt(std::string_view text) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString decoded = decoder.decode(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    if (decoder.hasError()) {
        return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    }
    return decoded;
}

std::string fromQt(const QString& text) {
    return text.toStdString();
}

QString linesToQt(std::string_view text) {
    return toQt(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

QString literalCaption(std::string_view caption) {
    return toQt(caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString mnemonicCaption(std::string_view caption) {
    QString text = toQt(caption);
    for (qsizetype at = text.indexOf(QLatin1Char('&')); at >= 0;
         at = text.indexOf(QLatin1Char('&'), at + 2)) {
        if (at + 1 == text.size() || !text.at(at + 1).isLetterOrNumber()) {
            text.insert(at, QLatin1Char('&'));
        }
    }
    return text;
}

} // namespace zor
