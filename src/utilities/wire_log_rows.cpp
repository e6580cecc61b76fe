// SPDX-License-Identifier: MIT
// An exchange as a row of the log, and the rows as text and as comma separated values.
#include "support/csv.h"
#include "support/lines.h"
#include "support/local_time.h"
#include "support/numbers.h"
#include "utilities/wire_log.h"

#include <array>
#include <cstdio>

namespace zor {

namespace {

std::string milliseconds(EventLoop::Duration time) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%lld.%03lld", static_cast<long long>(time.count() / 1000),
                  static_cast<long long>(time.count() % 1000));
    return text.data();
}

std::string timeOfDay(std::chrono::system_clock::time_point moment) {
    auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(moment.time_since_epoch()) % 1000;
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%s.%03d", localTime(moment, "%H:%M:%S").c_str(),
                  static_cast<int>(rest.count()));
    return text.data();
}

/// What stands out beside the word for a result, and not by its colour alone.
const char* signOf(WireEntry::Result result) {
    switch (result) {
    case WireEntry::Result::Refused:
        return "!";
    case WireEntry::Result::NoAnswer:
        return "?";
    case WireEntry::Result::PortGone:
        return "x";
    case WireEntry::Result::Answered:
    case WireEntry::Result::NotAwaited:
    case WireEntry::Result::Unasked:
        break;
    }
    return "";
}

/// Without the prompt and the separators around it; what stands in front of it is what was asked for.
std::string shownAnswer(const WireEntry& entry) {
    struct Ending {
        WireEntry::Result result;
        std::string_view prompt;
        const char* word;
    };
    static constexpr std::array<Ending, 2> endings = {{
        {WireEntry::Result::Answered, "\n\rOK\n\r>", "OK"},
        {WireEntry::Result::Refused, "ERROR\n\r>", "ERROR"},
    }};
    std::string_view answer = entry.answer;
    for (const Ending& ending : endings) {
        if (entry.result != ending.result || !answer.ends_with(ending.prompt)) {
            continue;
        }
        answer.remove_suffix(ending.prompt.size());
        std::size_t first = answer.find_first_not_of(" \r\n");
        if (first == std::string_view::npos) {
            return ending.word;
        }
        return printable(answer.substr(first, answer.find_last_not_of(" \r\n") + 1 - first));
    }
    return printable(answer);
}

} // namespace

std::string printable(std::string_view bytes) {
    std::string text;
    for (char c : bytes) {
        if (c == '\r') {
            text += "\\r";
        } else if (c == '\n') {
            text += "\\n";
        } else if (c >= ' ' && c <= '~') {
            text += c;
        } else {
            text += "\\x" + hexText(static_cast<unsigned char>(c), 2);
        }
    }
    return text;
}

GridRow WireLog::rowOf(const WireEntry& entry) const {
    bool wrong = *signOf(entry.result) != '\0';
    CellLook strength = wrong ? CellLook::Wrong : CellLook::Plain;
    return {{signOf(entry.result), wrong ? CellLook::Wrong : CellLook::Mark},
            {milliseconds(entry.time), CellLook::Soft},
            {timeOfDay(recorder.wallClock(entry.time)), CellLook::Soft},
            {entry.port == 0 ? std::string() : "Com" + std::to_string(entry.port), CellLook::Soft},
            {printable(withoutLineEnd(entry.line)), strength},
            {shownAnswer(entry), CellLook::Plain},
            {milliseconds(entry.length), CellLook::Soft},
            {wordOf(entry.result), strength},
            {entry.meaning, CellLook::Plain}};
}

std::string WireLog::asText() const {
    std::string text;
    for (std::size_t row = 0; row < Log.rowCount(); ++row) {
        for (std::size_t column = 0; column < Log.columns().size(); ++column) {
            text += (column == 0 ? "" : "\t") + Log.cell(row, column).text;
        }
        text += "\r\n";
    }
    return text;
}

std::string WireLog::asCsv() const {
    std::string text;
    for (std::size_t column = 0; column < Log.columns().size(); ++column) {
        text += (column == 0 ? "" : ",") + csvQuoted(column == 0 ? "Sign" : Log.columns()[column].caption);
    }
    text += "\r\n";
    for (std::size_t row = 0; row < Log.rowCount(); ++row) {
        for (std::size_t column = 0; column < Log.columns().size(); ++column) {
            text += (column == 0 ? "" : ",") + csvQuoted(Log.cell(row, column).text);
        }
        text += "\r\n";
    }
    return text;
}

} // namespace zor
