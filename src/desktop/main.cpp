// SPDX-License-Identifier: MIT
#include "desktop/adapters/linux_usb_driver.h"
#include "desktop/adapters/qt_dialogs.h"
#include "desktop/adapters/qt_loop.h"
#include "desktop/adapters/qt_serial_port.h"
#include "desktop/adapters/qt_surroundings.h"
#include "desktop/adapters/qt_text.h"
#include "desktop/command_line.h"
#include "desktop/demo_port.h"
#include "desktop/demo_tour.h"
#include "desktop/desktop_window.h"
#include "desktop/first_paint.h"
#include "desktop/program_folders.h"
#include "desktop/start_page.h"
#include "desktop/transcript_run.h"
#include "desktop/views/pictures.h"
#include "desktop/widgets/instrument_style.h"
#include "elements/watched_dialogs.h"
#include "shell/main_window.h"
#include "store/sqlite_register_store.h"
#include "transcript/station.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

#include <cstdio>
#include <memory>

int main(int argc, char** argv) {
    using namespace zor;

    if (CommandLine::lookAhead(argc, argv)) {
        // A transcript is played where there may be no display.
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QString());
    // The main form says when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);
    CommandLine switches = CommandLine::read(application);
    QApplication::setStyle(new InstrumentStyle);
    QApplication::setWindowIcon(productIcon());
    if (switches.scheme) {
        QApplication::setPalette(schemePalette(*switches.scheme));
    }

    if (!switches.pictures.isEmpty() && !DemoTour::canWriteTo(QDir(switches.pictures))) {
        std::fprintf(stderr, "zor: pictures cannot be written to %s\n",
                     switches.pictures.toLocal8Bit().constData());
        return 1;
    }
    SerialDevices devices;
    if (!switches.port.isEmpty()) {
        devices.putFirst(fromQt(switches.port));
    }
    DemoPort demo(devices);
    demo.board.farEnd = switches.farEnd;
    if (switches.demo) {
        // The tour shows what goes over the wire, and a chip that has something to say.
        QStringList ofTheTour{QStringLiteral("--status"), QStringLiteral("46,C1"), QStringLiteral("--irq"),
                              QStringLiteral("low"), QStringLiteral("--trace")};
        if (!demo.offer(switches.pictures.isEmpty() ? switches.board : switches.board + ofTheTour)) {
            std::fputs("zor: the simulated board cannot be started\n", stderr);
            return switches.run.file.isEmpty() ? 1 : CommandLine::cannotBeDone;
        }
    }

    QtLoop loop;
    QtSerialPorts ports(loop, devices);
    LinuxUsbDriver usb(devices);
    QtDialogs dialogs;
    WatchedDialogs watchedDialogs(dialogs);
    QtSurroundings surroundings;
    store::SqliteRegisterStores registerStores;
    ProgramFolders folders =
        ProgramFolders::find(fromQt(QCoreApplication::applicationDirPath()),
                             fromQt(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
    Platform platform{
        .loop = loop,
        .ports = ports,
        .usb = usb,
        .dialogs = watchedDialogs,
        .surroundings = surroundings,
        .registerStores = registerStores,
        .programFolder = folders.program,
        .userFolder = fromQt(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)),
        .startDatabase = folders.companions / "Registers" / "ZOR.db",
        .documentFolder = folders.companions / "Documentation",
        .decimalMark = QLocale().decimalPoint() == QLatin1String(",") ? ',' : '.',
    };
    Desk desk(loop);
    Subscription mounting = demo.mountOnOpening(desk, folders.companions / "Registers" / "registers.txt");
    MainWindow main(platform, desk);
    transcript::Station station(main, watchedDialogs);
    // Pictures and measurements are of the window as it is meant, whatever screen there is.
    bool asMeant = !switches.pictures.isEmpty() || switches.exitWhenShown || !switches.run.file.isEmpty();
    DesktopWindow desktopWindow(main,
                                asMeant ? [] { return std::vector<QRect>(); } : Screens(availableScreens));
    if (!switches.demo) {
        desktopWindow.startPage().offerDemo([&] {
            if (!demo.offer(switches.board)) {
                main.bench().notice("The simulated board cannot be started.");
                return false;
            }
            main.linkBar.Connect.click();
            return true;
        });
    }
    DemoTour tour(main, desktopWindow, QDir(switches.pictures),
                  schemeOf(application.palette()) == Scheme::Dark ? QStringLiteral("dark-")
                                                                  : QStringLiteral("light-"));
    tour.tellBoard = [&demo](const QString& statement) { demo.board.tell(statement); };
    tour.loadTranscript = [&station](const std::string& file) { station.player().load(file); };
    if (!switches.pictures.isEmpty()) {
        QTimer::singleShot(0, [&] { loop.perform([&] { tour.play(); }); });
    }
    std::unique_ptr<TranscriptRun> run;
    if (!switches.run.file.isEmpty()) {
        run = std::make_unique<TranscriptRun>(main, station, watchedDialogs, switches.run);
        if (!run->load()) {
            return CommandLine::cannotBeDone;
        }
    }
    // Closing during the start-up ends the program too; there is nothing to run then.
    loop.perform([&] {
        main.start();
        if (!switches.file.isEmpty()) {
            main.openFile(fromQt(QFileInfo(switches.file).absoluteFilePath()));
        }
    });
    if (run) {
        run->begin();
    }
    if (switches.exitWhenShown) {
        new FirstPaint(desktopWindow, [&] { main.userClose(); });
    }
    int ending = loop.leaving() ? 0 : QApplication::exec();
    if (tour.failed()) {
        std::fprintf(stderr, "zor: a picture could not be written to %s\n",
                     switches.pictures.toLocal8Bit().constData());
        return 1;
    }
    return run ? run->finish() : ending;
}
