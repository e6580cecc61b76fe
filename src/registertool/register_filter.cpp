// SPDX-License-Identifier: MIT
#include "registertool/register_filter.h"

#include <utility>

namespace zor {

RegisterFilter::RegisterFilter(Form& form)
    : ByName(form, OrderBy, "ByName", "Name")
    , ByAddress(form, OrderBy, "ByAddress", "Address")
    , ENRF(form, "ENRF", "RF", true)
    , ENTest(form, "ENTest", "Test", true)
    , ENDigital(form, "ENDigital", "Digital", true)
    , ENMisc(form, "ENMisc", "Misc", true)
    , ViewAll(form, "ViewAll", "View All")
    , ByName2(form, OrderBy2, "ByName2", "Name")
    , ByAddress2(form, OrderBy2, "ByAddress2", "Address")
    , ENRF2(form, "ENRF2", "RF", true)
    , ENTest2(form, "ENTest2", "Test", true)
    , ENDigital2(form, "ENDigital2", "Digital", true)
    , ENMisc2(form, "ENMisc2", "Misc", true)
    , ViewAll2(form, "ViewAll2", "View All") {
    ByAddress.putChosen();
    ByAddress2.putChosen();
    for (auto [one, two] :
         {std::pair(&ENRF, &ENRF2), {&ENTest, &ENTest2}, {&ENDigital, &ENDigital2}, {&ENMisc, &ENMisc2}}) {
        followEachOther(*one, *two);
        followEachOther(*two, *one);
    }
    for (auto [one, two] : {std::pair(&ByName, &ByName2),
                            {&ByAddress, &ByAddress2},
                            {&ByName2, &ByName},
                            {&ByAddress2, &ByAddress}}) {
        one->onChoose = [this, two = two] {
            two->putChosen();
            onChange();
        };
    }
    ViewAll.onClick = [this] { ViewAll_Click(); };
    ViewAll2.onClick = [this] { ViewAll_Click(); };
    ViewAll.setTip("Ticks all classes");
    ViewAll2.setTip("Ticks all classes");
}

void RegisterFilter::followEachOther(TickBox& one, TickBox& two) {
    one.onChange = [this, &one, &two] {
        two.putTicked(one.ticked());
        onChange();
    };
}

std::array<TickBox*, 8> RegisterFilter::boxes() {
    return {&ENRF, &ENTest, &ENDigital, &ENMisc, &ENRF2, &ENTest2, &ENDigital2, &ENMisc2};
}

RegisterClasses RegisterFilter::classes() const {
    return {ENRF.ticked(), ENTest.ticked(), ENDigital.ticked(), ENMisc.ticked()};
}

RegisterOrder RegisterFilter::order() const {
    return ByAddress.chosen() ? RegisterOrder::ByAddress : RegisterOrder::ByName;
}

bool RegisterFilter::tickAll() {
    bool changed = false;
    for (TickBox* box : boxes()) {
        changed = changed || !box->ticked();
        box->putTicked(true);
    }
    return changed;
}

void RegisterFilter::ViewAll_Click() {
    if (tickAll()) {
        onChange();
    }
    onReread();
}

} // namespace zor
