#include "TervaleWindow/Shell/Sidebar.h"
#include "TervaleWindow/Shell/SimulatedWindow.h"
#include "TervaleWindow/Support/Contrast.h"
#include "TervaleWindow/Support/InLocale.h"
#include "TervaleWindow/Support/Look.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFocusFrame>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace tervale;

namespace {

/// Between what most of a picture is and what stands out most from it.
double contrastWithin(const QImage& picture) {
    std::map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    const auto more = [](const auto& first, const auto& second) {
        return first.second < second.second;
    };
    const double ground = luminance(std::max_element(counts.begin(), counts.end(), more)->first);
    double most = 1;
    for (const auto& [color, count] : counts)
        most = std::max(most, contrast(ground, luminance(color)));
    return most;
}

std::string nameOf(const QWidget& widget) {
    const QString text = widget.property("text").toString();
    return QString("%1 \"%2\" %3")
        .arg(widget.metaObject()->className(), text.isEmpty() ? widget.accessibleName() : text)
        .arg(widget.parentWidget() ? widget.parentWidget()->metaObject()->className() : "")
        .toStdString();
}

/// What people read and use, as opposed to what only holds it.
bool isContent(const QWidget& widget) {
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return (label && !label->text().isEmpty()) || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QSlider*>(&widget);
}

/// What lies over something else on purpose, or is a part of one of the toolkit's own controls.
bool isNoneOfOurs(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return qobject_cast<const QFocusFrame*>(&widget) || qobject_cast<const QScrollBar*>(&widget) ||
           qobject_cast<const QAbstractSpinBox*>(parent) ||
           qobject_cast<const QComboBox*>(parent) || qobject_cast<const QLineEdit*>(parent);
}

/// Temperatures are written in the colours of the ramp, which are what they are.
double leastContrast(const QString& text) {
    return text.endsWith("°C") ? 1.5 : 3;
}

} // namespace

/// A locale that is named, or else that of whoever runs the tests; before the window is there.
class PaneInLocale : public testing::TestWithParam<std::tuple<Pane, int, Scheme, const char*>> {
  private:
    static QLocale named(const char* name) { return *name ? QLocale(name) : QLocale(); }

    const InLocale locale{named(std::get<3>(GetParam()))};
};

/// Every pane on a simulated Mac, in both sizes and schemes of the look under test.
class PaneLayout : public PaneInLocale, protected SimulatedWindow {
  protected:
    void SetUp() override {
        const auto [pane, row, scheme, name] = GetParam();
        QApplication::setPalette(scheme == Scheme::dark ? darkLook() : lightLook());
        model.refresh();
        simulation.advance(2);
        model.refresh();
        window.setSection(pane);
    }

    void show(const QSize& size) {
        window.resize(size);
        window.show();
        selectProfile(std::get<1>(GetParam()));
        for (int pass = 0; pass < 3; ++pass)
            QApplication::processEvents();
    }

    std::vector<QWidget*> shown() const {
        std::vector<QWidget*> widgets;
        for (auto* widget : window.findChildren<QWidget*>()) {
            if (widget->isVisibleTo(&window) && !widget->isWindow() && !isNoneOfOurs(*widget))
                widgets.push_back(widget);
        }
        return widgets;
    }
};

TEST_P(PaneLayout, ClipsNothingAndLetsNothingOverlap) {
    for (const QSize size : {QSize(980, 680), QSize(780, 520)}) {
        show(size);
        for (const QWidget* widget : shown()) {
            const QSize least = widget->minimumSizeHint();
            EXPECT_GE(widget->width(), least.width()) << nameOf(*widget);
            EXPECT_GE(widget->height(), least.height()) << nameOf(*widget);
            const QWidget* parent = widget->parentWidget();
            const bool scrolls = qobject_cast<const QAbstractScrollArea*>(parent->parentWidget());
            if (isContent(*widget) && !scrolls) {
                EXPECT_TRUE(parent->rect().contains(widget->geometry())) << nameOf(*widget);
            }
            if (!isContent(*widget))
                continue;
            for (const QObject* object : parent->children()) {
                const auto* sibling = qobject_cast<const QWidget*>(object);
                if (sibling && sibling != widget && isContent(*sibling) && sibling->isVisible()) {
                    EXPECT_FALSE(sibling->geometry().intersects(widget->geometry()))
                        << nameOf(*widget) << " and " << nameOf(*sibling);
                }
            }
        }
        for (const auto* area : window.findChildren<QScrollArea*>()) {
            if (area->isVisible()) {
                EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << size.width();
            }
        }
    }
}

TEST_P(PaneLayout, WritesEveryTextWithContrast) {
    show({980, 680});
    constexpr int scale = 3;
    QPixmap picture(window.size() * scale);
    picture.setDevicePixelRatio(scale);
    window.render(&picture);
    const QImage image = picture.toImage();
    for (const QWidget* widget : shown()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool hasText =
            (label && !label->text().isEmpty()) || (button && !button->text().isEmpty());
        if (!hasText || !widget->isEnabled())
            continue;
        const QRect part(widget->mapTo(&window, QPoint(0, 0)), widget->size());
        // What is scrolled out of sight has no picture.
        if (widget->visibleRegion().boundingRect() != widget->rect())
            continue;
        EXPECT_GE(contrastWithin(image.copy(QRect(part.topLeft() * scale, part.size() * scale))),
                  leastContrast(widget->property("text").toString()))
            << nameOf(*widget);
    }
}

TEST_P(PaneLayout, BeginsOnTheSideWhereTextDoes) {
    show({980, 680});
    const auto* sidebar = window.findChild<Sidebar*>();
    ASSERT_NE(sidebar, nullptr);
    EXPECT_EQ(sidebar->x() > window.detail()->x(), QGuiApplication::isRightToLeft());
}

constexpr auto everyPane = {Pane::overview, Pane::sensors, Pane::profiles, Pane::settings};

INSTANTIATE_TEST_SUITE_P(Panes, PaneLayout,
                         testing::Combine(testing::ValuesIn(everyPane), testing::Values(0, 1, 2),
                                          testing::Values(Scheme::light, Scheme::dark),
                                          testing::Values("")));
INSTANTIATE_TEST_SUITE_P(MirroredPanes, PaneLayout,
                         testing::Combine(testing::ValuesIn(everyPane), testing::Values(0, 1, 2),
                                          testing::Values(Scheme::light),
                                          testing::Values("ar_EG")));
