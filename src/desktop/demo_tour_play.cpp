// SPDX-License-Identifier: MIT
// The tour's stop at the window that plays transcripts: one line of the transcript expects what is not there.
#include "desktop/demo_tour.h"

#include "desktop/adapters/qt_text.h"
#include "shell/main_window.h"

#include <QFile>
#include <QTemporaryDir>

namespace zor {

using namespace std::chrono_literals;

namespace {

constexpr const char* transcript = R"(# A transmitter is set up and checked.
choose main.TX "Opal"
type OpalV2.FreqCenter "315"
text OpalV2.FreqCenter "315"
run 200
click OpalV2.Update
text main.CommStatus "Comm. OK"
text OpalV2.Freqw "A7D0"
type OpalV2.FreqCenter "317"
text OpalV2.Freqw "A7D0"
click OpalV2.Update
within 1500 text main.CommStatus "Comm. OK"
)";

} // namespace

Form* DemoTour::playTranscript(const QString& name, const std::string& text) {
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.c_str()) < 0 || !file.flush()) {
        hasFailed = true;
        return nullptr;
    }
    main.menu.mnuFilePlay.click();
    Form* play = main.desk().find("frm_Play");
    loadTranscript(fromQt(name));
    play->find("PB_Play")->click();
    main.loop().runUntil([&] { return play->find("PB_Report")->enabled(); });
    return play;
}

void DemoTour::visitPlay() {
    // Its name is in the picture, and stays short there whatever this machine's own place for such files is.
    QTemporaryDir place(QStringLiteral("/tmp/bench-XXXXXX"));
    Form* play = playTranscript(place.filePath(QStringLiteral("transmitter-check.bench")), transcript);
    if (play == nullptr) {
        return;
    }
    settle(100ms);
    for (Form* form : openForms()) {
        if (form != play) {
            form->userClose();
        }
    }
    visitForm(*play);
}

} // namespace zor
