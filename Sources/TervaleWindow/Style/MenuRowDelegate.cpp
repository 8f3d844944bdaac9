#include "TervaleWindow/Style/MenuRowDelegate.h"

#include "TervaleWindow/Appearance/MenuTitle.h"
#include "TervaleWindow/Style/MenuPainting.h"

#include <QComboBox>

namespace tervale {

namespace {

/// QComboBox marks its separators so.
bool isSeparator(const QModelIndex& index) {
    return index.data(Qt::AccessibleDescriptionRole).toString() == QLatin1String("separator");
}

MenuRow rowOf(const QStyleOptionViewItem& option, const QModelIndex& index, int current) {
    MenuRow row;
    row.text = menuTitle(index.data(Qt::DisplayRole).toString());
    row.isSeparator = isSeparator(index);
    row.isChecked = index.row() == current;
    row.isHighlighted = option.state & QStyle::State_Selected;
    row.isEnabled = index.flags() & Qt::ItemIsEnabled;
    row.hasCheckColumn = true;
    return row;
}

} // namespace

MenuRowDelegate::MenuRowDelegate(QComboBox* owner) : QStyledItemDelegate(owner), button(owner) {}

void MenuRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    paintMenuRow(*painter, option.rect, rowOf(option, index, button->currentIndex()),
                 button->font(), Colors::of(option.palette), option.direction);
}

QSize MenuRowDelegate::sizeHint(const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const MenuRow row = rowOf(option, index, button->currentIndex());
    const int text =
        QFontMetrics(button->font()).horizontalAdvance(index.data(Qt::DisplayRole).toString());
    return {text + menuRowChrome(row) + 1, row.isSeparator ? menuSeparatorHeight : menuRowHeight};
}

} // namespace tervale
