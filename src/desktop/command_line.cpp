// SPDX-License-Identifier: MIT
#include "desktop/command_line.h"

#include "desktop/adapters/qt_text.h"
#include "shell/about.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

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

/// Options that the toolkit takes out of the line before it is read again, with one dash or two.
constexpr std::array toolkitOptions = {
    "platform", "platformpluginpath", "platformtheme", "plugin",  "style",   "stylesheet",
    "display",  "qwindowgeometry",    "geometry",      "session", "reverse", "qwindowtitle",
    "title",    "qwindowicon",        "icon",          "name",    "nograb",  "dograb",
};

/// Everything that `zor` may be called with.
class Options {
  public:
    Options() {
        parser.setApplicationDescription(QString::fromLatin1(productTitle));
        parser.addHelpOption();
        parser.addVersionOption();
        parser.addOption(farEnd);
        parser.addOptions({demo, port, light, dark, pictures, exitWhenShown, transcript, report, limit});
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

    [[nodiscard]] bool plays() const { return parser.isSet(transcript); }
    /// An option that is neither the program's nor the toolkit's, in a sentence; empty if there is none.
    [[nodiscard]] std::string stranger() const;
    /// What does not go together, or has no sense, in a sentence; empty if all is well.
    [[nodiscard]] std::string fault() const;
    [[nodiscard]] CommandLine taken() const;

    QCommandLineParser parser;

  private:
    using Option = QCommandLineOption;

    [[nodiscard]] QStringList boardSwitches() const;
    [[nodiscard]] QString boardOptionWithoutDemo() const;

    Option demo{QStringLiteral("demo"), QStringLiteral("Offer a simulated board as the first port.")};
    Option farEnd{QStringLiteral("far-end"),
                  QStringLiteral("With --demo: who is on the air, silent, numbered (a packet a second), echo "
                                 "(what it heard), carrier, or lively (all of it; the default)."),
                  QStringLiteral("WHO"), QStringLiteral("lively")};
    Option light{QStringLiteral("light"), QStringLiteral("Light colours, whatever the desktop has.")};
    Option dark{QStringLiteral("dark"), QStringLiteral("Dark colours, whatever the desktop has.")};
    Option pictures{QStringLiteral("play-demo"),
                    QStringLiteral("Walk through the demo and leave a picture of every window."),
                    QStringLiteral("folder")};
    Option exitWhenShown{QStringLiteral("exit-when-shown"),
                         QStringLiteral("End as soon as the window is painted; for measuring the start.")};
    Option port{QStringLiteral("port"),
                QStringLiteral("Offer this serial device as the first port, for example /dev/ttyUSB3 or a "
                               "name in /dev/serial/by-id."),
                QStringLiteral("PATH")};
    Option transcript{QStringLiteral("play"),
                      QStringLiteral("Play this transcript without a window and end; the exit status is 0 if "
                                     "everything in it was found as it says, 1 if not, 2 if it cannot be "
                                     "played."),
                      QStringLiteral("TRANSCRIPT")};
    Option report{QStringLiteral("report"),
                  QStringLiteral("With --play: write the results there as a JUnit report."),
                  QStringLiteral("FILE.xml")};
    Option limit{QStringLiteral("limit"),
                 QStringLiteral("With --play: break off after so many seconds (3600)."),
                 QStringLiteral("SECONDS"), QStringLiteral("3600")};
};

QStringList Options::boardSwitches() const {
    QStringList given;
    for (const BoardOption& option : boardOptions) {
        for (const QString& value : parser.values(QString::fromLatin1(option.name))) {
            given << QStringLiteral("--") + QString::fromLatin1(option.name) << value;
        }
    }
    return given;
}

QString Options::boardOptionWithoutDemo() const {
    bool simulated = parser.isSet(demo) || !parser.value(pictures).isEmpty();
    return simulated ? QString() : boardSwitches().value(0);
}

std::string Options::stranger() const {
    QStringList unknown = parser.unknownOptionNames();
    auto found = std::find_if(unknown.begin(), unknown.end(), [](const QString& name) {
        return std::find(toolkitOptions.begin(), toolkitOptions.end(), fromQt(name)) == toolkitOptions.end();
    });
    return found == unknown.end() ? std::string() : "unknown option \"--" + fromQt(*found) + "\"";
}

std::string Options::fault() const {
    bool isNumber = false;
    int seconds = parser.value(limit).toInt(&isNumber);
    if (parser.positionalArguments().size() > 1) {
        return "only one file can be opened at a time";
    }
    if (QString lonely = boardOptionWithoutDemo(); !lonely.isEmpty()) {
        return fromQt(lonely) + " needs --demo";
    }
    if (parser.isSet(pictures) && parser.value(pictures).isEmpty()) {
        return "--play-demo needs a folder";
    }
    if (plays() && (!parser.value(pictures).isEmpty() || parser.isSet(exitWhenShown))) {
        return "--play cannot be combined with --play-demo and --exit-when-shown";
    }
    if (!plays() && (parser.isSet(report) || parser.isSet(limit))) {
        return "--report and --limit need --play";
    }
    if (plays() && parser.value(transcript).isEmpty()) {
        return "--play needs a transcript";
    }
    return !isNumber || seconds < 1 ? "--limit needs a number of seconds" : std::string();
}

CommandLine Options::taken() const {
    CommandLine line;
    line.pictures = parser.value(pictures);
    line.demo = parser.isSet(demo) || !line.pictures.isEmpty();
    line.farEnd = parser.value(farEnd);
    line.exitWhenShown = parser.isSet(exitWhenShown);
    if (parser.isSet(dark)) {
        line.scheme = Scheme::Dark;
    } else if (parser.isSet(light)) {
        line.scheme = Scheme::Light;
    }
    line.port = parser.value(port);
    line.file = parser.positionalArguments().value(0);
    line.board = boardSwitches();
    if (!line.board.contains(QStringLiteral("--kind"))) {
        line.board << QStringLiteral("--kind") << QStringLiteral("lb2");
    }
    line.run = {parser.value(transcript), parser.value(report),
                std::chrono::seconds(parser.value(limit).toInt())};
    return line;
}

void endWith(const std::string& fault) {
    std::fprintf(stderr, "zor: %s\n", fault.c_str());
    std::exit(CommandLine::cannotBeDone);
}

void endIfFaulty(const Options& options) {
    if (std::string fault = options.fault(); !fault.empty()) {
        endWith(fault);
    }
}

void nameProgram() {
    QCoreApplication::setApplicationName(QStringLiteral("zor"));
    QCoreApplication::setApplicationVersion(toQt(productVersion()));
}

} // namespace

bool CommandLine::lookAhead(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    nameProgram();
    Options options;
    // The toolkit's own options begin with one dash and are words; read as letters they would ask for
    // something else.
    options.parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    bool known = options.parser.parse(QCoreApplication::arguments());
    if (options.parser.isSet(QStringLiteral("help")) || options.parser.isSet(QStringLiteral("help-all"))) {
        options.parser.showHelp();
    }
    if (options.parser.isSet(QStringLiteral("version"))) {
        options.parser.showVersion();
    }
    if (known) {
        endIfFaulty(options);
    } else if (std::string stranger = options.stranger(); !stranger.empty()) {
        // Told here, before there is need of a display.
        endWith(stranger);
    } else if (options.parser.unknownOptionNames().isEmpty()) {
        endWith(fromQt(options.parser.errorText()));
    }
    return options.plays();
}

CommandLine CommandLine::read(const QCoreApplication& application) {
    nameProgram();
    Options options;
    options.parser.process(application);
    endIfFaulty(options);
    return options.taken();
}

} // namespace zor
