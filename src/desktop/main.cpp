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
#include "desktop/program_folders.h"
#include "desktop/start_page.h"
#include "desktop/transcript_run.h"
#include "desktop/views/pictures.h"
#include "desktop/widgets/colours.h"
#include "desktop/widgets/instrument_style.h"
#include "elements/watched_dialogs.h"
#include "panels/common/chip_panel.h"
#include "shell/about.h"
#include "shell/main_window.h"
#include "store/sqlite_register_store.h"
#include "transcript/station.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
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
    /// A serial device to offer first.
    QString port;
    /// A chip's configuration file to open.
    QString file;
    /// What the simulated board is to be like.
    QStringList board;
    /// A transcript to play without a window.
    zor::TranscriptRun::Switches run;
};

/// Options of the simulated board that the demo takes over, by the same names.
struct BoardOption {
    const char* name;
    const char* value;
    const char* meaning;
};
constexpr std::array boardOptions = {
    BoardOption{"kind", "KIND", "With --demo: the board, lb1, lb2 (the default), loader, monitor or silent."},
    BoardOption{"delay", "MS", "With --demo: every answer comes so much later."},
    BoardOption{"mute-after", "N", "With --demo: nothing is said after N answers."},
    BoardOption{"refuse", "LINE", "With --demo: the next such line is refused; may stand several times."},
    BoardOption{"refusal-rate", "RATE", "With --demo: chance, 0 to 1, that a success is told as a refusal."},
    BoardOption{"noise", "RATE", "With --demo: chance, 0 to 1, of garbage in front of each character."},
    BoardOption{"split", "N", "With --demo: answers come in pieces of N characters."},
    BoardOption{"seed", "N", "With --demo: the same seed gives the same faults."},
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
    QCommandLineOption port(QStringLiteral("port"),
                            QStringLiteral("Offer this serial device as the first port, for example "
                                           "/dev/ttyUSB3 or a name in /dev/serial/by-id."),
                            QStringLiteral("PATH"));
    QCommandLineOption transcript(
        QStringLiteral("play"),
        QStringLiteral("Play this transcript without a window and end; the exit status "
                       "is 0 if everything in it was found as it says, 1 if not, 2 if "
                       "it cannot be played."),
        QStringLiteral("TRANSCRIPT"));
    QCommandLineOption report(QStringLiteral("report"),
                              QStringLiteral("With --play: write the results there as a JUnit report."),
                              QStringLiteral("FILE.xml"));
    QCommandLineOption limit(QStringLiteral("limit"),
                             QStringLiteral("With --play: break off after so many seconds (3600)."),
                             QStringLiteral("SECONDS"), QStringLiteral("3600"));
    parser.addOptions({demo, port, light, dark, play, exitWhenShown, transcript, report, limit});
    for (const BoardOption& option : boardOptions) {
        parser.addOption({QString::fromLatin1(option.name), QString::fromLatin1(option.meaning),
                          QString::fromLatin1(option.value)});
    }
    parser.addPositionalArgument(
        QStringLiteral("FILE"),
        QStringLiteral("A chip's configuration file (.tc, .tc1, .tc2, .rc, .rc2, .trc, "
                       ".lrc): its panel is opened with it."),
        QStringLiteral("[FILE]"));
    parser.process(application);
    Switches switches;
    switches.port = parser.value(port);
    for (const BoardOption& option : boardOptions) {
        for (const QString& value : parser.values(QString::fromLatin1(option.name))) {
            switches.board << QStringLiteral("--") + QString::fromLatin1(option.name) << value;
        }
    }
    if (parser.positionalArguments().size() > 1) {
        std::fputs("zor: only one file can be opened at a time\n", stderr);
        std::exit(2);
    }
    switches.file = parser.positionalArguments().value(0);
    switches.pictures = parser.value(play);
    switches.exitWhenShown = parser.isSet(exitWhenShown);
    switches.demo = parser.isSet(demo) || !switches.pictures.isEmpty();
    if (!switches.demo && !switches.board.isEmpty()) {
        std::fprintf(stderr, "zor: %s needs --demo\n", switches.board.constFirst().toLocal8Bit().constData());
        std::exit(2);
    }
    if (!switches.board.contains(QStringLiteral("--kind"))) {
        switches.board << QStringLiteral("--kind") << QStringLiteral("lb2");
    }
    if (parser.isSet(dark)) {
        switches.scheme = zor::Scheme::Dark;
    } else if (parser.isSet(light)) {
        switches.scheme = zor::Scheme::Light;
    }
    switches.farEnd = parser.value(farEnd);
    bool isNumber = false;
    switches.run = {parser.value(transcript), parser.value(report),
                    std::chrono::seconds(parser.value(limit).toInt(&isNumber))};
    bool plays = parser.isSet(transcript);
    if (plays ? !switches.pictures.isEmpty() || switches.exitWhenShown
              : parser.isSet(report) || parser.isSet(limit)) {
        std::fputs(plays ? "zor: --play cannot be combined with --play-demo and --exit-when-shown\n"
                         : "zor: --report and --limit need --play\n",
                   stderr);
        std::exit(2);
    }
    if (!isNumber || switches.run.limit.count() < 1 || (plays && switches.run.file.isEmpty())) {
        std::fputs(plays && switches.run.file.isEmpty() ? "zor: --play needs a transcript\n"
                                                        : "zor: --limit needs a number of seconds\n",
                   stderr);
        std::exit(2);
    }
    return switches;
}

/// The simulated board bears the chip whose panel opens, as an engineer would mount it.
zor::Subscription mountOnOpening(zor::Desk& desk, zor::DemoBoard& board,
                                 const std::filesystem::path& registers) {
    return desk.opened.subscribe([&board, registers](zor::Form& form) {
        if (const auto* panel = dynamic_cast<zor::ChipPanel*>(&form)) {
            // "KT1100 transmitter control panel"
            board.mount(zor::toQt(panel->traits().title).section(QLatin1Char(' '), 0, 0).toLower());
        } else if (form.name() == "eeprom") {
            board.mountEeprom();
        } else if (form.name() == "SPI") {
            board.mountRegisters(zor::toQt(registers.string()));
        }
    });
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

/// A transcript is played where there may be no display.
bool playsTranscript(int argc, char** argv) {
    return std::any_of(argv + 1, argv + argc, [](std::string_view argument) {
        return argument == "--play" || argument.starts_with("--play=");
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
    if (playsTranscript(argc, argv)) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    nameProgram();
    QApplication::setApplicationDisplayName(QString());
    // The main form says when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);
    Switches switches = readSwitches(application);
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
    DemoBoard board;
    std::string demoTerminal;
    if (switches.demo) {
        board.farEnd = switches.farEnd;
        // The tour shows what goes over the wire, and a chip that has something to say.
        QString terminal =
            switches.pictures.isEmpty()
                ? board.start(switches.board)
                : board.start(switches.board << QStringLiteral("--status") << QStringLiteral("46,C1")
                                             << QStringLiteral("--irq") << QStringLiteral("low")
                                             << QStringLiteral("--trace"));
        if (terminal.isEmpty()) {
            std::fputs("zor: the simulated board cannot be started\n", stderr);
            return 1;
        }
        demoTerminal = fromQt(terminal);
        devices.addDevice(demoTerminal, "LoadBoard");
        devices.beforeNumbering = [&] {
            if (board.died()) {
                std::string fresh = fromQt(board.startAgain());
                devices.moveDevice(demoTerminal, fresh);
                demoTerminal = fresh;
            }
        };
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
    const std::filesystem::path registers = folders.companions / "Registers" / "registers.txt";
    Desk desk(loop);
    Subscription mounting;
    if (switches.demo) {
        mounting = mountOnOpening(desk, board, registers);
    }
    MainWindow main(platform, desk);
    transcript::Station station(main, watchedDialogs);
    // Pictures and measurements are of the window as it is meant, whatever screen there is.
    bool asMeant = !switches.pictures.isEmpty() || switches.exitWhenShown || !switches.run.file.isEmpty();
    DesktopWindow desktopWindow(main, asMeant ? [] { return std::vector<QRect>(); }
                                              : DesktopWindow::Screens(availableScreens));
    if (!switches.demo) {
        desktopWindow.startPage().offerDemo([&] {
            QString terminal = board.start();
            if (terminal.isEmpty()) {
                main.bench().notice("The simulated board cannot be started.");
                return;
            }
            devices.addDevice(fromQt(terminal), "LoadBoard");
            mounting = mountOnOpening(desk, board, registers);
            main.linkBar.Connect.click();
        });
    }
    DemoTour tour(main, desktopWindow, QDir(switches.pictures),
                  schemeOf(application.palette()) == Scheme::Dark ? QStringLiteral("dark-")
                                                                  : QStringLiteral("light-"));
    tour.tellBoard = [&board](const QString& statement) { board.tell(statement); };
    tour.loadTranscript = [&station](const std::string& file) { station.player().load(file); };
    if (!switches.pictures.isEmpty()) {
        QTimer::singleShot(0, [&] { loop.perform([&] { tour.play(); }); });
    }
    std::unique_ptr<TranscriptRun> run;
    if (!switches.run.file.isEmpty()) {
        run = std::make_unique<TranscriptRun>(main, station, watchedDialogs, switches.run);
        if (!run->load()) {
            return 2;
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
