// SPDX-License-Identifier: MIT
#include "shell/settings.h"
#include "support/as_ordinary_user.h"
#include "virtual/virtual_bench.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace zor {

TEST(SettingsFolder, OfTheUserIsMadeWhereTheProgramsMayNotBeWritten) {
    testing::TemporaryFolder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    EXPECT_TRUE(holdsForOrdinaryUser([&folder] {
        testing::VirtualMachine machine;
        Platform& platform = machine.platform;
        platform.programFolder = folder.path() / "program";
        platform.userFolder = folder.path() / "home" / "user" / "zor";
        std::filesystem::create_directory(platform.programFolder);
        using std::filesystem::perms;
        std::filesystem::permissions(platform.programFolder, perms::owner_read | perms::owner_exec);
        StoredPreferences preferences{"2", 1, 0, "12"};
        writePreferences(platform, preferences);
        EXPECT_TRUE(std::filesystem::exists(platform.userFolder / "ZOR.ini"));
        EXPECT_FALSE(std::filesystem::exists(platform.programFolder / "ZOR.ini"));
        EXPECT_EQ(settingsFileToRead(platform, "ZOR.ini"), platform.userFolder / "ZOR.ini");
        std::filesystem::permissions(platform.programFolder, perms::owner_all);
    }));
}

} // namespace zor
