// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

namespace zor {

class QtSurroundings : public Surroundings {
  public:
    bool openDocument(const std::filesystem::path& document) override;
    bool startSystemInformation() override;
    void copyText(const std::string& text) override;
};

} // namespace zor
