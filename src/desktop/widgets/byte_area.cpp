// SPDX-License-Identifier: MIT
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/field_keys.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>

#include <algorithm>

namespace zor {

namespace {

/// Where the pictures of control characters begin, in the order of their codes.
constexpr char16_t controlPictures = 0x2400;
constexpr char16_t deletePicture = 0x2421;
/// What stands between two lines of a pasted text.
constexpr char16_t paragraphEnd = 0x2029;

/// One character a byte, so that no byte is lost on the way to the screen and back.
QString shownBytes(std::string_view bytes) {
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (char c : bytes) {
        auto code = static_cast<unsigned char>(c);
        text += code < 0x20    ? QChar(controlPictures + code)
                : code == 0x7F ? QChar(deletePicture)
                               : QChar(code);
    }
    return text;
}

/// What has no byte of its own becomes a question mark; line ends from a paste are bytes like any other.
std::string bytesShown(const QString& text) {
    std::string bytes;
    for (QChar character : text) {
        char16_t code = character.unicode();
        if (code >= controlPictures && code < controlPictures + 0x20) {
            code = static_cast<char16_t>(code - controlPictures);
        } else if (code == deletePicture) {
            code = 0x7F;
        } else if (code == paragraphEnd) {
            code = '\n';
        }
        bytes += code < 0x100 ? static_cast<char>(code) : '?';
    }
    return bytes;
}

/// A field of bytes over several rows, so many characters in each.
class ByteArea : public QPlainTextEdit {
  public:
    ByteArea(TextField& element, int columnCount, int rowCount, std::function<DigitStretch()> markedStretch)
        : columns(columnCount)
        , rows(rowCount)
        , marked(std::move(markedStretch)) {
        setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        setTabChangesFocus(true);
        setUndoRedoEnabled(false);
        setLineWrapMode(QPlainTextEdit::WidgetWidth);
        setWordWrapMode(QTextOption::WrapAnywhere);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        binding = new Binding(element, *this);
        binding->followFocus();
        // A locked field's ground comes from the palette, so that it is quiet in the dark too.
        binding->setBackgroundShown(false);
        connect(this, &QPlainTextEdit::textChanged, binding, [this] {
            binding->gesture([this] {
                field()->replace(bytesShown(rawText()), static_cast<std::size_t>(textCursor().position()));
            });
        });
        connect(this, &QPlainTextEdit::cursorPositionChanged, binding, [this] {
            if (field() != nullptr && !binding->isDrawing() && shownBytes(field()->text()) == rawText()) {
                field()->placeCaret(static_cast<std::size_t>(textCursor().position()));
            }
        });
        binding->follow(element.cursorMoved, [this] { showCaret(); });
        binding->onDraw([this] { draw(); });
    }

    [[nodiscard]] QSize sizeHint() const override {
        QFontMetrics metrics(font());
        int frame = 2 * frameWidth();
        int margins = static_cast<int>(2 * document()->documentMargin());
        int bar = verticalScrollBar()->sizeHint().width();
        return {metrics.horizontalAdvance(QLatin1Char('0')) * columns + margins + frame + bar + 2,
                metrics.lineSpacing() * rows + margins + frame};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride) {
            const auto& key = *static_cast<QKeyEvent*>(event);
            bool steps =
                key.modifiers() == Qt::ControlModifier && (key.key() == Qt::Key_Z || key.key() == Qt::Key_Y);
            if (steps) {
                // It keeps none of its own; not accepted, the key is the window's.
                event->ignore();
                return true;
            }
        }
        return QPlainTextEdit::event(event);
    }

    void keyPressEvent(QKeyEvent* event) override {
        char key = typedKey(*event, 0x100);
        if (field() != nullptr && key != 0 && (field()->readOnly() || key == '\r')) {
            binding->gesture([&] { field()->press(key); });
            return;
        }
        QPlainTextEdit::keyPressEvent(event);
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (field() != nullptr && field()->readOnly()) {
            binding->gesture([this] { field()->doubleClick(); });
            return;
        }
        QPlainTextEdit::mouseDoubleClickEvent(event);
    }

    void changeEvent(QEvent* event) override {
        QPlainTextEdit::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && !tinting && binding != nullptr && field() != nullptr) {
            groundLocked.reset();
            showGround();
        }
    }

  private:
    /// Unlike the plain text it tells a hard blank, a byte of its own, from a blank.
    [[nodiscard]] QString rawText() const { return document()->toRawText(); }
    [[nodiscard]] TextField* field() const { return elementOf<TextField>(*binding); }

    void draw() {
        setReadOnly(field()->readOnly());
        if (field()->readOnly()) {
            // The caret and the selection stay to be moved and copied.
            setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        } else {
            setTextInteractionFlags(Qt::TextEditorInteraction);
        }
        QString text = shownBytes(field()->text());
        if (rawText() != text) {
            setPlainText(text);
            showCaret();
        }
        showGround();
        showMarked();
    }

    void showCaret() {
        QTextCursor cursor = textCursor();
        auto position = static_cast<int>(std::min<std::size_t>(field()->cursor(), rawText().size()));
        if (cursor.position() != position) {
            cursor.setPosition(position);
            setTextCursor(cursor);
        }
    }

    void showGround() {
        bool locked = field()->readOnly();
        if (groundLocked == locked) {
            return;
        }
        groundLocked = locked;
        tinting = true;
        QPalette colours = parentWidget() != nullptr ? parentWidget()->palette() : QPalette();
        if (locked) {
            colours.setColor(QPalette::Base, roles(colours).lockedGround);
        }
        setPalette(colours);
        tinting = false;
    }

    void showMarked() {
        DigitStretch stretch = marked ? marked() : DigitStretch{};
        QList<QTextEdit::ExtraSelection> selections;
        if (stretch.count > 0) {
            QTextEdit::ExtraSelection selection;
            selection.cursor = QTextCursor(document());
            auto end =
                static_cast<int>(std::min<std::size_t>(stretch.begin + stretch.count, rawText().size()));
            selection.cursor.setPosition(std::min(static_cast<int>(stretch.begin), end));
            selection.cursor.setPosition(end, QTextCursor::KeepAnchor);
            selection.format.setFontUnderline(true);
            selection.format.setBackground(roles(palette()).pickedRow);
            selections.append(selection);
        }
        setExtraSelections(selections);
    }

    int columns;
    int rows;
    std::function<DigitStretch()> marked;
    std::optional<bool> groundLocked;
    bool tinting = false;
    Binding* binding = nullptr;
};

} // namespace

QWidget* byteArea(TextField& element, int columns, int rows, std::function<DigitStretch()> marked) {
    return new ByteArea(element, columns, rows, std::move(marked));
}

} // namespace zor
