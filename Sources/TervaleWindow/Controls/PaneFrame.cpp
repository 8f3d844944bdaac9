#include "TervaleWindow/Controls/PaneFrame.h"

#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/TextLabel.h"

#include <QScrollArea>

namespace tervale {

PaneFrame::PaneFrame(const QString& title, QWidget* parent)
    : QWidget(parent),
      headerRow(new QHBoxLayout),
      panels(new QVBoxLayout) {
    auto* headerBox = new QWidget;
    headerBox->setFixedHeight(headerHeight);
    headerBox->setLayout(headerRow);
    headerRow->setContentsMargins(margin, 0, margin, 0);
    headerRow->setSpacing(12);
    headerRow->addWidget(new TextLabel(title, TextStyle::title()));
    headerRow->addStretch(1);

    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(margin, 0, margin, margin - Card::shadowHeight);
    column->setSpacing(0);
    column->addLayout(panels);
    column->addStretch(1);
    panels->setSpacing(panelSpacing - Card::shadowHeight);

    auto* scrollArea = new QScrollArea;
    scrollArea->setWidget(content);
    scrollArea->setWidgetResizable(true);
    scrollArea->setFrameShape(QFrame::NoFrame);
    scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The window's ground shows through.
    scrollArea->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    // The keyboard scrolls through the controls that take the focus.
    scrollArea->setFocusPolicy(Qt::NoFocus);

    auto* frame = new QVBoxLayout(this);
    frame->setContentsMargins(0, 0, 0, 0);
    frame->setSpacing(0);
    frame->addWidget(headerBox);
    frame->addWidget(scrollArea, 1);
}

void PaneFrame::addPanel(QWidget* panel) {
    panels->addWidget(panel);
}

} // namespace tervale
