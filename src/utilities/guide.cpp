// SPDX-License-Identifier: MIT
#include "utilities/guide.h"

#include "host/files.h"
#include "support/error.h"
#include "support/file_name.h"
#include "support/markdown.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <utility>

namespace zor {

namespace {

constexpr const char* guideFile = "user-guide.md";
/// In bytes; no document of ours is near so long.
constexpr std::uintmax_t longestDocument = 4U << 20;

struct PageRow {
    std::string_view form;
    const char* page;
};

constexpr const char* panel = "guide/panel.md";
constexpr const char* carrier = "guide/carrier.md";
constexpr const char* receivers = "guide/receiver-link.md";
constexpr const char* testModes = "guide/test-modes.md";
constexpr const char* registers = "guide/register-tool.md";
constexpr const char* alone = "guide/content-editor.md";

constexpr std::array pageRows = {
    PageRow{"OpalV2", panel},
    PageRow{"JadeV1", panel},
    PageRow{"KT1102", panel},
    PageRow{"AmberV1", panel},
    PageRow{"Coral", panel},
    PageRow{"BerylV3", panel},
    PageRow{"FRM_Topaz", panel},
    PageRow{"Help_R1", panel},
    PageRow{"Terminal", "guide/terminal.md"},
    PageRow{"frm_PowerSupply", "guide/power-supply.md"},
    PageRow{"frm_VireoMacSniffer", "guide/packet-sniffer.md"},
    PageRow{"frm_TxSearch", "guide/transmitter-search.md"},
    PageRow{"frm_WireLog", "guide/wire-log.md"},
    PageRow{"frm_Play", "guide/record-and-play.md"},
    PageRow{"FirmLoad", "guide/firmware-loader.md"},
    PageRow{"eeprom", "guide/eeprom-programmer.md"},
    PageRow{"ECET", alone},
    PageRow{"Frm_CmdSequence", alone},
    PageRow{"frm_Link", carrier},
    PageRow{"frm_Link_RX", carrier},
    PageRow{"AmberV1rflink", receivers},
    PageRow{"AmberV1rflink_LB2", receivers},
    PageRow{"Frm_BerylRfLinkTest", "guide/transceiver-link.md"},
    PageRow{"OpalV2test", testModes},
    PageRow{"Frm_AmberTestFunctions", testModes},
    PageRow{"Frm_BerylTestFunctions", testModes},
    PageRow{"Frm_GenHeader", "guide/header-generator.md"},
    PageRow{"frm_SetFrom", "guide/set-from.md"},
    PageRow{"frm_Compare", "guide/compare.md"},
    PageRow{"SPI", registers},
    PageRow{"SPIsub2", registers},
};

/// A document of ours: no link leads out of the folder.
bool isDocument(const std::string& file) {
    return file.ends_with(".md") && !file.starts_with("..") && !file.starts_with('/');
}

/// Where a link leads that stands in a document; both are paths from the folder of documents.
std::string linkedFrom(const std::string& document, const std::string& link) {
    return slashedNameOf((pathOf(document).parent_path() / pathOf(link)).lexically_normal());
}

} // namespace

std::string guidePage(std::string_view formName) {
    const auto* row = std::find_if(pageRows.begin(), pageRows.end(), [formName](const PageRow& candidate) {
        return candidate.form == formName;
    });
    return row == pageRows.end() ? std::string() : row->page;
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
    Contents.setTip("The guide's pages and their sections");
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
    readPages();
    go({guideFile, {}});
}

/// The index and what it links to, in its order. A page that is missing is told where its link is followed.
void Guide::readPages() {
    std::vector<std::string> files{guideFile};
    std::vector<std::string> entries;
    for (std::size_t next = 0; next < files.size(); ++next) {
        std::string text;
        try {
            text = readFile(bench.platform.documentFolder / files[next], longestDocument);
        } catch (const ToolError&) {
            continue;
        }
        if (next == 0) {
            std::vector<std::string> linked = linkedDocuments(text);
            std::copy_if(linked.begin(), linked.end(), std::back_inserter(files), isDocument);
        }
        pages.push_back({files[next], readableText(text)});
        std::vector<std::string> titles = headingsOf(text, 1);
        outline.push_back({files[next], {}});
        entries.push_back(titles.empty() ? files[next] : titles.front());
        for (std::string& section : headingsOf(text, 2)) {
            outline.push_back({files[next], section});
            entries.push_back("    " + std::move(section));
        }
    }
    Contents.setEntries(std::move(entries));
}

bool Guide::open(const std::string& file) {
    std::string text;
    try {
        text = readFile(bench.platform.documentFolder / pathOf(file), longestDocument);
    } catch (const ToolError&) {
        bench.notice("The document " + file + " is not in " + nameOf(bench.platform.documentFolder) + ".");
        return false;
    }
    Page.setSource(std::move(text), (bench.platform.documentFolder / file).parent_path());
    Found.setCaption({});
    shown = {file, {}};
    return true;
}

void Guide::go(const Spot& spot) {
    if (spot.file != shown.file && !open(spot.file)) {
        return;
    }
    shown = spot;
    auto entry = std::find(outline.begin(), outline.end(), spot);
    Contents.putPosition(entry == outline.end() ? -1 : static_cast<int>(entry - outline.begin()));
    Page.showHeading(spot.heading);
}

void Guide::showWindow(std::string_view formName) {
    std::string page = guidePage(formName);
    go({page.empty() ? guideFile : page, {}});
}

void Guide::Contents_Click() {
    if (Contents.position() >= 0) {
        go(outline.at(static_cast<std::size_t>(Contents.position())));
    }
}

void Guide::follow(const std::string& link) {
    std::size_t mark = link.find('#');
    std::string target = link.substr(0, mark);
    std::string anchor = mark == std::string::npos ? std::string() : link.substr(mark + 1);
    std::string file = target.empty() ? shown.file : linkedFrom(shown.file, target);
    if (!isDocument(file)) {
        bench.notice("The guide does not open " + link + ".");
        return;
    }
    Spot from = shown;
    if (file != shown.file && !open(file)) {
        return;
    }
    comeFrom(from);
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

void Guide::comeFrom(const Spot& spot) {
    before.push_back(spot);
    Back.setEnabled(true);
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
    bool found = Page.seek(Search.text(), direction) || findElsewhere(direction);
    Found.setCaption(found ? std::string() : "Nowhere in the guide.");
}

/// On the pages behind the shown one, or before it, round the end and back to the shown one's other end.
bool Guide::findElsewhere(Document::Direction direction) {
    const Spot from = shown;
    const std::string sought = readableText(Search.text());
    const std::size_t count = pages.size();
    auto place = std::find_if(pages.begin(), pages.end(),
                              [&from](const PageText& page) { return page.file == from.file; });
    // A document that is no page counts as the first.
    std::size_t at = place == pages.end() ? 0 : static_cast<std::size_t>(place - pages.begin());
    bool forward = direction == Document::Direction::Forward;
    for (std::size_t step = 1; step <= count; ++step) {
        const PageText& page = pages[(at + (forward ? step : count - step)) % count];
        if (page.readable.find(sought) == std::string::npos) {
            continue;
        }
        go({page.file, {}});
        if (Page.seek(Search.text(), direction)) {
            if (page.file != from.file) {
                comeFrom(from);
            }
            return true;
        }
    }
    go(from);
    return false;
}

} // namespace zor
