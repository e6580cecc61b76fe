// SPDX-License-Identifier: MIT
#include "panels/common/configuration_file.h"

#include "elements/list_box.h"
#include "elements/options.h"
#include "elements/range.h"
#include "elements/text_field.h"
#include "elements/tick_box.h"
#include "support/error.h"
#include "support/record_file.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace zor {

namespace {

/// A whole number that the element can have.
std::int32_t integerWithin(RecordReader& reader, std::int32_t lowest, std::int32_t highest) {
    std::int32_t value = reader.integer();
    if (value < lowest || value > highest) {
        throw ToolError(invalidProperty);
    }
    return value;
}

template <class Box>
std::function<void(RecordWriter&)> writeText(const Box& box) {
    return [&box](RecordWriter& writer) { writer.text(box.text()); };
}

enum class Showing { AtTheEnd, AtOnceToo };

ConfigurationLine heldLine(TextField& field, Showing showing) {
    auto held = std::make_shared<std::string>();
    return {field.name(), writeText(field),
            [&field, held, showing](RecordReader& reader) {
                *held = reader.text();
                if (showing == Showing::AtOnceToo) {
                    field.setText(*held);
                }
            },
            [&field, held] { field.setText(*held); }};
}

} // namespace

ConfigurationLine textLine(TextField& field, LineAction commit) {
    return {field.name(),
            writeText(field),
            [&field, commit = std::move(commit)](RecordReader& reader) {
                field.setText(reader.text());
                if (commit) {
                    commit();
                }
            },
            {}};
}

ConfigurationLine textLine(ListBox& list) {
    return {
        list.name(), writeText(list), [&list](RecordReader& reader) { list.selectText(reader.text()); }, {}};
}

ConfigurationLine heldTextLine(TextField& field) {
    return heldLine(field, Showing::AtTheEnd);
}

ConfigurationLine shownAndHeldTextLine(TextField& field) {
    return heldLine(field, Showing::AtOnceToo);
}

ConfigurationLine booleanLine(Option& option) {
    return {option.name(),
            [&option](RecordWriter& writer) { writer.boolean(option.chosen()); },
            [&option](RecordReader& reader) {
                if (reader.boolean()) {
                    option.choose();
                } else {
                    option.unchoose();
                }
            },
            {}};
}

ConfigurationLine tickLine(TickBox& box) {
    return {box.name(),
            [&box](RecordWriter& writer) { writer.integer(box.ticked() ? 1 : 0); },
            [&box](RecordReader& reader) { box.setTicked(integerWithin(reader, 0, 1) == 1); },
            {}};
}

ConfigurationLine positionLine(ListBox& list) {
    return {list.name(),
            [&list](RecordWriter& writer) { writer.integer(list.position()); },
            [&list](RecordReader& reader) {
                std::int32_t last = static_cast<std::int32_t>(list.entries().size()) - 1;
                std::int32_t position = integerWithin(reader, -1, last);
                if (position != list.position()) {
                    list.select(position);
                }
            },
            {}};
}

ConfigurationLine valueLine(Slider& slider) {
    return {slider.name(),
            [&slider](RecordWriter& writer) { writer.integer(slider.value()); },
            [&slider](RecordReader& reader) {
                slider.setValue(integerWithin(reader, slider.minimum(), slider.maximum()));
            },
            {}};
}

ConfigurationLine sharedTextLine(std::string name, std::string& value) {
    return {std::move(name),
            [&value](RecordWriter& writer) { writer.text(value); },
            [&value](RecordReader& reader) { value = reader.text(); },
            {}};
}

ConfigurationLine sharedNumberLine(std::string name, std::int32_t& value) {
    return {std::move(name),
            [&value](RecordWriter& writer) { writer.integer(value); },
            [&value](RecordReader& reader) { value = reader.integer(); },
            {}};
}

ConfigurationLines joined(std::vector<ConfigurationLines> parts) {
    ConfigurationLines all;
    for (ConfigurationLines& part : parts) {
        std::move(part.begin(), part.end(), std::back_inserter(all));
    }
    return all;
}

std::string configurationText(const std::string& banner, const ConfigurationLines& lines) {
    RecordWriter writer;
    writer.text(banner);
    for (const ConfigurationLine& line : lines) {
        line.write(writer);
    }
    return writer.bytes();
}

void readConfigurationText(std::string bytes, const std::string& banner, const std::string& wrongBannerText,
                           const ConfigurationLines& lines) {
    RecordReader reader(std::move(bytes));
    if (!reader.isExactly(banner)) {
        throw ToolError(wrongBanner, wrongBannerText);
    }
    for (const ConfigurationLine& line : lines) {
        line.read(reader);
    }
    for (const ConfigurationLine& line : lines) {
        if (line.whenAllRead) {
            line.whenAllRead();
        }
    }
}

} // namespace zor
