// SPDX-License-Identifier: MIT
#pragma once

#include "elements/form.h"
#include "link/bench.h"
#include "support/error.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zor::testing {

/// Tools that are plain forms, made when they are asked for; it remembers which were closed.
class FakeTools : public Tools {
  public:
    explicit FakeTools(Desk& ownDesk)
        : desk(ownDesk) {}

    [[nodiscard]] bool exists(Tool tool) const override { return names.contains(tool); }
    void open(Tool tool) override { create(tool).show(); }
    void close(Tool tool) override {
        auto action = onClose.find(tool);
        if (action != onClose.end()) {
            action->second();
        }
        closings.push_back(tool);
        if (Form* form = find(tool)) {
            form->close();
        }
    }
    Form& create(Tool tool) override {
        if (!exists(tool)) {
            throw ToolError(cannotCreate);
        }
        std::unique_ptr<Form>& form = forms[tool];
        if (!form) {
            form = std::make_unique<Form>(desk, names[tool], names[tool]);
            made.emit(tool);
        }
        return *form;
    }
    [[nodiscard]] Form* find(Tool tool) const override {
        auto form = forms.find(tool);
        return form == forms.end() ? nullptr : form->second.get();
    }

    /// The tools that exist, with their forms' names.
    std::map<Tool, std::string> names;
    std::map<Tool, std::unique_ptr<Form>> forms;
    std::vector<Tool> closings;
    /// What a tool does as it is closed; it may throw.
    std::map<Tool, std::function<void()>> onClose;

  private:
    Desk& desk;
};

} // namespace zor::testing
