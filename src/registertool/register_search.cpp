// SPDX-License-Identifier: MIT
#include "registertool/register_search.h"

#include "registertool/spi.h"
#include "support/letters.h"

#include <algorithm>

namespace zor {

namespace {

bool holds(std::string_view text, std::string_view word) {
    return std::search(text.begin(), text.end(), word.begin(), word.end(), sameLetter) != text.end();
}

bool beginsWith(std::string_view text, std::string_view word) {
    return text.size() >= word.size() && std::ranges::equal(text.substr(0, word.size()), word, sameLetter);
}

bool fitsWord(const Setting& setting, std::string_view word) {
    return holds(setting.Name, word) || beginsWith(setting.Address, word) ||
           holds(setting.Description, word) ||
           std::ranges::any_of(setting.bit, [word](const std::string& name) { return holds(name, word); });
}

} // namespace

bool fitsSearch(const Setting& setting, std::string_view text) {
    while (!text.empty()) {
        std::size_t length = std::min(text.find(' '), text.size());
        if (length > 0 && !fitsWord(setting, text.substr(0, length))) {
            return false;
        }
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return true;
}

RegisterSearch::RegisterSearch(SPI& ownTool)
    : Search(ownTool, "Search")
    , ShownCount(ownTool, "ShownCount")
    , tool(ownTool) {
    Search.setTip("Only registers with these words in name, address, bit name or description");
    ShownCount.setTip("Registers in sight, of all that the chip has");
    Search.onEdit = [this] { tool.narrow(); };
    stored = tool.table.stored.subscribe([this](std::size_t) { showCount(); });
    showsOthers = tool.table.showsOthers.subscribe([this] { showCount(); });
    showCount();
}

void RegisterSearch::showCount() {
    ShownCount.setCaption(std::to_string(tool.table.inSight().size()) + " of " +
                          std::to_string(tool.table.rows().size()));
}

} // namespace zor
