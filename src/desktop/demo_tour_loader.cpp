// SPDX-License-Identifier: MIT
// The tour of a board that runs its loader, which has one window: in the midst of a download.
#include "desktop/demo_tour.h"
#include "elements/button.h"
#include "shell/main_window.h"
#include "utilities/firm_load.h"

#include <QFile>
#include <QTemporaryDir>

#include <numeric>

namespace zor {

namespace {

constexpr const char* fileName = "board-firmware.hex";
constexpr int bytesOfRecord = 16;
constexpr int records = 96;

/// ":", then the pairs of digits: how many bytes, their address, the kind, the bytes, and what makes the sum
/// zero.
QByteArray record(int address, char kind, const QByteArray& bytes) {
    QByteArray all;
    all.append(static_cast<char>(bytes.size())).append(static_cast<char>(address >> 8));
    all.append(static_cast<char>(address)).append(kind).append(bytes);
    all.append(static_cast<char>(-std::accumulate(all.cbegin(), all.cend(), 0)));
    return ':' + all.toHex().toUpper() + '\n';
}

/// Ends with an empty line, so that the loader gets all of it.
QByteArray firmware() {
    QByteArray text;
    for (int place = 0; place < records; ++place) {
        QByteArray bytes;
        for (int byte = 0; byte < bytesOfRecord; ++byte) {
            bytes.append(static_cast<char>(place * bytesOfRecord + byte));
        }
        text += record(place * bytesOfRecord, 0, bytes);
    }
    return text + record(0, 1, {}) + '\n';
}

} // namespace

void DemoTour::visitLoader() {
    auto* loader = dynamic_cast<FirmLoad*>(openTool(Tool::FirmLoad));
    QTemporaryDir place;
    QFile file(place.filePath(QString::fromLatin1(fileName)));
    if (loader == nullptr || !file.open(QIODevice::WriteOnly) || file.write(firmware()) < 0 ||
        !file.flush()) {
        hasFailed = true;
        return;
    }
    // The player answers the file dialog.
    if (Form* player =
            playTranscript(place.filePath(QStringLiteral("load.bench")),
                           "answer file \"" + std::string(fileName) + "\"\nclick FirmLoad.loadeefile\n")) {
        player->userClose();
    }
    // Not the folder of a day.
    main.bench().notice({});
    tellBoard(QStringLiteral("slow 10"));
    loader->Prog.click();
    const std::string half = std::to_string(records / 2);
    main.loop().runUntil([&] { return loader->state.text() == half || loader->isClosed(); });
    takePicture(QStringLiteral("FirmLoad"));
    loader->StopButton.click();
    loader->userClose();
}

} // namespace zor
