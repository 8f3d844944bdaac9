#include "TervaleWindow/Shell/Sidebar.h"

#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Shell/SidebarRowDelegate.h"
#include "TervaleWindow/Shell/SidebarSummary.h"

#include <QPainter>
#include <QVBoxLayout>

namespace tervale {

Sidebar::Sidebar(Model& model, QWidget* parent) : QWidget(parent), list(new QListWidget) {
    setFixedWidth(width);
    // Before the first widget is named.
    installAccessibleFactory();
    list->setAccessibleName(QStringLiteral("Panes"));
    list->setItemDelegate(new SidebarRowDelegate(list));
    list->setFrameShape(QFrame::NoFrame);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->viewport()->setAutoFillBackground(false);
    for (const Pane pane : allPanes) {
        auto* item = new QListWidgetItem(title(pane), list);
        item->setData(SidebarRowDelegate::symbolRole, static_cast<int>(symbol(pane)));
    }
    connect(list, &QListWidget::itemSelectionChanged, this, &Sidebar::tellChoice);

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

// The row that is selected is the one that is marked, whatever selected it.
void Sidebar::tellChoice() {
    const QModelIndexList selected = list->selectionModel()->selectedRows();
    if (!selected.isEmpty())
        emit sectionChosen(allPanes[static_cast<std::size_t>(selected.front().row())]);
}

void Sidebar::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::of(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.sidebar);
    const int edge = isRightToLeft() ? 0 : QWidget::width() - 1;
    painter.fillRect(edge, 0, 1, height(), colors.line);
}

} // namespace tervale
