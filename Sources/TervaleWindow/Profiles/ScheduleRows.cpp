#include "TervaleWindow/Profiles/ScheduleRows.h"

#include "TervaleWindow/Style/FocusRing.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPaintEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace tervale {

namespace {
// So that Tab finds the next one, to which the pane scrolls then.
constexpr int neighbours = 2;
} // namespace

ScheduleRows::ScheduleRows(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

ScheduleRows::~ScheduleRows() {
    for (ScheduleRow* row : rows) {
        if (row)
            row->disconnect(this);
    }
}

void ScheduleRows::display(const std::vector<Window>& windows, std::span<const Profile> targets) {
    // Rows that are made later list them too.
    if (!std::equal(profiles.begin(), profiles.end(), targets.begin(), targets.end()))
        profiles.assign(targets.begin(), targets.end());
    editing.windows = windows;
    while (rows.size() > windows.size()) {
        ScheduleRow* row = rows.back();
        rows.pop_back();
        if (!row)
            continue;
        // A field that loses the focus with its row tells of what was typed into it.
        row->disconnect(this);
        const QWidget* focused = QApplication::focusWidget();
        if (heir && focused && row->isAncestorOf(focused))
            handFocusOn(*focused, *heir);
        delete row;
    }
    rows.resize(windows.size());
    for (std::size_t index = 0; index < rows.size(); ++index) {
        if (rows[index])
            rows[index]->display(editing, index, profiles);
    }
    showSight();
}

ScheduleRow& ScheduleRows::rowAt(std::size_t index) {
    if (!rows[index])
        rows[index] = makeRow(index);
    return *rows[index];
}

ScheduleRow* ScheduleRows::makeRow(std::size_t index) {
    auto* row = new ScheduleRow(this);
    connect(row, &ScheduleRow::timeChanged, this,
            [this, row](ScheduleEditing::Edge edge, int minute) {
                emit edited(windowEdit::SetTime{indexOf(row), edge, {minute / 60, minute % 60}});
            });
    connect(row, &ScheduleRow::choiceChanged, this,
            [this, row](const ScheduleEditing::Choice& choice) {
                emit edited(windowEdit::SetChoice{indexOf(row), choice});
            });
    connect(row, &ScheduleRow::speedChanged, this, [this, row](double fraction) {
        emit edited(windowEdit::SetSpeed{indexOf(row), fraction});
    });
    connect(row, &ScheduleRow::settled, this, &ScheduleRows::settled);
    connect(row, &ScheduleRow::removeRequested, this, [this, row] { removeWindow(row); });
    row->display(editing, index, profiles);
    // Reading order is the order of the children.
    const auto next = std::find_if(rows.begin() + static_cast<std::ptrdiff_t>(index) + 1,
                                   rows.end(), [](const ScheduleRow* other) { return other; });
    if (next != rows.end())
        row->stackUnder(*next);
    row->show();
    return row;
}

std::size_t ScheduleRows::indexOf(const ScheduleRow* row) const {
    return static_cast<std::size_t>(std::find(rows.begin(), rows.end(), row) - rows.begin());
}

void ScheduleRows::removeWindow(ScheduleRow* row) {
    const std::size_t index = indexOf(row);
    row->disconnect(this);
    // This row goes, not the last one, so that every control keeps the window that it shows. It is
    // in the middle of telling of the click, so it goes later.
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(index));
    row->hide();
    row->deleteLater();
    if (!rows.empty())
        rowAt(std::min(index, rows.size() - 1)).focusRemoveButton();
    else if (heir)
        heir->setFocus(Qt::OtherFocusReason);
    emit edited(windowEdit::Remove{index});
}

QSize ScheduleRows::sizeHint() const {
    const int width = rows.empty() ? 0 : rows.front()->sizeHint().width();
    return {width, static_cast<int>(rows.size()) * rowHeight};
}

QSize ScheduleRows::minimumSizeHint() const {
    const int width = rows.empty() ? 0 : rows.front()->minimumSizeHint().width();
    return {width, sizeHint().height()};
}

void ScheduleRows::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    showSight();
}

void ScheduleRows::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    followScrolling();
    showSight();
}

void ScheduleRows::paintEvent(QPaintEvent* event) {
    // Whatever brought a place into sight that has no row yet.
    const auto missing = [this, event](std::size_t index) {
        const QRect place(0, static_cast<int>(index) * rowHeight, width(), rowHeight);
        return !rows[index] && place.intersects(event->rect());
    };
    for (std::size_t index = 0; index < rows.size(); ++index) {
        if (missing(index)) {
            QMetaObject::invokeMethod(this, &ScheduleRows::showSight, Qt::QueuedConnection);
            return;
        }
    }
}

void ScheduleRows::followScrolling() {
    QAbstractScrollArea* area = nullptr;
    for (QWidget* above = parentWidget(); above && !area; above = above->parentWidget())
        area = qobject_cast<QAbstractScrollArea*>(above);
    if (!area || area == scrolledBy)
        return;
    scrolledBy = area;
    const QScrollBar* bar = area->verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, &ScheduleRows::showSight);
    connect(bar, &QScrollBar::rangeChanged, this, &ScheduleRows::showSight);
}

QRect ScheduleRows::sight() const {
    const QWidget* through = scrolledBy ? scrolledBy->viewport() : window();
    if (!through->isAncestorOf(this))
        return rect();
    const QRect seen(mapFrom(through, QPoint(0, 0)), through->size());
    return seen.adjusted(0, -neighbours * rowHeight, 0, neighbours * rowHeight);
}

void ScheduleRows::showSight() {
    if (!rows.empty()) {
        rowAt(0);
        rowAt(rows.size() - 1);
        arrange();
        const int count = static_cast<int>(rows.size());
        const QRect seen = sight();
        const int first = std::clamp(seen.top() / rowHeight, 0, count);
        const int last = std::clamp(seen.bottom() / rowHeight, -1, count - 1);
        for (int index = first; index <= last; ++index)
            rowAt(static_cast<std::size_t>(index));
        arrange();
    }
    if (std::exchange(sizeTold, sizeHint()) != sizeHint())
        updateGeometry();
}

void ScheduleRows::arrange() {
    using Arrangement = ScheduleRow::Arrangement;
    const ScheduleRow& any = *rows.front();
    auto arrangement = Arrangement::twoLines;
    if (any.widthOf(Arrangement::oneLine) <= width())
        arrangement = Arrangement::oneLine;
    else if (any.widthOf(Arrangement::tightLine) <= width())
        arrangement = Arrangement::tightLine;
    rowHeight = 1;
    for (ScheduleRow* row : rows) {
        if (!row)
            continue;
        row->setArrangement(arrangement);
        rowHeight = std::max(rowHeight, row->sizeHint().height());
    }
    for (std::size_t index = 0; index < rows.size(); ++index) {
        if (rows[index])
            rows[index]->setGeometry(0, static_cast<int>(index) * rowHeight, width(), rowHeight);
    }
}

} // namespace tervale
