#include "TervaleWindow/Sensors/SensorList.h"

#include "Base/Precondition.h"
#include "TervaleWindow/Controls/PaneFrame.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Sensors/AccessibleSensorSection.h"
#include "TervaleWindow/Sensors/SensorSectionCard.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace tervale {

namespace {

constexpr int emptyLabelTop = 24;

/// How many rows a key moves on by; as far as there are any for the first and the last one.
std::optional<int> stepOf(const QKeyEvent& event, int page) {
    constexpr int all = std::numeric_limits<int>::max();
    const bool plain = !(event.modifiers() & ~Qt::KeypadModifier);
    if (event.matches(QKeySequence::MoveToNextLine))
        return 1;
    if (event.matches(QKeySequence::MoveToPreviousLine))
        return -1;
    if (event.matches(QKeySequence::MoveToNextPage))
        return page;
    if (event.matches(QKeySequence::MoveToPreviousPage))
        return -page;
    if (event.matches(QKeySequence::MoveToEndOfDocument) || (plain && event.key() == Qt::Key_End))
        return all;
    if (event.matches(QKeySequence::MoveToStartOfDocument) ||
        (plain && event.key() == Qt::Key_Home))
        return -all;
    return std::nullopt;
}

} // namespace

SensorList::SensorList(QWidget* parent)
    : QWidget(parent),
      emptyLabel(new TextLabel({}, TextStyle::body(), TextColor::secondary)) {
    setAccessibleName(QStringLiteral("Sensors"));
    setFocusPolicy(Qt::TabFocus);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(PaneFrame::panelSpacing - Card::shadowHeight);
    for (const SensorGroup group : SensorGroup::allCases) {
        cards.push_back(new SensorSectionCard(group));
        column->addWidget(cards.back());
    }
    emptyLabel->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    emptyLabel->setFixedHeight(emptyLabelTop + emptyLabel->sizeHint().height());
    column->addWidget(emptyLabel);
}

void SensorList::setSections(std::vector<SensorSection> sections, const QString& reason) {
    precondition(sections.size() == cards.size(), "every group has a section");
    for (std::size_t group = 0; group < cards.size(); ++group)
        cards[group]->setSection(std::move(sections[group]));
    emptyLabel->setText(reason);
    emptyLabel->setVisible(rowCount() == 0);
    showCurrent();
}

int SensorList::rowCount() const {
    int rows = 0;
    for (const SensorSectionCard* card : cards)
        rows += card->rowCount();
    return rows;
}

std::optional<int> SensorList::currentIndex() const {
    int index = 0;
    for (const SensorSectionCard* card : cards) {
        for (const SensorRow& row : card->section().rows) {
            if (row.sensor == currentSensor)
                return index;
            ++index;
        }
    }
    return std::nullopt;
}

int SensorList::rowsOnScreen() const {
    const int rows = visibleRegion().boundingRect().height() / SensorSectionLayout::rowHeight;
    // One row less, so that the reader keeps a row that was there before.
    return std::max(1, rows - 1);
}

void SensorList::goTo(int index) {
    for (const SensorSectionCard* card : cards) {
        if (index < card->rowCount()) {
            currentSensor = card->section().rows[static_cast<std::size_t>(index)].sensor;
            showCurrent();
            emit rowReached(*card, card->sectionLayout().row(index).row);
            return;
        }
        index -= card->rowCount();
    }
}

void SensorList::showCurrent() {
    std::optional<int> index = hasFocus() ? currentIndex() : std::nullopt;
    for (SensorSectionCard* card : cards) {
        const bool here = index && *index >= 0 && *index < card->rowCount();
        card->setCurrentRow(here ? index : std::nullopt);
        if (index)
            *index -= card->rowCount();
    }
}

void SensorList::keyPressEvent(QKeyEvent* event) {
    const auto step = stepOf(*event, rowsOnScreen());
    if (!step || rowCount() == 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    const std::int64_t from = currentIndex().value_or(*step > 0 ? -1 : rowCount());
    goTo(static_cast<int>(std::clamp<std::int64_t>(from + *step, 0, rowCount() - 1)));
    tellCurrent();
}

void SensorList::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (currentIndex())
        showCurrent();
    else
        goTo(0);
    // The toolkit tells of the list itself right after this event.
    QMetaObject::invokeMethod(this, &SensorList::tellCurrent, Qt::QueuedConnection);
}

void SensorList::tellCurrent() {
    for (SensorSectionCard* card : cards)
        tellCurrentSensor(*card);
}

void SensorList::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    showCurrent();
}

} // namespace tervale
