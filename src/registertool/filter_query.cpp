// SPDX-License-Identifier: MIT
#include "registertool/filter_query.h"

#include <utility>

namespace zor {

std::string orderColumn(RegisterOrder order) {
    return order == RegisterOrder::ByAddress ? "Address" : "Name";
}

std::string filterQuery(const RegisterClasses& classes) {
    const std::pair<bool, const char*> parts[] = {
        {classes.RF, "RFReg = True OR "},
        {classes.Test, "TestReg = True OR "},
        {classes.Digital, "DigitalReg = True OR "},
        {classes.Misc, "MiscReg = True OR "},
    };
    std::string condition = " ";
    for (auto [ticked, text] : parts) {
        condition += ticked ? text : "";
    }
    if (condition.size() < 2) {
        return "Select * from Setting where Address = 'n/a'";
    }
    // The last "OR " goes, its blank in front stays.
    return "Select * from Setting where" + condition.substr(0, condition.size() - 3);
}

std::string filterQuery(const RegisterClasses& classes, RegisterOrder order) {
    std::string query = filterQuery(classes);
    return query + (query.ends_with(' ') ? "" : " ") + "ORDER BY " + orderColumn(order);
}

} // namespace zor
