// SPDX-License-Identifier: MIT
// What the recording of a session adds to a gesture: a frequency typed with the keyboard into the shown
// panel until its words are painted, against the very events that this told, told again to the recorder and
// to nobody but those who always listen.
#include "answering_terminal.h"
#include "bench_on_terminal.h"
#include "ratio.h"

#include "desktop/adapters/qt_text.h"
#include "desktop/desktop_window.h"
#include "desktop/widgets/binding.h"
#include "elements/watched_dialogs.h"
#include "transcript/recorder.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <cstdlib>
#include <list>
#include <string>
#include <vector>

namespace zor::benchmarks {

namespace {

const DeclareRatio unheardRatio("GestureTold", "GestureMade", 0.01);
const DeclareRatio recordedRatio("GestureRecorded", "GestureMade", 0.03);

void press(QWidget& widget, int key, const QString& text) {
    for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(&widget, &event);
    }
}

/// The program in sight with a transmitter's panel, whose centre frequency somebody types.
class TypedPanel {
  public:
    TypedPanel() {
        window.show();
        bench.main().menu.mnuViewTx0.click();
        shownPanel = bench.bench().openPanel();
        for (auto* edit : window.findChildren<QLineEdit*>()) {
            const Binding* binding = Binding::of(edit);
            if (binding != nullptr && binding->element() == &shownPanel->FreqCenter) {
                field = edit;
            }
        }
        if (field == nullptr) {
            std::abort();
        }
        field->setFocus();
        QCoreApplication::processEvents();
    }

    void type(std::size_t turn) {
        field->selectAll();
        for (const char* c = typedFrequencies.at(turn % typedFrequencies.size()); *c != '\0'; ++c) {
            press(*field, *c == '.' ? Qt::Key_Period : Qt::Key_0 + (*c - '0'), QString(QLatin1Char(*c)));
        }
        press(*field, Qt::Key_Return, QStringLiteral("\r"));
        QCoreApplication::processEvents();
    }

    [[nodiscard]] ChipPanel& panel() { return *shownPanel; }

    AnsweringTerminal terminal;
    BenchOnTerminal bench{terminal.path()};
    DesktopWindow window{bench.main()};

  private:
    ChipPanel* shownPanel = nullptr;
    QLineEdit* field = nullptr;
};

/// All that the desk tells while the frequencies are typed, to be told again.
class ToldGestures {
  public:
    explicit ToldGestures(TypedPanel& typed)
        : desk(typed.bench.main().desk()) {
        Subscription begins = desk.gestureBegins.subscribe([this](const Gesture& gesture) {
            kept.push_back({gesture, std::string(gesture.text)});
            kept.back().gesture.text = kept.back().text;
            running.push_back(&kept.back());
            told.push_back({true, running.back()});
        });
        Subscription ended = desk.gestureEnded.subscribe([this](const Gesture&) {
            told.push_back({false, running.back()});
            running.pop_back();
        });
        for (std::size_t turn = 0; turn < typedFrequencies.size(); ++turn) {
            typed.type(turn);
        }
        if (std::ranges::none_of(kept,
                                 [](const Kept& each) { return each.gesture.kind == GestureKind::Enter; })) {
            std::abort();
        }
    }

    void tellAgain() const {
        for (const auto& [begins, gesture] : told) {
            (begins ? desk.gestureBegins : desk.gestureEnded).emit(gesture->gesture);
        }
    }

  private:
    struct Kept {
        Gesture gesture;
        std::string text;
    };
    struct Told {
        bool begins;
        const Kept* gesture;
    };

    Desk& desk;
    std::list<Kept> kept;
    std::vector<Kept*> running;
    std::vector<Told> told;
};

void GestureMade(benchmark::State& state) {
    TypedPanel typed;
    for (auto _ : state) {
        for (std::size_t turn = 0; turn < typedFrequencies.size(); ++turn) {
            typed.type(turn);
        }
    }
}
BENCHMARK(GestureMade);

void GestureTold(benchmark::State& state) {
    TypedPanel typed;
    ToldGestures gestures(typed);
    for (auto _ : state) {
        gestures.tellAgain();
    }
}
BENCHMARK(GestureTold);

void GestureRecorded(benchmark::State& state) {
    TypedPanel typed;
    ToldGestures gestures(typed);
    std::string content;
    WatchedDialogs nobodyAsks(typed.bench.main().bench().platform.dialogs);
    transcript::Recorder recorder(typed.bench.main(), nobodyAsks, "/", [&content](const std::string& line) {
        content += line;
        content += "\r\n";
        if (content.size() > (1U << 20)) {
            content.clear();
        }
    });
    for (auto _ : state) {
        gestures.tellAgain();
    }
    benchmark::DoNotOptimize(content);
}
BENCHMARK(GestureRecorded);

} // namespace

} // namespace zor::benchmarks
