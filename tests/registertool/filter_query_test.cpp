// SPDX-License-Identifier: MIT
#include "registertool/filter_query.h"

#include <gtest/gtest.h>

namespace zor {

TEST(FilterQuery, NamesTheTickedClassesAndTheOrder) {
    struct Row {
        RegisterClasses classes;
        const char* condition;
    };
    const Row rows[] = {
        {{true, false, false, false}, "where RFReg = True "},
        {{false, true, false, false}, "where TestReg = True "},
        {{false, false, true, false}, "where DigitalReg = True "},
        {{false, false, false, true}, "where MiscReg = True "},
        {{true, false, false, true}, "where RFReg = True OR MiscReg = True "},
        {{true, true, true, true},
         "where RFReg = True OR TestReg = True OR DigitalReg = True OR MiscReg = True "},
    };
    for (const Row& row : rows) {
        std::string query = std::string("Select * from Setting ") + row.condition;
        EXPECT_EQ(filterQuery(row.classes), query);
        EXPECT_EQ(filterQuery(row.classes, RegisterOrder::ByAddress), query + "ORDER BY Address");
        EXPECT_EQ(filterQuery(row.classes, RegisterOrder::ByName), query + "ORDER BY Name");
    }
}

TEST(FilterQuery, FindsNothingWithoutAClass) {
    RegisterClasses none{false, false, false, false};
    EXPECT_EQ(filterQuery(none), "Select * from Setting where Address = 'n/a'");
    EXPECT_EQ(filterQuery(none, RegisterOrder::ByName),
              "Select * from Setting where Address = 'n/a' ORDER BY Name");
}

} // namespace zor
