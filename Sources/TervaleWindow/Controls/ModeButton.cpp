#include "TervaleWindow/Controls/ModeButton.h"

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Controls/KeyTable.h"
#include "TervaleWindow/Style/ControlPainting.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QKeyEvent>

#include <algorithm>

namespace tervale {

namespace {

constexpr int sidePadding = 15;
constexpr int capsuleHeight = 30;

} // namespace

ModeButton::ModeButton(const QString& title, QWidget* parent) : QPushButton(title, parent) {
    setCheckable(true);
    setFont(systemFont(fontSize::body, QFont::Medium));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    FocusRing::shared().surround(*this, capsuleHeight / 2);
    connect(this, &QAbstractButton::toggled, this, [this](bool selected) {
        FocusRing::shared().setGround(*this,
                                      selected ? RingGround::aroundAccent : RingGround::window);
    });
}

bool ModeButton::isSelected() const {
    return isChecked();
}

void ModeButton::setSelected(Selection selection) {
    setChecked(selection == Selection::selected);
    settleTabStop();
}

QList<ModeButton*> ModeButton::row() const {
    if (!parentWidget())
        return {};
    return parentWidget()->findChildren<ModeButton*>(QString(), Qt::FindDirectChildrenOnly);
}

void ModeButton::settleTabStop() {
    const QList<ModeButton*> all = row();
    const auto first = [&all](const auto& is) {
        const auto found = std::find_if(all.begin(), all.end(), is);
        return found == all.end() ? nullptr : *found;
    };
    const ModeButton* stop = first([](const ModeButton* each) { return each->hasFocus(); });
    if (!stop)
        stop = first([](const ModeButton* each) { return each->isSelected(); });
    if (!stop && !all.isEmpty())
        stop = all.front();
    for (ModeButton* each : all) {
        // A Mac gives a button the Tab key alone, and assistive technology must reach all of them.
        const int others = (each->focusPolicy() & ~Qt::TabFocus) | Qt::ClickFocus;
        each->setFocusPolicy(
            static_cast<Qt::FocusPolicy>(each == stop ? others | Qt::TabFocus : others));
    }
}

QSize ModeButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * sidePadding, capsuleHeight};
}

QSize ModeButton::minimumSizeHint() const {
    return {2 * capsuleHeight, capsuleHeight};
}

void ModeButton::focusInEvent(QFocusEvent* event) {
    settleTabStop();
    QPushButton::focusInEvent(event);
}

void ModeButton::focusOutEvent(QFocusEvent* event) {
    settleTabStop();
    QPushButton::focusOutEvent(event);
}

void ModeButton::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
        // Those are the pane's, to scroll with.
        event->ignore();
    } else if (isKeyOf(KeyCommand::goAlongModes, *event)) {
        const QList<ModeButton*> all = row();
        const bool forward = (key == Qt::Key_Right) == (layoutDirection() == Qt::LeftToRight);
        const qsizetype place = all.indexOf(this) + (forward ? 1 : -1);
        if (place >= 0 && place < all.size())
            all[place]->setFocus(Qt::TabFocusReason);
    } else {
        QPushButton::keyPressEvent(event);
    }
}

// The click only asks.
void ModeButton::nextCheckState() {}

void ModeButton::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    painter.setPen(Qt::NoPen);
    const QRectF capsule = rect();
    const qreal radius = capsule.height() / 2;
    painter.setBrush(isChecked() ? Theme::accent() : colors.quaternary);
    painter.drawRoundedRect(capsule, radius, radius);
    if (isDown() || (isEnabled() && underMouse())) {
        QColor shade = pressedShade(colors);
        shade.setAlphaF(shade.alphaF() * (isDown() ? 1 : 0.4f));
        painter.setBrush(shade);
        painter.drawRoundedRect(capsule, radius, radius);
    }
    painter.setPen(isChecked() ? QColor(Qt::white) : colors.label);
    painter.setFont(font());
    const int room = width() - 2 * (sidePadding - 4);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextHideMnemonic,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room));
}

} // namespace tervale
