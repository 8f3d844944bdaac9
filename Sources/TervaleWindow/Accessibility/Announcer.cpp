#include "TervaleWindow/Accessibility/Announcer.h"

#include "TervaleWindow/Accessibility/AccessibleFactory.h"

#include <QAccessibleWidget>
#include <QGuiApplication>

namespace tervale {

namespace {

/// A Mac speaks of announcements alone; a notification would only stand in the way there.
bool speaksOfNotifications() {
    return QGuiApplication::platformName() != QLatin1String("cocoa");
}

class AccessibleAnnouncement final : public QAccessibleWidget {
  public:
    explicit AccessibleAnnouncement(Announcement& described)
        : QAccessibleWidget(&described, QAccessible::Notification),
          announcement(described) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? announcement.sentence() : QString();
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = !announcement.isCurrent() || !speaksOfNotifications();
        return state;
    }
    QStringList actionNames() const override { return {}; }

  private:
    const Announcement& announcement;
};

void tellOf(QObject& object, QAccessible::Event kind) {
    QAccessibleEvent event(&object, kind);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void announce(const QWidget& from, const QString& sentence) {
    QWidget& window = *from.window();
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&window, sentence);
    QAccessible::updateAccessibility(&event);
#else
    Announcer::of(window).tell(sentence);
#endif
}

Announcement::Announcement(QWidget* parent) : QWidget(parent) {
    hide();
}

void Announcement::tell(const QString& sentence) {
    text = sentence;
    current = true;
    tellOf(*this, QAccessible::NameChanged);
    tellOf(*this, QAccessible::ObjectShow);
}

void Announcement::retire() {
    if (!current)
        return;
    current = false;
    tellOf(*this, QAccessible::ObjectHide);
}

Announcer& Announcer::of(QWidget& window) {
    auto* there = window.findChild<Announcer*>(QString(), Qt::FindDirectChildrenOnly);
    return there ? *there : *new Announcer(window);
}

Announcer::Announcer(QWidget& window) : QWidget(&window) {
    registerAccessible(makeAccessible<Announcement, AccessibleAnnouncement>);
    hide();
    for (Announcement*& sentence : sentences)
        sentence = new Announcement(this);
}

void Announcer::tell(const QString& sentence) {
    sentences[last]->retire();
    last = (last + 1) % places;
    sentences[last]->tell(sentence);
}

} // namespace tervale
