#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include <vector>

class QKeyEvent;

namespace tervale {

/// What keys do in the window, beyond what lists, sliders and fields do with them everywhere.
enum class KeyCommand {
    // The panes, in their order.
    showOverview,
    showSensors,
    showProfiles,
    showSettings,
    settings,
    find,
    clearFilter,
    enterSensors,
    save,
    undo,
    redo,
    goAlongModes,
    choosePoint,
    movePoint,
    movePointFar,
    addPoint,
    removePoint,
    removeProfile,
    menu,
    close,
    quit,
    showKeys,
};

/// A command and its keys.
struct KeyRow {
    KeyCommand command;
    /// What it does, as people read it.
    QString title;
    /// Those that people are told of. Each of them does it, in its direction if it has one.
    QList<QKeySequence> keys;
    /// Those that a desktop has beside them.
    QList<QKeySequence> others{};
};

/// All of them, in the order in which they are shown. Whoever takes a key takes it from here.
const std::vector<KeyRow>& keyTable();
const KeyRow& keyRow(KeyCommand command);
/// Those that people are told of, and then the others.
QList<QKeySequence> keysOf(KeyCommand command);
/// Such as "Left, Right".
QString shownKeys(const KeyRow& row, QKeySequence::SequenceFormat format);
/// Whether the event is one of the command's keys, which may come with further modifiers: ask for
/// the command with more of them first.
bool isKeyOf(KeyCommand command, const QKeyEvent& event);

} // namespace tervale
