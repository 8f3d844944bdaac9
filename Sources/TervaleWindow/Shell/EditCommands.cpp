#include "TervaleWindow/Shell/EditCommands.h"

#include "TervaleWindow/Controls/KeyTable.h"
#include "TervaleWindow/Profiles/ProfilesView.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QUndoStack>

namespace tervale {

namespace {

bool canCopy(const QLineEdit& field) {
    return field.hasSelectedText();
}

bool canCut(const QLineEdit& field) {
    return canCopy(field) && !field.isReadOnly();
}

bool canPaste(const QLineEdit& field) {
    return !field.isReadOnly() && !QApplication::clipboard()->text().isEmpty();
}

bool canSelectAll(const QLineEdit& field) {
    return !field.text().isEmpty();
}

QString titleOf(const QString& command, const QString& step) {
    return step.isEmpty() ? command : QStringLiteral("%1 %2").arg(command, step);
}

} // namespace

EditCommands::EditCommands(QObject* parent)
    : QObject(parent),
      undo(command(tr("Undo"), keysOf(KeyCommand::undo))),
      redo(command(tr("Redo"), keysOf(KeyCommand::redo))) {
    addTextCommand(tr("Cut"), QKeySequence::Cut, &QLineEdit::cut, canCut);
    addTextCommand(tr("Copy"), QKeySequence::Copy, &QLineEdit::copy, canCopy);
    addTextCommand(tr("Paste"), QKeySequence::Paste, &QLineEdit::paste, canPaste);
    addTextCommand(tr("Select All"), QKeySequence::SelectAll, &QLineEdit::selectAll, canSelectAll);
    connect(undo, &QAction::triggered, this, [this] {
        if (fieldUndoes())
            textField()->undo();
        else if (profiles)
            profiles->undo();
    });
    connect(redo, &QAction::triggered, this, [this] {
        if (fieldRedoes())
            textField()->redo();
        else if (profiles)
            profiles->redo();
    });
    connect(qApp, &QApplication::focusChanged, this, &EditCommands::followFocus);
    followFocus();
}

QAction* EditCommands::command(const QString& title, const QList<QKeySequence>& keys) {
    auto* action = new QAction(title, this);
    action->setShortcuts(keys);
    action->setMenuRole(QAction::NoRole);
    // It stays, whatever step the text names.
    action->setIconText(title);
    return action;
}

template <class Run>
void EditCommands::addTextCommand(const QString& title, QKeySequence::StandardKey key, Run run,
                                  bool (*isPossible)(const QLineEdit& field)) {
    QAction* action = command(title, {QKeySequence(key)});
    connect(action, &QAction::triggered, this, [this, run] {
        if (QLineEdit* field = textField())
            (field->*run)();
    });
    textCommands.push_back({action, isPossible});
}

std::vector<QAction*> EditCommands::menu() const {
    std::vector<QAction*> all{undo, redo, nullptr};
    for (const TextCommand& each : textCommands)
        all.push_back(each.action);
    return all;
}

void EditCommands::serve(ProfilesView* pane) {
    profiles = pane;
    // Each change of the history comes with this signal.
    if (profiles)
        connect(&profiles->history(), &QUndoStack::indexChanged, this, &EditCommands::followHistory,
                Qt::UniqueConnection);
    followHistory();
}

QLineEdit* EditCommands::textField() const {
    if (const auto* field = qobject_cast<QAbstractSpinBox*>(focused.data()))
        return field->findChild<QLineEdit*>();
    return qobject_cast<QLineEdit*>(focused.data());
}

bool EditCommands::fieldUndoes() const {
    const QLineEdit* field = textField();
    return field && field->isUndoAvailable();
}

bool EditCommands::fieldRedoes() const {
    const QLineEdit* field = textField();
    return field && field->isRedoAvailable();
}

bool EditCommands::paneUndoes() const {
    return profiles && profiles->history().canUndo();
}

bool EditCommands::paneRedoes() const {
    return profiles && profiles->history().canRedo();
}

void EditCommands::followFocus() {
    // On some desktops an open menu takes the focus from what its commands are for.
    if (QApplication::activePopupWidget())
        return;
    if (focused)
        focused->removeEventFilter(this);
    focused = QApplication::focusWidget();
    if (textField())
        focused->installEventFilter(this);
    followHistory();
}

bool EditCommands::eventFilter(QObject* watched, QEvent* event) {
    // A field claims the keys even if it has nothing to undo. They are the pane's then.
    if (event->type() == QEvent::ShortcutOverride && watched == focused && profiles) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if ((key.matches(QKeySequence::Undo) && !fieldUndoes()) ||
            (key.matches(QKeySequence::Redo) && !fieldRedoes())) {
            event->ignore();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void EditCommands::followHistory() {
    showSteps();
    enableUsual();
}

void EditCommands::showSteps() {
    undo->setText(titleOf(
        tr("Undo"), paneUndoes() && !fieldUndoes() ? profiles->history().undoText() : QString()));
    redo->setText(titleOf(
        tr("Redo"), paneRedoes() && !fieldRedoes() ? profiles->history().redoText() : QString()));
}

void EditCommands::enableUsual() {
    const bool editsText = textField() != nullptr;
    for (const TextCommand& each : textCommands)
        each.action->setEnabled(editsText);
    undo->setEnabled(editsText || paneUndoes());
    redo->setEnabled(editsText || paneRedoes());
}

void EditCommands::enablePossible() {
    const QLineEdit* field = textField();
    for (const TextCommand& each : textCommands)
        each.action->setEnabled(field && each.isPossible(*field));
    showSteps();
    undo->setEnabled(fieldUndoes() || paneUndoes());
    redo->setEnabled(fieldRedoes() || paneRedoes());
}

} // namespace tervale
