#include "TervaleWindow/Controls/PopUpButton.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QStyleOption>
#include <QWheelEvent>

#include <algorithm>

namespace tervale {

namespace {

constexpr int mostVisibleEntries = 12;

bool opensTheList(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Return ||
           key == Qt::Key_Enter;
}

/// Keys that would choose an entry of a closed list, unseen.
bool choosesUnseen(int key) {
    return key == Qt::Key_Home || key == Qt::Key_End || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

bool isLetter(const QKeyEvent& event) {
    const bool plain = !(event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    return plain && !event.text().isEmpty() && event.text().front().isPrint() &&
           event.key() != Qt::Key_Space;
}

} // namespace

PopUpButton::PopUpButton(QWidget* parent) : QComboBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    // With another policy the box resizes itself a moment after its entries changed, past its
    // layout.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const auto changed : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(model(), changed, this, &PopUpButton::updateGeometry);
    connect(model(), &QAbstractItemModel::dataChanged, this, &PopUpButton::updateGeometry);
    connect(model(), &QAbstractItemModel::modelReset, this, &PopUpButton::updateGeometry);
    setMaxVisibleItems(mostVisibleEntries);
    view()->installEventFilter(this);
}

QSize PopUpButton::sizeHint() const {
    int widest = minimumContentWidth;
    for (int entry = 0; entry < count(); ++entry)
        widest = std::max(widest, widthFor(itemText(entry)));
    return {widest, QComboBox::sizeHint().height()};
}

int PopUpButton::widthFor(const QString& entry) const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize contents = fontMetrics().size(Qt::TextSingleLine, entry);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this).width();
}

QSize PopUpButton::minimumSizeHint() const {
    return {64, sizeHint().height()};
}

bool PopUpButton::eventFilter(QObject* watched, QEvent* event) {
    const bool spacePressed =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
    if (watched != view() || !spacePressed)
        return QComboBox::eventFilter(watched, event);
    // What opened the list also chooses in it.
    QKeyEvent choice(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(view(), &choice);
    return true;
}

void PopUpButton::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == 0;
    if (plain && opensTheList(event->key()))
        showPopup();
    else if (isLetter(*event))
        openAndSearch(*event);
    else if (choosesUnseen(event->key()))
        event->ignore();
    else
        QComboBox::keyPressEvent(event);
}

void PopUpButton::openAndSearch(QKeyEvent& letter) {
    showPopup();
    if (view()->isVisible())
        QCoreApplication::sendEvent(view(), &letter);
}

// The pane scrolls, whatever has the focus.
void PopUpButton::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace tervale
