// SPDX-License-Identifier: MIT
#include "registertool/editor_notes.h"

#include "registertool/cell_values.h"
#include "registertool/spi.h"

namespace zor {

EditorNotes::EditorNotes(SPI& ownTool)
    : DefaultNote(ownTool, "DefaultNote")
    , UnsentNote(ownTool, "UnsentNote")
    , tool(ownTool) {
    value = tool.editor.HexValue.changed.subscribe([this] { show(); });
    address = tool.editor.Address.changed.subscribe([this] { show(); });
    stored = tool.table.stored.subscribe([this](std::size_t) { show(); });
    showsOthers = tool.table.showsOthers.subscribe([this] { show(); });
}

void EditorNotes::show() {
    const std::string& picked = tool.editor.Address.text();
    const Setting* setting = picked.empty() ? nullptr : tool.table.at(picked);
    bool hasDefault = setting != nullptr && !setting->DefaultValue.empty();
    DefaultNote.setCaption(hasDefault ? "Default " + setting->DefaultValue : "");
    bool unsent = setting != nullptr && tool.editor.HexValue.background() == editedColour;
    UnsentNote.setCaption(unsent ? "not sent, the chip has " + setting->HexValue : "");
}

} // namespace zor
