// SPDX-License-Identifier: MIT
#include "support/record_file.h"

#include "support/error.h"
#include "support/numbers.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zor {

namespace {

std::string_view trimmed(std::string_view value) {
    while (!value.empty() && (value.front() == ' ' || value.front() == '\t')) {
        value.remove_prefix(1);
    }
    while (!value.empty() && (value.back() == ' ' || value.back() == '\t')) {
        value.remove_suffix(1);
    }
    return value;
}

/// The box number of a failed file operation.
int errorOf(int systemError) {
    switch (systemError) {
    case ENOENT:
        return fileNotFound;
    case ENOTDIR:
        return pathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return permissionDenied;
    case EISDIR:
    case ELOOP:
    case ENAMETOOLONG:
        return pathFileAccess;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return diskFull;
    default:
        return deviceInputOutput;
    }
}

/// An open descriptor that closes itself.
class Descriptor {
  public:
    explicit Descriptor(int descriptor)
        : number(descriptor) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int get() const { return number; }
    /// @return 0, or the system's error
    int close() {
        int closing = std::exchange(number, -1);
        return closing >= 0 && ::close(closing) != 0 ? errno : 0;
    }

  private:
    int number;
};

int writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            return errno;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/// What a link leads to, also where nothing is yet: that is what the user means by the name, and renaming
/// over the link would cut it off.
std::filesystem::path linkTarget(std::filesystem::path path) {
    constexpr int longestChain = 40; // the system's own limit
    std::error_code failure;
    for (int hop = 0; std::filesystem::is_symlink(path, failure); ++hop) {
        std::filesystem::path next = std::filesystem::read_symlink(path, failure);
        if (failure || hop == longestChain) {
            throw ToolError(pathFileAccess);
        }
        path = path.parent_path() / next; // an absolute one stands alone
    }
    return path;
}

/// The mode that the user's mask leaves to a new file.
mode_t newFileMode() {
    mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

} // namespace

void RecordWriter::line(std::string_view value) {
    content += value;
    content += "\r\n";
}

void RecordWriter::text(std::string_view value) {
    content += '"';
    content += value;
    content += "\"\r\n";
}

void RecordWriter::boolean(bool value) {
    line(value ? "#TRUE#" : "#FALSE#");
}

void RecordWriter::integer(std::int64_t value) {
    line(std::to_string(value));
}

void RecordWriter::position(float value) {
    line(numberText(value));
}

std::string_view RecordReader::line() {
    if (atEnd()) {
        throw ToolError(inputPastEnd);
    }
    std::string_view rest(content);
    rest.remove_prefix(next);
    std::size_t end = rest.find_first_of("\r\n");
    if (end == std::string_view::npos) {
        next = content.size();
        return rest;
    }
    std::size_t behind = end + 1;
    if (rest[end] == '\r' && behind < rest.size() && rest[behind] == '\n') {
        ++behind;
    }
    next += behind;
    return rest.substr(0, end);
}

std::string_view RecordReader::record() {
    return trimmed(line());
}

bool RecordReader::isText(std::string_view expected) {
    try {
        return text() == expected;
    } catch (const ToolError& error) {
        if (error.number() == typeMismatch) {
            return false;
        }
        throw;
    }
}

bool RecordReader::isExactly(std::string_view expected) {
    std::string_view found = line();
    return found.size() == expected.size() + 2 && found.front() == '"' && found.back() == '"' &&
           found.substr(1, expected.size()) == expected;
}

std::string RecordReader::text() {
    std::string_view value = record();
    if (value.empty() || value.front() != '"') {
        // A bare number or truth value is another form; a text record always opens with its mark.
        throw ToolError(typeMismatch);
    }
    value.remove_prefix(1);
    std::size_t closing = value.find('"');
    if (closing == std::string_view::npos) {
        throw ToolError(typeMismatch);
    }
    return std::string(value.substr(0, closing));
}

bool RecordReader::boolean() {
    std::string_view value = record();
    if (value == "#TRUE#") {
        return true;
    }
    if (value == "#FALSE#") {
        return false;
    }
    throw ToolError(typeMismatch);
}

std::int32_t RecordReader::integer() {
    std::string_view value = record();
    std::string_view digits = value;
    if (!digits.empty() && (digits.front() == '-' || digits.front() == '+')) {
        digits.remove_prefix(1);
    }
    if (digits.empty() || digits.find_first_not_of("0123456789.") != std::string_view::npos) {
        throw ToolError(typeMismatch);
    }
    std::optional<double> number = readNumericPrefix(value);
    if (!number || digits.find('.') != digits.rfind('.')) {
        throw ToolError(typeMismatch);
    }
    double rounded = roundTiesEven(*number);
    if (rounded < std::numeric_limits<std::int32_t>::min() ||
        rounded > std::numeric_limits<std::int32_t>::max()) {
        throw ToolError(overflow);
    }
    return static_cast<std::int32_t>(rounded);
}

std::string readFile(const std::filesystem::path& path, std::uintmax_t limit) {
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.get() < 0) {
        int failure = errno;
        std::error_code ignored;
        bool folderMissing = failure == ENOENT && path.has_parent_path() &&
                             !std::filesystem::is_directory(path.parent_path(), ignored);
        throw ToolError(folderMissing ? static_cast<int>(pathNotFound) : errorOf(failure));
    }
    struct stat info = {};
    if (::fstat(file.get(), &info) != 0) {
        throw ToolError(errorOf(errno));
    }
    if (!S_ISREG(info.st_mode)) {
        throw ToolError(pathFileAccess);
    }
    std::string bytes;
    std::array<char, 65536> block{};
    for (;;) {
        ssize_t count = ::read(file.get(), block.data(), block.size());
        if (count < 0) {
            if (errno == EINTR) {
                continue;
            }
            throw ToolError(errorOf(errno));
        }
        if (count == 0) {
            return bytes;
        }
        bytes.append(block.data(), static_cast<std::size_t>(count));
        if (bytes.size() > limit) {
            throw ToolError(deviceInputOutput);
        }
    }
}

void writeFileWhole(const std::filesystem::path& path, std::string_view bytes) {
    std::filesystem::path target = linkTarget(path);
    struct stat old = {};
    bool exists = ::stat(target.c_str(), &old) == 0;
    // A rename would put a file in the place of a device, and a folder cannot be written at all.
    if (exists && !S_ISREG(old.st_mode)) {
        throw ToolError(pathFileAccess);
    }
    // Renaming would get round a write protection that the user set on the old file.
    if (exists && ::access(target.c_str(), W_OK) != 0) {
        throw ToolError(errorOf(errno));
    }
    std::filesystem::path folder =
        target.has_parent_path() ? target.parent_path() : std::filesystem::path(".");
    std::error_code ignored;
    if (!std::filesystem::is_directory(folder, ignored)) {
        throw ToolError(pathNotFound);
    }
    // A name of its own, as the file's may already be as long as a name can be.
    std::string neighbour = (folder / ".zor-XXXXXX").string();
    Descriptor file(::mkstemp(neighbour.data()));
    if (file.get() < 0) {
        throw ToolError(errorOf(errno));
    }
    int failure = ::fchmod(file.get(), exists ? old.st_mode & 07777 : newFileMode()) != 0 ? errno : 0;
    if (failure == 0) {
        failure = writeAll(file.get(), bytes);
    }
    if (failure == 0 && ::fsync(file.get()) != 0 && errno != EINVAL) {
        failure = errno;
    }
    int closing = file.close();
    if (failure == 0) {
        failure = closing;
    }
    if (failure == 0 && std::rename(neighbour.c_str(), target.c_str()) != 0) {
        failure = errno;
    }
    if (failure != 0) {
        ::unlink(neighbour.c_str());
        throw ToolError(errorOf(failure));
    }
}

} // namespace zor
