#include "TervaleWindow/Shell/Sidebar.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Shell/SidebarRowDelegate.h"
#include "TervaleWindow/Shell/SidebarSummary.h"

#include <QPainter>
#include <QVBoxLayout>

namespace tervale {

Sidebar::Sidebar(Model& model, QWidget* parent) : QWidget(parent), list(new QListWidget) {
    setFixedWidth(width);
    list->setAccessibleName(QStringLiteral("Panes"));
    list->setItemDelegate(new SidebarRowDelegate(list));
    list->setFrameShape(QFrame::NoFrame);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->viewport()->setAutoFillBackground(false);
    for (const Pane pane : allPanes) {
        auto* item = new QListWidgetItem(title(pane), list);
        item->setData(SidebarRowDelegate::symbolRole, static_cast<int>(symbol(pane)));
    }
    connect(list, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            emit sectionChosen(allPanes[static_cast<std::size_t>(row)]);
    });

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 12, 1, 0);
    column->setSpacing(0);
    column->addWidget(list, 1);
    auto* foot = new QVBoxLayout;
    foot->setContentsMargins(12, 12, 12, 12);
    foot->addWidget(new SidebarSummary(model));
    column->addLayout(foot);
}

void Sidebar::setSection(std::optional<Pane> section) {
    const QSignalBlocker quiet(list);
    list->setCurrentRow(section ? static_cast<int>(*section) : -1);
}

void Sidebar::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::of(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.sidebar);
    const int edge = isRightToLeft() ? 0 : QWidget::width() - 1;
    painter.fillRect(edge, 0, 1, height(), colors.line);
}

} // namespace tervale
