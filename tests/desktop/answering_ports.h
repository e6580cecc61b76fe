// SPDX-License-Identifier: MIT
#pragma once

#include "platform/serial_port.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zor {

/// A machine whose first port can be opened and answers each line with the success prompt at the loop's next
/// turn. No search finds it.
class AnsweringPorts : public SerialPorts {
  public:
    [[nodiscard]] std::unique_ptr<SerialPort> create() override { return std::make_unique<Port>(*this); }
    void renumber() override {}
    [[nodiscard]] std::string devicePath(int) const override { return {}; }
    [[nodiscard]] bool present(int) const override { return false; }
    [[nodiscard]] std::string identity(int) const override { return {}; }
    [[nodiscard]] int find(const std::string&) override { return 0; }

    /// The lines that were written since the last call, without their carriage return.
    std::vector<std::string> takeLines() { return std::exchange(lines, {}); }

  private:
    class Port : public SerialPort {
      public:
        explicit Port(AnsweringPorts& owner)
            : ports(owner) {}
        void open(int, const LineSettings&) override { opened = true; }
        void close() override { opened = false; }
        [[nodiscard]] bool isOpen() const override { return opened; }
        void setFormat(const std::string&) override {}
        void write(std::string_view bytes) override {
            if (!opened) {
                throw ToolError(portNotOpen);
            }
            ports.lines.emplace_back(bytes.substr(0, bytes.find('\r')));
            QTimer::singleShot(0, &context, [this] {
                for (char c : std::string("\n\rOK\n\r>")) {
                    if (opened && received) {
                        received(c);
                    }
                }
            });
        }

      private:
        AnsweringPorts& ports;
        QObject context;
        bool opened = false;
    };

    std::vector<std::string> lines;
};

} // namespace zor
