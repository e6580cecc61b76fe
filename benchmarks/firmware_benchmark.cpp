// SPDX-License-Identifier: MIT
// A firmware file of 1 MB made ready for its download, against the mere reading of the file.
#include "in_turns.h"
#include "ratio.h"

#include "host/files.h"
#include "utilities/download_image.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

namespace zor::benchmarks {

namespace {

const DeclareRatio loadRatio("FirmwareLoaded", "FirmwareFileRead", 3);

constexpr std::size_t fileSize = 1u << 20;

/// Full records, as a compiler writes them.
class FirmwareFile {
  public:
    FirmwareFile() {
        std::string text;
        while (text.size() < fileSize) {
            text += ":10000000000102030405060708090A0B0C0D0E0F78\r\n";
        }
        writeFileWhole(path(), text);
    }
    [[nodiscard]] std::string path() const {
        return folder.filePath(QStringLiteral("firmware.hex")).toStdString();
    }

  private:
    QTemporaryDir folder;
};

void FirmwareLoaded(benchmark::State& state) {
    constexpr int timesATurn = 5;
    FirmwareFile file;
    takeTurns(
        state, timesATurn, [&] { benchmark::DoNotOptimize(readFile(file.path())); },
        [&] {
            DownloadImage image(readFile(file.path()));
            benchmark::DoNotOptimize(image.linesToSend());
        });
}
BENCHMARK(FirmwareLoaded)->UseManualTime();

} // namespace

} // namespace zor::benchmarks
