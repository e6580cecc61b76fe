// SPDX-License-Identifier: MIT
#pragma once

#include "elements/list_box.h"
#include "elements/range.h"
#include "elements/tick_box.h"
#include "panels/common/chip_panel.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zor::testing {

/// The settings that a chip's configuration files leave out: a load leaves them as they are.
class UnsavedSettings {
  public:
    /// Remembers those of a panel.
    explicit UnsavedSettings(ChipPanel& panel) {
        for (const char* name : namesOf(panel.name())) {
            Element* element = panel.find(name);
            if (auto* tick = dynamic_cast<TickBox*>(element)) {
                values[name] = tick->ticked() ? 1 : 0;
            } else if (auto* slider = dynamic_cast<Slider*>(element)) {
                values[name] = slider->value();
            } else {
                values[name] = dynamic_cast<ListBox&>(*element).position();
            }
        }
    }

    /// Gives them to another panel of the chip.
    void putTo(ChipPanel& panel) const {
        for (const auto& [name, value] : values) {
            Element* element = panel.find(name);
            if (auto* tick = dynamic_cast<TickBox*>(element)) {
                tick->setTicked(value == 1);
            } else if (auto* slider = dynamic_cast<Slider*>(element)) {
                slider->setValue(value);
            } else {
                dynamic_cast<ListBox&>(*element).select(value);
            }
        }
    }

  private:
    static std::vector<const char*> namesOf(std::string_view panel) {
        if (panel == "AmberV1") {
            return {"enlowdc", "STATEFILT"};
        }
        if (panel == "Coral") {
            return {"CB_PllBW"};
        }
        if (panel == "FRM_Topaz") {
            return {"SynchPattern"};
        }
        return {};
    }

    std::map<std::string, int> values;
};

} // namespace zor::testing
