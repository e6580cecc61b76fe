// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/memory_picture.h"
#include "eeprom/eeprom.h"

#include <QPlainTextEdit>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace zor {

namespace {

using Cell = CellPicture::Cell;

constexpr int bytesOfALine = 32;
/// The picture has one page a row.
constexpr double rowsOfALine = static_cast<double>(bytesOfALine) / eepromPageBytes;

/// Padding and erased bytes stand back in the text, what differs from the device stands out, as in the
/// picture beside it.
void markBytes(QPlainTextEdit& area, const Eeprom& tool) {
    QList<QTextEdit::ExtraSelection> marks;
    std::string text = tool.WorkSheet.text();
    const RoleColours& colours = roles(area.palette());
    std::vector<std::size_t> places = bytePlaces(text, eepromBytes);
    int returns = 0;
    std::size_t passed = 0;
    for (std::size_t byte = 0; byte < places.size(); ++byte) {
        for (; passed < places[byte]; ++passed) {
            // The toolkit counts a line end as one character.
            returns += text[passed] == '\r' ? 1 : 0;
        }
        Cell kind = tool.MemoryPicture.contents()[byte];
        if (kind == Cell::Written || kind == Cell::Absent) {
            continue;
        }
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(area.document());
        int place = static_cast<int>(places[byte]) - returns;
        int last = area.document()->characterCount() - 1;
        mark.cursor.setPosition(std::min(place, last));
        mark.cursor.setPosition(std::min(place + 2, last), QTextCursor::KeepAnchor);
        if (kind == Cell::Differs) {
            mark.format.setBackground(colours.pendingBack);
            mark.format.setForeground(colours.pendingText);
            mark.format.setFontUnderline(true);
        } else {
            mark.format.setForeground(colours.softText);
        }
        marks += mark;
    }
    area.setExtraSelections(marks);
}

QPlainTextEdit* workSheet(Eeprom& e) {
    auto* area = static_cast<QPlainTextEdit*>(textArea(e.WorkSheet, 3 * bytesOfALine + 1, 22));
    QFont font = area->font();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    area->setFont(font);
    QFontMetrics metrics(font);
    area->setMinimumSize(metrics.horizontalAdvance(QLatin1Char('0')) * (3 * bytesOfALine + 3),
                         metrics.lineSpacing() * 22);
    area->setLineWrapMode(QPlainTextEdit::NoWrap);
    // A thousand marks follow every line that comes into the text. So they go before the text is drawn anew,
    // of which the picture hears first, and come back once for all changes of one action.
    auto* marking = new QTimer(area);
    marking->setSingleShot(true);
    QObject::connect(marking, &QTimer::timeout, area, [area, binding = Binding::of(area), &e] {
        if (binding->element() != nullptr) {
            markBytes(*area, e);
        }
    });
    auto markAnew = [area, marking] {
        area->setExtraSelections({});
        marking->start(0);
    };
    Binding::of(area)->follow(e.MemoryPicture.changed, markAnew);
    Binding::of(area)->follow(e.WorkSheet.changed, markAnew);
    return area;
}

/// The text with its ruler; two rows of the picture stand beside each line.
QWidget* ruled(QPlainTextEdit& text) {
    auto* block = new QWidget;
    auto* layout = new QVBoxLayout(block);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    QWidget* ruler = byteRuler(text);
    Binding::of(&text)->addCompanion(*ruler);
    layout->addWidget(ruler);
    layout->addWidget(&text, 1);
    return block;
}

QWidget* memoryGroup(Eeprom& e) {
    QPlainTextEdit* text = workSheet(e);
    QWidget* picture = cellPicture(e.MemoryPicture, QFontMetrics(text->font()).lineSpacing() / rowsOfALine);
    QWidget* legend =
        across({cellSample(Cell::Written, "written"), cellSample(Cell::Zero, "zero"),
                cellSample(Cell::Empty, "empty (FF)"), cellSample(Cell::Differs, "differs from the device")});
    Binding::of(picture)->addCompanion(*legend);
    return group("Memory",
                 {line(tick(e.EditorWindow)), across({picture, ruled(*text)}, 1),
                  line(legend, label(e.MemoryCaret), stretch())},
                 1);
}

} // namespace

QWidget* eepromView(Form& form) {
    auto& e = static_cast<Eeprom&>(form);
    return window(
        {
            line(button(e.loadeefile), button(e.SaveEEFile), button(e.Import), button(e.Export), stretch(),
                 keepRoom(label(e.Label5, Tone::Soft)), keepRoom(label(e.Label7)),
                 keepRoom(label(e.Label2, Tone::Soft)), keepRoom(label(e.Label3))),
            memoryGroup(e),
            line(strongButton(e.Prog), button(e.Verify), button(e.Read), button(e.Command1),
                 tick(e.VerifyAfterProgramming), stretch(), labelled(e.Label1, textField(e.StatusMsg, 18))),
            line(keepRoom(progress(e.ProgressBar1)), keepRoom(label(e.RunProgress, Tone::Soft)),
                 keepRoom(button(e.StopButton))),
        },
        1);
}

} // namespace zor
