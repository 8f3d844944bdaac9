#include "TervaleWindow/Controls/ForgetTyping.h"

#include <QLineEdit>

namespace tervale {

void forgetTyping(QLineEdit& field) {
    if (!field.isUndoAvailable() && !field.isRedoAvailable())
        return;
    const int cursor = field.cursorPosition();
    const int start = field.selectionStart();
    const int length = static_cast<int>(field.selectedText().size());
    field.setText(field.text());
    if (length == 0)
        field.setCursorPosition(cursor);
    else if (cursor == start)
        field.setSelection(start + length, -length);
    else
        field.setSelection(start, length);
}

} // namespace tervale
