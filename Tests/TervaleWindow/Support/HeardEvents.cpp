#include "TervaleWindow/Support/HeardEvents.h"

#include "TervaleWindow/Support/EventBridge.h"

#include <QtPlugin>

#include <utility>

// Static plugins are named by their class, without its namespace.
Q_IMPORT_PLUGIN(EventBridgePlugin)

namespace tervale {

namespace {

HeardEvents*& listener() {
    static HeardEvents* current = nullptr;
    return current;
}

class EventBridge final : public QAccessibleBridge {
  public:
    void setRootObject(QAccessibleInterface*) override {}
    void notifyAccessibilityUpdate(QAccessibleEvent* event) override {
        if (listener())
            listener()->hear(*event);
    }
};

QString nameOf(const QAccessibleEvent& event) {
    const QAccessibleInterface* told = event.accessibleInterface();
    return told ? told->text(QAccessible::Name) : QString();
}

QString valueOf(const QAccessibleEvent& event) {
    const QAccessibleInterface* told = event.accessibleInterface();
    return told ? told->text(QAccessible::Value) : QString();
}

bool hasRole(const QAccessibleEvent& event, QAccessible::Role role) {
    const QAccessibleInterface* told = event.accessibleInterface();
    return told && told->role() == role;
}

/// Of those two a screen reader speaks as they come up, if at all.
bool isNameInPlace(const QAccessibleEvent& event) {
    return event.type() == QAccessible::NameChanged && !hasRole(event, QAccessible::Notification) &&
           !hasRole(event, QAccessible::ToolTip);
}

} // namespace

QAccessibleBridge* EventBridgePlugin::create(const QString&) {
    // The toolkit forgets it in the end, without deleting it. Volatile: nobody reads what keeps it
    // from being a leak.
    static QAccessibleBridge* volatile made = nullptr;
    made = new EventBridge;
    return made;
}

HeardEvents::HeardEvents() {
    listener() = this;
}

HeardEvents::~HeardEvents() {
    listener() = nullptr;
}

QStringList HeardEvents::take() {
    return std::exchange(spoken, {});
}

QStringList HeardEvents::takeAnnouncements() {
    const QString mark = QStringLiteral("announcement: ");
    QStringList sentences;
    for (const QString& line : take()) {
        if (line.startsWith(mark))
            sentences << line.mid(mark.size());
    }
    return sentences;
}

int HeardEvents::takeCount() {
    return std::exchange(count, 0);
}

void HeardEvents::hear(QAccessibleEvent& event) {
    ++count;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    if (event.type() == QAccessible::Announcement)
        spoken << QStringLiteral("announcement: ") +
                      static_cast<QAccessibleAnnouncementEvent&>(event).message();
#endif
    if (event.type() == QAccessible::Focus)
        spoken << QStringLiteral("focus: ") + nameOf(event);
    else if (event.type() == QAccessible::ValueChanged)
        spoken << QStringLiteral("value: %1, %2").arg(nameOf(event), valueOf(event));
    else if (event.type() == QAccessible::ObjectShow && hasRole(event, QAccessible::Notification))
        spoken << QStringLiteral("announcement: ") + nameOf(event);
    else if (isNameInPlace(event))
        spoken << QStringLiteral("name: ") + nameOf(event);
}

} // namespace tervale
