#include "TervaleWindow/Controls/SegmentedPicker.h"

#include "SMC/Precondition.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Controls/ControlPainting.h"

#include <QHBoxLayout>
#include <QRadioButton>

namespace tervale {

namespace {

constexpr int padding = 2;
constexpr int groundRadius = 8;
constexpr int segmentRadius = 6;
constexpr int segmentHeight = 24;
constexpr int sidePadding = 14;

QColor selectedFill(const Colors& colors) {
    if (!colors.dark)
        return colors.card;
    const float share = 0.28f;
    const auto mix = [share](float from, float to) { return from + share * (to - from); };
    return QColor::fromRgbF(mix(colors.card.redF(), colors.label.redF()),
                            mix(colors.card.greenF(), colors.label.greenF()),
                            mix(colors.card.blueF(), colors.label.blueF()));
}

/// As a radio button it comes with the arrow keys and the role that assistive technology expects.
class Segment : public QRadioButton {
  public:
    Segment(const QString& title, QWidget* parent) : QRadioButton(title, parent) {
        setFont(systemFont(fontSize::body));
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        setFocusRadius(*this, segmentRadius);
    }

    // As wide as its title when it is selected, so that nothing moves then.
    QSize sizeHint() const override {
        const QFontMetrics metrics(systemFont(fontSize::body, QFont::Medium));
        return {metrics.horizontalAdvance(text()) + 2 * sidePadding, segmentHeight};
    }

    QSize minimumSizeHint() const override { return {2 * segmentHeight, segmentHeight}; }

  protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

    void paintEvent(QPaintEvent*) override {
        const Colors colors = Colors::of(palette());
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
        if (isChecked())
            paintSelection(painter, colors);
        const QFont shown = systemFont(fontSize::body, isChecked() ? QFont::Medium : QFont::Normal);
        painter.setFont(shown);
        painter.setPen(colors.label);
        painter.drawText(rect(), Qt::AlignCenter,
                         QFontMetrics(shown).elidedText(text(), Qt::ElideRight, width() - 8));
    }

  private:
    void paintSelection(QPainter& painter, const Colors& colors) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, 24));
        painter.drawRoundedRect(QRectF(rect()).translated(0, 1), segmentRadius, segmentRadius);
        painter.setBrush(selectedFill(colors));
        painter.drawRoundedRect(rect(), segmentRadius, segmentRadius);
    }
};

} // namespace

SegmentedPicker::SegmentedPicker(const QStringList& titles, QWidget* parent) : QWidget(parent) {
    precondition(!titles.isEmpty(), "a picker has segments");
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(padding, padding, padding, padding);
    row->setSpacing(0);
    for (const QString& title : titles) {
        auto* segment = new Segment(title, this);
        const int index = static_cast<int>(segments.size());
        connect(segment, &QAbstractButton::clicked, this, [this, index] { choose(index); });
        row->addWidget(segment);
        segments.append(segment);
    }
    segments.first()->setChecked(true);
}

int SegmentedPicker::selected() const {
    return current;
}

void SegmentedPicker::setSelected(int index) {
    precondition(index >= 0 && index < segments.size(), "a segment of the picker");
    current = index;
    segments[index]->setChecked(true);
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
    emit chosen(index);
}

void SegmentedPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    paintBox(painter, rect(), groundRadius, Colors::of(palette()).quaternary, Qt::transparent);
}

} // namespace tervale
