// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zor::sim {

/// What has happened to the terminal's client side.
enum class ClientEvent { none, opened, closed, reopened };

/// The master side of a pseudo-terminal in raw mode. It outlives its clients: one may close the terminal and
/// another open it, and both are told.
class PseudoTerminal {
  public:
    /// Throws std::system_error if the system gives no terminal, or cannot watch it.
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// What a client opens.
    [[nodiscard]] const std::string& path() const { return slavePath; }

    /// Readable when the client wrote; to be polled only while a client is there, since it hangs up without
    /// one.
    [[nodiscard]] int dataDescriptor() const { return master; }
    /// Readable when a client opened or closed.
    [[nodiscard]] int eventDescriptor() const { return watch; }
    [[nodiscard]] bool hasClient() const { return clients > 0; }

    /// Reads what happened since the last call. What a client that closed had not read is thrown away.
    ClientEvent takeEvent();
    /// What the client wrote, at most 4096 bytes; empty if there is nothing.
    std::string read();
    /// The speed that the client set, in bits a second; nothing if it is none of the usual ones.
    [[nodiscard]] std::optional<int> speed() const;
    /// To the client. What it has no room for is lost, as on a real line without flow control.
    void write(std::string_view bytes);

  private:
    void startWatch();
    /// Whether a client closed since the last call.
    [[nodiscard]] bool readEvents();
    void discardOutput();
    [[nodiscard]] bool hungUp() const;

    int master = -1;
    int watch = -1;
    int watchedPath = -1;
    int clients = 0;
    std::string slavePath;
};

} // namespace zor::sim
