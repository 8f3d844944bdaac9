#pragma once

#include <QWidget>

namespace tervale {

/// A new layout of the widget, such as a QVBoxLayout, without margins and distances.
template <class Layout>
Layout* tightLayout(QWidget* widget) {
    auto* layout = new Layout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    return layout;
}

} // namespace tervale
