// SPDX-License-Identifier: MIT
#include "support/markdown.h"

#include "support/letters.h"

#include <algorithm>

namespace zor {

namespace {

/// Where a link's target stands in the text, behind "](".
struct Target {
    std::size_t begin;
    std::size_t end;
};

/// The next target at or behind `from`; its begin is npos if there is none.
Target nextTarget(std::string_view text, std::size_t from) {
    constexpr std::string_view mark = "](";
    std::size_t begin = text.find(mark, from);
    std::size_t end = begin == std::string_view::npos ? begin : text.find(')', begin);
    if (end == std::string_view::npos) {
        return {end, end};
    }
    return {begin + mark.size(), end};
}

std::string withoutTargets(std::string_view markdown) {
    std::string text;
    std::size_t from = 0;
    for (Target next = nextTarget(markdown, 0); next.begin != std::string_view::npos;
         next = nextTarget(markdown, from)) {
        text += markdown.substr(from, next.begin - from);
        from = next.end;
    }
    return text += markdown.substr(from);
}

} // namespace

std::vector<std::string> headingsOf(std::string_view markdown, int level) {
    std::vector<std::string> headings;
    std::string mark(static_cast<std::size_t>(level), '#');
    mark += ' ';
    bool fenced = false;
    while (!markdown.empty()) {
        std::string_view line = markdown.substr(0, markdown.find('\n'));
        markdown.remove_prefix(std::min(line.size() + 1, markdown.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        fenced = fenced != line.starts_with("```");
        if (!fenced && line.starts_with(mark)) {
            headings.emplace_back(line.substr(mark.size()));
        }
    }
    return headings;
}

std::string anchorOf(std::string_view heading) {
    std::string anchor;
    for (char c : heading) {
        bool ascii = static_cast<unsigned char>(c) < 0x80;
        if (isLetter(c) || isDigit(c) || c == '-' || c == '_' || !ascii) {
            anchor += lower(c);
        } else if (c == ' ') {
            anchor += '-';
        }
    }
    return anchor;
}

std::vector<std::string> linkedDocuments(std::string_view markdown) {
    std::vector<std::string> documents;
    for (Target next = nextTarget(markdown, 0); next.begin != std::string_view::npos;
         next = nextTarget(markdown, next.end)) {
        std::string_view target = markdown.substr(next.begin, next.end - next.begin);
        std::string document(target.substr(0, target.find('#')));
        bool known = std::find(documents.begin(), documents.end(), document) != documents.end();
        if (document.ends_with(".md") && document.find("://") == std::string::npos && !known) {
            documents.push_back(std::move(document));
        }
    }
    return documents;
}

std::string readableText(std::string_view markdown) {
    constexpr std::string_view marks = "*`#|[]()";
    std::string text;
    for (char c : withoutTargets(markdown)) {
        if (isSpace(c)) {
            if (!text.empty() && text.back() != ' ') {
                text += ' ';
            }
        } else if (marks.find(c) == std::string_view::npos) {
            text += lower(c);
        }
    }
    return text;
}

} // namespace zor
