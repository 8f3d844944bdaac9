#pragma once

#include <QWidget>

#include <array>
#include <cstddef>

namespace tervale {

/// Has a screen reader speak a sentence once, after whatever it is speaking, wherever the focus is.
/// Nothing is shown. For what a person would want to know at once, never for what ticks.
void announce(const QWidget& from, const QString& sentence);

/// One sentence that is told, which nobody sees.
class Announcement final : public QWidget {
    Q_OBJECT

  public:
    explicit Announcement(QWidget* parent);

    const QString& sentence() const { return text; }
    bool isCurrent() const { return current; }
    void tell(const QString& sentence);
    /// It is no longer the last one.
    void retire();

  private:
    QString text;
    bool current = false;
};

/// The sentences of a window, which owns it. Where the toolkit knows no announcements of its own, a
/// desktop speaks of a notification that comes up; so each sentence is one. The next one has
/// another place, since the last may not have been read yet.
class Announcer final : public QWidget {
    Q_OBJECT

  public:
    /// That of the window, which is made now if there was none.
    static Announcer& of(QWidget& window);

    void tell(const QString& sentence);

  private:
    explicit Announcer(QWidget& window);

    static constexpr std::size_t places = 4;
    std::array<Announcement*, places> sentences{};
    std::size_t last = 0;
};

} // namespace tervale
