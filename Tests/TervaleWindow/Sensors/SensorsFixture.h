#pragma once

#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Sensors/SensorList.h"
#include "TervaleWindow/Sensors/SensorSectionCard.h"
#include "TervaleWindow/Sensors/SensorsView.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

namespace tervale {

/// The pane on a model with a fake controller, and what it shows.
class SensorsFixture : public ModelFixture {
  protected:
    void useUsualSensors() {
        for (const auto& [key, value] :
             std::initializer_list<std::pair<const char*, double>>{{"Tp01", 57},
                                                                   {"Tp05", 61},
                                                                   {"Te05", 50},
                                                                   {"Tg05", 48},
                                                                   {"Tg0D", 60},
                                                                   {"TH0x", 39}})
            controller.set(key, value);
    }
    /// Two sensors that no summary reads, so that only the list's own reads touch them.
    void useOtherSensors() {
        controller.set("TW0P", 41);
        controller.set("TaLP", 32);
    }
    void useSensors(int count) {
        for (int number = 0; number < count; ++number)
            controller.set(QString("Tp%1").arg(number, 2, 36, QChar('0')).toStdString(), 50);
    }

    void show() {
        if (!model)
            makeModel();
        if (!view)
            view = std::make_unique<SensorsView>(*model);
        view->resize(790, 628);
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }

    SearchField& search() { return *view->findChild<SearchField*>(); }
    SensorList& list() { return *view->findChild<SensorList*>(); }
    QScrollBar& scrollBar() { return *view->findChild<QScrollArea*>()->verticalScrollBar(); }
    void type(const QString& text) {
        search().setFocus();
        QTest::keyClicks(&search(), text);
    }
    std::vector<SensorSectionCard*> cards() {
        std::vector<SensorSectionCard*> shown;
        for (auto* card : view->findChildren<SensorSectionCard*>()) {
            if (card->isVisible())
                shown.push_back(card);
        }
        return shown;
    }
    /// Title, count and rows of every section on screen.
    QStringList lines() {
        QStringList all;
        for (const auto* card : cards()) {
            all << card->section().title() + ": " + card->section().count();
            for (const SensorRow& row : card->section().rows)
                all << row.name + QString(" %1").arg(row.value);
        }
        return all;
    }
    bool shows(const QString& text) {
        for (const auto* label : view->findChildren<QLabel*>()) {
            if (label->text() == text && label->isVisible())
                return true;
        }
        return false;
    }
    int callsOf(int polls) {
        const int before = controller.calls;
        for (int poll = 0; poll < polls; ++poll)
            model->refresh();
        return controller.calls - before;
    }

    std::unique_ptr<SensorsView> view;
};

} // namespace tervale
