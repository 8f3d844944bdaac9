#pragma once

#include <QAccessible>
#include <QObject>

namespace tervale {

/// Makes the interface of an object that it knows; null for every other object.
using AccessibleMaker = QAccessibleInterface* (*)(QObject* object);

/// Makes the toolkit hand out the window's own interfaces for controls, gauges, lists and whatever
/// only holds others. Before the first of them is named: the toolkit makes an interface then, and
/// keeps it. More calls do nothing.
void installAccessibleFactory();

/// Adds the interface of a widget that a pane has of its own, under the same condition. A maker
/// that is known already is not added again.
void registerAccessible(AccessibleMaker maker);

/// A maker of interfaces `Accessible`, each made from a reference to its widget `Described`.
template <class Described, class Accessible>
QAccessibleInterface* makeAccessible(QObject* object) {
    auto* described = qobject_cast<Described*>(object);
    return described ? new Accessible(*described) : nullptr;
}

} // namespace tervale
