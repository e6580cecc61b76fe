// SPDX-License-Identifier: MIT
#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/binders.h"
#include "desktop/widgets/colours.h"
#include "panels/common/control_word.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <limits>

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
    QString kept;

  private:
    int columns;
};

bool isEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

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
        if (event->type() == QEvent::FocusIn) {
            line.kept = line.text();
        } else if (event->type() == QEvent::KeyPress && !line.isReadOnly()) {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (isEnter(key)) {
                commit();
                return true;
            }
            if (key.key() == Qt::Key_Escape && line.text() != line.kept) {
                binding.gesture([this] { field()->replace(fromQt(line.kept)); });
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
        if (alive) {
            line.kept = line.text();
        }
    }

    LineField& line;
    Binding& binding;
};

Binding& bindLine(LineField& line, TextField& element) {
    auto* binding = new Binding(element, line);
    new FieldKeys(line, *binding);
    binding->followFocus();
    QObject::connect(&line, &QLineEdit::textEdited, binding, [binding](const QString& text) {
        binding->gesture([&] { elementOf<TextField>(*binding)->replace(fromQt(text)); });
    });
    binding->onDraw([binding, &line] {
        const auto& held = *elementOf<TextField>(*binding);
        line.setReadOnly(held.readOnly());
        QString text = toQt(held.text());
        if (line.text() != text) {
            line.setText(text);
        }
    });
    return *binding;
}

} // namespace

QWidget* field(TextField& element, int columns) {
    auto* line = new LineField(columns);
    line->setAlignment(Qt::AlignRight);
    line->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (element.readOnly()) {
        // A result, not a setting: it looks like the ground it stands on, and the tab key passes it by.
        QPalette palette = line->palette();
        palette.setColor(QPalette::Base, palette.color(QPalette::Window));
        line->setPalette(palette);
        line->setFocusPolicy(Qt::ClickFocus);
    }
    bindLine(*line, element);
    return line;
}

QWidget* textField(TextField& element, int columns) {
    auto* line = new LineField(columns);
    line->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    bindLine(*line, element);
    return line;
}

QWidget* statusLine(TextField& element) {
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
    auto* binding = new Binding(element, *area);
    binding->followFocus();
    QObject::connect(area, &QPlainTextEdit::textChanged, binding, [binding, area] {
        binding->gesture([&] { elementOf<TextField>(*binding)->replace(linesFromQt(area->toPlainText())); });
    });
    binding->onDraw([binding, area] {
        const auto& held = *elementOf<TextField>(*binding);
        area->setReadOnly(held.readOnly());
        QString text = linesToQt(held.text());
        if (area->toPlainText() != text) {
            area->setPlainText(text);
        }
    });
    return area;
}

} // namespace zor
