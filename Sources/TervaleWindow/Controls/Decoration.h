#pragma once

class QWidget;

namespace tervale {

/// Marks what is for the eye alone, be it a symbol or a text that another widget's name holds too:
/// assistive technology does not see it.
void markAsDecoration(QWidget& widget);
/// Whether it is marked so, or is a label whose buddy has its text for a name.
bool isDecoration(const QWidget& widget);

} // namespace tervale
