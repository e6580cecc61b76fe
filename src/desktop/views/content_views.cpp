// SPDX-License-Identifier: MIT
#include "desktop/views/compose.h"
#include "desktop/views/views.h"
#include "desktop/widgets/colours.h"
#include "eeprom/ecet.h"

#include <QLineEdit>
#include <QTabBar>

namespace zor {

namespace {

constexpr int bytesInARow = 16;

/// What the command that is picked in the reading takes up.
DigitStretch pickedStretch(const EventTab& tab) {
    const RoutineCommand* command = tab.picked();
    return command == nullptr ? DigitStretch{} : DigitStretch{command->begin, command->count};
}

QWidget* titled(QWidget* left, QWidget* right, QWidget* below) {
    return plain({line(left, stretch(), right), below});
}

/// The digits and what they say, side by side; what is picked on the right is marked on the left.
QWidget* routineAndReading(EventTab& tab) {
    constexpr int fullRows = static_cast<int>(routineDigits) / (2 * bytesInARow);
    QWidget* digits =
        byteArea(tab.TB_EventContent, 2 * bytesInARow, fullRows, [&tab] { return pickedStretch(tab); });
    Binding* binding = Binding::of(digits);
    binding->follow(tab.Reading.pickChanged, [binding] { binding->redraw(); });
    return across(
        {titled(caption("Event routine"), label(tab.RoutineSize, Tone::Soft), digits),
         titled(caption("Reading"), label(tab.ReadingFault, Tone::Error), gridView(tab.Reading, 8))},
        1);
}

QWidget* payload(EventTab& tab) {
    constexpr int payloadRows = 2;
    return group({},
                 {
                     line(byteArea(tab.TB_Payload, 5 * bytesInARow, payloadRows),
                          column({option(tab.OB_HexView), option(tab.OB_Ascii_View)}), stretch()),
                     line(button(tab.PB_Preamble), button(tab.PB_SynchPattern), field(tab.TB_Pattern, 5),
                          keepRoom(button(tab.PB_PN9)), stretch(), button(tab.PB_InsertTx)),
                     line(button(tab.PB_Fill), field(tab.TB_FillData, 3), tick(tab.CB_FillEmptieswithC4),
                          stretch(), keepRoom(label(tab.LockHint, Tone::Soft)), button(tab.PB_InsertSleep)),
                 });
}

QWidget* eventPage(EventTab& tab) {
    return group(tab.Frm_ECETEvents,
                 {routineAndReading(tab),
                  line(button(tab.PB_GetData), button(tab.PB_CmdSequence), button(tab.PB_InsertCommand),
                       stretch(), button(tab.PB_ClearEventRoutine)),
                  line(label(tab.Label3), stretch()), payload(tab)});
}

/// The image is looked at from its beginning, as long as nobody works in it.
QWidget* image(TextField& element) {
    QWidget* field = textField(element, 30);
    auto* text = qobject_cast<QLineEdit*>(field);
    Binding::of(text)->follow(element.changed, [text] {
        if (!text->hasFocus()) {
            text->home(false);
        }
    });
    return field;
}

/// A word that takes no typing; its ground comes from the palette, so that it is quiet in the dark too.
QWidget* lockedWord(TextField& element) {
    QWidget* shown = word(element);
    auto showGround = [shown] {
        QPalette colours;
        colours.setColor(QPalette::Base, roles(colours).lockedGround);
        shown->setPalette(colours);
    };
    Binding::of(shown)->setBackgroundShown(false);
    Binding::of(shown)->follow(element.changed, showGround);
    showGround();
    return shown;
}

} // namespace

QWidget* contentEditorView(Form& form) {
    auto& e = static_cast<ECET&>(form);
    std::vector<QWidget*> pages;
    pages.reserve(static_cast<std::size_t>(eventCount));
    for (int event = 0; event < eventCount; ++event) {
        pages.push_back(eventPage(e.tab(event)));
    }
    QWidget* events = tabs(e.TabStrip1, pages, [&e](int event) {
        return static_cast<double>(e.tab(event).routine().size()) / static_cast<double>(routineDigits);
    });
    auto* strip = events->findChild<QTabBar*>();
    for (int event = 0; event < eventCount; ++event) {
        Binding::of(strip)->follow(e.tab(event).TB_EventContent.changed, [strip] { strip->update(); });
    }
    return window(
        {events,
         line(strongButton(e.PB_GenerateRom), image(e.TB_EEPROMContent), label(e.ImageSize, Tone::Soft),
              button(e.PB_Call), button(e.PB_Load), button(e.PB_Save)),
         line(caption("Log"), stretch(), button(e.PB_ClearLog)), logView(e.TB_ErrorLog, 80, 6)},
        3);
}

QWidget* commandEditorView(Form& form) {
    auto& c = static_cast<Frm_CmdSequence&>(form);
    Lines commands;
    for (Command command : everyCommand) {
        QWidget* box = tick(*c.CB_AddCmd(command));
        if (command == pushButtonCommand) {
            commands.emplace_back(line(box, stretch(), keepRoom(lockedWord(c.TB_PBCmdValue))));
        } else {
            commands.emplace_back(line(box, stretch()));
        }
        if (command == dataRateCommand) {
            commands.emplace_back(line(field(c.TB_DataRate, 8), label(c.LabelBps, Tone::Soft), stretch(),
                                       lockedWord(c.TB_DataRateCmd)));
        }
    }
    commands.emplace_back(line(button(c.PB_SelectAll), button(c.PB_ClearAll), stretch()));
    QWidget* buttons = group(c.Frm_ContExec,
                             {grid(2, {tick(c.CB_ContinousExecution[0]), tick(c.CB_ContinousExecution[1]),
                                       tick(c.CB_ContinousExecution[2]), tick(c.CB_ContinousExecution[3])})});
    QWidget* debouncing = group(c.Frm_DebouncingTime, {options(c.OB_Bypass, c.OB_10, c.OB_40, c.OB_160)});
    return window({label(c.L_ControlName, Tone::Title), group("Commands", commands), keepRoom(buttons),
                   keepRoom(tick(c.CB_FourthButton)), keepRoom(tick(c.CB_Pullup)), keepRoom(debouncing),
                   keepRoom(label(c.Label4, Tone::Error)),
                   line(button(c.PB_SetDefaults), stretch(), button(c.PB_Save), strongButton(c.PB_Insert))});
}

} // namespace zor
