// SPDX-License-Identifier: MIT
#include "support/numbers.h"

#include "support/letters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace zor {

namespace {

double hexPrefix(std::string_view digits) {
    double value = 0;
    for (char c : digits) {
        int digit = hexDigit(c);
        if (digit < 0) {
            break;
        }
        value = value * 16 + digit;
    }
    return value;
}

/// Fixed notation with so many significant digits, never an exponent.
std::string significantText(double value, int significant) {
    if (std::isnan(value)) {
        return "0";
    }
    if (std::isinf(value)) {
        return value < 0 ? "-9999999999999999" : "9999999999999999";
    }
    // The decimal exponent after rounding to the significant digits says how many decimals remain.
    std::array<char, 64> scientific{};
    auto end = std::to_chars(scientific.data(), scientific.data() + scientific.size(), value,
                             std::chars_format::scientific, significant - 1);
    std::string_view written(scientific.data(), static_cast<std::size_t>(end.ptr - scientific.data()));
    auto mark = written.find('e');
    std::string_view exponentText = written.substr(mark + 1);
    if (exponentText.front() == '+') {
        exponentText.remove_prefix(1);
    }
    int exponent = 0;
    std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);

    std::string digits;
    bool negative = false;
    for (char c : written.substr(0, mark)) {
        if (c == '-') {
            negative = true;
        } else if (c != '.') {
            digits += c;
        }
    }
    std::string whole;
    std::string fraction;
    if (exponent >= 0) {
        std::size_t wholeDigits = static_cast<std::size_t>(exponent) + 1;
        if (digits.size() < wholeDigits) {
            digits.append(wholeDigits - digits.size(), '0');
        }
        whole = digits.substr(0, wholeDigits);
        fraction = digits.substr(wholeDigits);
    } else {
        fraction = std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    }
    while (!fraction.empty() && fraction.back() == '0') {
        fraction.pop_back();
    }
    if (fraction.empty()) {
        if (whole.empty() || whole == "0") {
            return "0";
        }
        return (negative ? "-" : "") + whole;
    }
    return (negative ? "-" : "") + (whole == "0" ? std::string() : whole) + "." + fraction;
}

std::size_t skipBlanks(std::string_view text, std::size_t at) {
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) {
        ++at;
    }
    return at;
}

/// Where a text's number stands: its sign, digits and point, or the digits behind "&H".
struct NumberSpan {
    std::size_t begin;
    std::size_t end;
    bool hexadecimal;
};

/// The number behind leading blanks; nothing if there is none.
std::optional<NumberSpan> findNumber(std::string_view text) {
    std::size_t begin = skipBlanks(text, 0);
    std::size_t at = begin;
    auto next = [&] { return at < text.size() ? text[at] : '\0'; };
    if (next() == '&' && begin + 1 < text.size() && (text[begin + 1] == 'H' || text[begin + 1] == 'h')) {
        begin += 2;
        for (at = begin; hexDigit(next()) >= 0;) {
            ++at;
        }
        return at == begin ? std::nullopt : std::optional(NumberSpan{begin, at, true});
    }
    if (next() == '-' || next() == '+') {
        ++at;
    }
    bool digitSeen = false;
    bool pointSeen = false;
    for (; isDigit(next()) || (next() == '.' && !pointSeen); ++at) {
        digitSeen = digitSeen || isDigit(next());
        pointSeen = pointSeen || next() == '.';
    }
    return digitSeen ? std::optional(NumberSpan{begin, at, false}) : std::nullopt;
}

/// Of a whole number and the next above it, the even one.
double evenNeighbour(double below) {
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

} // namespace

double roundTiesEven(double value) {
    if (!std::isfinite(value)) {
        return value;
    }
    // Exact in every rounding mode: the remainder against the integer below is computed, not assumed.
    double below = std::floor(value);
    double rest = value - below;
    if (rest == 0.5) {
        return evenNeighbour(below);
    }
    return rest < 0.5 ? below : below + 1;
}

double roundToDecimals(double value, int decimals) {
    static constexpr std::array<double, 16> powers = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                      1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    // From here on a double holds no digit behind the decimal place.
    constexpr double allWhole = 0x1p52;
    double power = powers[static_cast<std::size_t>(decimals)];
    double scaled = value * power;
    if (!(std::abs(scaled) < allWhole)) {
        return value;
    }
    // 349.68375 is a tie at 4 decimals to whoever reads it, but no double holds it exactly, and a computed
    // one may be some units in the last place off. The cap keeps large numbers from being taken for ties at
    // large.
    double below = std::floor(scaled);
    double tieWidth = std::min(std::abs(scaled) * 0x1p-50, 0.001);
    bool tie = std::abs(scaled - below - 0.5) <= tieWidth;
    return (tie ? evenNeighbour(below) : roundTiesEven(scaled)) / power;
}

int roundToInt(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    double rounded = roundTiesEven(value);
    if (rounded >= static_cast<double>(std::numeric_limits<int>::max())) {
        return std::numeric_limits<int>::max();
    }
    if (rounded <= static_cast<double>(std::numeric_limits<int>::min())) {
        return std::numeric_limits<int>::min();
    }
    return static_cast<int>(rounded);
}

std::string numberText(double value) {
    return significantText(value, 15);
}

std::string numberText(float value) {
    return significantText(static_cast<double>(value), 7);
}

std::optional<double> readNumericPrefix(std::string_view text) {
    std::optional<NumberSpan> span = findNumber(text);
    if (!span) {
        return std::nullopt;
    }
    std::string_view number = text.substr(span->begin, span->end - span->begin);
    if (span->hexadecimal) {
        return hexPrefix(number);
    }
    if (number.front() == '+') {
        number.remove_prefix(1);
    }
    double value = 0;
    auto read =
        std::from_chars(number.data(), number.data() + number.size(), value, std::chars_format::fixed);
    if (read.ec == std::errc::result_out_of_range) {
        // More digits than a double holds: beyond every field's limit, on the side of its sign. A fraction
        // too small to hold is nothing.
        bool tiny = number.find_first_of("123456789") > number.find('.');
        double magnitude = tiny ? 0.0 : std::numeric_limits<double>::infinity();
        return number.front() == '-' ? -magnitude : magnitude;
    }
    return value;
}

std::size_t numericPrefixLength(std::string_view text) {
    std::optional<NumberSpan> span = findNumber(text);
    return span ? skipBlanks(text, span->end) : 0;
}

double numericPrefix(std::string_view text) {
    return readNumericPrefix(text).value_or(0);
}

std::string hexText(std::uint32_t value) {
    std::array<char, 8> digits{};
    auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16);
    std::string text(digits.data(), end.ptr);
    for (char& c : text) {
        if (c >= 'a') {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return text;
}

std::string hexText(std::uint32_t value, int digits) {
    std::string text = hexText(value);
    if (text.size() < static_cast<std::size_t>(digits)) {
        text.insert(0, static_cast<std::size_t>(digits) - text.size(), '0');
    }
    return text;
}

std::optional<std::uint32_t> readHex(std::string_view text) {
    if (text.empty() || text.size() > 8) {
        return std::nullopt;
    }
    std::uint32_t value = 0;
    for (char c : text) {
        int digit = hexDigit(c);
        if (digit < 0) {
            return std::nullopt;
        }
        value = value * 16 + static_cast<std::uint32_t>(digit);
    }
    return value;
}

std::string decimalsText(double value, int decimals) {
    // The greatest double has 309 digits before the point.
    std::array<char, 400> text{};
    auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed,
                             std::clamp(decimals, 0, 15));
    return {text.data(), end.ptr};
}

std::string shortText(double value, int digits) {
    std::array<char, 40> text{};
    auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general,
                             std::clamp(digits, 1, 17));
    return {text.data(), end.ptr};
}

} // namespace zor
