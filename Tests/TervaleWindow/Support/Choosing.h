#pragma once

#include "TervaleWindow/Controls/PopUpButton.h"

#include <QAbstractItemView>
#include <QMenu>
#include <QTest>

namespace tervale {

/// Chooses an entry of a pop-up as a person does by keys: opens the list, walks down to it and
/// takes it.
inline void choose(PopUpButton& button, int entry) {
    QTest::keyClick(&button, Qt::Key_Down);
    QAbstractItemView* list = button.view();
    QTest::keyClick(list, Qt::Key_Home);
    for (int last = -1; list->currentIndex().row() != entry && list->currentIndex().row() != last;
         QTest::keyClick(list, Qt::Key_Down))
        last = list->currentIndex().row();
    QTest::keyClick(list, Qt::Key_Return);
}

/// Opens a menu and chooses by keys the entry of that title, if there is one.
inline void choose(QMenu& menu, const QString& title) {
    menu.popup(QPoint(0, 0));
    for (qsizetype step = 0; step < menu.actions().size(); ++step) {
        QTest::keyClick(&menu, Qt::Key_Down);
        if (menu.activeAction() && menu.activeAction()->text() == title) {
            QTest::keyClick(&menu, Qt::Key_Return);
            return;
        }
    }
    menu.close();
}

} // namespace tervale
