// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"

#include <QPlainTextEdit>
#include <QScrollBar>

namespace zor {

namespace {

/// The lines of a log, each in the tone of its role; a new line is brought into sight unless the user has
/// scrolled up.
class LogView : public QPlainTextEdit {
  public:
    LogView(ColouredLog& element, int columnCount, int lineCount)
        : columns(columnCount)
        , rows(lineCount) {
        setReadOnly(true);
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        setTabChangesFocus(true);
        setUndoRedoEnabled(false);
        binding = new Binding(element, *this);
        binding->followFocus();
        binding->follow(element.appended, [this](const ColouredLog::Line& line) { take(line); });
        binding->follow(element.movedToEnd, [this] { showEnd(); });
        binding->onDraw([this] { showAnew(); });
    }

    [[nodiscard]] QSize sizeHint() const override {
        QFontMetrics metrics(font());
        return {metrics.horizontalAdvance(QLatin1Char('0')) * columns, metrics.lineSpacing() * rows + 12};
    }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return {sizeHint().width() / 4, QFontMetrics(font()).lineSpacing() * 3 + 12};
    }

  protected:
    void changeEvent(QEvent* event) override {
        QPlainTextEdit::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && binding != nullptr && binding->element() != nullptr) {
            shown = 0;
            clear();
            showAnew();
        }
    }

  private:
    [[nodiscard]] QColor inkOf(LogColour colour) const {
        const RoleColours& colours = roles(palette());
        switch (colour) {
        case LogColour::Blue:
            return colours.logBlue;
        case LogColour::Red:
            return colours.error;
        case LogColour::Green:
            return colours.logGreen;
        case LogColour::Black:
            return palette().color(QPalette::Text);
        }
        return {};
    }

    void take(const ColouredLog::Line& line) {
        bool atEnd = verticalScrollBar()->value() >= verticalScrollBar()->maximum() - 1;
        QTextCharFormat format;
        format.setForeground(inkOf(line.colour));
        QTextCursor cursor(document());
        cursor.movePosition(QTextCursor::End);
        if (shown++ > 0) {
            cursor.insertBlock();
        }
        cursor.insertText(toQt(line.text), format);
        if (atEnd) {
            showEnd();
        }
    }

    void showAnew() {
        const auto& log = *elementOf<ColouredLog>(*binding);
        if (shown == log.lines().size()) {
            return;
        }
        shown = 0;
        clear();
        for (const ColouredLog::Line& line : log.lines()) {
            take(line);
        }
    }

    void showEnd() { verticalScrollBar()->setValue(verticalScrollBar()->maximum()); }

    int columns;
    int rows;
    std::size_t shown = 0;
    Binding* binding = nullptr;
};

} // namespace

QWidget* logView(ColouredLog& element, int columns, int lines) {
    return new LogView(element, columns, lines);
}

} // namespace zor
