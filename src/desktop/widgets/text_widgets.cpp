// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/field_keys.h"
#include "desktop/widgets/shown_text.h"
#include "desktop/widgets/spoken.h"
#include "panels/common/control_word.h"

#include <QFontDatabase>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <utility>

namespace zor {

namespace {

using Lines = ShownText::Lines;

/// The user made this text of the one that was shown; the caret stands in it.
void putEdited(TextField& held, const QString& text, int caret, Lines lines) {
    std::string bytes = ShownText(held.text(), lines).edited(text);
    std::size_t position = ShownText(bytes, lines).bytesBefore(caret);
    held.replace(bytes, position);
}

void putCaret(TextField& held, const QString& text, int caret, Lines lines) {
    // While a key is being typed the widget's text runs ahead of the element's.
    if (ShownText shown(held.text(), lines); shown.text() == text) {
        held.placeCaret(shown.bytesBefore(caret));
    }
}

int caretIn(const TextField& held, const ShownText& shown) {
    return static_cast<int>(shown.positionOf(held.cursor()));
}

Binding& bindLine(LineField& line, TextField& element) {
    auto* binding = new Binding(element, line);
    new FieldKeys(line, *binding);
    new UndoKeys(line, *binding);
    binding->followFocus();
    new LockedFieldActions(line, line, *binding);
    QObject::connect(&line, &QLineEdit::textEdited, binding, [binding, &line](const QString& text) {
        binding->gesture(
            [&] { putEdited(*elementOf<TextField>(*binding), text, line.cursorPosition(), Lines::One); });
    });
    QObject::connect(&line, &QLineEdit::cursorPositionChanged, binding, [binding, &line](int, int position) {
        auto* held = elementOf<TextField>(*binding);
        if (held != nullptr && !binding->isDrawing()) {
            putCaret(*held, line.text(), position, Lines::One);
        }
    });
    auto showCaret = [binding, &line] {
        const auto& held = *elementOf<TextField>(*binding);
        int position = caretIn(held, ShownText(held.text(), Lines::One));
        if (line.cursorPosition() != position) {
            line.setCursorPosition(position);
        }
    };
    binding->follow(element.cursorMoved, showCaret);
    binding->onDraw([binding, &line, showCaret] {
        const auto& held = *elementOf<TextField>(*binding);
        line.setReadOnly(held.readOnly());
        QString text = ShownText(held.text(), Lines::One).text();
        if (line.text() != text) {
            line.setText(text);
            showCaret();
        }
    });
    return *binding;
}

/// Unlike the plain text it tells a hard blank from a blank.
QString rawText(const QPlainTextEdit& area) {
    return area.document()->toRawText().replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
}

void showCaret(QPlainTextEdit& area, int position) {
    QTextCursor cursor = area.textCursor();
    if (cursor.position() != position) {
        cursor.setPosition(position);
        area.setTextCursor(cursor);
    }
}

void bindArea(QPlainTextEdit& area, TextField& element) {
    auto* binding = new Binding(element, area);
    binding->followFocus();
    new LockedFieldActions(area, *area.viewport(), *binding);
    new UndoKeys(area, *binding);
    QObject::connect(&area, &QPlainTextEdit::textChanged, binding, [binding, &area] {
        binding->gesture([&] {
            putEdited(*elementOf<TextField>(*binding), rawText(area), area.textCursor().position(),
                      Lines::Many);
        });
    });
    QObject::connect(&area, &QPlainTextEdit::cursorPositionChanged, binding, [binding, &area] {
        auto* held = elementOf<TextField>(*binding);
        if (held != nullptr && !binding->isDrawing()) {
            putCaret(*held, rawText(area), area.textCursor().position(), Lines::Many);
        }
    });
    binding->follow(element.cursorMoved, [binding, &area] {
        const auto& held = *elementOf<TextField>(*binding);
        showCaret(area, caretIn(held, ShownText(held.text(), Lines::Many)));
    });
    binding->onDraw([binding, &area] {
        const auto& held = *elementOf<TextField>(*binding);
        area.setReadOnly(held.readOnly());
        ShownText shown(held.text(), Lines::Many);
        if (rawText(area) != shown.text()) {
            area.setPlainText(shown.text());
            showCaret(area, caretIn(held, shown));
        }
    });
}

} // namespace

QWidget* field(TextField& element, int columns) {
    auto* line = new LineField(columns);
    line->setAlignment(Qt::AlignRight);
    line->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // A result, not a setting, looks like the ground it stands on, and the tab key passes it by.
    auto showKind = [line, &element, setting = true]() mutable {
        if (setting == !element.readOnly()) {
            return;
        }
        setting = !element.readOnly();
        QPalette palette;
        if (!setting) {
            palette = line->palette();
            palette.setColor(QPalette::Base, palette.color(QPalette::Window));
        }
        line->setPalette(palette);
        line->setFocusPolicy(setting ? Qt::StrongFocus : Qt::ClickFocus);
    };
    showKind();
    Binding& binding = bindLine(*line, element);
    binding.follow(element.changed, showKind);
    new CommaKey(*line);
    auto showPlaceholder = [line, &element] { line->setPlaceholderText(toQt(element.placeholder())); };
    binding.follow(element.changed, showPlaceholder);
    showPlaceholder();
    return line;
}

QWidget* textField(TextField& element, int columns) {
    auto* line = new LineField(columns);
    line->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    bindLine(*line, element);
    return line;
}

QWidget* codeField(TextField& element, int columns) {
    auto* line = new LineField(columns);
    line->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    bindLine(*line, element);
    return line;
}

QWidget* frameless(TextField& element) {
    auto* line = new LineField(20);
    line->setFrame(false);
    line->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QPalette palette = line->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    line->setPalette(palette);
    line->setFocusPolicy(Qt::ClickFocus);
    bindLine(*line, element);
    return line;
}

QWidget* statusLine(TextField& element) {
    auto* line = static_cast<QLineEdit*>(frameless(element));
    // A notice is said as it comes, wherever the listener is.
    Binding::of(line)->follow(element.changed, [line, said = line->text()]() mutable {
        if (std::exchange(said, line->text()) != said) {
            announce(*line, said);
        }
    });
    return line;
}

QWidget* word(TextField& element, std::function<bool()> pending) {
    constexpr int wordColumns = 6;
    auto* line = new LineField(wordColumns);
    line->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    line->setAlignment(Qt::AlignCenter);
    line->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // Words are looked at, not typed: the tab key passes them by.
    line->setFocusPolicy(Qt::ClickFocus);
    Binding& binding = bindLine(*line, element);
    if (!pending) {
        return line;
    }
    binding.onDraw([&binding, line, isPending = std::move(pending)] {
        line->setText(toQt(elementOf<TextField>(binding)->text()));
        line->setReadOnly(elementOf<TextField>(binding)->readOnly());
        bool marked = isPending();
        QPalette palette;
        if (marked) {
            const RoleColours& colours = roles(palette);
            palette.setColor(QPalette::Base, colours.pendingBack);
            palette.setColor(QPalette::Text, colours.pendingText);
        }
        line->setPalette(palette);
        QFont font = line->font();
        font.setBold(marked);
        line->setFont(font);
    });
    return line;
}

QWidget* word(ControlWord& element) {
    // Held by the widget's binding, which ends with the form.
    return word(element, [&element] { return element.pending(); });
}

QWidget* textArea(TextField& element, int columns, int lines) {
    auto* area = new QPlainTextEdit;
    area->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    area->setTabChangesFocus(true);
    QFontMetrics metrics(area->font());
    area->setMinimumSize(metrics.horizontalAdvance(QLatin1Char('0')) * columns,
                         metrics.lineSpacing() * lines);
    bindArea(*area, element);
    return area;
}

} // namespace zor
