// SPDX-License-Identifier: MIT
#include "platform/dialogs.h"

#include "support/file_name.h"
#include "support/letters.h"

namespace zor {

bool mayReplace(Dialogs& dialogs, const std::string& name) {
    std::error_code ignored;
    if (!std::filesystem::exists(pathOf(name), ignored)) {
        return true;
    }
    Answer answer = dialogs.show({.text = "File already exist:" + name + "\r\nDo you want to replace it?",
                                  .title = "File save error",
                                  .icon = BoxIcon::Question,
                                  .buttons = BoxButtons::YesNo});
    return answer == Answer::Yes;
}

bool extensionDiffers(const std::string& name, const std::string& defaultExtension) {
    std::string extension = nameOf(pathOf(name).extension());
    if (extension.size() <= 1 || name.find('*') != std::string::npos) {
        return false;
    }
    extension.erase(0, 1);
    return !sameText(extension, defaultExtension);
}

} // namespace zor
