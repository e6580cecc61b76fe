// SPDX-License-Identifier: MIT
// Prints a Markdown document as PDF: the guide for those who read it outside of the program. The same text
// and pictures give the same bytes.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHashSeed>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <cstdio>

namespace {

/// What a picture may be wide and high on an A4 page, in points of the screen.
constexpr qreal pictureWidth = 600;
constexpr qreal pictureHeight = 420;

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
        } else if (pdf[at + i] >= '0' && pdf[at + i] <= '9') {
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
    QFile source(QString::fromLocal8Bit(argv[1]));
    if (!source.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "guide-pdf: %s cannot be read\n", argv[1]);
        return 1;
    }
    QTextDocument document;
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSize(9);
    document.setDefaultFont(font);
    document.setMarkdown(QString::fromUtf8(source.readAll()), QTextDocument::MarkdownDialectGitHub);
    fitPictures(document, QFileInfo(source));

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
