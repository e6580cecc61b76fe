// SPDX-License-Identifier: MIT
#pragma once

#include "elements/range.h"
#include "panels/common/chip_panel.h"
#include "virtual/virtual_bench.h"

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zor::testing {

/// The program without a start, or with a board found and connected.
enum class With { NoBoard, LoadBoard1, LoadBoard2 };

inline constexpr int boardPort = 3;

/// A panel on the virtual bench, loaded and shown, as an engineer has it in front of him.
template <class Panel>
class PanelBench : public VirtualBench {
  public:
    explicit PanelBench(With with = With::NoBoard)
        : panel(nullptr) {
        if (with == With::NoBoard) {
            shared().link.port.endStart();
        } else {
            ports.place(boardPort,
                        with == With::LoadBoard1 ? sim::BoardKind::LoadBoard1 : sim::BoardKind::LoadBoard2);
            startAndSearch();
        }
        takeSent();
    }

    /// Loads and shows the panel; the preferences count until then.
    Panel& open() {
        owned = std::make_unique<Panel>(shared());
        panel = owned.get();
        loop.perform([this] {
            panel->load();
            panel->SetFrameMode();
            panel->show();
        });
        return *panel;
    }

    /// The text of a control word or any other element.
    [[nodiscard]] std::string text(std::string_view name) { return element(name).text(); }

    [[nodiscard]] Element& element(std::string_view name) {
        Element* found = panel->find(name);
        if (found == nullptr) {
            throw std::out_of_range("no element " + std::string(name));
        }
        return *found;
    }

    // Gestures that must be possible.
    void type(std::string_view name, std::string_view text) { done(element(name).type(text), name); }
    void choose(std::string_view name, std::string_view entry) {
        done(element(name).chooseText(entry), name);
    }
    void choose(std::string_view name, int position) { done(element(name).choosePosition(position), name); }
    void click(std::string_view name) { done(element(name).click(), name); }
    void tick(std::string_view name) { done(element(name).tick(true), name); }
    void untick(std::string_view name) { done(element(name).tick(false), name); }
    void slide(std::string_view name, int value) { done(element(name).slide(value), name); }

    /// The text of the oldest box not yet looked at; empty if there is none.
    std::string takeBox() {
        if (dialogs.boxes.empty()) {
            return {};
        }
        std::string text = dialogs.boxes.front().text;
        dialogs.boxes.pop_front();
        return text;
    }

    sim::Board& board() { return ports.seat(boardPort).board(); }

    Panel* panel;

  private:
    static void done(bool accepted, std::string_view name) {
        if (!accepted) {
            throw std::logic_error("refused: " + std::string(name));
        }
    }

    std::unique_ptr<Panel> owned;
};

} // namespace zor::testing
