// SPDX-License-Identifier: MIT
#include "compare/open_panel.h"

#include "panels/common/chip_panel.h"

namespace zor {

OpenPanel::OpenPanel(Bench& ownBench, std::function<void()> onOther)
    : bench(ownBench)
    , tell(std::move(onOther))
    , opening(bench.desk.opened.subscribe([this](Form&) { look(); })) {}

void OpenPanel::look() {
    ChipPanel* now = bench.openPanel();
    if (now != nullptr && !now->isOpen()) {
        now = nullptr;
    }
    std::string nowTitle = now == nullptr ? std::string() : now->title();
    if (now == panel && nowTitle == title) {
        return;
    }
    if (now != panel) {
        following.clear();
        if (now != nullptr) {
            following.push_back(now->changed.subscribe([this] { look(); }));
            following.push_back(now->closed.subscribe([this] { look(); }));
        }
    }
    panel = now;
    title = std::move(nowTitle);
    tell();
}

void OpenPanel::end() {
    opening.end();
    following.clear();
    panel = nullptr;
}

} // namespace zor
