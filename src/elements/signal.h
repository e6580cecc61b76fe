// SPDX-License-Identifier: MIT
#pragma once

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
        changeable(*book).push_back(slot);
        return Subscription([weak = std::weak_ptr<Book>(book), slot] {
            slot->live = false;
            if (auto held = weak.lock()) {
                std::erase(changeable(*held), slot);
            }
        });
    }

    /// Somebody listens.
    [[nodiscard]] bool heard() const { return !book->slots->empty(); }

    void emit(Args... args) const {
        if (!heard()) {
            return;
        }
        // Whoever comes or goes meanwhile does so in a list of his own; this one stays as it is to its end.
        std::shared_ptr<const Slots> now = book->slots;
        for (const auto& slot : *now) {
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
    struct Book {
        std::shared_ptr<Slots> slots = std::make_shared<Slots>();
    };

    /// The list for the next notification; a notification that runs keeps its own.
    static Slots& changeable(Book& book) {
        if (book.slots.use_count() > 1) {
            book.slots = std::make_shared<Slots>(*book.slots);
        }
        return *book.slots;
    }

    std::shared_ptr<Book> book = std::make_shared<Book>();
};

} // namespace zor
