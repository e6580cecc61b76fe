// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/shown_text.h"
#include "desktop/widgets/spoken.h"
#include "panels/common/control_word.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <limits>
#include <utility>

namespace zor {

namespace {

/// A line edit as wide as so many digits, at any font size.
class LineField : public QLineEdit {
  public:
    explicit LineField(int columnCount)
        : columns(columnCount) {
        setMaxLength(std::numeric_limits<int>::max());
    }
    [[nodiscard]] QSize sizeHint() const override {
        QSize hint = QLineEdit::sizeHint();
        hint.setWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * columns + 2 * hint.height() / 3);
        return hint;
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// The text that Escape brings back.
    std::string kept;

  private:
    int columns;
};

bool isEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// Numbers have a decimal point; on many keyboards, and on the number pad of more, a comma sits in its place.
class CommaKey : public QObject {
  public:
    explicit CommaKey(LineField& line)
        : QObject(&line) {
        line.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) {
            return QObject::eventFilter(watched, event);
        }
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.text() != QLatin1String(",")) {
            return QObject::eventFilter(watched, event);
        }
        QKeyEvent point(QEvent::KeyPress, Qt::Key_Period, key.modifiers(), QStringLiteral("."),
                        key.isAutoRepeat());
        QCoreApplication::sendEvent(watched, &point);
        return true;
    }
};

/// While something is being typed, the field takes it back key by key itself. At any other time the keys for
/// it go on to the window's own steps.
class UndoKeys : public QObject {
  public:
    UndoKeys(QWidget& owner, Binding& fieldBinding)
        : QObject(&owner)
        , binding(fieldBinding) {
        owner.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::ShortcutOverride) {
            return QObject::eventFilter(watched, event);
        }
        const auto& key = *static_cast<QKeyEvent*>(event);
        bool steps =
            key.modifiers() == Qt::ControlModifier && (key.key() == Qt::Key_Z || key.key() == Qt::Key_Y);
        const auto* field = elementOf<TextField>(binding);
        // Swallowed without being accepted, the key is a shortcut.
        return steps && field != nullptr && !field->typedIn();
    }

  private:
    Binding& binding;
};

/// The key that a locked field is asked about; 0 for one that only moves or copies.
char typedKey(const QKeyEvent& key) {
    if (isEnter(key)) {
        return '\r';
    }
    if (key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete) {
        return '\b';
    }
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier) ||
        key.text().isEmpty()) {
        return 0;
    }
    QChar typed = key.text().front();
    return typed.isPrint() && typed.unicode() < 0x80 ? typed.toLatin1() : '\0';
}

/// Leads keys in a locked field, and double clicks, to the element's actions for them. The action may take
/// the widget away.
class LockedFieldActions : public QObject {
  public:
    LockedFieldActions(QWidget& owner, QWidget& eventSource, Binding& fieldBinding)
        : QObject(&owner)
        , binding(fieldBinding) {
        eventSource.installEventFilter(this);
        if (&owner != &eventSource) {
            owner.installEventFilter(this);
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* field = elementOf<TextField>(binding);
        if (field == nullptr) {
            return false;
        }
        if (event->type() == QEvent::KeyPress && field->readOnly() && field->onKey) {
            char key = typedKey(*static_cast<QKeyEvent*>(event));
            if (key != 0) {
                binding.gesture([&] { field->press(key); });
                return true;
            }
        }
        if (event->type() == QEvent::MouseButtonPress && field->onClick) {
            // The click goes on to place the caret.
            binding.gesture([&] { field->click(); });
        }
        if (event->type() == QEvent::MouseButtonDblClick && field->onDoubleClick) {
            binding.gesture([&] { field->doubleClick(); });
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    Binding& binding;
};

/// Enter, Escape and the text to come back to.
class FieldKeys : public QObject {
  public:
    FieldKeys(LineField& lineField, Binding& fieldBinding)
        : QObject(&lineField)
        , line(lineField)
        , binding(fieldBinding) {
        line.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (field() == nullptr) {
            return false;
        }
        if (event->type() == QEvent::FocusIn) {
            line.kept = field()->text();
        } else if (event->type() == QEvent::KeyPress && !line.isReadOnly()) {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (isEnter(key)) {
                commit();
                return true;
            }
            if (key.key() == Qt::Key_Escape && field()->text() != line.kept) {
                binding.gesture([this] { field()->replace(line.kept); });
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    [[nodiscard]] TextField* field() const { return elementOf<TextField>(binding); }

    void commit() {
        QPointer<FieldKeys> alive(this);
        binding.gesture([this] { field()->enter(); });
        if (alive && field() != nullptr) {
            line.kept = field()->text();
        }
    }

    LineField& line;
    Binding& binding;
};

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
