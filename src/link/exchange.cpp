// SPDX-License-Identifier: MIT
#include "link/exchange.h"

#include "support/numbers.h"

namespace zor {

namespace {

constexpr std::size_t shortTail = 15;

std::string_view last15(std::string_view tail) {
    return tail.substr(tail.size() > shortTail ? tail.size() - shortTail : 0);
}

} // namespace

std::optional<std::uint32_t> Exchange::byteAt(std::size_t position) const {
    std::string_view text = last15(tail);
    return position + 1 <= text.size() ? readHex(text.substr(position - 1, 2)) : std::nullopt;
}

char Exchange::characterAt(std::size_t position) const {
    std::string_view text = last15(tail);
    return position <= text.size() ? text[position - 1] : '\0';
}

} // namespace zor
