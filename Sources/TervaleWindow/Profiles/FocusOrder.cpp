#include "TervaleWindow/Profiles/FocusOrder.h"

#include <QWidget>

namespace tervale {

namespace {

void collect(const QWidget& parent, QWidgetList& found) {
    for (QObject* child : parent.children()) {
        auto* widget = qobject_cast<QWidget*>(child);
        if (!widget || widget->isWindow())
            continue;
        if ((widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy())
            found.push_back(widget);
        collect(*widget, found);
    }
}

} // namespace

void followReadingOrder(const QWidget& root) {
    QWidgetList order;
    collect(root, order);
    for (qsizetype index = 1; index < order.size(); ++index)
        QWidget::setTabOrder(order[index - 1], order[index]);
}

} // namespace tervale
