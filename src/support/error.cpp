// SPDX-License-Identifier: MIT
#include "support/error.h"

namespace zor {

std::string errorDescription(int number) {
    // Every number of the enum stands here once: a double would not compile.
    switch (number) {
    case invalidCall:
        return "Invalid procedure call or argument";
    case overflow:
        return "Overflow";
    case divisionByZero:
        return "Division by zero";
    case typeMismatch:
        return "Type mismatch";
    case fileNotFound:
        return "File not found";
    case deviceInputOutput:
        return "Device I/O error";
    case diskFull:
        return "Disk full";
    case inputPastEnd:
        return "Input past end of file";
    case permissionDenied:
        return "Permission denied";
    case pathFileAccess:
        return "Path/File access error";
    case pathNotFound:
        return "Path not found";
    case invalidProperty:
        return "Invalid property value";
    case invalidPort:
        return "Invalid port number";
    case portInUse:
        return "Port already open";
    case portNotOpen:
        return "Operation valid only when the port is open";
    // These are raised with a description of their own.
    case cannotCreate:
    case emptyFile:
    case fileExists:
    case unsupported:
    case wrongBanner:
    default:
        return "Application-defined error";
    }
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
