// SPDX-License-Identifier: MIT
#include "host/file_backup.h"

#include "support/error.h"

#include <string>
#include <system_error>

namespace zor {

namespace {

/// The same bytes stand in the file already.
bool holds(const std::filesystem::path& file, std::string_view bytes) {
    std::error_code failed;
    if (std::filesystem::file_size(file, failed) != bytes.size() || failed) {
        return false;
    }
    try {
        return readFile(file, bytes.size()) == bytes;
    } catch (const ToolError&) {
        return false;
    }
}

/// The old file under a second name, until it is known whether the new one is written.
class OldFile {
  public:
    explicit OldFile(const std::filesystem::path& path) {
        std::error_code failed;
        // What a link leads to is what the user means by the name.
        file = std::filesystem::canonical(path, failed);
        if (failed || !std::filesystem::is_regular_file(file, failed)) {
            return;
        }
        std::filesystem::path name = ".zor-";
        name += file.filename();
        name += "-before~";
        second = file.parent_path() / name;
        // A save that was killed between its two steps has left one.
        std::filesystem::remove(second, failed);
        std::filesystem::create_hard_link(file, second, failed);
        if (failed) {
            // A medium without links, as memory sticks are.
            failed.clear();
            std::filesystem::copy_file(file, second, failed);
        }
        held = !failed;
        if (failed) {
            std::filesystem::remove(second, failed);
        }
    }
    OldFile(const OldFile&) = delete;
    OldFile& operator=(const OldFile&) = delete;
    ~OldFile() {
        std::error_code ignored;
        if (held) {
            std::filesystem::remove(second, ignored);
        }
    }

    void keep() {
        std::error_code failed;
        if (held) {
            std::filesystem::rename(second, backupOf(file), failed);
            held = static_cast<bool>(failed);
        }
    }

  private:
    std::filesystem::path file;
    std::filesystem::path second;
    bool held = false;
};

} // namespace

std::filesystem::path backupOf(const std::filesystem::path& path) {
    std::filesystem::path backup = path;
    backup += "~";
    return backup;
}

void saveUserFile(const std::filesystem::path& path, std::string_view bytes) {
    if (holds(path, bytes)) {
        writeFileWhole(path, bytes);
        return;
    }
    OldFile old(path);
    writeFileWhole(path, bytes);
    old.keep();
}

} // namespace zor
