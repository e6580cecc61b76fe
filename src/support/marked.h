// SPDX-License-Identifier: MIT
#pragma once

namespace zor {

/// Sets a mark for as long as it lives.
class Marked {
  public:
    explicit Marked(bool& ownMark)
        : mark(ownMark) {
        mark = true;
    }
    Marked(const Marked&) = delete;
    Marked& operator=(const Marked&) = delete;
    ~Marked() { mark = false; }

  private:
    bool& mark;
};

} // namespace zor
