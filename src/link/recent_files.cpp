// SPDX-License-Identifier: MIT
#include "link/recent_files.h"

#include "support/file_name.h"
#include "support/letters.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace zor {

std::string kindOfFile(const std::string& path) {
    std::string extension = nameOf(pathOf(path).extension());
    if (!extension.empty()) {
        extension.erase(0, 1);
    }
    return lowerCase(extension);
}

void RecentFiles::put(const std::string& path) {
    paths.erase(std::remove(paths.begin(), paths.end(), path), paths.end());
    paths.insert(paths.begin(), path);
    std::vector<std::string> kept = ofKind(kindOfFile(path));
    if (kept.size() > most) {
        paths.erase(std::find(paths.begin(), paths.end(), kept.back()));
    }
}

void RecentFiles::use(const std::string& path) {
    std::error_code unknown;
    std::filesystem::path whole = std::filesystem::absolute(pathOf(path), unknown).lexically_normal();
    std::string name = unknown ? path : nameOf(whole);
    if (!paths.empty() && paths.front() == name) {
        return;
    }
    put(name);
    changed.emit();
}

void RecentFiles::forget(const std::string& path) {
    if (std::erase(paths, path) > 0) {
        changed.emit();
    }
}

void RecentFiles::restore(const std::vector<std::string>& kept) {
    paths.clear();
    for (std::size_t at = kept.size(); at-- > 0;) {
        put(kept[at]);
    }
    changed.emit();
}

std::vector<std::string> RecentFiles::ofKind(std::string_view extension) const {
    std::vector<std::string> kind;
    std::copy_if(paths.begin(), paths.end(), std::back_inserter(kind),
                 [extension](const std::string& path) { return kindOfFile(path) == extension; });
    return kind;
}

std::string RecentFiles::last(std::string_view extension) const {
    auto newest = std::find_if(paths.begin(), paths.end(), [extension](const std::string& path) {
        return kindOfFile(path) == extension;
    });
    return newest == paths.end() ? std::string() : *newest;
}

} // namespace zor
