// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace zor {

/// Run-time error numbers as they show in boxes.
enum ErrorNumber : int {
    invalidCall = 5,
    overflow = 6,
    divisionByZero = 11,
    typeMismatch = 13,
    fileNotFound = 53,
    deviceInputOutput = 57,
    diskFull = 61,
    inputPastEnd = 62,
    permissionDenied = 70,
    pathFileAccess = 75,
    pathNotFound = 76,
    /// A value that its control does not take.
    invalidProperty = 380,
    cannotCreate = 429,
    emptyFile = 1222,
    fileExists = 1223,
    /// A file of a foreign kind, or a line that could not be broken: the boxes of both bear this number.
    unsupported = 1225,
    wrongBanner = 1226,
    invalidPort = 8002,
    portInUse = 8005,
    portNotOpen = 8018,
};

/// The customary description of a run-time error number; "Application-defined error" for a number of no
/// table.
[[nodiscard]] std::string errorDescription(int number);

/// A failure that the user gets to see, with the number and description that its box names. Caught once per
/// action, by the window that began it.
class ToolError : public std::runtime_error {
  public:
    explicit ToolError(int errorNumber);
    ToolError(int errorNumber, const std::string& description);

    [[nodiscard]] int number() const { return errorNumber; }

  private:
    int errorNumber;
};

/// The text of a box for a caught error: "Error occured:", number, ",", description, CR LF and the closing
/// line.
[[nodiscard]] std::string errorBoxText(const ToolError& error,
                                       const std::string& closing = "Please try again!");

} // namespace zor
