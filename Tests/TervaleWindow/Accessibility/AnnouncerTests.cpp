#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Accessibility/Announcer.h"
#include "TervaleWindow/Support/HeardEvents.h"

#include <QLabel>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace tervale;

class Announcements : public testing::Test {
  protected:
    Announcements() {
        installAccessibleFactory();
        column.addWidget(&label);
        window.show();
        heard.take();
    }

    QWidget window;
    QVBoxLayout column{&window};
    QLabel label{"58 °C"};
    HeardEvents heard;
};

TEST_F(Announcements, AreToldOnceEachAndInOrder) {
    announce(label, "Too hot");
    announce(window, "The profiles are saved.");
    EXPECT_EQ(heard.take(),
              (QStringList{"announcement: Too hot", "announcement: The profiles are saved."}));
    announce(label, "Too hot");
    EXPECT_EQ(heard.takeAnnouncements(), QStringList{"Too hot"});
}

TEST_F(Announcements, ChangeNothingThatIsSeen) {
    const QSize size = window.sizeHint();
    const QWidgetList before = window.findChildren<QWidget*>();
    announce(label, "Too hot");
    EXPECT_EQ(window.sizeHint(), size);
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!before.contains(widget)) {
            EXPECT_FALSE(widget->isVisible());
        }
    }
}

#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)
TEST_F(Announcements, StayReadableWhileTheNextOnesAreTold) {
    const auto notifications = [this] {
        QStringList texts;
        for (auto* sentence : window.findChildren<Announcement*>()) {
            const auto* accessible = QAccessible::queryAccessibleInterface(sentence);
            texts << (accessible->state().invisible ? "" : "!") +
                         accessible->text(QAccessible::Name);
        }
        texts.removeAll("");
        texts.sort();
        return texts;
    };
    announce(window, "One");
    announce(window, "Two");
    EXPECT_EQ(notifications(), (QStringList{"!Two", "One"}));
    for (const char* sentence : {"Three", "Four", "Five"})
        announce(window, sentence);
    EXPECT_EQ(notifications(), (QStringList{"!Five", "Four", "Three", "Two"}));
}
#endif
