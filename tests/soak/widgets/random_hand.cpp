// SPDX-License-Identifier: MIT
#include "soak/widgets/random_hand.h"

#include "desktop/demo_board.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <utility>
#include <vector>

namespace zor {

namespace {

constexpr std::array fileNames = {"a.tc",  "b.tc1",   "c.tc2", "d.rc",  "e.rc2",        "f.trc",
                                  "g.lrc", "a.asc",   "a.hex", "a.txt", "a.h",          "a.csv",
                                  "a.out", "a.bench", "*.tc",  "",      "none/there.tc"};
constexpr std::array faults = {"mute",
                               "unmute",
                               "unmute",
                               "delay 1500",
                               "delay 0",
                               "delay 0",
                               "irq low",
                               "irq high",
                               "data 1",
                               "data 0",
                               "status 5F A0",
                               "status 00 FF",
                               "current 300 1023",
                               "refuse RS",
                               "refuse L2",
                               "emit \\n\\rOK\\n\\r>",
                               "emit \\x00\\xFF\\x11\\x13>",
                               "emit Ortolan Radio Bench System",
                               "packet hello 7",
                               "eeprom busy 40",
                               "chip kt2100",
                               "quit"};

struct Stroke {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};
const std::array strokes = {
    Stroke{Qt::Key_Return, Qt::NoModifier},    Stroke{Qt::Key_Return, Qt::NoModifier},
    Stroke{Qt::Key_Tab, Qt::NoModifier},       Stroke{Qt::Key_Tab, Qt::NoModifier},
    Stroke{Qt::Key_Backtab, Qt::NoModifier},   Stroke{Qt::Key_Escape, Qt::NoModifier},
    Stroke{Qt::Key_Backspace, Qt::NoModifier}, Stroke{Qt::Key_Delete, Qt::NoModifier},
    Stroke{Qt::Key_Up, Qt::NoModifier},        Stroke{Qt::Key_Down, Qt::NoModifier},
    Stroke{Qt::Key_Left, Qt::NoModifier},      Stroke{Qt::Key_Right, Qt::NoModifier},
    Stroke{Qt::Key_Home, Qt::NoModifier},      Stroke{Qt::Key_End, Qt::NoModifier},
    Stroke{Qt::Key_PageUp, Qt::NoModifier},    Stroke{Qt::Key_PageDown, Qt::NoModifier},
    Stroke{Qt::Key_Space, Qt::NoModifier},     Stroke{Qt::Key_F1, Qt::NoModifier},
    Stroke{Qt::Key_F5, Qt::NoModifier},        Stroke{Qt::Key_F6, Qt::NoModifier},
    Stroke{Qt::Key_F6, Qt::ShiftModifier},     Stroke{Qt::Key_F7, Qt::NoModifier},
    Stroke{Qt::Key_F9, Qt::NoModifier},        Stroke{Qt::Key_O, Qt::ControlModifier},
    Stroke{Qt::Key_S, Qt::ControlModifier},    Stroke{Qt::Key_A, Qt::ControlModifier},
    Stroke{Qt::Key_C, Qt::ControlModifier},    Stroke{Qt::Key_V, Qt::ControlModifier},
    Stroke{Qt::Key_X, Qt::ControlModifier},    Stroke{Qt::Key_Z, Qt::ControlModifier},
    Stroke{Qt::Key_1, Qt::ControlModifier},    Stroke{Qt::Key_L, Qt::ControlModifier},
    Stroke{Qt::Key_T, Qt::AltModifier},        Stroke{Qt::Key_V, Qt::AltModifier},
};
constexpr std::string_view characters = "0123456789.,-+ABCDEF abcxyz&\"%";

QString described(const QWidget& widget) {
    return widget.objectName() + QLatin1Char(' ') + QLatin1String(widget.metaObject()->className());
}

} // namespace

RandomHand::RandomHand(unsigned seed, QDir folder, DemoBoard& board, std::function<void(const QString&)> log)
    : Dice(seed)
    , files(std::move(folder))
    , loadBoard(board)
    , tell(std::move(log)) {}

void RandomHand::say(const QString& what) {
    tell(what);
}

void RandomHand::act() {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        inPopup(*popup);
        return;
    }
    if (oneIn(25)) {
        fault();
        return;
    }
    QWidget* modal = QApplication::activeModalWidget();
    if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
        inFileDialog(*dialog);
        return;
    }
    if (modal != nullptr) {
        inWindow(*modal);
        return;
    }
    std::vector<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowHandle() != nullptr && window->windowType() != Qt::ToolTip) {
            windows.push_back(window);
        }
    }
    if (!windows.empty()) {
        inWindow(*oneOf(windows));
    }
}

void RandomHand::inPopup(QWidget& popup) {
    if (popup.windowHandle() == nullptr || oneIn(5)) {
        say("leave the popup");
        popup.close();
        return;
    }
    if (oneIn(4)) {
        const Stroke& stroke = oneOf(strokes);
        say("key in the popup " + QString::number(stroke.key, 16));
        QTest::keyClick(popup.windowHandle(), stroke.key, stroke.modifiers);
        return;
    }
    QPoint place = someWhere(popup);
    say(QStringLiteral("click in popup %1 %2,%3").arg(described(popup)).arg(place.x()).arg(place.y()));
    QTest::mouseClick(popup.windowHandle(), Qt::LeftButton, {}, place);
}

void RandomHand::inFileDialog(QFileDialog& dialog) {
    auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    QString name = QString::fromLatin1(oneOf(fileNames));
    if (field == nullptr || name.isEmpty() || oneIn(4)) {
        say("cancel the file dialog");
        dialog.reject();
        return;
    }
    say("file " + name);
    field->setText(files.filePath(name));
    QTest::keyClick(field, Qt::Key_Return);
    if (dialog.isVisible() && QApplication::activeModalWidget() == &dialog) {
        // A name that the dialog does not take.
        dialog.reject();
    }
}

QPoint RandomHand::someWhere(const QWidget& widget) {
    return {upTo(widget.width() - 1), upTo(widget.height() - 1)};
}

QWidget* RandomHand::someWidget(QWidget& window) {
    QList<QWidget*> all = window.findChildren<QWidget*>();
    for (int trial = 0; trial < 20 && !all.isEmpty(); ++trial) {
        QWidget* widget = oneOf(all);
        bool reachable =
            widget->isVisible() && widget->window() == &window && !widget->visibleRegion().isEmpty();
        if (reachable && (widget->focusPolicy() != Qt::NoFocus || oneIn(6))) {
            return widget;
        }
    }
    return &window;
}

void RandomHand::inWindow(QWidget& window) {
    int way = upTo(99);
    if (way < 3) {
        toInnerWindow(window);
    } else if (way < 30) {
        key(window);
    } else {
        point(*someWidget(window));
    }
}

void RandomHand::point(QWidget& widget) {
    QWidget& top = *widget.window();
    if (top.windowHandle() == nullptr) {
        return;
    }
    QRect seen = widget.visibleRegion().boundingRect();
    QPoint inside = seen.isEmpty() ? someWhere(widget)
                                   : seen.topLeft() + QPoint(upTo(seen.width() - 1), upTo(seen.height() - 1));
    QPoint place = widget.mapTo(&top, inside);
    if (!top.rect().contains(place)) {
        return;
    }
    QWindow* target = top.windowHandle();
    QString where = QStringLiteral(" %1 at %2,%3").arg(described(widget)).arg(inside.x()).arg(inside.y());
    int way = upTo(99);
    if (way < 75) {
        say("click" + where);
        QTest::mouseClick(target, Qt::LeftButton, {}, place);
    } else if (way < 82) {
        say("double click" + where);
        QTest::mouseDClick(target, Qt::LeftButton, {}, place);
    } else if (way < 86) {
        say("right click" + where);
        QTest::mouseClick(target, Qt::RightButton, {}, place);
    } else if (way < 94) {
        say("wheel" + where);
        QWheelEvent turned(QPointF(inside), QPointF(widget.mapToGlobal(inside)), QPoint(),
                           QPoint(0, oneIn(2) ? 120 : -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                           false);
        QApplication::sendEvent(&widget, &turned);
    } else {
        QPoint end(upTo(top.width() - 1), upTo(top.height() - 1));
        say("drag" + where + QStringLiteral(" to %1,%2").arg(end.x()).arg(end.y()));
        QPointer<QWindow> alive(target);
        QTest::mousePress(target, Qt::LeftButton, {}, place);
        for (QPoint step : {(place + end) / 2, end}) {
            if (alive) {
                QTest::mouseMove(target, step);
            }
        }
        if (alive) {
            QTest::mouseRelease(target, Qt::LeftButton, {}, end);
        }
    }
}

void RandomHand::key(QWidget& window) {
    QWindow* target = window.windowHandle();
    if (target == nullptr) {
        return;
    }
    QPointer<QWindow> alive(target);
    if (oneIn(2)) {
        const Stroke& stroke = oneOf(strokes);
        say(QStringLiteral("key %1 %2")
                .arg(stroke.key, 0, 16)
                .arg(static_cast<int>(stroke.modifiers), 0, 16));
        QTest::keyClick(target, stroke.key, stroke.modifiers);
        return;
    }
    for (int count = 1 + upTo(6); count > 0 && alive; --count) {
        char typed = oneOf(characters);
        say(QStringLiteral("type %1").arg(QLatin1Char(typed)));
        QTest::keyClick(target, typed);
    }
}

void RandomHand::toInnerWindow(QWidget& window) {
    QList<QMdiSubWindow*> inner = window.findChildren<QMdiSubWindow*>();
    if (inner.isEmpty() || oneIn(4)) {
        QSize size(700 + upTo(1200), 500 + upTo(600));
        say(QStringLiteral("resize the window to %1 x %2").arg(size.width()).arg(size.height()));
        window.resize(size);
        return;
    }
    QMdiSubWindow* chosen = oneOf(inner);
    if (!chosen->isVisible()) {
        return;
    }
    if (oneIn(2)) {
        say("close " + chosen->windowTitle());
        chosen->close();
    } else {
        QPoint place(upTo(900) - 100, upTo(600) - 50);
        say(QStringLiteral("move %1 to %2,%3").arg(chosen->windowTitle()).arg(place.x()).arg(place.y()));
        chosen->move(place);
    }
}

void RandomHand::fault() {
    QString what = QString::fromLatin1(oneOf(faults));
    say("board: " + what);
    loadBoard.tell(what);
}

} // namespace zor
