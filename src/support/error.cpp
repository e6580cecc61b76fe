// SPDX-License-Identifier: MIT
#include "support/error.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zor {

namespace {

constexpr std::array<std::pair<int, std::string_view>, 13> descriptions = {{
    {invalidCall, "Invalid procedure call or argument"},
    {overflow, "Overflow"},
    {typeMismatch, "Type mismatch"},
    {fileNotFound, "File not found"},
    {deviceInputOutput, "Device I/O error"},
    {diskFull, "Disk full"},
    {inputPastEnd, "Input past end of file"},
    {permissionDenied, "Permission denied"},
    {pathFileAccess, "Path/File access error"},
    {pathNotFound, "Path not found"},
    {invalidPort, "Invalid port number"},
    {portInUse, "Port already open"},
    {portNotOpen, "Operation valid only when the port is open"},
}};

} // namespace

std::string errorDescription(int number) {
    auto row = std::find_if(descriptions.begin(), descriptions.end(),
                            [number](const auto& entry) { return entry.first == number; });
    return row == descriptions.end() ? "Application-defined error" : std::string(row->second);
}

ToolError::ToolError(int failure)
    : ToolError(failure, errorDescription(failure)) {}

ToolError::ToolError(int failure, const std::string& description)
    : std::runtime_error(description)
    , errorNumber(failure) {}

std::string errorBoxText(const ToolError& error, const std::string& closing) {
    return "Error occured:" + std::to_string(error.number()) + "," + error.what() + "\r\n" + closing;
}

} // namespace zor
