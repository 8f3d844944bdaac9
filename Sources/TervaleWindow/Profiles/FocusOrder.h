#pragma once

class QWidget;

namespace tervale {

/// Makes Tab walk through everything within `root` in the order in which it stands there, whenever
/// it was made.
void followReadingOrder(const QWidget& root);

} // namespace tervale
