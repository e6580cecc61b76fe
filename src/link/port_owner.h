// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zor {

class PortClaim;

/// Who works with the port over several exchanges: a status read, a programming run, the search for boards.
/// One at a time; the others are refused until it has given the port back.
///
///     free --claim--> owned --giveBack, end of the claim--> free
///      |                |
///      +---- seize -----+--> owned by another; the claim before is void and gives nothing back
///
/// What the user knows as CommState is the owner's step, 0 while the port is free. Older than every claim.
class PortOwner {
  public:
    /// The step of the program's start, when nobody may begin anything yet.
    static constexpr std::int32_t startStep = 1;

    PortOwner() = default;
    PortOwner(const PortOwner&) = delete;
    PortOwner& operator=(const PortOwner&) = delete;
    ~PortOwner();

    /// Nobody works with it.
    [[nodiscard]] bool free() const { return ownStep == 0; }
    [[nodiscard]] std::int32_t step() const { return ownStep; }

    /// Takes the port for a sequence, from its first step on.
    /// @return a claim that holds nothing if somebody has the port
    [[nodiscard]] PortClaim claim(std::int32_t firstStep);
    /// Takes it from whoever has it: the search, which nothing may keep from the port.
    [[nodiscard]] PortClaim seize(std::int32_t firstStep);
    /// The program's start is over; the port may be claimed.
    void endStart();

  private:
    friend class PortClaim;

    PortClaim* holder = nullptr;
    std::int32_t ownStep = startStep;
};

/// The right to the port, given back by its end. Whoever lost it to another keeps a claim that holds nothing:
/// its steps are not told to anybody, and it gives nothing back.
class [[nodiscard]] PortClaim {
  public:
    PortClaim() = default;
    PortClaim(PortClaim&& other) noexcept;
    PortClaim& operator=(PortClaim&& other) noexcept;
    PortClaim(const PortClaim&) = delete;
    PortClaim& operator=(const PortClaim&) = delete;
    ~PortClaim() { giveBack(); }

    [[nodiscard]] bool held() const { return port != nullptr; }
    explicit operator bool() const { return held(); }
    /// 0 if it is not held.
    [[nodiscard]] std::int32_t step() const { return held() ? port->ownStep : 0; }
    /// @param step  not 0
    void setStep(std::int32_t step);
    void giveBack();

  private:
    friend class PortOwner;
    PortClaim(PortOwner& owner, std::int32_t firstStep);

    PortOwner* port = nullptr;
};

} // namespace zor
