// SPDX-License-Identifier: MIT
// Files by POSIX calls: the standard library knows no sync to the medium, no mode and no file that is there
// at once or not at all.
#include "host/files.h"

#include "support/error.h"
#include "support/letters.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>
#include <vector>

#include <climits>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zor {

namespace {

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

constexpr std::string_view neighbourPrefix = ".zor-";
constexpr std::string_view neighbourSuffix = "XXXXXX";

/// The beginning of the name that a file is written under until it is whole: it has the file's own name in
/// it, or as much of that as a name has room for.
std::string neighbourHead(const std::string& name) {
    constexpr std::size_t room = NAME_MAX - neighbourPrefix.size() - 1 - neighbourSuffix.size();
    return std::string(neighbourPrefix) + name.substr(0, room) + "-";
}

/// A saving that was killed leaves its neighbour behind; the next one of that file takes it away. One that
/// still works holds a lock on its own.
void clearLeftovers(const std::filesystem::path& folder, const std::string& head) {
    auto isNeighbour = [&head](std::string_view name) {
        return name.size() == head.size() + neighbourSuffix.size() && name.starts_with(head) &&
               std::ranges::all_of(name.substr(head.size()),
                                   [](char c) { return isLetter(c) || isDigit(c); });
    };
    std::error_code failed;
    std::vector<std::filesystem::path> leftovers;
    for (std::filesystem::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        if (isNeighbour(entry->path().filename().string())) {
            leftovers.push_back(entry->path());
        }
    }
    for (const std::filesystem::path& leftover : leftovers) {
        Descriptor file(::open(leftover.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        struct stat info = {};
        bool plain = file.get() >= 0 && ::fstat(file.get(), &info) == 0 && S_ISREG(info.st_mode);
        if (plain && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
            ::unlink(leftover.c_str());
        }
    }
}

} // namespace

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
    std::string head = neighbourHead(target.filename().string());
    clearLeftovers(folder, head);
    std::string neighbour = (folder / head).string().append(neighbourSuffix);
    Descriptor file(::mkostemp(neighbour.data(), O_CLOEXEC));
    if (file.get() < 0) {
        throw ToolError(errorOf(errno));
    }
    // Says to other savings of the same file that this one is alive.
    ::flock(file.get(), LOCK_EX | LOCK_NB);
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

bool mayWrite(const std::filesystem::path& folder) {
    return ::access(folder.c_str(), W_OK) == 0;
}

} // namespace zor
