// SPDX-License-Identifier: MIT
#include "rftools/packet_report.h"

#include <cstdint>
#include <cstdlib>

/// Whatever the line says, a payload is as long as a report may say, and never longer than what came.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::size_t reported = 0;
    zor::PacketReportReader reader;
    reader.found = [&](const std::string& payload) {
        reported += payload.size();
        if (payload.size() > zor::PacketReportReader::longestPayload || reported > size) {
            std::abort();
        }
    };
    std::string field;
    for (std::size_t at = 0; at < size; ++at) {
        char c = static_cast<char>(data[at]);
        reader.take(c);
        field += zor::mirrored(std::string_view(&c, 1));
        // What a window does at each prompt.
        if (field.ends_with('>')) {
            zor::MirroredReport report = zor::readMirroredReport(field);
            if (report.payload.size() > field.size()) {
                std::abort();
            }
            if (report.state != zor::MirroredReport::State::Incomplete) {
                field.clear();
            }
        }
    }
    reader.silence();
    return 0;
}
