// SPDX-License-Identifier: MIT
#include "support/file_name.h"

#include <gtest/gtest.h>

namespace zor {

TEST(FileName, IsUtf8WhateverTheSystemWrites) {
    std::filesystem::path path = pathOf("folder/M\xC3\xA4rz.tc");
    EXPECT_EQ(path, std::filesystem::path(u"folder/M\u00E4rz.tc"));
    EXPECT_EQ(nameOf(path.filename()), "M\xC3\xA4rz.tc");
    EXPECT_EQ(pathOf(""), std::filesystem::path());
}

TEST(FileName, OfBytesThatAreNoTextIsStillAName) {
    for (const char* name : {"\xFF.tc", "\xC3.tc", "\xED\xA0\x80.tc"}) {
        std::filesystem::path path = pathOf(name);
        EXPECT_EQ(nameOf(path.extension()), ".tc");
        EXPECT_FALSE(nameOf(path.stem()).empty());
    }
}

} // namespace zor
