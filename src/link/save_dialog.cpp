// SPDX-License-Identifier: MIT
#include "link/save_dialog.h"

#include "host/file_backup.h"
#include "link/bench.h"
#include "support/error.h"

namespace zor {

std::string saveByDialog(const Bench& bench, const FileRequest& request,
                         const std::function<std::string(const std::string& name)>& bytes,
                         const std::string& closing) {
    try {
        FileChoice choice = bench.platform.dialogs.chooseFile(request);
        if (choice.name != request.startName) {
            saveUserFile(choice.name, bytes(choice.name));
            return choice.name;
        }
    } catch (const ToolError& error) {
        bench.tellFileError(error, "File save error", closing);
    }
    return {};
}

} // namespace zor
