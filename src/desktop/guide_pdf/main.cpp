// SPDX-License-Identifier: MIT
// Prints a Markdown document and those that it links to as one PDF: the guide for those who read it outside
// of the program. The same texts and pictures give the same bytes.
#include "support/markdown.h"

#include "support/letters.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHashSeed>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

/// What a picture may be wide and high on an A4 page, in points of the screen.
constexpr qreal pictureWidth = 600;
constexpr qreal pictureHeight = 420;

/// A document's text; its pictures are named by their paths from the folder of the whole.
QString textOf(const QDir& folder, const QString& name) {
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "guide-pdf: %s cannot be read\n", name.toLocal8Bit().constData());
        return {};
    }
    QString text = QString::fromUtf8(file.readAll());
    static const QRegularExpression picture(QStringLiteral(R"((!\[[^\]]*\]\()([^)]+)\))"));
    QString under = QFileInfo(name).path();
    qsizetype from = 0;
    for (QRegularExpressionMatch match = picture.match(text); match.hasMatch();
         match = picture.match(text, from)) {
        QString path = QDir::cleanPath(under + QLatin1Char('/') + match.captured(2));
        text.replace(match.capturedStart(2), match.capturedLength(2), path);
        from = match.capturedStart(2) + path.size();
    }
    return text;
}

/// The document and behind it, in the order of their first mention, those that it links to.
QString wholeText(const QFileInfo& source) {
    QString text = textOf(source.dir(), source.fileName());
    for (const std::string& linked : zor::linkedDocuments(text.toStdString())) {
        text += QLatin1Char('\n') + textOf(source.dir(), QString::fromStdString(linked));
    }
    return text;
}

/// Each document begins on a page of its own.
void breakPages(QTextDocument& document) {
    for (QTextBlock block = document.begin().next(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 1) {
            QTextBlockFormat format = block.blockFormat();
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
            QTextCursor(block).setBlockFormat(format);
        }
    }
}

/// Large pictures shrink to the page and keep their grain.
void fitPictures(QTextDocument& document, const QFileInfo& source) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator part = block.begin(); !part.atEnd(); ++part) {
            QTextFragment fragment = part.fragment();
            if (!fragment.charFormat().isImageFormat()) {
                continue;
            }
            QTextImageFormat format = fragment.charFormat().toImageFormat();
            QImage picture(source.dir().filePath(format.name()));
            if (picture.isNull()) {
                std::fprintf(stderr, "guide-pdf: no picture %s\n", format.name().toLocal8Bit().constData());
                continue;
            }
            document.addResource(QTextDocument::ImageResource, QUrl(format.name()), picture);
            qreal scale = std::min({1.0, pictureWidth / picture.width(), pictureHeight / picture.height()});
            format.setWidth(picture.width() * scale);
            format.setHeight(picture.height() * scale);
            QTextCursor cursor(&document);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
            // The fragments have been made anew.
            break;
        }
    }
}

/// The moment of the printing is no part of the document.
void fixDate(QByteArray& pdf) {
    constexpr const char* mark = "/CreationDate (D:";
    qsizetype at = pdf.indexOf(mark);
    if (at < 0) {
        return;
    }
    at += static_cast<qsizetype>(std::char_traits<char>::length(mark));
    const QByteArray moment("20260101000000");
    for (qsizetype i = 0; at + i < pdf.size() && pdf[at + i] != ')'; ++i) {
        if (i < moment.size()) {
            pdf[at + i] = moment[i];
        } else if (zor::isDigit(pdf[at + i])) {
            pdf[at + i] = '0';
        } else if (pdf[at + i] == '-') {
            pdf[at + i] = '+';
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The toolkit writes its fonts in the order of a table that it else shuffles at each start.
    QHashSeed::setDeterministicGlobalSeed();
    QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("usage: guide-pdf DOCUMENT.md OUTPUT.pdf\n", stderr);
        return 2;
    }
    QFileInfo source(QString::fromLocal8Bit(argv[1]));
    QString text = wholeText(source);
    if (text.isEmpty()) {
        return 1;
    }
    QTextDocument document;
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(9);
    document.setDefaultFont(font);
    document.setMarkdown(text, QTextDocument::MarkdownDialectGitHub);
    breakPages(document);
    fitPictures(document, source);

    QString output = QString::fromLocal8Bit(argv[2]);
    {
        QPdfWriter writer(output);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setTitle(QStringLiteral("ZOR Software Guide"));
        document.print(&writer);
    }
    QFile result(output);
    if (!result.open(QIODevice::ReadWrite)) {
        std::fprintf(stderr, "guide-pdf: %s cannot be written\n", argv[2]);
        return 1;
    }
    QByteArray pdf = result.readAll();
    fixDate(pdf);
    result.seek(0);
    return result.write(pdf) == pdf.size() ? 0 : 1;
}
