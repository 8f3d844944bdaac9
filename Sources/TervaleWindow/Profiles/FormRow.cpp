#include "TervaleWindow/Profiles/FormRow.h"

#include "TervaleWindow/Controls/TextLabel.h"

#include <QGridLayout>

namespace tervale {

namespace {

constexpr int titleWidth = 64;

} // namespace

QGridLayout* makeForm(QWidget* card) {
    auto* form = new QGridLayout(card);
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(11);
    // Gives way in a narrow pane.
    form->addItem(new QSpacerItem(titleWidth, 0, QSizePolicy::Preferred, QSizePolicy::Fixed), 0, 0);
    form->setColumnStretch(1, 1);
    return form;
}

void addFormRow(QGridLayout& form, const QString& title, QWidget* control, RowWidth width) {
    auto* label = new TextLabel(title, TextStyle::body(), TextColor::secondary);
    label->setBuddy(control);
    control->setAccessibleName(title);
    const int row = form.rowCount();
    form.addWidget(label, row, 0, Qt::AlignTrailing | Qt::AlignVCenter);
    form.addWidget(control, row, 1,
                   width == RowWidth::whole ? Qt::Alignment()
                                            : Qt::AlignLeading | Qt::AlignVCenter);
}

} // namespace tervale
