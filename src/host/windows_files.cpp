// SPDX-License-Identifier: MIT
// Files by the calls of Windows: the standard library knows no flush to the medium, no attributes and no file
// that is there at once or not at all.
#include "host/files.h"

#include "support/error.h"

#include <algorithm>
#include <array>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include <windows.h>

namespace zor {

namespace {

/// The header that comes with the cross compiler does not name it.
constexpr DWORD diskQuotaExceeded = 1295;

/// The box number of a failed file operation.
int errorOf(DWORD systemError) {
    switch (systemError) {
    case ERROR_FILE_NOT_FOUND:
        return fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return pathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_USER_MAPPED_FILE:
        return permissionDenied;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_CANT_RESOLVE_FILENAME:
    case ERROR_DIRECTORY:
        return pathFileAccess;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case diskQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
        return diskFull;
    default:
        return deviceInputOutput;
    }
}

[[noreturn]] void fail(DWORD systemError) {
    throw ToolError(errorOf(systemError));
}

/// An open handle that closes itself.
class Handle {
  public:
    explicit Handle(HANDLE handle)
        : own(handle) {}
    ~Handle() { close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    [[nodiscard]] HANDLE get() const { return own; }
    [[nodiscard]] bool open() const { return own != INVALID_HANDLE_VALUE; }
    /// @return 0, or the system's error
    DWORD close() {
        HANDLE closing = std::exchange(own, INVALID_HANDLE_VALUE);
        return closing != INVALID_HANDLE_VALUE && ::CloseHandle(closing) == 0 ? ::GetLastError() : 0;
    }

  private:
    HANDLE own;
};

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE openExisting(const std::wstring& name, DWORD access) {
    // The flag lets a folder be opened like a file.
    return ::CreateFileW(name.c_str(), access, shareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                         nullptr);
}

/// A whole path in the system's own writing, which may be longer than 260 characters. The name of a device
/// ("NUL", "COM1") stays one.
std::wstring systemName(const std::filesystem::path& path) {
    DWORD room = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring whole(room, L'\0');
    whole.resize(room == 0 ? 0 : ::GetFullPathNameW(path.c_str(), room, whole.data(), nullptr));
    if (whole.empty() || whole.starts_with(L"\\\\.\\") || whole.starts_with(L"\\\\?\\")) {
        return whole;
    }
    return whole.starts_with(L"\\\\") ? L"\\\\?\\UNC" + whole.substr(1) : L"\\\\?\\" + whole;
}

bool isFolder(const std::wstring& name) {
    Handle folder(openExisting(name, FILE_READ_ATTRIBUTES));
    BY_HANDLE_FILE_INFORMATION info = {};
    return folder.open() && ::GetFileInformationByHandle(folder.get(), &info) != 0 &&
           (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// The attributes of an open plain file; for a device or a folder it throws pathFileAccess.
DWORD plainAttributes(const Handle& file) {
    BY_HANDLE_FILE_INFORMATION info = {};
    if (::GetFileType(file.get()) != FILE_TYPE_DISK) {
        throw ToolError(pathFileAccess);
    }
    if (::GetFileInformationByHandle(file.get(), &info) == 0) {
        fail(::GetLastError());
    }
    if ((info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw ToolError(pathFileAccess);
    }
    return info.dwFileAttributes;
}

/// What a name leads to, through links, and the attributes of the file that is there.
struct Target {
    std::wstring name;
    std::optional<DWORD> attributes;
};

Target targetOf(const std::filesystem::path& path) {
    Target target{systemName(path), std::nullopt};
    Handle file(openExisting(target.name, FILE_READ_ATTRIBUTES));
    DWORD failure = file.open() ? 0 : ::GetLastError();
    DWORD entry = ::GetFileAttributesW(target.name.c_str());
    bool isLink = entry != INVALID_FILE_ATTRIBUTES && (entry & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    if (failure == ERROR_FILE_NOT_FOUND && !isLink) {
        return target;
    }
    if (failure != 0) {
        // A link to nothing would be cut off by a file in its place.
        throw ToolError(isLink ? static_cast<int>(pathFileAccess) : errorOf(failure));
    }
    target.attributes = plainAttributes(file);
    if (isLink) {
        DWORD room = ::GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED);
        std::wstring name(room, L'\0');
        DWORD length = ::GetFinalPathNameByHandleW(file.get(), name.data(), room, FILE_NAME_NORMALIZED);
        if (length == 0 || length >= room) {
            throw ToolError(pathFileAccess);
        }
        name.resize(length);
        target.name = std::move(name);
    }
    return target;
}

DWORD writeAll(HANDLE file, std::string_view bytes) {
    constexpr std::size_t most = 1u << 20;
    while (!bytes.empty()) {
        DWORD written = 0;
        if (::WriteFile(file, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), most)), &written,
                        nullptr) == 0) {
            return ::GetLastError();
        }
        bytes.remove_prefix(written);
    }
    return ::FlushFileBuffers(file) == 0 ? ::GetLastError() : 0;
}

constexpr std::size_t longestName = 255;
constexpr std::wstring_view neighbourPrefix = L".zor-";
constexpr std::size_t suffixLength = 6;
constexpr std::wstring_view suffixLetters = L"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

/// The beginning of the name that a file is written under until it is whole: it has the file's own name in
/// it, or as much of that as a name has room for.
std::wstring neighbourHead(std::wstring_view name) {
    constexpr std::size_t room = longestName - neighbourPrefix.size() - 1 - suffixLength;
    return std::wstring(neighbourPrefix).append(name.substr(0, room)).append(L"-");
}

/// A saving that was killed leaves its neighbour behind; the next one of that file takes it away. One that
/// still works shares its own with nobody, which keeps it from being deleted.
void clearLeftovers(const std::wstring& folder, const std::wstring& head) {
    WIN32_FIND_DATAW found = {};
    HANDLE search = ::FindFirstFileW((folder + head).append(suffixLength, L'?').c_str(), &found);
    std::vector<std::wstring> leftovers;
    for (bool any = search != INVALID_HANDLE_VALUE; any; any = ::FindNextFileW(search, &found) != 0) {
        std::wstring name = found.cFileName;
        bool ours = name.size() == head.size() + suffixLength && name.starts_with(head) &&
                    name.find_first_not_of(suffixLetters, head.size()) == std::wstring::npos;
        if (ours && (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            leftovers.push_back(folder + name);
        }
    }
    if (search != INVALID_HANDLE_VALUE) {
        ::FindClose(search);
    }
    for (const std::wstring& leftover : leftovers) {
        ::DeleteFileW(leftover.c_str());
    }
}

/// Makes the file to write, under a name that nobody has.
HANDLE makeNeighbour(const std::wstring& stem, DWORD attributes, std::wstring& name) {
    constexpr int attempts = 100;
    std::random_device chance;
    std::uniform_int_distribution<std::size_t> letter(0, suffixLetters.size() - 1);
    for (int attempt = 0; attempt < attempts; ++attempt) {
        name = stem;
        for (std::size_t count = 0; count < suffixLength; ++count) {
            name += suffixLetters[letter(chance)];
        }
        HANDLE file = ::CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, attributes, nullptr);
        if (file != INVALID_HANDLE_VALUE || ::GetLastError() != ERROR_FILE_EXISTS) {
            return file;
        }
    }
    return INVALID_HANDLE_VALUE;
}

/// The attributes that a person gives to a file.
constexpr DWORD keptAttributes = FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

} // namespace

std::string readFile(const std::filesystem::path& path, std::uintmax_t limit) {
    if (path.empty()) {
        throw ToolError(fileNotFound);
    }
    Handle file(openExisting(systemName(path), GENERIC_READ));
    if (!file.open()) {
        fail(::GetLastError());
    }
    plainAttributes(file);
    std::string bytes;
    std::vector<char> block(65536);
    for (;;) {
        DWORD count = 0;
        if (::ReadFile(file.get(), block.data(), static_cast<DWORD>(block.size()), &count, nullptr) == 0) {
            fail(::GetLastError());
        }
        if (count == 0) {
            return bytes;
        }
        bytes.append(block.data(), count);
        if (bytes.size() > limit) {
            throw ToolError(deviceInputOutput);
        }
    }
}

void writeFileWhole(const std::filesystem::path& path, std::string_view bytes) {
    Target target = targetOf(path);
    // Renaming would get round a write protection that the user set on the old file.
    if ((target.attributes.value_or(0) & FILE_ATTRIBUTE_READONLY) != 0) {
        throw ToolError(permissionDenied);
    }
    std::size_t nameBegin = target.name.find_last_of(L'\\') + 1;
    std::wstring folder = target.name.substr(0, nameBegin);
    if (!isFolder(folder)) {
        throw ToolError(pathNotFound);
    }
    if (target.name.size() - nameBegin > longestName) {
        throw ToolError(pathFileAccess);
    }
    std::wstring head = neighbourHead(std::wstring_view(target.name).substr(nameBegin));
    clearLeftovers(folder, head);
    std::wstring neighbour;
    DWORD attributes = target.attributes.value_or(FILE_ATTRIBUTE_ARCHIVE) & keptAttributes;
    Handle file(
        makeNeighbour(folder + head, attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL, neighbour));
    if (!file.open()) {
        fail(::GetLastError());
    }
    DWORD failure = writeAll(file.get(), bytes);
    DWORD closing = file.close();
    failure = failure != 0 ? failure : closing;
    // One rename within a folder: there is no moment without the old file or the new one.
    if (failure == 0 && ::MoveFileExW(neighbour.c_str(), target.name.c_str(),
                                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
        failure = ::GetLastError();
    }
    if (failure != 0) {
        ::DeleteFileW(neighbour.c_str());
        fail(failure);
    }
}

bool mayWrite(const std::filesystem::path& folder) {
    std::wstring name = systemName(folder);
    // The system itself weighs the rights; a folder's attribute of write protection means nothing.
    return isFolder(name) && Handle(openExisting(name, FILE_ADD_FILE)).open();
}

} // namespace zor
