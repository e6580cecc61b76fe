// SPDX-License-Identifier: MIT
#include "simulator/program/options.h"

#include "simulator/air.h"
#include "simulator/board_control.h"
#include "simulator/chip_commands.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <string_view>

namespace zor::sim {

namespace {

struct Option {
    std::string_view name;
    std::string_view value; // empty for an option that stands alone
    std::string_view meaning;
    void (*apply)(Options& options, const std::string& value);
};

template <typename Number>
Number readNumber(const std::string& text, Number least, Number greatest) {
    Number number{};
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    // Written so that a value that is no number at all is refused too.
    bool inside = number >= least && number <= greatest;
    if (error != std::errc() || end != text.data() + text.size() || !inside) {
        throw UsageError("\"" + text + "\" is no number in range");
    }
    return number;
}

void setKind(Options& options, const std::string& value) {
    constexpr std::pair<std::string_view, BoardKind> kinds[] = {
        {"lb1", BoardKind::LoadBoard1},  {"lb2", BoardKind::LoadBoard2}, {"loader", BoardKind::Loader},
        {"monitor", BoardKind::Monitor}, {"silent", BoardKind::Silent},
    };
    for (auto [name, kind] : kinds) {
        if (value == name) {
            options.kind = kind;
            return;
        }
    }
    throw UsageError("\"" + value + "\" is no kind of board");
}

void setPace(Options& options, const std::string& value) {
    if (value != "none" && value != "19200") {
        throw UsageError("\"" + value + "\" is no pace");
    }
    options.paced = value == "19200";
}

/// A bench statement whose fields may stand between commas on the command line. It is tried on a board of its
/// own, so that a bad one is told at once.
void addSetup(Options& options, std::string_view word, std::string value) {
    if (word != "refuse" && word != "registers") {
        std::ranges::replace(value, ',', ' ');
    }
    std::string statement = std::string(word) + ' ' + value;
    Board trial(BoardKind::LoadBoard2);
    if (ControlResult result = control(trial, statement); result.outcome == ControlOutcome::failed) {
        throw UsageError("\"" + value + "\" cannot be read");
    }
    options.setup.push_back(std::move(statement));
}

void setChip(Options& options, const std::string& value) {
    if (!chipOfName(value)) {
        throw UsageError("\"" + value + "\" is no chip; there are " + chipNames());
    }
    addSetup(options, "chip", value);
}

void setAir(Options& options, const std::string& value) {
    if (value == "two") {
        options.air = Options::AirKind::twoBoards;
        return;
    }
    auto mode = farEndMode(value);
    if (!mode) {
        throw UsageError("\"" + value + "\" is nobody on the air");
    }
    options.air = Options::AirKind::farEnd;
    options.farEnd = *mode;
}

using std::chrono::milliseconds;

// clang-format off
constexpr Option options[] = {
    {"--kind", "KIND", "lb1, lb2 (the default), loader, monitor or silent; see below",
     setKind},
    {"--chip", "NAME", "radio chip on the board: kt1100 kt1101 kt1102 kt2100 kt2102 kt3100 kt3101",
     setChip},
    {"--pace", "PACE", "19200 (the default), or none for a line that takes no time",
     setPace},
    {"--status", "XX[,YY]", "the chip's status bytes, hexadecimal",
     [](Options& o, const std::string& v) { addSetup(o, "status", v); }},
    {"--irq", "LEVEL", "level of the interrupt line: high (the default, idle) or low",
     [](Options& o, const std::string& v) { addSetup(o, "irq", v); }},
    {"--current", "HIGH,LOW", "what the current converter reads in each range, 0 to 1023",
     [](Options& o, const std::string& v) { addSetup(o, "current", v); }},
    {"--registers", "FILE", "a chip of registers in place of the radio chip, as FILE lists its first one",
     [](Options& o, const std::string& v) { addSetup(o, "registers", v); }},
    {"--eeprom", "FILE", "a serial EEPROM in place of the radio chip; FILE keeps its 1024 bytes",
     [](Options& o, const std::string& v) { o.eepromFile = v; }},
    {"--packets", "RATE", "a monitor prints so many packets a second, 0.01 to 1000, once nobody asks it anything",
     [](Options& o, const std::string& v) { o.packetsPerSecond = readNumber(v, 0.01, 1000.0); }},
    {"--slow", "MS", "a loader takes so long for each of its two flow-control characters",
     [](Options& o, const std::string& v) { addSetup(o, "slow", v); }},
    {"--stall", "N", "fault: a loader falls silent at line N of a download",
     [](Options& o, const std::string& v) { addSetup(o, "stall", v); }},
    {"--air", "WHO", "who else is on the air: two, silent, numbered, echo, carrier or lively; see below",
     setAir},
    {"--delay", "MS", "fault: every answer comes so much later",
     [](Options& o, const std::string& v) { o.faults.delay = milliseconds(readNumber(v, 0, 3'600'000)); }},
    {"--mute-after", "N", "fault: nothing is said after N answers",
     [](Options& o, const std::string& v) { o.faults.muteAfter = readNumber(v, 0u, 1'000'000'000u); }},
    {"--refuse", "LINE", "fault: the next such line is refused; may stand several times",
     [](Options& o, const std::string& v) { addSetup(o, "refuse", v); }},
    {"--refusal-rate", "RATE", "fault: chance, 0 to 1, that a success is told as a refusal",
     [](Options& o, const std::string& v) { o.faults.refusalRate = readNumber(v, 0.0, 1.0); }},
    {"--noise", "RATE", "fault: chance, 0 to 1, of garbage in front of each character",
     [](Options& o, const std::string& v) { o.faults.noiseRate = readNumber(v, 0.0, 1.0); }},
    {"--split", "N", "fault: answers come in pieces of N characters, 20 ms apart",
     [](Options& o, const std::string& v) { o.faults.splitEvery = readNumber(v, 1u, 4096u); }},
    {"--seed", "N", "the same seed gives the same faults (default 1)",
     [](Options& o, const std::string& v) { o.faults.seed = readNumber(v, 0u, 4'294'967'295u); }},
    {"--link", "PATH", "make PATH a symbolic link to the terminal",
     [](Options& o, const std::string& v) { o.link = v; }},
    {"--trace", "", "write what passes, with times in seconds, to standard error",
     [](Options& o, const std::string&) { o.trace = true; }},
    {"--control", "", "take bench statements from standard input; see below",
     [](Options& o, const std::string&) { o.control = true; }},
    {"--exit-with-stdin", "", "end when standard input is closed",
     [](Options& o, const std::string&) { o.exitWithStdin = true; }},
    {"--version", "", "show the version and end",
     [](Options& o, const std::string&) { o.version = true; }},
    {"--help", "", "show this and end",
     [](Options& o, const std::string&) { o.help = true; }},
};
// clang-format on

constexpr std::string_view introduction =
    R"(Usage: loadboard-sim [OPTION]...

Plays a LoadBoard for sub-GHz radio chips on a pseudo-terminal. The first line on standard output is the
terminal's path; open it like a serial port (19200 baud, 8N1). It goes on until it is ended by a signal, and the
terminal may be closed and opened again as often as one likes. Opening it takes the board out of Data mode.

Options:
)";

constexpr std::string_view explanation =
    R"(
Kinds of boards:
  lb1       LoadBoard generation 1: no data selector, no current converter
  lb2       LoadBoard generation 2
  loader    the loader firmware: banner, speed commands, download by XOFF and XON
  monitor   the packet monitor: its banner, and packets if --packets asks for them
  silent    opens and never says a word

The wire: a command is a line ended by a carriage return. It is answered with LF CR "OK" LF CR ">", or with
"ERROR" LF CR ">" when it is not known. "i" asks who is there, "RS" reads a byte of the chip's status: the first
byte behind the chip select's falling edge ("H2", "L2"), then the second.

The air: with "two" a second board of the same kind sits on a second terminal, whose path is the second line on
standard output, and the two radios hear each other where the words latched in their chips agree. With the others
there is a far end without a terminal, tuned like the board's chip: it keeps silent, sends a numbered packet each
second, says again each second what it heard last, or keys a carrier; a lively one does all of it.

The trace shows lines from the PC as "<" and what the board says as ">", with the name of the chip command that an
"S1" or "S2" line carries:
  0.001042 < "S28080"  Configuration Setting
  0.001042 > "0000 \n\rOK\n\r>"

Statements of --control, one a line:
)";

constexpr std::string_view examples =
    R"(
Examples:
  loadboard-sim --chip kt3100 --trace            a transceiver board, and what is said to it
  loadboard-sim --status 5F,A0 --irq low         status bytes 5F and A0, interrupt pending
  loadboard-sim --delay 1500                     a board too slow for the PC's patience of 1.2 s
  loadboard-sim --noise 0.02 --seed 7            a bad cable, bad in the same way each time
  loadboard-sim --kind monitor --packets 20      a packet monitor with much to say
  loadboard-sim --kind loader --slow 20          a loader that takes 40 ms for each line
  loadboard-sim --chip kt3100 --air numbered     a transceiver board that hears a packet each second
  loadboard-sim --link /tmp/board --control      a fixed name, and statements typed in by hand
  screen /tmp/board 19200                        that board in a plain terminal program: type i, press Enter

Exit status: 0 when ended by a signal, "quit" or the end of standard input; 1 when the terminal cannot be made;
2 for a bad option.
)";

const Option& optionOfName(const std::string& name) {
    const auto* found = std::ranges::find(options, name, &Option::name);
    if (found == std::end(options)) {
        throw UsageError("unknown option \"" + name + "\"");
    }
    return *found;
}

} // namespace

Options parseOptions(const std::vector<std::string>& arguments) {
    Options parsed;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const Option& option = optionOfName(arguments[i]);
        std::string value;
        if (!option.value.empty()) {
            if (++i == arguments.size()) {
                throw UsageError(std::string(option.name) + " needs " + std::string(option.value));
            }
            value = arguments[i];
        }
        try {
            option.apply(parsed, value);
        } catch (const UsageError& error) {
            throw UsageError(std::string(option.name) + ": " + error.what());
        }
    }
    return parsed;
}

std::string helpText() {
    std::string text(introduction);
    for (const Option& option : options) {
        std::string form = "  " + std::string(option.name) + ' ' + std::string(option.value);
        form.resize(25, ' ');
        text += form + std::string(option.meaning) + '\n';
    }
    text += explanation;
    text += controlHelp();
    text += "\nWith --air also these; \"2 \" in front of a statement means the second board:\n";
    text += airControlHelp();
    text += examples;
    return text;
}

} // namespace zor::sim
