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

bool opensTheList(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        // With Alt as well: the usual keys of a list that drops down.
        return !(event.modifiers() & ~(Qt::AltModifier | Qt::KeypadModifier));
    case Qt::Key_Space:
    case Qt::Key_Select:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4:
        return !(event.modifiers() & ~Qt::KeypadModifier);
    default:
        return false;
    }
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

// The toolkit's own handler lets other keys choose an entry of the closed list, unseen.
void PopUpButton::keyPressEvent(QKeyEvent* event) {
    if (opensTheList(*event))
        showPopup();
    else if (isLetter(*event))
        openAndSearch(*event);
    else
        event->ignore();
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
