// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace zor::benchmarks {

/// The same widgets in the same layouts with the same texts, and nothing behind them: what a window costs at
/// least.
[[nodiscard]] QWidget* plainCopy(const QWidget& original);

} // namespace zor::benchmarks
