#include "TervaleWindow/Shell/EditMenu.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>

#include <array>

namespace tervale {

namespace {

struct Command {
    const char* title;
    QKeySequence::StandardKey key;
    void (*run)(QLineEdit& field);
    bool (*isPossible)(const QLineEdit&);
    bool beginsGroup = false;
};

bool canUndo(const QLineEdit& field) {
    return field.isUndoAvailable();
}

bool canRedo(const QLineEdit& field) {
    return field.isRedoAvailable();
}

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

constexpr std::array<Command, 6> commands{
    {{"Undo", QKeySequence::Undo, [](QLineEdit& field) { field.undo(); }, canUndo},
     {"Redo", QKeySequence::Redo, [](QLineEdit& field) { field.redo(); }, canRedo},
     {"Cut", QKeySequence::Cut, [](QLineEdit& field) { field.cut(); }, canCut, true},
     {"Copy", QKeySequence::Copy, [](QLineEdit& field) { field.copy(); }, canCopy},
     {"Paste", QKeySequence::Paste, [](QLineEdit& field) { field.paste(); }, canPaste},
     {"Select All", QKeySequence::SelectAll, [](QLineEdit& field) { field.selectAll(); },
      canSelectAll}}};

/// A spin box lets the field within it do the editing.
QLineEdit* fieldOf(QWidget* focused) {
    if (qobject_cast<QAbstractSpinBox*>(focused))
        return focused->findChild<QLineEdit*>();
    return qobject_cast<QLineEdit*>(focused);
}

} // namespace

EditMenu::EditMenu(QWidget* parent) : QMenu(QStringLiteral("Edit"), parent) {
    addCommands();
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* focused) { followFocus(focused); });
    connect(this, &QMenu::aboutToShow, this, &EditMenu::offerWhatIsPossible);
    connect(this, &QMenu::aboutToHide, this, &EditMenu::offerAll);
    followFocus(QApplication::focusWidget());
}

void EditMenu::addCommands() {
    for (const Command& command : commands) {
        if (command.beginsGroup)
            addSeparator();
        QAction* action = addAction(QString::fromLatin1(command.title));
        action->setShortcuts(command.key);
        entries << action;
        connect(action, &QAction::triggered, this, [this, run = command.run] {
            if (field)
                run(*field);
        });
    }
}

void EditMenu::followFocus(QWidget* focused) {
    field = fieldOf(focused);
    offerAll();
}

void EditMenu::offerAll() {
    for (QAction* entry : entries)
        entry->setEnabled(!field.isNull());
}

void EditMenu::offerWhatIsPossible() {
    for (qsizetype index = 0; index < entries.size(); ++index) {
        const Command& command = commands[static_cast<std::size_t>(index)];
        entries[index]->setEnabled(field && command.isPossible(*field));
    }
}

} // namespace tervale
