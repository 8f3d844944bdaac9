#pragma once

#include <QAccessibleTextInterface>

namespace tervale {

/// A text that people read and nobody edits, as desktops other than a Mac's read what a control
/// shows.
class AccessibleText : public QAccessibleTextInterface {
  public:
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int start, int end) const override { return shownText().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(shownText().size()); }
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

  protected:
    virtual QString shownText() const = 0;
};

} // namespace tervale
