#pragma once

#include <QGuiApplication>
#include <QLocale>

namespace tervale {

/// Lets the user read in a locale, and from the side where that begins, as long as it lives. For
/// tests that know what they read; all others take whatever locale they are run in.
class InLocale {
  public:
    explicit InLocale(const QLocale& locale) {
        QLocale::setDefault(locale);
        QGuiApplication::setLayoutDirection(locale.textDirection());
    }
    ~InLocale() {
        QLocale::setDefault(before);
        QGuiApplication::setLayoutDirection(direction);
    }
    InLocale(const InLocale&) = delete;
    InLocale& operator=(const InLocale&) = delete;

  private:
    QLocale before;
    Qt::LayoutDirection direction = QGuiApplication::layoutDirection();
};

} // namespace tervale
