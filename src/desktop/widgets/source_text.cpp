// SPDX-License-Identifier: MIT
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"

#include <QEvent>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSyntaxHighlighter>

namespace zor {

namespace {

constexpr int tabColumns = 8;

/// Colours the comments and the directives of a C text, block by block, so that a change costs what it
/// touches however long the text is.
class SourceColours : public QSyntaxHighlighter {
  public:
    explicit SourceColours(QPlainTextEdit& textArea)
        : QSyntaxHighlighter(&textArea)
        , area(textArea) {
        takeColours();
        area.installEventFilter(this);
        setDocument(area.document());
        colourAgain();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::PaletteChange) {
            takeColours();
            colourAgain();
        }
        return QSyntaxHighlighter::eventFilter(watched, event);
    }

  protected:
    void highlightBlock(const QString& text) override {
        qsizetype at = 0;
        if (previousBlockState() == insideComment) {
            at = colourComment(text, 0, 0);
        } else if (text.startsWith(QLatin1Char('#'))) {
            qsizetype end = text.indexOf(QLatin1Char(' '));
            setFormat(0, static_cast<int>(end < 0 ? text.size() : end), directive);
        }
        setCurrentBlockState(at < 0 ? insideComment : outside);
        while (at >= 0) {
            qsizetype begin = text.indexOf(QLatin1String("/*"), at);
            if (begin < 0) {
                return;
            }
            at = colourComment(text, begin, begin + 2);
            setCurrentBlockState(at < 0 ? insideComment : outside);
        }
    }

  private:
    enum BlockState { outside = 0, insideComment = 1 };

    /// @param begin  where the comment begins in this block
    /// @param search  where its end may stand at the earliest
    /// @return behind the comment; -1 if it goes on in the next block
    qsizetype colourComment(const QString& text, qsizetype begin, qsizetype search) {
        qsizetype end = text.indexOf(QLatin1String("*/"), search);
        qsizetype behind = end < 0 ? text.size() : end + 2;
        setFormat(static_cast<int>(begin), static_cast<int>(behind - begin), comment);
        return end < 0 ? -1 : behind;
    }

    void takeColours() {
        const RoleColours& colours = roles(area.palette());
        directive.setForeground(colours.directive);
        directive.setFontWeight(QFont::Bold);
        comment.setForeground(colours.codeComment);
    }

    /// At once and unheard: a colour is no change of the text.
    void colourAgain() {
        QSignalBlocker quiet(area);
        rehighlight();
    }

    QPlainTextEdit& area;
    QTextCharFormat directive;
    QTextCharFormat comment;
};

} // namespace

QWidget* sourceText(TextField& element, int columns, int lines) {
    auto& area = static_cast<QPlainTextEdit&>(*textArea(element, columns, lines));
    area.setLineWrapMode(QPlainTextEdit::NoWrap);
    area.setTabStopDistance(tabColumns * QFontMetricsF(area.font()).horizontalAdvance(QLatin1Char('0')));
    new SourceColours(area);
    QObject::connect(&area, &QPlainTextEdit::textChanged, &area, [&area] {
        const Binding* binding = Binding::of(&area);
        if (binding == nullptr || !binding->isDrawing()) {
            return;
        }
        // A text that the program made is read from its beginning, wherever the caret stands.
        QMetaObject::invokeMethod(
            &area, [&area] { area.verticalScrollBar()->setValue(0); }, Qt::QueuedConnection);
    });
    return &area;
}

} // namespace zor
