// SPDX-License-Identifier: MIT
#include "headergen/header_block.h"

#include <iterator>
#include <utility>

namespace zor {

namespace {

DetailLine whenTicked(const char* label, int tabCount, const TickBox& tick, const char* value) {
    return {label, tabCount, tick.ticked() ? std::optional<std::string>(value) : std::nullopt};
}

} // namespace

HeaderWord wordOf(const ControlWord& word) {
    // As the field shows it: a word below 0x1000 has fewer digits.
    return {"0x" + word.text(), &word};
}

HeaderWord constant(const char* text) {
    return {text, nullptr};
}

DetailLine shown(const char* label, int tabCount, const Element& value, const char* unit) {
    return {label, tabCount, value.text() + unit};
}

DetailLine shown(const char* label, int tabCount, const Element& value, const Label& unit) {
    return {label, tabCount, value.text() + " " + unit.text()};
}

DetailLine hexadecimal(const char* label, int tabCount, const Element& value) {
    return {label, tabCount, "0x" + value.text()};
}

DetailLine always(const char* label, int tabCount, const char* value) {
    return {label, tabCount, value};
}

DetailLine either(const char* label, int tabCount, bool state, const char* whenSet, const char* whenNot) {
    return {label, tabCount, state ? whenSet : whenNot};
}

DetailLine enabled(const char* label, int tabCount, const TickBox& tick) {
    return whenTicked(label, tabCount, tick, "Enabled");
}

DetailLine disabled(const char* label, int tabCount, const TickBox& tick) {
    return whenTicked(label, tabCount, tick, "Disabled");
}

HeaderBlock with(HeaderBlock block, DetailLines further) {
    block.details.insert(block.details.end(), std::make_move_iterator(further.begin()),
                         std::make_move_iterator(further.end()));
    return block;
}

void HeaderText::line(const std::string& text) {
    content += text;
    content += "\r\n";
}

void HeaderText::emptyLines(int count) {
    for (int done = 0; done < count; ++done) {
        line({});
    }
}

void HeaderText::block(const std::string& prefix, const HeaderBlock& block) {
    line("#define " + prefix + "_" + block.command + tabs(block.tabs) + block.word.text);
    line("/*");
    line(tabs(1) + block.title);
    line({});
    for (const DetailLine& detail : block.details) {
        if (detail.value) {
            line(tabs(1) + detail.label + tabs(detail.tabs) + *detail.value);
        }
    }
    line("*/");
    line({});
}

std::string tabs(int count) {
    return std::string(static_cast<std::size_t>(count), '\t');
}

} // namespace zor
