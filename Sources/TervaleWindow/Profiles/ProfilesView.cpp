#include "TervaleWindow/Profiles/ProfilesView.h"

#include "TervaleWindow/Accessibility/Announcer.h"
#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/KeyTable.h"
#include "TervaleWindow/Controls/PaneFrame.h"
#include "TervaleWindow/Controls/SymbolLabel.h"
#include "TervaleWindow/Controls/SymbolView.h"
#include "TervaleWindow/Controls/TextLabel.h"
#include "TervaleWindow/Controls/TightLayout.h"
#include "TervaleWindow/Profiles/FocusOrder.h"
#include "TervaleWindow/Profiles/ProfileEditor.h"
#include "TervaleWindow/Profiles/ProfilesList.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace tervale {

namespace {

constexpr int bottomBarHeight = 49;
constexpr int emptySymbolSide = 40;

} // namespace

ProfilesView::ProfilesView(Model& model, Bridge& bridge, QWidget* parent,
                           DraftOwner::Validator validator)
    : QWidget(parent),
      model(model),
      bridge(bridge),
      draft(std::move(validator)),
      list(new ProfilesList(draft, this)) {
    auto* columns = new QHBoxLayout;
    columns->setSpacing(0);
    columns->addWidget(list);
    columns->addWidget(new Divider(Qt::Vertical, this));
    columns->addWidget(makeDetail(), 1);
    auto* page = tightLayout<QVBoxLayout>(this);
    page->addWidget(makeHeader());
    page->addWidget(new Divider(Qt::Horizontal, this));
    page->addLayout(columns, 1);

    connect(&draft, &DraftOwner::listChanged, this, &ProfilesView::showEditor);
    connect(&draft, &DraftOwner::selectionChanged, this, &ProfilesView::showEditor);
    connect(&draft, &DraftOwner::changed, this, &ProfilesView::showButtons);
    connect(&draft, &DraftOwner::saved, this,
            [this] { announce(*this, tr("The profiles are saved.")); });
    connect(list, &ProfilesList::added, this, [this] { editor->editName(); });
    connect(revertButton, &QPushButton::clicked, this, &ProfilesView::revert);
    connect(saveButton, &QPushButton::clicked, this, &ProfilesView::save);
    auto* saveShortcut = new QShortcut(this);
    saveShortcut->setKeys(keysOf(KeyCommand::save));
    saveShortcut->setAutoRepeat(false);
    connect(saveShortcut, &QShortcut::activated, this, &ProfilesView::save);
    connect(&model, &Model::stateChanged, this, &ProfilesView::followModel);
    followModel();
    showInvitation();
    showButtons();
}

ProfilesView::~ProfilesView() {
    // A field that loses the focus with the view tells of what was typed into it.
    if (editor)
        editor->retire();
    // The widgets go after the draft, which they must not hear by then.
    draft.disconnect();
    delete list;
    delete editor;
}

QWidget* ProfilesView::makeHeader() {
    auto* header = new QWidget(this);
    header->setFixedHeight(PaneFrame::headerHeight - 1);
    auto* row = tightLayout<QHBoxLayout>(header);
    row->setContentsMargins(PaneFrame::margin, 0, PaneFrame::margin, 0);
    row->addWidget(new TextLabel(tr("Profiles"), TextStyle::title()));
    row->addStretch(1);
    return header;
}

QWidget* ProfilesView::makeDetail() {
    scrollArea = new QScrollArea;
    scrollArea->setWidgetResizable(true);
    scrollArea->setFrameShape(QFrame::NoFrame);
    scrollArea->setFocusPolicy(Qt::NoFocus);
    // The window's ground shows through.
    scrollArea->viewport()->setAutoFillBackground(false);
    detail = new QStackedWidget;
    detail->addWidget(makeEmptyState());
    detail->addWidget(scrollArea);
    auto* box = new QWidget(this);
    auto* column = tightLayout<QVBoxLayout>(box);
    column->addWidget(detail, 1);
    column->addWidget(new Divider(Qt::Horizontal));
    column->addWidget(makeBottomBar());
    return box;
}

QWidget* ProfilesView::makeEmptyState() {
    auto* panel = new QWidget;
    auto* title = new TextLabel(tr("No profile selected"), TextStyle::title());
    invitation = new TextLabel(
        tr("Add one with + to make the fan follow temperature, load or the time of day."),
        TextStyle::body(), TextColor::secondary);
    invitation->setOverflow(Overflow::wrap);
    invitation->setAlignment(Qt::AlignHCenter);
    auto* column = tightLayout<QVBoxLayout>(panel);
    column->setContentsMargins(PaneFrame::margin, PaneFrame::margin, PaneFrame::margin,
                               PaneFrame::margin);
    column->setSpacing(8);
    column->addStretch(1);
    column->addWidget(
        new SymbolView(Symbol::sliderHorizontal3, emptySymbolSide, TextColor::secondary), 0,
        Qt::AlignHCenter);
    column->addWidget(title, 0, Qt::AlignHCenter);
    column->addWidget(invitation);
    column->addStretch(1);
    return panel;
}

QWidget* ProfilesView::makeBottomBar() {
    notice = new SymbolLabel(Symbol::exclamationTriangle, QString(), TextColor::warning);
    notice->setOverflow(Overflow::wrap);
    notice->hide();
    revertButton = new QPushButton(tr("Revert"));
    saveButton = new QPushButton(tr("Save"));
    saveButton->setDefault(true);
    saveButton->setToolTip(
        keysOf(KeyCommand::save).constFirst().toString(QKeySequence::NativeText));
    auto* bar = new QWidget;
    bar->setFixedHeight(bottomBarHeight);
    bottomRow = tightLayout<QHBoxLayout>(bar);
    bottomRow->setSpacing(10);
    bottomRow->addWidget(notice, 1, Qt::AlignVCenter);
    bottomRow->addStretch(0);
    bottomRow->addWidget(revertButton);
    bottomRow->addWidget(saveButton);
    return bar;
}

void ProfilesView::followModel() {
    draft.follow(model.connected(), model.profiles());
}

void ProfilesView::showButtons() {
    // What is marked comes first: it may well be what is too long.
    const bool invalid = draft.invalid();
    notice->setText(invalid
                        ? tr("Fix the marked profiles to save.")
                        : tr("The profiles are too long to save. Shorten names or remove some."));
    notice->setVisible(invalid || draft.tooLong());
    enable(*revertButton, draft.canRevert());
    enable(*saveButton, draft.canSave());
}

void ProfilesView::enable(QPushButton& button, bool enabled) {
    if (!enabled)
        handFocusOn(button, list->focusTarget());
    button.setEnabled(enabled);
}

// The button that it speaks of waits for the agent, and so does it.
void ProfilesView::showInvitation() {
    invitation->setEnabled(draft.draft().loaded);
}

void ProfilesView::showEditor() {
    showInvitation();
    const Profile* selected = draft.selected();
    if (editor && selected && editor->isFor(*selected)) {
        editor->display();
        return;
    }
    if (ProfileEditor* old = std::exchange(editor, nullptr)) {
        // A field that loses the focus with it tells of what was typed; nobody is to hear that.
        old->retire();
        const QWidget* focused = QApplication::focusWidget();
        if (focused && old->isAncestorOf(focused))
            handFocusOn(*focused, list->focusTarget());
        scrollArea->takeWidget();
        // It may be in the middle of telling of a change.
        old->deleteLater();
    }
    detail->setCurrentIndex(selected ? 1 : 0);
    if (!selected)
        return;
    editor = new ProfileEditor(model, draft);
    scrollArea->setWidget(editor);
    // A scroll area fills its widget's ground.
    editor->setAutoFillBackground(false);
    followReadingOrder(*this);
}

void ProfilesView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // In line with the cards above.
    const int side = ProfileEditor::marginAt(width() - list->width() - 1, *style());
    bottomRow->setContentsMargins(side, 0, side, 0);
}

bool ProfilesView::focusNextPrevChild(bool next) {
    // Time windows come and go.
    followReadingOrder(*this);
    return QWidget::focusNextPrevChild(next);
}

void ProfilesView::save() {
    QWidget* focused = QApplication::focusWidget();
    auto* field = qobject_cast<QAbstractSpinBox*>(focused);
    // What is half typed counts, as it would if the field lost the focus.
    if (field && isAncestorOf(field))
        field->interpretText();
    if (draft.canSave())
        bridge.send(command::SaveProfiles{draft.takeToSave()});
}

void ProfilesView::revert() {
    draft.revert();
}

void ProfilesView::undo() {
    draft.undo();
}

void ProfilesView::redo() {
    draft.redo();
}

} // namespace tervale
