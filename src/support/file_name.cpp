// SPDX-License-Identifier: MIT
#include "support/file_name.h"

#include <algorithm>
#include <system_error>

namespace zor {

std::filesystem::path pathOf(std::string_view name) {
    try {
        return std::u8string(name.begin(), name.end());
    } catch (const std::system_error&) {
        std::u16string letters;
        for (char c : name) {
            letters += static_cast<unsigned char>(c);
        }
        return letters;
    }
}

std::string nameOf(const std::filesystem::path& path) {
    try {
        std::u8string name = path.u8string();
        return {name.begin(), name.end()};
    } catch (const std::system_error&) {
        std::string name;
        for (auto letter : path.native()) {
            bool plain = letter > 0 && letter < 0x7F;
            name += plain ? static_cast<char>(letter) : '?';
        }
        return name;
    }
}

std::string slashedNameOf(const std::filesystem::path& path) {
    std::string name = nameOf(path);
    std::replace(name.begin(), name.end(), static_cast<char>(std::filesystem::path::preferred_separator),
                 '/');
    return name;
}

} // namespace zor
