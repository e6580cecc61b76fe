// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zor::testing {

/// What nobody should type into a field, and somebody will: nothing, blanks, half numbers, exponents, bytes
/// beyond ASCII, ten thousand characters.
inline std::vector<std::string> oddTexts() {
    std::vector<std::string> texts = {"",
                                      " ",
                                      "   ",
                                      "\t",
                                      "-",
                                      "+",
                                      "-1",
                                      "+1",
                                      "--1",
                                      "1-",
                                      ".",
                                      "..",
                                      "1..2",
                                      "1.2.3",
                                      ".5",
                                      "5.",
                                      "1e3",
                                      "1e400",
                                      "-1e400",
                                      "1d5",
                                      "nan",
                                      "inf",
                                      "-inf",
                                      "&H",
                                      "&HFF",
                                      "&hff",
                                      "&HFFFFFFFF",
                                      "&H-1",
                                      "0x10",
                                      "1,5",
                                      "1 2",
                                      "  7",
                                      "\x80\xFF",
                                      "\xC3\xA4",
                                      "5\xB5",
                                      "abc",
                                      "%s%n",
                                      "\"1\"",
                                      "1;2",
                                      "2147483648",
                                      "-2147483649",
                                      "99999999999999999999999999",
                                      "0.0000000000000001"};
    texts.emplace_back(10000, '9');
    texts.emplace_back(10000, 'x');
    texts.push_back("1" + std::string(10000, '0') + ".5");
    texts.push_back("0." + std::string(10000, '0') + "1");
    texts.emplace_back("1\0002", 3);
    return texts;
}

} // namespace zor::testing
