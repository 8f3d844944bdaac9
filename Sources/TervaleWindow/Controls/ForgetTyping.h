#pragma once

class QLineEdit;

namespace tervale {

/// From now on the field has nothing to undo by itself; text, cursor and selection stay. To be
/// called once what was typed has become a step of somebody's history, who would else take it back
/// a second time.
void forgetTyping(QLineEdit& field);

} // namespace tervale
