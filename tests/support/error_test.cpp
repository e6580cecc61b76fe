// SPDX-License-Identifier: MIT
#include "support/error.h"

#include <gtest/gtest.h>

namespace zor {

TEST(ToolError, CarriesItsNumberAndTheCustomaryDescription) {
    ToolError error(fileNotFound);
    EXPECT_EQ(error.number(), 53);
    EXPECT_STREQ(error.what(), "File not found");
    EXPECT_EQ(errorDescription(6), "Overflow");
    EXPECT_EQ(errorDescription(13), "Type mismatch");
    EXPECT_EQ(errorDescription(57), "Device I/O error");
    EXPECT_EQ(errorDescription(61), "Disk full");
    EXPECT_EQ(errorDescription(62), "Input past end of file");
    EXPECT_EQ(errorDescription(70), "Permission denied");
    EXPECT_EQ(errorDescription(75), "Path/File access error");
    EXPECT_EQ(errorDescription(76), "Path not found");
    EXPECT_EQ(errorDescription(8002), "Invalid port number");
    EXPECT_EQ(errorDescription(8005), "Port already open");
    EXPECT_EQ(errorDescription(8018), "Operation valid only when the port is open");
    EXPECT_EQ(errorDescription(1226), "Application-defined error");
}

TEST(ToolError, ItsBoxNamesNumberDescriptionAndTheClosingLine) {
    EXPECT_EQ(errorBoxText(ToolError(fileNotFound)), "Error occured:53,File not found\r\nPlease try again!");
    EXPECT_EQ(
        errorBoxText(ToolError(1226, "Incorrect workspace file version"), "Please save the workspace again!"),
        "Error occured:1226,Incorrect workspace file version\r\nPlease save the workspace again!");
}

} // namespace zor
