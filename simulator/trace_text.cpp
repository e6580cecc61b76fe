// SPDX-License-Identifier: MIT
#include "simulator/trace_text.h"

#include "support/numbers.h"
#include "support/vocabulary.h"

namespace zor::sim {

std::string quotedBytes(std::string_view bytes) {
    std::string text = "\"";
    for (char byte : bytes) {
        if (byte == '\r') {
            text += "\\r";
        } else if (byte == '\n') {
            text += "\\n";
        } else if (byte == '"' || byte == '\\') {
            text += {'\\', byte};
        } else if (byte >= ' ' && byte <= '~') {
            text += byte;
        } else {
            text += "\\x" + hexText(static_cast<unsigned char>(byte), 2);
        }
    }
    return text + '"';
}

std::string unescaped(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        std::size_t taken = 2;
        if (text.starts_with("\\r")) {
            bytes += '\r';
        } else if (text.starts_with("\\n")) {
            bytes += '\n';
        } else if (text.starts_with("\\t")) {
            bytes += '\t';
        } else if (text.starts_with("\\\\") || text.starts_with("\\\"")) {
            bytes += text[1];
        } else if (text.starts_with("\\x") && text.size() >= 4 && readHex(text.substr(2, 2))) {
            bytes += static_cast<char>(*readHex(text.substr(2, 2)));
            taken = 4;
        } else {
            bytes += text.front();
            taken = 1;
        }
        text.remove_prefix(taken);
    }
    return bytes;
}

std::string lineMeaning(std::string_view line, std::optional<Chip> chip) {
    return commandMeaning(line, [chip](std::uint32_t word, int bits) {
        return std::string(commandName(chip, static_cast<std::uint16_t>(word), bits));
    });
}

} // namespace zor::sim
