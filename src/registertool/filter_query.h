// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zor {

/// Which classes of registers are ticked.
struct RegisterClasses {
    bool RF = true;
    bool Test = true;
    bool Digital = true;
    bool Misc = true;
};

enum class RegisterOrder { ByAddress, ByName };

/// The column that a query orders by.
[[nodiscard]] std::string orderColumn(RegisterOrder order);

/// The query of the ticked classes without an order, ending with a blank; one that finds nothing if none is
/// ticked.
[[nodiscard]] std::string filterQuery(const RegisterClasses& classes);
/// The same in an order.
[[nodiscard]] std::string filterQuery(const RegisterClasses& classes, RegisterOrder order);

} // namespace zor
