// SPDX-License-Identifier: MIT
#include "link/plot_file.h"

#include "elements/plot.h"
#include "link/file_dialog.h"
#include "support/error.h"
#include "support/file_name.h"

namespace zor {

namespace {

constexpr const char* pattern = "*.png";

std::string bytesFor(const Plot& plot, const std::string& name) {
    if (pathOf(name).has_extension() && !extensionDiffers(name, "csv")) {
        return plot.csv();
    }
    std::string picture = plot.picture ? plot.picture() : std::string();
    if (picture.empty()) {
        // Nothing draws it at present, so there is no picture to be had.
        throw ToolError(deviceInputOutput);
    }
    return picture;
}

} // namespace

void savePlot(Bench& bench, const Plot& plot, const std::string& title, const std::string& firstName) {
    saveByDialog(
        bench,
        {.mode = FileRequest::Mode::Save,
         .title = title,
         .folder = {},
         .startName = pattern,
         .filter = "Pictures (*.png)|*.png|Values (*.csv)|*.csv",
         .defaultExtension = "png"},
        firstName, [&plot](const std::string& name) { return bytesFor(plot, name); }, "Please try again");
}

} // namespace zor
