// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"
#include "shell/about.h"
#include "shell/preferences.h"
#include "shell/tool_table.h"

#include <memory>
#include <vector>

namespace zor {

/// Keeps one window of a kind: made when it is opened, given up when it has closed, and discarded only when
/// no action can stand in it any more.
template <class Window>
class WindowSlot {
  public:
    explicit WindowSlot(EventLoop& eventLoop)
        : loop(eventLoop) {}

    [[nodiscard]] Window* get() const { return window.get(); }

    /// The open window, made by the factory if there is none.
    template <class Factory>
    Window& ensure(Factory make) {
        if (!window) {
            window = make();
            ending = window->closed.subscribe([this] { giveUp(); });
        }
        return *window;
    }

    void close() {
        if (window) {
            window->close();
        }
    }

  private:
    void giveUp() {
        std::shared_ptr<Window> leaving = std::move(window);
        loop.discardLater([leaving]() mutable { leaving.reset(); });
    }

    EventLoop& loop;
    std::unique_ptr<Window> window;
    Subscription ending;
};

/// The tools and small windows around the panels: the one place that makes them. Owned by the main window.
class ToolWindows : public Tools {
  public:
    explicit ToolWindows(Bench& ownBench, const std::vector<ToolRow>& rows = toolRows());

    [[nodiscard]] bool exists(Tool tool) const override;
    void open(Tool tool) override;
    void close(Tool tool) override;
    Form& create(Tool tool) override;
    [[nodiscard]] Form* find(Tool tool) const override;

    /// Above the middle of the main window.
    void openSplash(Extent mainExtent);
    void openAbout(Extent mainExtent);
    void openProducts();
    /// @param firmwareLoader  the menu entry that the dialog shows and hides
    void openPreferences(MenuEntry& firmwareLoader);

  private:
    struct Slot {
        const ToolRow& row;
        WindowSlot<Form> window;
    };
    [[nodiscard]] Slot& slotOf(Tool tool) const { return *slots[static_cast<std::size_t>(tool)]; }

    Bench& bench;
    std::vector<std::unique_ptr<Slot>> slots;
    WindowSlot<About> about;
    WindowSlot<Products> products;
    WindowSlot<Preferences> preferences;
};

} // namespace zor
