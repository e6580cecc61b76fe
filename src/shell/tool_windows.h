// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"
#include "shell/about.h"
#include "shell/preferences.h"
#include "utilities/power_supply.h"
#include "utilities/terminal.h"

#include <memory>

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

/// The tools and small windows around the panels; fills the bench's rows of how they are opened and closed.
class ToolWindows {
  public:
    explicit ToolWindows(Bench& ownBench);

    /// Above the middle of the main window.
    void openSplash(Extent mainExtent);
    void closeSplash() { splash.close(); }
    void openAbout(Extent mainExtent);
    void openProducts();
    /// @param firmwareLoader  the menu entry that the dialog shows and hides
    void openPreferences(MenuEntry& firmwareLoader);

  private:
    /// Fills the bench's rows of a tool.
    template <class Window>
    void offer(const char* name, WindowSlot<Window>& slot) {
        auto create = [this, &slot]() -> Form& {
            return slot.ensure([this] { return std::make_unique<Window>(bench); });
        };
        bench.createTool[name] = create;
        bench.openTool[name] = [create] { create().show(); };
        bench.closeTool[name] = [&slot] { slot.close(); };
    }

    Bench& bench;
    WindowSlot<Splash> splash;
    WindowSlot<About> about;
    WindowSlot<Products> products;
    WindowSlot<Preferences> preferences;
    WindowSlot<Terminal> terminal;
    WindowSlot<PowerSupply> powerSupply;
};

} // namespace zor
