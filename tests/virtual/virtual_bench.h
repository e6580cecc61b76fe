// SPDX-License-Identifier: MIT
#pragma once

#include "elements/desk.h"
#include "elements/element.h"
#include "elements/form.h"
#include "link/connect.h"
#include "shell/main_window.h"
#include "virtual/virtual_machine.h"

#include <memory>

namespace zor::testing {

/// The whole program on a virtual machine. Place the boards, start, and act through its elements.
///
///     VirtualBench bench;
///     bench.ports.place(3, sim::BoardKind::LoadBoard2);
///     bench.startAndSearch();
class VirtualBench : public VirtualMachine {
  public:
    VirtualBench()
        : desk(loop)
        , program(std::make_unique<MainWindow>(platform, desk)) {}
    VirtualBench(const VirtualBench&) = delete;
    VirtualBench& operator=(const VirtualBench&) = delete;
    ~VirtualBench() {
        // Windows that wait for their discarding must not outlive the desk.
        program.reset();
        loop.perform([] {});
    }

    [[nodiscard]] MainWindow& main() { return *program; }
    [[nodiscard]] zor::Bench& shared() { return program->bench(); }
    [[nodiscard]] Connect& channel() { return *shared().connect; }

    void start() {
        loop.perform([this] { program->start(); });
    }
    /// Starts and lets the search end: a single board is then connected.
    void startAndSearch() {
        start();
        while (shared().link.CommState() != 0) {
            loop.runOnce();
        }
    }
    void run(std::chrono::milliseconds time) { loop.runFor(time); }
    /// The action runs when that much time has passed, in the middle of whatever waits then.
    void after(std::chrono::milliseconds time, std::function<void()> action) {
        loop.startTimer(time, EventLoop::Repeat::Once,
                        [this, action = std::move(action)] { loop.perform(action); });
    }

    /// The element of a window that exists; throws std::out_of_range for an unknown name.
    [[nodiscard]] Element& at(std::string_view form, std::string_view element) {
        Form* window = desk.find(form);
        Element* found = window == nullptr ? nullptr : window->find(element);
        if (found == nullptr) {
            throw std::out_of_range("no element " + std::string(form) + "." + std::string(element));
        }
        return *found;
    }

    /// The lines that reached the boards since the last call.
    std::vector<std::string> takeSent() {
        std::vector<std::string> lines;
        for (VirtualPorts::SentLine& line : ports.sent) {
            lines.push_back(std::move(line.text));
        }
        ports.sent.clear();
        return lines;
    }

    Desk desk;

  private:
    std::unique_ptr<MainWindow> program;
};

} // namespace zor::testing
