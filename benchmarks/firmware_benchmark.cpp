// SPDX-License-Identifier: MIT
// A firmware file of 1 MB made ready for its download, against the mere reading of the file.
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

void FirmwareFileRead(benchmark::State& state) {
    FirmwareFile file;
    for (auto _ : state) {
        benchmark::DoNotOptimize(readFile(file.path()));
    }
}
BENCHMARK(FirmwareFileRead)->UseRealTime();

void FirmwareLoaded(benchmark::State& state) {
    FirmwareFile file;
    for (auto _ : state) {
        DownloadImage image(readFile(file.path()));
        benchmark::DoNotOptimize(image.linesToSend());
    }
}
BENCHMARK(FirmwareLoaded)->UseRealTime();

} // namespace

} // namespace zor::benchmarks
