// SPDX-License-Identifier: MIT
// The chips' tables: which commands a header has, and what it tells of each. A table reads the elements of
// its panel, so that one which bears another name does not compile.
#pragma once

#include "headergen/header_block.h"

namespace zor {

class AmberV1;
class BerylV3;
class ChipPanel;
class Coral;
class FRM_Topaz;
class JadeV1;
class KT1102;
class OpalV2;

[[nodiscard]] HeaderBlocks headerBlocks(const OpalV2& panel);
[[nodiscard]] HeaderBlocks headerBlocks(const JadeV1& panel);
[[nodiscard]] HeaderBlocks headerBlocks(const KT1102& panel);
[[nodiscard]] HeaderBlocks headerBlocks(const AmberV1& panel);
[[nodiscard]] HeaderBlocks headerBlocks(const Coral& panel);
[[nodiscard]] HeaderBlocks headerBlocks(const BerylV3& panel);
[[nodiscard]] HeaderBlocks headerBlocks(const FRM_Topaz& panel);

// What several chips have alike.

/// The chosen band; no line while none is chosen.
[[nodiscard]] DetailLine bandLine(const ChipPanel& panel);
[[nodiscard]] HeaderBlock frequencyBlock(const ChipPanel& panel);

} // namespace zor
