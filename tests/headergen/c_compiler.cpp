// SPDX-License-Identifier: MIT
#include "headergen/c_compiler.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace zor::testing {

namespace {

void write(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
}

std::string read(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string numbered(const char* stem, std::size_t number, const char* extension) {
    return stem + std::to_string(number) + extension;
}

} // namespace

std::vector<std::string> macroNames(const std::string& header) {
    std::vector<std::string> names;
    std::istringstream lines(header);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string directive;
        std::string name;
        if (words >> directive >> name && directive == "#define") {
            names.push_back(name);
        }
    }
    return names;
}

void CCompiler::writeUnit(std::size_t number, const std::string& header, const std::string& guard) const {
    std::string headerName = numbered("header", number, ".h");
    write(folder / headerName, header);
    std::string function = numbered("print", number, "");
    std::string unit = "#include \"" + headerName + "\"\n#include <stdio.h>\n#ifndef " + guard +
                       "\n#error no guard\n#endif\nvoid " + function + "(void);\nvoid " + function +
                       "(void) {\n";
    for (const std::string& name : macroNames(header)) {
        if (name != guard) {
            unit += "    printf(\"" + std::to_string(number) + " " + name + " %lu\\n\", (unsigned long)" +
                    name + ");\n";
        }
    }
    write(folder / numbered("unit", number, ".c"), unit + "}\n");
}

void CCompiler::writeMain(std::size_t count) const {
    std::string declarations;
    std::string calls;
    for (std::size_t number = 0; number < count; ++number) {
        std::string function = numbered("print", number, "");
        declarations += "void " + function + "(void);\n";
        calls += "    " + function + "();\n";
    }
    write(folder / "main.c", declarations + "int main(void) {\n" + calls + "    return 0;\n}\n");
}

std::vector<MacroValues> CCompiler::valuesOf(const std::vector<std::string>& headers,
                                             const std::string& guard) {
    std::string command = "cd '" + folder.string() +
                          "' && '" ZOR_C_COMPILER
                          "' -std=c99 -Wall -Wextra -Werror -pedantic -o print main.c";
    for (std::size_t number = 0; number < headers.size(); ++number) {
        writeUnit(number, headers[number], guard);
        command += numbered(" unit", number, ".c");
    }
    writeMain(headers.size());
    std::filesystem::remove(folder / "print");
    int status = std::system((command + " > messages 2>&1 && ./print > values").c_str());
    said = read(folder / "messages");
    std::vector<MacroValues> values;
    if (status != 0) {
        return values;
    }
    values.resize(headers.size());
    std::istringstream printed(read(folder / "values"));
    std::size_t number = 0;
    std::string name;
    unsigned long value = 0;
    while (printed >> number >> name >> value) {
        values.at(number)[name] = value;
    }
    return values;
}

} // namespace zor::testing
