// SPDX-License-Identifier: MIT
#include "desktop/adapters/linux_usb_driver.h"
#include "desktop/adapters/qt_dialogs.h"
#include "desktop/adapters/qt_loop.h"
#include "desktop/adapters/qt_serial_port.h"
#include "desktop/adapters/qt_surroundings.h"
#include "desktop/adapters/qt_text.h"
#include "desktop/demo_board.h"
#include "desktop/demo_tour.h"
#include "desktop/desktop_window.h"
#include "desktop/first_paint.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/instrument_style.h"
#include "panels/common/chip_panel.h"
#include "shell/about.h"
#include "shell/main_window.h"
#include "store/sqlite_register_store.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

struct Switches {
    bool demo = false;
    /// Who is on the air of the simulated board.
    QString farEnd;
    /// Ends when the window has been shown, for measuring the start.
    bool exitWhenShown = false;
    QString pictures;
    std::optional<zor::Scheme> scheme;
};

Switches readSwitches(const QCoreApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(zor::productTitle));
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption demo(QStringLiteral("demo"),
                            QStringLiteral("Offer a simulated board as the first port."));
    QCommandLineOption farEnd(
        QStringLiteral("far-end"),
        QStringLiteral("With --demo: who is on the air, silent, numbered (a packet a second), echo (what it "
                       "heard), carrier, or lively (all of it; the default)."),
        QStringLiteral("WHO"), QStringLiteral("lively"));
    parser.addOption(farEnd);
    QCommandLineOption light(QStringLiteral("light"),
                             QStringLiteral("Light colours, whatever the desktop has."));
    QCommandLineOption dark(QStringLiteral("dark"),
                            QStringLiteral("Dark colours, whatever the desktop has."));
    QCommandLineOption play(QStringLiteral("play-demo"),
                            QStringLiteral("Walk through the demo and leave a picture of every window."),
                            QStringLiteral("folder"));
    QCommandLineOption exitWhenShown(
        QStringLiteral("exit-when-shown"),
        QStringLiteral("End as soon as the window is painted; for measuring the start."));
    parser.addOptions({demo, light, dark, play, exitWhenShown});
    parser.process(application);
    Switches switches;
    switches.pictures = parser.value(play);
    switches.exitWhenShown = parser.isSet(exitWhenShown);
    switches.demo = parser.isSet(demo) || !switches.pictures.isEmpty();
    if (parser.isSet(dark)) {
        switches.scheme = zor::Scheme::Dark;
    } else if (parser.isSet(light)) {
        switches.scheme = zor::Scheme::Light;
    }
    switches.farEnd = parser.value(farEnd);
    return switches;
}

void nameProgram() {
    QCoreApplication::setApplicationName(QStringLiteral("zor"));
    QCoreApplication::setApplicationVersion(zor::toQt(zor::productVersion()));
}

/// Help and version are text; they need no display.
bool wantsText(int argc, char** argv) {
    return std::any_of(argv + 1, argv + argc, [](std::string_view argument) {
        return argument == "--help" || argument == "-h" || argument == "--help-all" ||
               argument == "--version" || argument == "-v";
    });
}

} // namespace

int main(int argc, char** argv) {
    using namespace zor;

    if (wantsText(argc, argv)) {
        QCoreApplication application(argc, argv);
        nameProgram();
        readSwitches(application);
        return 0;
    }
    QApplication application(argc, argv);
    nameProgram();
    QApplication::setApplicationDisplayName(QString());
    // The main form says when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);
    Switches switches = readSwitches(application);
    QApplication::setStyle(new InstrumentStyle);
    if (switches.scheme) {
        QApplication::setPalette(schemePalette(*switches.scheme));
    }

    SerialDevices devices;
    DemoBoard board;
    if (switches.demo) {
        board.farEnd = switches.farEnd;
        // The tour shows what goes over the wire, and a chip that has something to say.
        QString terminal =
            switches.pictures.isEmpty()
                ? board.start()
                : board.start({QStringLiteral("--kind"), QStringLiteral("lb2"), QStringLiteral("--status"),
                               QStringLiteral("46,C1"), QStringLiteral("--irq"), QStringLiteral("low"),
                               QStringLiteral("--trace")});
        if (terminal.isEmpty()) {
            std::fputs("zor: the simulated board cannot be started\n", stderr);
            return 1;
        }
        devices.addDevice(fromQt(terminal), "LoadBoard");
    }

    QtLoop loop;
    QtSerialPorts ports(loop, devices);
    LinuxUsbDriver usb(devices);
    QtDialogs dialogs;
    QtSurroundings surroundings;
    store::SqliteRegisterStores registerStores;
    Platform platform{
        .loop = loop,
        .ports = ports,
        .usb = usb,
        .dialogs = dialogs,
        .surroundings = surroundings,
        .registerStores = registerStores,
        .programFolder = fromQt(QCoreApplication::applicationDirPath()),
        .userFolder = fromQt(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)),
        .startDatabase = fromQt(
            QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("../Registers/ZOR.db"))),
        .decimalMark = QLocale().decimalPoint() == QLatin1String(",") ? ',' : '.',
    };
    Desk desk(loop);
    Subscription mounting;
    if (switches.demo) {
        mounting = desk.opened.subscribe([&board](Form& form) {
            if (const auto* panel = dynamic_cast<ChipPanel*>(&form)) {
                // "KT1100 transmitter control panel"
                board.mount(toQt(panel->traits().title).section(QLatin1Char(' '), 0, 0).toLower());
            } else if (form.name() == "eeprom") {
                board.mountEeprom();
            }
        });
    }
    MainWindow main(platform, desk);
    DesktopWindow desktopWindow(main);
    DemoTour tour(main, desktopWindow, QDir(switches.pictures),
                  schemeOf(application.palette()) == Scheme::Dark ? QStringLiteral("dark-")
                                                                  : QStringLiteral("light-"));
    tour.tellBoard = [&board](const QString& statement) { board.tell(statement); };
    if (!switches.pictures.isEmpty()) {
        QTimer::singleShot(0, [&] { loop.perform([&] { tour.play(); }); });
    }
    // Closing during the start-up ends the program too; there is nothing to run then.
    loop.perform([&] { main.start(); });
    if (switches.exitWhenShown) {
        new FirstPaint(desktopWindow, [&] { main.userClose(); });
    }
    return loop.leaving() ? 0 : QApplication::exec();
}
