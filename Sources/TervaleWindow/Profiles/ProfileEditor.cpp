#include "TervaleWindow/Profiles/ProfileEditor.h"

#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/ForgetTyping.h"
#include "TervaleWindow/Controls/SymbolLabel.h"
#include "TervaleWindow/Profiles/FormRow.h"
#include "TervaleWindow/Profiles/TemperatureContent.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QStyle>
#include <QVBoxLayout>

#include <limits>

namespace tervale {

namespace {

constexpr int cardSpacing = 14;
constexpr int usualMargin = 18;
constexpr int narrowMargin = 12;
constexpr int narrowMarginBesideScrollBar = 8;
/// Below this width the margins give way.
constexpr int narrowWidth = 400;

void setMargins(QWidget& form, int side) {
    form.layout()->setContentsMargins(side, usualMargin, side, usualMargin - Card::shadowHeight);
}

} // namespace

ProfileEditor::ProfileEditor(Model& model, DraftOwner& draftShown, QWidget* parent)
    : QWidget(parent),
      draft(draftShown),
      id(draft.selected()->id),
      kind(draft.selected()->kind.index()) {
    // Made in the order in which they are read.
    auto* nameCard = new Card(this);
    name = new QLineEdit(nameCard);
    // A name may have any length; the usual limit would cut it.
    name->setMaxLength(std::numeric_limits<int>::max());
    content = ProfileContent::make(model, draft, this);
    problemsCard = new Card(this);
    QGridLayout* form = makeForm(nameCard);
    addFormRow(*form, tr("Name"), name, RowWidth::whole);
    if (auto* temperature = qobject_cast<TemperatureContent*>(content))
        temperature->addRows(*form);
    auto* problemsLayout = new QVBoxLayout(problemsCard);
    problemsLayout->setContentsMargins(0, 0, 0, 0);
    problemsLayout->setSpacing(6);
    problemsCard->hide();
    auto* column = new QVBoxLayout(this);
    setMargins(*this, usualMargin);
    column->setSpacing(cardSpacing - Card::shadowHeight);
    column->addWidget(nameCard);
    column->addWidget(content);
    column->addWidget(problemsCard);
    column->addStretch(1);

    // Not only what is typed: assistive technology sets a text.
    connect(name, &QLineEdit::textChanged, this, &ProfileEditor::rename);
    connect(name, &QLineEdit::editingFinished, this, &ProfileEditor::endTyping);
    connect(&draft, &DraftOwner::problemsChanged, this, [this] {
        if (!retired)
            showProblems();
    });
    showName();
    showProblems();
}

void ProfileEditor::rename(const QString& text) {
    if (retired || displaying)
        return;
    draft.perform(profileEdit::Rename{text.toStdString()});
    // Nobody types here, so that no more is to come.
    if (!name->hasFocus())
        draft.settle();
}

void ProfileEditor::endTyping() {
    if (retired)
        return;
    // What was typed is a step of the draft's; the field would make another one of taking it back.
    forgetTyping(*name);
    draft.settle();
}

void ProfileEditor::display() {
    forgetTyping(*name);
    showName();
    content->display();
    showProblems();
}

void ProfileEditor::editName() {
    name->setFocus(Qt::OtherFocusReason);
    name->selectAll();
}

void ProfileEditor::retire() {
    retired = true;
    content->retire();
}

void ProfileEditor::showName() {
    const QScopedValueRollback guard(displaying, true);
    // Setting the text would move the cursor.
    const QString text = QString::fromStdString(draft.selected()->name);
    if (name->text() != text)
        name->setText(text);
}

void ProfileEditor::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    setMargins(*this, marginAt(width(), *style()));
}

int ProfileEditor::marginAt(int width, const QStyle& style) {
    if (width >= narrowWidth)
        return usualMargin;
    // A scroll bar that lies over the contents takes no room of theirs.
    const bool overlaps = style.pixelMetric(QStyle::PM_ScrollView_ScrollBarOverlap) > 0;
    return overlaps ? narrowMargin : narrowMarginBesideScrollBar;
}

bool ProfileEditor::isFor(const Profile& other) const {
    return other.id == id && other.kind.index() == kind;
}

void ProfileEditor::showProblems() {
    const DraftOwner::Problems found = draft.problemsOfSelected();
    if (found == problemsShown)
        return;
    problemsShown = found;
    QLayout* layout = problemsCard->layout();
    while (QLayoutItem* item = layout->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (const std::string& problem : problemsShown) {
        auto* label = new SymbolLabel(Symbol::exclamationTriangleFill,
                                      QString::fromStdString(problem), TextColor::warning);
        label->setOverflow(Overflow::wrap);
        layout->addWidget(label);
    }
    problemsCard->setVisible(!problemsShown.empty());
}

} // namespace tervale
