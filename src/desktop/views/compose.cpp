// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/widgets/colours.h"
#include "panels/common/control_word.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QToolButton>

#include <algorithm>

namespace zor {

namespace {

QLabel* softLabel(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, roles(palette).softText);
    label->setPalette(palette);
    return label;
}

/// Of a control word's caption in one line, in average characters: the words column shall stay narrow.
constexpr int widestWordCaption = 27;

/// A longer text takes a second line.
void wrapBeyond(QLabel& label, int characters) {
    int limit = label.fontMetrics().averageCharWidth() * characters;
    int needed = label.sizeHint().width();
    label.setWordWrap(true);
    label.setMinimumWidth(std::min(needed, limit));
    label.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

/// The widget inside a composed one that takes the focus, for a caption's mnemonic.
QWidget* focusTarget(QWidget* widget) {
    if (widget->focusPolicy() != Qt::NoFocus) {
        return widget;
    }
    for (QWidget* inner : widget->findChildren<QWidget*>()) {
        if (inner->focusPolicy() != Qt::NoFocus) {
            return inner;
        }
    }
    return widget;
}

/// Captions and units go with the element of the widget they belong to, or of the first one inside it.
void accompany(QWidget& companion, QWidget& widget) {
    Binding* binding = Binding::of(&widget);
    if (binding == nullptr) {
        binding = widget.findChild<Binding*>();
    }
    if (binding != nullptr) {
        binding->addCompanion(companion);
    }
}

/// The toolkit finds a caption beside a widget of the same parent alone; inside a composed one the fields and
/// arrows are told.
void nameInside(const QString& captionText, const QWidget& widget) {
    QString plainName = captionText;
    plainName.remove(QLatin1Char('&'));
    for (auto* inner : widget.findChildren<QWidget*>()) {
        if (auto* arrow = qobject_cast<QToolButton*>(inner)) {
            arrow->setAccessibleName(arrow->accessibleName() + QLatin1Char(' ') + plainName);
        } else if (inner->focusPolicy() != Qt::NoFocus && inner->accessibleName().isEmpty()) {
            inner->setAccessibleName(plainName);
        }
    }
}

Cell withUnit(QWidget* caption, QWidget* widget, const QString& unit) {
    QLabel* unitLabel = unit.isEmpty() ? nullptr : softLabel(unit);
    if (unitLabel != nullptr) {
        accompany(*unitLabel, *widget);
    }
    return {caption, widget, unitLabel};
}

void addToRow(QHBoxLayout& row, const Cell& cell) {
    if (cell.caption != nullptr) {
        row.addWidget(cell.caption);
    }
    if (cell.widget == nullptr) {
        row.addStretch(1);
        return;
    }
    row.addWidget(cell.widget);
    if (cell.unit != nullptr) {
        row.addWidget(cell.unit);
    }
}

bool fills(const QWidget* widget) {
    return widget != nullptr && (widget->sizePolicy().horizontalPolicy() & QSizePolicy::ExpandFlag) != 0;
}

/// A line whose last place stretches or expands fills its row itself; any other gets room at its end.
bool fillsRow(const Line& line) {
    return std::any_of(line.cells.begin(), line.cells.end(),
                       [](const Cell& cell) { return cell.widget == nullptr || fills(cell.widget); });
}

/// Everything in one wide block (a grid, a row of options) is left to stretch by itself.
bool isBlock(const Line& line) {
    return line.cells.size() == 1 && line.cells.front().caption == nullptr &&
           line.cells.front().unit == nullptr;
}

void layOut(QWidget& owner, Lines& lines, int margin, int grows) {
    auto* table = new QGridLayout(&owner);
    table->setContentsMargins(margin, margin, margin, margin);
    table->setHorizontalSpacing(spaceBetween);
    table->setVerticalSpacing(spaceBetween);
    table->setColumnStretch(1, 1);
    bool anyGrows = false;
    for (int row = 0; row < static_cast<int>(lines.size()); ++row) {
        Line& line = lines[static_cast<std::size_t>(row)];
        if (row == grows) {
            table->setRowStretch(row, 1);
            anyGrows = true;
        }
        if (isBlock(line)) {
            if (line.cells.front().widget != nullptr) {
                table->addWidget(line.cells.front().widget, row, 0, 1, 2);
            } else {
                table->setRowStretch(row, 1);
                anyGrows = true;
            }
            continue;
        }
        auto* rest = new QHBoxLayout;
        rest->setSpacing(spaceBetween);
        bool needsEnd = !fillsRow(line);
        bool captioned = line.cells.front().caption != nullptr;
        if (captioned) {
            table->addWidget(line.cells.front().caption, row, 0);
            line.cells.front().caption = nullptr;
        }
        for (const Cell& cell : line.cells) {
            addToRow(*rest, cell);
        }
        if (needsEnd) {
            rest->addStretch(1);
        }
        table->addLayout(rest, row, captioned ? 1 : 0, 1, captioned ? 1 : 2);
    }
    if (!anyGrows) {
        table->setRowStretch(static_cast<int>(lines.size()), 1);
    }
}

} // namespace

Cell labelled(const QString& captionText, QWidget* widget, const QString& unit) {
    auto* label = new QLabel(captionText);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(focusTarget(widget));
    nameInside(captionText, *widget);
    accompany(*label, *widget);
    return withUnit(label, widget, unit);
}

Cell labelled(Button& captionElement, QWidget* widget, const QString& unit) {
    auto* text = static_cast<QLabel*>(label(captionElement));
    text->setBuddy(focusTarget(widget));
    nameInside(text->text(), *widget);
    return withUnit(text, widget, unit);
}

QWidget* remark(const QString& text) {
    QLabel* label = softLabel(text);
    label->setWordWrap(true);
    return label;
}

QWidget* caption(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QWidget* group(const QString& title, Lines lines, int grows) {
    auto* box = new QGroupBox(title);
    layOut(*box, lines, spaceInside, grows);
    return box;
}

QWidget* group(Frame& frame, Lines lines) {
    auto* box = new QGroupBox;
    layOut(*box, lines, spaceInside, -1);
    auto* binding = new Binding(frame, *box);
    binding->onDraw([binding, box] {
        bool bordered = elementOf<Frame>(*binding)->bordered();
        box->setTitle(bordered ? literalCaption(binding->element()->caption()) : QString());
        box->setFlat(!bordered);
    });
    return box;
}

QWidget* plain(Lines lines) {
    auto* block = new QWidget;
    layOut(*block, lines, 0, -1);
    return block;
}

QWidget* plain(Frame& frame, Lines lines, int grows) {
    auto* block = new QWidget;
    layOut(*block, lines, 0, grows);
    new Binding(frame, *block);
    return block;
}

QWidget* column(const std::vector<QWidget*>& widgets) {
    auto* block = new QWidget;
    auto* layout = new QVBoxLayout(block);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spaceBetween);
    for (QWidget* widget : widgets) {
        layout->addWidget(widget);
    }
    layout->addStretch(1);
    return block;
}

QWidget* across(std::vector<QWidget*> widgets, int grows) {
    auto* block = new QWidget;
    auto* layout = new QHBoxLayout(block);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spaceBetween);
    for (int i = 0; i < static_cast<int>(widgets.size()); ++i) {
        layout->addWidget(widgets[static_cast<std::size_t>(i)], grows < 0 || grows == i ? 1 : 0);
    }
    return block;
}

QWidget* grid(int columns, std::vector<QWidget*> widgets) {
    auto* block = new QWidget;
    auto* table = new QGridLayout(block);
    table->setContentsMargins(0, 0, 0, 0);
    table->setHorizontalSpacing(2 * spaceBetween);
    table->setVerticalSpacing(spaceBetween);
    for (int i = 0; i < static_cast<int>(widgets.size()); ++i) {
        table->addWidget(widgets[static_cast<std::size_t>(i)], i / columns, i % columns);
    }
    table->setColumnStretch(columns, 1);
    return block;
}

QWidget* wordsGroup(const QString& title, const std::vector<std::pair<QString, QWidget*>>& words) {
    auto* box = new QGroupBox(title);
    auto* table = new QGridLayout(box);
    table->setContentsMargins(spaceInside, spaceInside, spaceInside, spaceInside);
    table->setHorizontalSpacing(2 * spaceBetween);
    // The column is the tallest part of its window; many words stand closer, so that it fits a screen of 800
    // lines.
    constexpr std::size_t manyWords = 10;
    table->setVerticalSpacing(words.size() > manyWords ? spaceBetween / 3 : spaceBetween);
    int row = 0;
    for (const auto& [name, widget] : words) {
        Cell cell = labelled(name, widget);
        wrapBeyond(*static_cast<QLabel*>(cell.caption), widestWordCaption);
        table->addWidget(cell.caption, row, 0);
        table->addWidget(cell.widget, row, 1, Qt::AlignRight | Qt::AlignVCenter);
        ++row;
    }
    table->setColumnStretch(0, 1);
    table->setRowStretch(row, 1);
    return box;
}

QWidget* folding(Label& element, Tone tone) {
    QWidget* text = label(element, tone);
    auto* inner = static_cast<QLabel*>(text);
    inner->setWordWrap(true);
    constexpr int narrowest = 36;
    inner->setMinimumWidth(inner->fontMetrics().averageCharWidth() * narrowest);
    return text;
}

QWidget* keepRoom(QWidget* widget) {
    QSizePolicy room = widget->sizePolicy();
    room.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(room);
    return widget;
}

QWidget* window(Lines lines, int grows) {
    auto* content = new QWidget;
    layOut(*content, lines, spaceInside, grows);
    return content;
}

} // namespace zor
