#pragma once

#include "TervaleWindow/Controls/PopUpButton.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMenu>
#include <QStringList>
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

/// Chooses by keys the entry of that title in an open menu: walks down to it and takes it, which
/// opens the menu of an entry that has one. False if there is none.
inline bool take(QMenu& menu, const QString& title) {
    for (qsizetype step = 0; step <= menu.actions().size(); ++step) {
        if (menu.activeAction() && menu.activeAction()->text() == title) {
            QTest::keyClick(&menu, Qt::Key_Return);
            return true;
        }
        QTest::keyClick(&menu, Qt::Key_Down);
    }
    return false;
}

/// Opens a menu and chooses by keys along the titles, the last of which is in the menu of the one
/// before it.
inline void choose(QMenu& menu, const QStringList& titles) {
    menu.popup(QPoint(0, 0));
    for (const QString& title : titles) {
        auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!open || !take(*open, title))
            break;
    }
    // What cannot be chosen leaves it open.
    menu.close();
}

} // namespace tervale
