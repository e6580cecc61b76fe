// SPDX-License-Identifier: MIT
#include "utilities/guide.h"

#include "host/files.h"
#include "support/error.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace zor {

namespace {

constexpr const char* guideFile = "user-guide.md";
/// In bytes; no document of ours is near so long.
constexpr std::uintmax_t longestDocument = 4U << 20;

struct SectionRow {
    std::string_view form;
    const char* heading;
};

constexpr const char* panels = "What the parts of a panel are";
constexpr const char* tools = "The tools";
constexpr const char* carrier = "A carrier from one board to another";
constexpr const char* receivers = "Packets at a receiver";
constexpr const char* testModes = "Factory test modes";
constexpr const char* registers = "Registers of any chip";
constexpr const char* alone = "A transmitter that works alone";

constexpr std::array sections = {
    SectionRow{"OpalV2", panels},
    SectionRow{"JadeV1", panels},
    SectionRow{"KT1102", panels},
    SectionRow{"AmberV1", panels},
    SectionRow{"Coral", panels},
    SectionRow{"BerylV3", panels},
    SectionRow{"FRM_Topaz", panels},
    SectionRow{"Help_R1", panels},
    SectionRow{"Terminal", tools},
    SectionRow{"frm_PowerSupply", tools},
    SectionRow{"frm_VireoMacSniffer", tools},
    SectionRow{"frm_TxSearch", tools},
    SectionRow{"frm_WireLog", "What went over the wire"},
    SectionRow{"FirmLoad", "New firmware for a board"},
    SectionRow{"eeprom", "The EEPROM of a demonstration board"},
    SectionRow{"ECET", alone},
    SectionRow{"Frm_CmdSequence", alone},
    SectionRow{"frm_Link", carrier},
    SectionRow{"frm_Link_RX", carrier},
    SectionRow{"AmberV1rflink", receivers},
    SectionRow{"AmberV1rflink_LB2", receivers},
    SectionRow{"Frm_BerylRfLinkTest", "Packets between transceivers"},
    SectionRow{"OpalV2test", testModes},
    SectionRow{"Frm_AmberTestFunctions", testModes},
    SectionRow{"Frm_BerylTestFunctions", testModes},
    SectionRow{"Frm_GenHeader", "From the bench into firmware"},
    SectionRow{"SPI", registers},
    SectionRow{"SPIsub2", registers},
};

/// A document of ours: a plain name, so that no link leads out of the folder.
bool isDocumentName(const std::string& file) {
    return file.ends_with(".md") && file.find('/') == std::string::npos;
}

} // namespace

std::string guideSection(std::string_view formName) {
    const auto* row = std::find_if(sections.begin(), sections.end(), [formName](const SectionRow& candidate) {
        return candidate.form == formName;
    });
    return row == sections.end() ? std::string() : row->heading;
}

std::vector<std::string> headingsOf(std::string_view markdown, int level) {
    std::vector<std::string> headings;
    std::string mark(static_cast<std::size_t>(level), '#');
    mark += ' ';
    bool fenced = false;
    while (!markdown.empty()) {
        std::string_view line = markdown.substr(0, markdown.find('\n'));
        markdown.remove_prefix(std::min(line.size() + 1, markdown.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        fenced = fenced != line.starts_with("```");
        if (!fenced && line.starts_with(mark)) {
            headings.emplace_back(line.substr(mark.size()));
        }
    }
    return headings;
}

std::string anchorOf(std::string_view heading) {
    std::string anchor;
    for (unsigned char c : heading) {
        if (std::isalnum(c) != 0 || c == '-' || c == '_' || c >= 0x80) {
            anchor += static_cast<char>(std::tolower(c));
        } else if (c == ' ') {
            anchor += '-';
        }
    }
    return anchor;
}

Guide::Guide(Bench& ownBench)
    : Form(ownBench.desk, "frm_Guide", "ZOR Software Guide")
    , Contents(*this, "Contents")
    , Back(*this, "Back", "Back")
    , Search(*this, "Search")
    , FindPrevious(*this, "FindPrevious", "Previous")
    , FindNext(*this, "FindNext", "Next")
    , Found(*this, "Found")
    , Page(*this, "Page")
    , bench(ownBench) {
    setExtent({9600, 12000});
    Contents.setTip("The sections of the document");
    Back.setTip("Where the last link was followed");
    Search.setTip("Text to look for; Enter finds the next place");
    FindPrevious.setTip("The place before");
    FindNext.setTip("The next place");
    Contents.onChange = [this] { Contents_Click(); };
    Back.onClick = [this] { goBack(); };
    Search.onCommit = [this] { find(Document::Direction::Forward); };
    // Leaving the field looks for nothing.
    Search.onLeave = nullptr;
    FindNext.onClick = [this] { find(Document::Direction::Forward); };
    FindPrevious.onClick = [this] { find(Document::Direction::Backward); };
    Page.onLink = [this](const std::string& link) { follow(link); };
    Back.setEnabled(false);
    open(guideFile);
}

bool Guide::open(const std::string& file) {
    std::string text;
    try {
        text = readFile(bench.platform.documentFolder / file, longestDocument);
    } catch (const ToolError&) {
        bench.notice("The document " + file + " is not in " + bench.platform.documentFolder.string() + ".");
        return false;
    }
    Contents.setEntries(headingsOf(text, 2));
    Contents.putPosition(-1);
    Page.setSource(std::move(text), bench.platform.documentFolder);
    Found.setCaption({});
    shown = {file, {}};
    return true;
}

void Guide::go(const Spot& spot) {
    if (spot.file != shown.file && !open(spot.file)) {
        return;
    }
    shown.heading = spot.heading;
    Contents.putPosition(Contents.find(spot.heading));
    Page.showHeading(spot.heading);
}

void Guide::showWindow(std::string_view formName) {
    go({guideFile, guideSection(formName)});
}

void Guide::Contents_Click() {
    shown.heading = Contents.text();
    Page.showHeading(shown.heading);
}

void Guide::follow(const std::string& link) {
    std::size_t mark = link.find('#');
    std::string file = link.substr(0, mark);
    std::string anchor = mark == std::string::npos ? std::string() : link.substr(mark + 1);
    if (file.empty()) {
        file = shown.file;
    }
    if (!isDocumentName(file)) {
        bench.notice("The guide does not open " + link + ".");
        return;
    }
    Spot from = shown;
    if (file != shown.file && !open(file)) {
        return;
    }
    before.push_back(std::move(from));
    Back.setEnabled(true);
    std::string heading;
    for (int level = 1; level <= 4 && !anchor.empty(); ++level) {
        for (const std::string& candidate : headingsOf(Page.source(), level)) {
            if (heading.empty() && anchorOf(candidate) == anchor) {
                heading = candidate;
            }
        }
    }
    go({file, heading});
}

void Guide::goBack() {
    if (before.empty()) {
        return;
    }
    Spot spot = before.back();
    before.pop_back();
    Back.setEnabled(!before.empty());
    go(spot);
}

void Guide::find(Document::Direction direction) {
    if (Search.text().empty()) {
        Found.setCaption({});
        return;
    }
    bool found = Page.seek(Search.text(), direction);
    Found.setCaption(found ? std::string() : "Not in this document.");
}

} // namespace zor
