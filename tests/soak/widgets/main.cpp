// SPDX-License-Identifier: MIT
// The whole program with its real widgets, dialogs and serial port, a simulated board on a pseudo-terminal,
// and a random hand at mouse and keyboard. Each session is a process of its own and takes real time; what
// goes wrong (a fault that a sanitizer sees, a program that hangs, a port that stays taken, a control that
// does not show its element) leaves the session's gestures in a file.
#include "desktop/adapters/linux_usb_driver.h"
#include "desktop/adapters/qt_dialogs.h"
#include "desktop/adapters/qt_serial_port.h"
#include "desktop/demo_port.h"
#include "desktop/views_of_test.h"
#include "desktop/widgets/instrument_style.h"
#include "elements/watched_dialogs.h"
#include "soak/widgets/random_hand.h"
#include "transcript/station.h"

#include <QApplication>
#include <QFile>
#include <QMdiSubWindow>
#include <QStandardPaths>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <thread>

#include <csignal>

#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

/// A program that hangs is aborted; the sanitizer then says in what.
extern "C" const char* __asan_default_options() { // NOLINT(bugprone-reserved-identifier)
    return "handle_abort=1";
}

namespace zor {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr int pauseBetween = 15; // ms
/// Without a single gesture in so many turns of the watcher, a minute of them, the program hangs. They are
/// counted, not timed: a session that was stopped as a whole and goes on has not hung meanwhile.
constexpr auto watchesEvery = 200ms;
constexpr int hangsAfter = 300;
/// So long a program may take to come to rest behind a session.
constexpr auto restsWithin = 60s;
constexpr int looksEvery = 25; // gestures

struct Options {
    unsigned seed = 1;
    int minutes = 30;
    int seconds = 60;
    bool session = false;
};

/// The one that the build made for the program.
std::filesystem::path startDatabase() {
    std::filesystem::path made = QCoreApplication::applicationDirPath().toStdString() + "/../data/ZOR.db";
    return std::filesystem::exists(made) ? made : std::filesystem::path();
}

class Session {
  public:
    explicit Session(const Options& options)
        : log("widgets-" + std::to_string(options.seed) + ".log")
        , hand(options.seed, QDir(folder.path()), demo.board, [this](const QString& what) { note(what); })
        , end(Clock::now() + std::chrono::seconds(options.seconds)) {
        QStringList arguments = {"--kind",  options.seed % 5 == 4 ? "lb1" : "lb2",
                                 "--chip",  options.seed % 2 == 0 ? "kt1100" : "kt3100",
                                 "--noise", options.seed % 3 == 2 ? "0.002" : "0",
                                 "--seed",  QString::number(options.seed)};
        demo.board.farEnd = QStringLiteral("lively");
        offered = demo.offer(arguments);
    }

    /// @return whether all went well
    bool run() {
        if (!offered) {
            wrong("the simulated board cannot be started");
            return false;
        }
        std::thread watch([this] { watchForHangs(); });
        loop.perform([this] { main.start(); });
        next();
        if (!loop.leaving()) {
            QApplication::exec();
        }
        done = true;
        watch.join();
        std::cout << gestures << " gestures\n";
        return well;
    }

  private:
    void note(const QString& what) {
        // Out of the program's hands at once: it may not outlive the gesture.
        log << what.toStdString() << std::endl;
    }

    void wrong(const std::string& what) {
        note(QString::fromStdString("WRONG: " + what));
        std::cerr << what << "\n";
        well = false;
    }

    void watchForHangs() {
        std::uint64_t seen = beats;
        int watchedInVain = 0;
        while (!done) {
            std::this_thread::sleep_for(watchesEvery);
            if (beats != seen) {
                seen = beats;
                watchedInVain = 0;
            } else if (++watchedInVain > hangsAfter) {
                std::cerr << "the program hangs\n";
                // There it is told where it hangs.
                ::pthread_kill(program, SIGABRT);
                std::this_thread::sleep_for(10s);
                std::abort();
            }
        }
    }

    /// The next one is due before this one is made: it may open a dialog that waits in it.
    void next() {
        QTimer::singleShot(pauseBetween, Qt::PreciseTimer, qApp, [this] {
            ++beats;
            if (done || loop.leaving()) {
                return;
            }
            next();
            if (Clock::now() < end) {
                ++gestures;
                hand.act();
                if (gestures % looksEvery == 0) {
                    look();
                }
            } else {
                comeToRest();
            }
        });
    }

    /// Every control that its element shows is on the screen.
    void look() {
        for (Form* form : desk.forms()) {
            FormWindow* shown = form->isOpen() ? window.windowOf(*form) : nullptr;
            const auto* panel = dynamic_cast<const ChipPanel*>(form);
            // The status area may be folded in; and a chip without revisions has no group for them.
            const Element* revision = form->find("Revision");
            bool folded =
                (panel != nullptr && !panel->statusShown()) || (revision != nullptr && !revision->shown());
            if (shown != nullptr && shown->shell().isVisible() && !folded) {
                if (QStringList hidden = wronglyHidden(shown->content()); !hidden.isEmpty()) {
                    wrong(form->name() + " hides " + hidden.join(" ").toStdString());
                }
            }
        }
    }

    /// Behind the session everything is put in order and closed; the program has to follow.
    void comeToRest() {
        if (!resting) {
            resting = true;
            restsUntil = Clock::now() + restsWithin;
            note("the session is over");
            demo.board.tell("unmute");
            demo.board.tell("delay 0");
        }
        if (Clock::now() > restsUntil) {
            wrong("the program does not come to rest, port held by step " +
                  std::to_string(main.bench().link.CommState()));
            std::_Exit(1);
        }
        if (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        } else if (QWidget* modal = QApplication::activeModalWidget()) {
            modal->close();
        } else if (Form* form = someOpenForm()) {
            form->userClose();
        } else if (main.bench().link.CommState() == 0 && main.isOpen()) {
            main.userClose();
        }
    }

    [[nodiscard]] Form* someOpenForm() const {
        for (Form* form : desk.forms()) {
            if (form->isOpen() && form->acceptsUser() && form->kind() != Form::Kind::Main) {
                return form;
            }
        }
        return nullptr;
    }

    QTemporaryDir folder;
    std::ofstream log;
    QtLoop loop;
    SerialDevices devices{"/dev", folder.path().toStdString()};
    QtSerialPorts ports{loop, devices};
    LinuxUsbDriver usb{devices};
    QtDialogs dialogs;
    WatchedDialogs watchedDialogs{dialogs};
    NoSurroundings surroundings;
    store::SqliteRegisterStores registerStores;
    Platform platform{loop,
                      ports,
                      usb,
                      watchedDialogs,
                      surroundings,
                      registerStores,
                      folder.path().toStdString(),
                      folder.path().toStdString(),
                      startDatabase()};
    DemoPort demo{devices};
    bool offered = false;
    Desk desk{loop};
    MainWindow main{platform, desk};
    transcript::Station station{main, watchedDialogs};
    DesktopWindow window{main};
    RandomHand hand;
    Clock::time_point end;
    Clock::time_point restsUntil;
    /// The thread that the program runs in.
    pthread_t program = ::pthread_self();
    std::atomic<std::uint64_t> beats = 0;
    std::atomic<bool> done = false;
    int gestures = 0;
    bool resting = false;
    bool well = true;
};

bool startApart(const char* program, unsigned seed, int seconds) {
    pid_t child = ::fork();
    if (child == 0) {
        std::string seedText = std::to_string(seed);
        std::string secondsText = std::to_string(seconds);
        ::execl(program, program, "--session", seedText.c_str(), "--seconds", secondsText.c_str(), nullptr);
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    std::string log = "widgets-" + std::to_string(seed) + ".log";
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) {
        ::unlink(log.c_str());
        return true;
    }
    std::cout << "seed " << seed << " went wrong; its gestures are in " << log << std::endl;
    return false;
}

Options optionsOf(int count, char** arguments) {
    Options options;
    for (int at = 1; at + 1 < count; at += 2) {
        std::string_view name = arguments[at];
        int value = std::atoi(arguments[at + 1]);
        if (name == "--seed" || name == "--session") {
            options.seed = static_cast<unsigned>(value);
            options.session = name == "--session";
        } else if (name == "--minutes") {
            options.minutes = value;
        } else if (name == "--seconds") {
            options.seconds = value;
        } else {
            std::cerr << "usage: zor-widget-soak [--minutes N] [--seed N] [--seconds N-OF-A-SESSION]\n"
                         "       zor-widget-soak --session SEED [--seconds N]\n";
            std::exit(2);
        }
    }
    return options;
}

int session(const Options& options, int& count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(new InstrumentStyle);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    Session soak(options);
    return soak.run() ? 0 : 1;
}

} // namespace

} // namespace zor

int main(int count, char** arguments) {
    using namespace zor;
    Options options = optionsOf(count, arguments);
    if (options.session) {
        return session(options, count, arguments);
    }
    auto begun = Clock::now();
    int runs = 0;
    int wrong = 0;
    for (unsigned seed = options.seed; Clock::now() - begun < std::chrono::minutes(options.minutes); ++seed) {
        ++runs;
        wrong += startApart(arguments[0], seed, options.seconds) ? 0 : 1;
    }
    std::cout << runs << " sessions of " << options.seconds << " s, " << wrong << " went wrong\n";
    return wrong == 0 ? 0 : 1;
}
