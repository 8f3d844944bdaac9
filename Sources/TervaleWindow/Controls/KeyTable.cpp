#include "TervaleWindow/Controls/KeyTable.h"

#include "Base/Precondition.h"

#include <QKeyEvent>
#include <QStringList>

#include <algorithm>

namespace tervale {

namespace {

QKeySequence control(Qt::Key key) {
    return {Qt::ControlModifier | key};
}

/// The keys of the four arrows with these modifiers.
QList<QKeySequence> arrows(Qt::KeyboardModifiers modifiers) {
    QList<QKeySequence> keys;
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down})
        keys << QKeySequence(modifiers | key);
    return keys;
}

/// The best known key is told of, which some desktops list after another or not at all.
KeyRow standard(KeyCommand command, const QString& title, const QKeySequence& first,
                QKeySequence::StandardKey kind) {
    KeyRow row{command, title, {first}, QKeySequence::keyBindings(kind)};
    row.others.removeAll(first);
    return row;
}

std::vector<KeyRow> makeTable() {
    const QList<QKeySequence> sideways{Qt::Key_Left, Qt::Key_Right};
    const QList<QKeySequence> removal{Qt::Key_Delete, Qt::Key_Backspace};
    return {
        {KeyCommand::showOverview, QStringLiteral("Overview"), {control(Qt::Key_1)}},
        {KeyCommand::showSensors, QStringLiteral("Sensors"), {control(Qt::Key_2)}},
        {KeyCommand::showProfiles, QStringLiteral("Profiles"), {control(Qt::Key_3)}},
        {KeyCommand::showSettings, QStringLiteral("Settings"), {control(Qt::Key_4)}},
        {KeyCommand::settings, QStringLiteral("Settings…"), {control(Qt::Key_Comma)}},
        {KeyCommand::goAlongModes, QStringLiteral("Go along the modes"), sideways},
        standard(KeyCommand::find, QStringLiteral("Find"), control(Qt::Key_F), QKeySequence::Find),
        {KeyCommand::clearFilter, QStringLiteral("Clear the filter"), {Qt::Key_Escape}},
        {KeyCommand::enterSensors,
         QStringLiteral("Go from the filter to the sensors"),
         {Qt::Key_Down}},
        standard(KeyCommand::save, QStringLiteral("Save"), control(Qt::Key_S), QKeySequence::Save),
        standard(KeyCommand::undo, QStringLiteral("Undo"), control(Qt::Key_Z), QKeySequence::Undo),
        standard(KeyCommand::redo, QStringLiteral("Redo"),
                 QKeySequence(Qt::ControlModifier | Qt::ShiftModifier | Qt::Key_Z),
                 QKeySequence::Redo),
        {KeyCommand::removeProfile, QStringLiteral("Remove the chosen profile"), removal},
        {KeyCommand::choosePoint, QStringLiteral("Choose a point of the curve"), sideways},
        {KeyCommand::movePoint, QStringLiteral("Move the chosen point"), arrows(Qt::AltModifier)},
        {KeyCommand::movePointFar, QStringLiteral("Move the chosen point by 10"),
         arrows(Qt::AltModifier | Qt::ShiftModifier)},
        {KeyCommand::addPoint,
         QStringLiteral("Add a point beside the chosen one"),
         {Qt::Key_Insert, Qt::Key_Plus}},
        {KeyCommand::removePoint, QStringLiteral("Remove the chosen point"), removal},
        {KeyCommand::menu, QStringLiteral("Open the menu"), {Qt::Key_F10}},
        standard(KeyCommand::close, QStringLiteral("Close"), control(Qt::Key_W),
                 QKeySequence::Close),
        {KeyCommand::quit, QStringLiteral("Quit Tervale"), {control(Qt::Key_Q)}},
        {KeyCommand::showKeys, QStringLiteral("Keyboard Shortcuts"), {Qt::Key_F1}},
    };
}

bool hasModifiers(const QKeyEvent& event, Qt::KeyboardModifiers modifiers) {
    return (event.modifiers() & modifiers) == modifiers;
}

} // namespace

const std::vector<KeyRow>& keyTable() {
    static const std::vector<KeyRow> table = makeTable();
    return table;
}

const KeyRow& keyRow(KeyCommand command) {
    const auto& table = keyTable();
    const auto found = std::find_if(table.begin(), table.end(), [command](const KeyRow& row) {
        return row.command == command;
    });
    precondition(found != table.end(), "every command has keys");
    return *found;
}

QList<QKeySequence> keysOf(KeyCommand command) {
    const KeyRow& row = keyRow(command);
    return row.keys + row.others;
}

QString shownKeys(const KeyRow& row, QKeySequence::SequenceFormat format) {
    QStringList texts;
    for (const QKeySequence& key : row.keys)
        texts << key.toString(format);
    return texts.join(QStringLiteral(", "));
}

bool isKeyOf(KeyCommand command, const QKeyEvent& event) {
    const QList<QKeySequence>& keys = keyRow(command).keys;
    return std::any_of(keys.begin(), keys.end(), [&event](const QKeySequence& key) {
        return key[0].key() == event.key() && hasModifiers(event, key[0].keyboardModifiers());
    });
}

} // namespace tervale
