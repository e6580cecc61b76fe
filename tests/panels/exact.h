// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdlib>
#include <string>

namespace zor::exact {

__extension__ typedef __int128 Wide;

/// A fraction without rounding; slow, and meant to be so plain that it needs no proof. The sweeps stay far
/// below 127 bits.
struct Fraction {
    Wide numerator = 0;
    Wide denominator = 1;

    Fraction operator*(const Fraction& other) const {
        return {numerator * other.numerator, denominator * other.denominator};
    }
    Fraction operator/(const Fraction& other) const {
        return {numerator * other.denominator, denominator * other.numerator};
    }
    Fraction operator-(const Fraction& other) const {
        return {numerator * other.denominator - other.numerator * denominator,
                denominator * other.denominator};
    }
};

inline Fraction whole(long long value) {
    return {value, 1};
}

inline Fraction decimal(long long digits, long long powerOfTen) {
    return {digits, powerOfTen};
}

/// What a single-precision number holds, to the last bit.
inline Fraction ofFloat(float value) {
    int exponent = 0;
    auto mantissa = static_cast<long long>(std::ldexp(std::frexp(value, &exponent), 24));
    exponent -= 24;
    while (mantissa != 0 && mantissa % 2 == 0) {
        mantissa /= 2;
        ++exponent;
    }
    return exponent >= 0 ? Fraction{static_cast<Wide>(mantissa) << exponent, 1}
                         : Fraction{mantissa, static_cast<Wide>(1) << -exponent};
}

/// Nearest integer, ties to even.
inline long long nearest(Fraction value) {
    bool negative = (value.numerator < 0) != (value.denominator < 0);
    Wide top = value.numerator < 0 ? -value.numerator : value.numerator;
    Wide bottom = value.denominator < 0 ? -value.denominator : value.denominator;
    Wide quotient = top / bottom;
    Wide twice = (top % bottom) * 2;
    if (twice > bottom || (twice == bottom && quotient % 2 != 0)) {
        ++quotient;
    }
    return static_cast<long long>(negative ? -quotient : quotient);
}

/// The single-precision number nearest to a positive fraction, ties to the even mantissa.
inline float toFloat(Fraction value) {
    int exponent = 0;
    const Wide low = static_cast<Wide>(1) << 23;
    while (value.numerator < low * value.denominator) {
        value.numerator *= 2;
        --exponent;
    }
    while (value.numerator >= 2 * low * value.denominator) {
        value.denominator *= 2;
        ++exponent;
    }
    return std::ldexp(static_cast<float>(nearest(value)), exponent);
}

/// The text of a number counted in tenths, hundredths, ... : no trailing zeros, no "0" before the point.
inline std::string textOf(long long counted, int decimals) {
    std::string digits = std::to_string(std::llabs(counted));
    auto places = static_cast<std::size_t>(decimals);
    if (digits.size() < places) {
        digits.insert(0, places - digits.size(), '0');
    }
    std::string before = digits.substr(0, digits.size() - places);
    std::string behind = digits.substr(digits.size() - places);
    while (!behind.empty() && behind.back() == '0') {
        behind.pop_back();
    }
    if (before.find_first_not_of('0') == std::string::npos) {
        before.clear();
    }
    if (behind.empty()) {
        return before.empty() ? "0" : (counted < 0 ? "-" : "") + before;
    }
    return (counted < 0 ? "-" : "") + before + "." + behind;
}

} // namespace zor::exact
