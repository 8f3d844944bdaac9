#include "TervaleWindow/Controls/PaneFrame.h"

#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Controls/TightLayout.h"

#include <QScrollArea>
#include <QScrollBar>

namespace tervale {

namespace {
constexpr int subtitleLine = 13;
}

PaneFrame::PaneFrame(const QString& title, QWidget* parent)
    : QWidget(parent),
      headerRow(new QHBoxLayout),
      titles(new QVBoxLayout),
      scrollArea(new QScrollArea),
      panels(new QVBoxLayout),
      edge(new Divider(Qt::Horizontal, this)) {
    auto* headerBox = new QWidget;
    headerBox->setFixedHeight(headerHeight);
    headerBox->setLayout(headerRow);
    headerRow->setContentsMargins(margin, 0, margin, 0);
    headerRow->setSpacing(12);
    headerRow->addLayout(titles);
    headerRow->addStretch(1);
    titles->setSpacing(0);
    titles->addStretch(1);
    titles->addWidget(new TextLabel(title, TextStyle::title()));
    titles->addStretch(1);

    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(margin, 0, margin, margin - Card::shadowHeight);
    column->setSpacing(0);
    column->addLayout(panels);
    column->addStretch(1);
    panels->setSpacing(panelSpacing - Card::shadowHeight);

    scrollArea->setWidget(content);
    scrollArea->setWidgetResizable(true);
    scrollArea->setFrameShape(QFrame::NoFrame);
    scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrollArea->verticalScrollBar()->setAccessibleName(tr("Scroll bar"));
    // The window's ground shows through.
    scrollArea->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    // The keyboard scrolls through the controls that take the focus.
    scrollArea->setFocusPolicy(Qt::NoFocus);

    auto* frame = tightLayout<QVBoxLayout>(this);
    frame->addWidget(headerBox);
    frame->addWidget(scrollArea, 1);

    // Once content is under the header.
    edge->hide();
    connect(scrollArea->verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        edge->setVisible(value > 0);
        edge->raise();
    });
}

void PaneFrame::setSubtitle(const QString& subtitle) {
    TextStyle style = TextStyle::caption();
    style.lineHeight = subtitleLine;
    titles->insertWidget(titles->count() - 1, new TextLabel(subtitle, style, TextColor::secondary));
}

void PaneFrame::addPanel(QWidget* panel) {
    panels->addWidget(panel);
}

void PaneFrame::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    edge->setGeometry(0, headerHeight - 1, width(), 1);
}

void PaneFrame::scrollToTop() {
    scrollArea->verticalScrollBar()->setValue(0);
}

void PaneFrame::scrollTo(const QWidget& panel, const QRect& area, int room) {
    const QPoint middle = panel.mapTo(scrollArea->widget(), area.center());
    scrollArea->ensureVisible(middle.x(), middle.y(), 0, area.height() / 2 + room);
}

} // namespace tervale
