// SPDX-License-Identifier: MIT
#include "link/number_reading.h"

#include "elements/text_field.h"
#include "link/bench.h"

#include <string>
#include <utility>

namespace zor {

void tellReadingsOf(Bench& bench, std::initializer_list<TextField*> fields) {
    for (TextField* field : fields) {
        field->onCommit = [&bench, field, commit = std::move(field->onCommit)] {
            std::string typed = field->text();
            if (commit) {
                commit();
            }
            // One that is empty now took nothing of it.
            bench.tellReading(field->text().empty() ? std::string() : typed);
        };
    }
}

} // namespace zor
