#pragma once

#include <QAccessible>
#include <QStringList>

namespace tervale {

/// Listens in the place of a screen reader while it lives, one at a time.
class HeardEvents {
  public:
    HeardEvents();
    ~HeardEvents();
    HeardEvents(const HeardEvents&) = delete;
    HeardEvents& operator=(const HeardEvents&) = delete;

    /// What a screen reader may speak of since the last call, in order: "focus: " and the name of
    /// what has it now, "name: " and the new name, "value: " with the name and the new value,
    /// "announcement: " and the sentence.
    QStringList take();
    /// The sentences alone.
    QStringList takeAnnouncements();
    /// Every event since the last call, be it spoken of or not.
    int takeCount();

    void hear(QAccessibleEvent& event);

  private:
    QStringList spoken;
    int count = 0;
};

} // namespace tervale
