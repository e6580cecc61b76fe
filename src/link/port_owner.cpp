// SPDX-License-Identifier: MIT
#include "link/port_owner.h"

#include <cassert>
#include <utility>

namespace zor {

PortOwner::~PortOwner() {
    if (holder != nullptr) {
        holder->port = nullptr;
    }
}

PortClaim PortOwner::claim(std::int32_t firstStep) {
    return free() ? seize(firstStep) : PortClaim();
}

PortClaim PortOwner::seize(std::int32_t firstStep) {
    if (holder != nullptr) {
        std::exchange(holder, nullptr)->port = nullptr;
    }
    return {*this, firstStep};
}

void PortOwner::endStart() {
    if (holder == nullptr) {
        ownStep = 0;
    }
}

PortClaim::PortClaim(PortOwner& owner, std::int32_t firstStep)
    : port(&owner) {
    port->holder = this;
    setStep(firstStep);
}

PortClaim::PortClaim(PortClaim&& other) noexcept
    : port(std::exchange(other.port, nullptr)) {
    if (held()) {
        port->holder = this;
    }
}

PortClaim& PortClaim::operator=(PortClaim&& other) noexcept {
    if (this != &other) {
        giveBack();
        port = std::exchange(other.port, nullptr);
        if (held()) {
            port->holder = this;
        }
    }
    return *this;
}

void PortClaim::setStep(std::int32_t step) {
    assert(step != 0);
    if (held()) {
        port->ownStep = step;
    }
}

void PortClaim::giveBack() {
    if (PortOwner* owner = std::exchange(port, nullptr)) {
        owner->holder = nullptr;
        owner->ownStep = 0;
    }
}

} // namespace zor
