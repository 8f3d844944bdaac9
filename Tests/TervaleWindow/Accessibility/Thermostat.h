#pragma once

#include <QWidget>

namespace tervale {

/// A widget of a class of its own, for which an accessible interface can be registered.
class Thermostat : public QWidget {
    Q_OBJECT
};

} // namespace tervale
