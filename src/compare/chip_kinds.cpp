// SPDX-License-Identifier: MIT
#include "compare/chip_kinds.h"

#include "headergen/chip_headers.h"
#include "panels/receivers/amber_v1.h"
#include "panels/receivers/beryl_v3.h"
#include "panels/receivers/coral.h"
#include "panels/receivers/frm_topaz.h"
#include "panels/transmitters/jade_v1.h"
#include "panels/transmitters/kt1102.h"
#include "panels/transmitters/opal_v2.h"

#include <algorithm>

namespace zor {

namespace {

template <class Panel>
std::unique_ptr<ChipPanel> make(Bench& bench) {
    return std::make_unique<Panel>(bench);
}

template <class Panel>
HeaderBlocks blocks(const ChipPanel& panel) {
    return headerBlocks(static_cast<const Panel&>(panel));
}

} // namespace

const std::vector<ChipKind>& chipKinds() {
    // clang-format off
    static const std::vector<ChipKind> rows = {
        {"OpalV2",    "KT1100", "KT1100B", make<OpalV2>,    blocks<OpalV2>, false},
        {"JadeV1",    "KT1101", nullptr,   make<JadeV1>,    blocks<JadeV1>, false},
        {"KT1102",    "KT1102", nullptr,   make<KT1102>,    blocks<KT1102>, false},
        {"AmberV1",   "KT2100", nullptr,   make<AmberV1>,   blocks<AmberV1>, true},
        {"Coral",     "KT2102", nullptr,   make<Coral>,     blocks<Coral>, true},
        {"BerylV3",   "KT3100", "KT3100B", make<BerylV3>,   blocks<BerylV3>, false},
        {"FRM_Topaz", "KT3101", nullptr,   make<FRM_Topaz>, blocks<FRM_Topaz>, false},
    };
    // clang-format on
    return rows;
}

const ChipKind& kindOf(const ChipPanel& panel) {
    const std::vector<ChipKind>& rows = chipKinds();
    return *std::find_if(rows.begin(), rows.end(),
                         [&panel](const ChipKind& row) { return panel.name() == row.panel; });
}

} // namespace zor
