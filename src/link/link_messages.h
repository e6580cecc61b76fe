// SPDX-License-Identifier: MIT
#pragma once

#include "link/connect.h"

namespace zor {

/// The boxes that tell of the port's failures, whoever sent. Owned by the main window.
class LinkMessages {
  public:
    LinkMessages(Bench& ownBench, Connect& channel);

  private:
    void tell(const PortTrouble& trouble) const;

    Bench& bench;
    Subscription troubles;
};

} // namespace zor
