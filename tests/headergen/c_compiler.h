// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace zor::testing {

/// A macro's name and the number that it stands for.
using MacroValues = std::map<std::string, unsigned long>;

/// The macros of a C header, in their order; a line that begins with "#define" is one.
[[nodiscard]] std::vector<std::string> macroNames(const std::string& header);

/// Compiles headers, each in a unit of its own, with warnings as errors, and runs the program that prints
/// their macros.
class CCompiler {
  public:
    /// @param workFolder  for its files; exists
    explicit CCompiler(std::filesystem::path workFolder)
        : folder(std::move(workFolder)) {}

    /// @param guard  a macro of every header that has no value
    /// @return what the program printed, a row a header; nothing if a header does not compile
    [[nodiscard]] std::vector<MacroValues> valuesOf(const std::vector<std::string>& headers,
                                                    const std::string& guard);
    /// What the compiler said of the last headers.
    [[nodiscard]] const std::string& messages() const { return said; }

  private:
    void writeUnit(std::size_t number, const std::string& header, const std::string& guard) const;
    void writeMain(std::size_t count) const;

    std::filesystem::path folder;
    std::string said;
};

} // namespace zor::testing
