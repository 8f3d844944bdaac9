#include "TervaleWindow/Controls/SegmentedPicker.h"

#include "Base/Precondition.h"
#include "TervaleWindow/Controls/SegmentButton.h"
#include "TervaleWindow/Style/ControlPainting.h"

#include <QHBoxLayout>
#include <QPainter>

namespace tervale {

namespace {

constexpr int padding = 2;
constexpr int groundRadius = 8;

} // namespace

SegmentedPicker::SegmentedPicker(const QStringList& titles, QWidget* parent) : QWidget(parent) {
    precondition(!titles.isEmpty(), "a picker has segments");
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(padding, padding, padding, padding);
    row->setSpacing(0);
    for (const QString& title : titles) {
        auto* segment = new SegmentButton(title, this);
        const int index = static_cast<int>(segments.size());
        connect(segment, &QAbstractButton::clicked, this, [this, index] { choose(index); });
        row->addWidget(segment);
        segments.append(segment);
    }
    setSelected(0);
}

int SegmentedPicker::selected() const {
    return current;
}

void SegmentedPicker::setSelected(int index) {
    precondition(index >= 0 && index < segments.size(), "a segment of the picker");
    current = index;
    segments[index]->setChecked(true);
    followSelectionByTab();
}

QString SegmentedPicker::title(int index) const {
    return segments.at(index)->text();
}

void SegmentedPicker::setTitle(int index, const QString& title) {
    segments.at(index)->setText(title);
}

void SegmentedPicker::choose(int index) {
    if (index == current)
        return;
    current = index;
    followSelectionByTab();
    emit chosen(index);
}

void SegmentedPicker::followSelectionByTab() {
    for (int index = 0; index < segments.size(); ++index) {
        const int others = segments[index]->focusPolicy() & ~Qt::TabFocus;
        segments[index]->setFocusPolicy(
            static_cast<Qt::FocusPolicy>(index == current ? others | Qt::TabFocus : others));
    }
}

void SegmentedPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    paintBox(painter, rect(), groundRadius, Colors::of(palette()).quaternary, Qt::transparent);
}

} // namespace tervale
