// SPDX-License-Identifier: MIT
#include "transcript/player.h"

#include <array>
#include <cstdio>
#include <string_view>

namespace zor::transcript {

namespace {

/// Bytes that XML 1.0 has no character for are told by their number; the rest is taken for UTF-8 where it is.
void append(std::string& xml, std::string_view text) {
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        switch (c) {
        case '&':
            xml += "&amp;";
            break;
        case '<':
            xml += "&lt;";
            break;
        case '>':
            xml += "&gt;";
            break;
        case '"':
            xml += "&quot;";
            break;
        default:
            if ((byte < 0x20 && c != '\t') || byte >= 0x7F) {
                std::array<char, 8> shown{};
                std::snprintf(shown.data(), shown.size(), "\\x%02X", byte);
                xml += shown.data();
            } else {
                xml += c;
            }
        }
    }
}

std::string attribute(std::string_view text) {
    std::string xml = "\"";
    append(xml, text);
    return xml + '"';
}

std::string seconds(EventLoop::Duration time) {
    long long milliseconds = time.count() / 1000;
    std::string digits = std::to_string(milliseconds % 1000);
    return std::to_string(milliseconds / 1000) + "." + std::string(3 - digits.size(), '0') + digits;
}

} // namespace

std::string junitReport(const Player& player) {
    std::string name = player.file().filename().string();
    std::size_t skipped = 0;
    for (const PlayedLine& line : player.lines()) {
        skipped += line.result == PlayedLine::Result::Waiting ? 1 : 0;
    }
    std::string counts = " tests=\"" + std::to_string(player.lines().size()) + "\" failures=\"" +
                         std::to_string(player.failures()) + "\" errors=\"0\" skipped=\"" +
                         std::to_string(skipped) + "\" time=\"" + seconds(player.took()) + "\"";
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + counts +
                      ">\n  <testsuite name=" + attribute(name) + counts + ">\n";
    for (const PlayedLine& line : player.lines()) {
        xml += "    <testcase classname=" + attribute(name) +
               " name=" + attribute("line " + std::to_string(line.line) + ": " + line.text) + " time=\"" +
               seconds(line.took) + "\"";
        if (line.result == PlayedLine::Result::Failed) {
            xml += ">\n      <failure message=" + attribute(line.message) + "/>\n    </testcase>\n";
        } else if (line.result == PlayedLine::Result::Passed) {
            xml += "/>\n";
        } else {
            xml += ">\n      <skipped/>\n    </testcase>\n";
        }
    }
    return xml + "  </testsuite>\n</testsuites>\n";
}

} // namespace zor::transcript
