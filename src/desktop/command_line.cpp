// SPDX-License-Identifier: MIT
#include "desktop/command_line.h"

#include "platform/dialogs.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace zor {

namespace {

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

/// The program's own options, in the order in which help lists them.
struct ProgramOptions {
    QCommandLineOption farEnd{
        QStringLiteral("far-end"),
        QStringLiteral("With --demo: who is on the air, silent, numbered (a packet a second), echo (what it "
                       "heard), carrier, or lively (all of it; the default)."),
        QStringLiteral("WHO"), QStringLiteral("lively")};
    QCommandLineOption demo{QStringLiteral("demo"),
                            QStringLiteral("Offer a simulated board as the first port.")};
    QCommandLineOption port{QStringLiteral("port"),
                            QStringLiteral("Offer this serial device as the first port, for example "
                                           "/dev/ttyUSB3 or a name in /dev/serial/by-id."),
                            QStringLiteral("PATH")};
    QCommandLineOption light{QStringLiteral("light"),
                             QStringLiteral("Light colours, whatever the desktop has.")};
    QCommandLineOption dark{QStringLiteral("dark"),
                            QStringLiteral("Dark colours, whatever the desktop has.")};
    QCommandLineOption pictures{QStringLiteral("play-demo"),
                                QStringLiteral("Walk through the demo and leave a picture of every window."),
                                QStringLiteral("folder")};
    QCommandLineOption exitWhenShown{
        QStringLiteral("exit-when-shown"),
        QStringLiteral("End as soon as the window is painted; for measuring the start.")};
    QCommandLineOption transcript{
        QStringLiteral("play"),
        QStringLiteral("Play this transcript without a window and end; the exit status is 0 if everything in "
                       "it was found as it says, 1 if not, 2 if it cannot be played."),
        QStringLiteral("TRANSCRIPT")};
    QCommandLineOption report{QStringLiteral("report"),
                              QStringLiteral("With --play: write the results there as a JUnit report."),
                              QStringLiteral("FILE.xml")};
    QCommandLineOption limit{QStringLiteral("limit"),
                             QStringLiteral("With --play: break off after so many seconds (3600)."),
                             QStringLiteral("SECONDS"), QStringLiteral("3600")};
};

void describe(QCommandLineParser& parser, const ProgramOptions& options) {
    parser.setApplicationDescription(QString::fromLatin1(productTitle));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({options.farEnd, options.demo, options.port, options.light, options.dark,
                       options.pictures, options.exitWhenShown, options.transcript, options.report,
                       options.limit});
    for (const BoardOption& option : boardOptions) {
        parser.addOption({QString::fromLatin1(option.name), QString::fromLatin1(option.meaning),
                          QString::fromLatin1(option.value)});
    }
    parser.addPositionalArgument(
        QStringLiteral("FILE"),
        QStringLiteral("A chip's configuration file (.tc, .tc1, .tc2, .rc, .rc2, .trc, "
                       ".lrc): its panel is opened with it."),
        QStringLiteral("[FILE]"));
}

/// Tells what is wrong with the arguments and ends the program.
[[noreturn]] void refuse(const QString& what) {
    std::fprintf(stderr, "zor: %s\n", what.toLocal8Bit().constData());
    std::exit(2);
}

QStringList readBoard(const QCommandLineParser& parser, bool demo) {
    QStringList board;
    for (const BoardOption& option : boardOptions) {
        for (const QString& value : parser.values(QString::fromLatin1(option.name))) {
            board << QStringLiteral("--") + QString::fromLatin1(option.name) << value;
        }
    }
    if (!demo && !board.isEmpty()) {
        refuse(board.constFirst() + QStringLiteral(" needs --demo"));
    }
    if (!board.contains(QStringLiteral("--kind"))) {
        board << QStringLiteral("--kind") << QStringLiteral("lb2");
    }
    return board;
}

TranscriptRun::Switches readRun(const QCommandLineParser& parser, const ProgramOptions& options) {
    bool isNumber = false;
    int limit = parser.value(options.limit).toInt(&isNumber);
    bool plays = parser.isSet(options.transcript);
    if (plays && (parser.isSet(options.pictures) || parser.isSet(options.exitWhenShown))) {
        refuse(QStringLiteral("--play cannot be combined with --play-demo and --exit-when-shown"));
    }
    if (!plays && (parser.isSet(options.report) || parser.isSet(options.limit))) {
        refuse(QStringLiteral("--report and --limit need --play"));
    }
    if (plays && parser.value(options.transcript).isEmpty()) {
        refuse(QStringLiteral("--play needs a transcript"));
    }
    if (!isNumber || limit < 1) {
        refuse(QStringLiteral("--limit needs a number of seconds"));
    }
    return {parser.value(options.transcript), parser.value(options.report), std::chrono::seconds(limit)};
}

} // namespace

CommandLine readCommandLine(const QCoreApplication& application) {
    const ProgramOptions options;
    QCommandLineParser parser;
    describe(parser, options);
    parser.process(application);
    if (parser.positionalArguments().size() > 1) {
        refuse(QStringLiteral("only one file can be opened at a time"));
    }
    CommandLine line;
    line.pictures = parser.value(options.pictures);
    if (parser.isSet(options.pictures) && line.pictures.isEmpty()) {
        refuse(QStringLiteral("--play-demo needs a folder"));
    }
    line.exitWhenShown = parser.isSet(options.exitWhenShown);
    line.demo = parser.isSet(options.demo) || !line.pictures.isEmpty();
    line.farEnd = parser.value(options.farEnd);
    line.port = parser.value(options.port);
    line.file = parser.positionalArguments().value(0);
    line.board = readBoard(parser, line.demo);
    if (parser.isSet(options.dark)) {
        line.scheme = Scheme::Dark;
    } else if (parser.isSet(options.light)) {
        line.scheme = Scheme::Light;
    }
    line.run = readRun(parser, options);
    return line;
}

bool wantsText(int argc, char** argv) {
    return std::any_of(argv + 1, argv + argc, [](std::string_view argument) {
        return argument == "--help" || argument == "-h" || argument == "--help-all" ||
               argument == "--version" || argument == "-v";
    });
}

bool playsTranscript(int argc, char** argv) {
    return std::any_of(argv + 1, argv + argc, [](std::string_view argument) {
        return argument == "--play" || argument.starts_with("--play=");
    });
}

} // namespace zor
