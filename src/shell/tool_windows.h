// SPDX-License-Identifier: MIT
#pragma once

#include "link/bench.h"
#include "shell/about.h"
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
    void openTerminal();
    void openPowerSupply();

  private:
    Bench& bench;
    WindowSlot<Splash> splash;
    WindowSlot<About> about;
    WindowSlot<Products> products;
    WindowSlot<Terminal> terminal;
    WindowSlot<PowerSupply> powerSupply;
};

} // namespace zor
