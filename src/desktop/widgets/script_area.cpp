// SPDX-License-Identifier: MIT
#include "desktop/widgets/script_area.h"

#include "desktop/widgets/colours.h"

#include <QPlainTextEdit>
#include <QTextBlock>

namespace zor {

namespace {

void markLine(QPlainTextEdit& area, std::size_t line) {
    QList<QTextEdit::ExtraSelection> marks;
    QTextBlock block =
        line == 0 ? QTextBlock() : area.document()->findBlockByNumber(static_cast<int>(line) - 1);
    if (block.isValid()) {
        const RoleColours& colours = roles(area.palette());
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(block);
        mark.format.setBackground(colours.pendingBack);
        mark.format.setForeground(colours.pendingText);
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        marks.append(mark);
    }
    area.setExtraSelections(marks);
}

} // namespace

QWidget* scriptArea(TextField& element, int columns, int lines, Element& told,
                    const std::function<std::size_t()>& runningLine) {
    QWidget* widget = textArea(element, columns, lines);
    auto* area = static_cast<QPlainTextEdit*>(widget);
    area->setLineWrapMode(QPlainTextEdit::NoWrap);
    Binding::of(area)->follow(told.changed, [area, runningLine] { markLine(*area, runningLine()); });
    return area;
}

} // namespace zor
