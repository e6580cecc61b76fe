// SPDX-License-Identifier: MIT
#include "simulator/paced_queue.h"

#include <algorithm>
#include <utility>

namespace zor::sim {

void PacedQueue::push(std::string bytes, TimePoint notBefore) {
    if (bytes.empty()) {
        return;
    }
    waiting += bytes.size();
    pieces.push_back({std::move(bytes), 0, notBefore});
}

std::string PacedQueue::take(TimePoint now) {
    std::string through;
    for (auto end = next(); end && *end <= now; end = next()) {
        Piece& piece = pieces.front();
        through.push_back(piece.bytes[piece.taken]);
        lineFree = *end;
        --waiting;
        if (++piece.taken == piece.bytes.size()) {
            pieces.pop_front();
        }
    }
    return through;
}

std::string PacedQueue::takeAll() {
    std::string through;
    for (const Piece& piece : pieces) {
        through += piece.bytes.substr(piece.taken);
    }
    pieces.clear();
    waiting = 0;
    return through;
}

std::optional<PacedQueue::TimePoint> PacedQueue::next() const {
    if (pieces.empty()) {
        return std::nullopt;
    }
    return std::max(lineFree, pieces.front().notBefore) + characterTime;
}

} // namespace zor::sim
