// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace zor {

/// Holds a subscription to a Signal and ends it when destroyed or assigned over. It may outlive its signal.
class [[nodiscard]] Subscription {
  public:
    Subscription() = default;
    explicit Subscription(std::function<void()> endAction)
        : ending(std::move(endAction)) {}
    Subscription(Subscription&& other) noexcept
        : ending(std::exchange(other.ending, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            end();
            ending = std::exchange(other.ending, nullptr);
        }
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { end(); }

    void end() {
        if (auto action = std::exchange(ending, nullptr)) {
            action();
        }
    }

  private:
    std::function<void()> ending;
};

/// Tells any number of subscribers, in the order in which they came.
///
/// A subscriber that comes during a notification hears the next one; one that ends during it is not called
/// any more; the signal itself may be destroyed inside a notification.
template <class... Args>
class Signal {
  public:
    using Action = std::function<void(Args...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    Subscription subscribe(Action action) {
        auto slot = std::make_shared<Slot>(Slot{std::move(action), true});
        slots->push_back(slot);
        return Subscription([weak = std::weak_ptr<Slots>(slots), slot] {
            slot->live = false;
            if (auto list = weak.lock()) {
                list->erase(std::remove(list->begin(), list->end(), slot), list->end());
            }
        });
    }

    /// Somebody listens.
    [[nodiscard]] bool heard() const { return !slots->empty(); }

    void emit(Args... args) const {
        if (slots->empty()) {
            return;
        }
        // The copy keeps the list walkable whatever the subscribers do, and the slots alive to its end.
        Slots now = *slots;
        for (const auto& slot : now) {
            if (slot->live) {
                slot->action(args...);
            }
        }
    }

  private:
    struct Slot {
        Action action;
        bool live;
    };
    using Slots = std::vector<std::shared_ptr<Slot>>;

    std::shared_ptr<Slots> slots = std::make_shared<Slots>();
};

} // namespace zor
