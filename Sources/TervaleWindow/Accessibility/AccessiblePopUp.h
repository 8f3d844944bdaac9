#pragma once

#include "TervaleWindow/Accessibility/AccessibleText.h"

#include <QAccessibleWidget>

namespace tervale {

class PopUpButton;

/// How assistive technology reads the value of a control that chooses among texts.
enum class ChoiceValues {
    /// Through the value interface, as a Mac does.
    inValueInterface,
    /// As its text. The value interface would be taken for a number.
    inTexts,
};

/// A pop-up button with the name that it was given, on every system, and its entry as the value.
class AccessiblePopUp final : public QAccessibleWidget,
                              public QAccessibleValueInterface,
                              private AccessibleText {
  public:
    static ChoiceValues usualValues();

    explicit AccessiblePopUp(PopUpButton& button, ChoiceValues values = usualValues());

    void* interface_cast(QAccessible::InterfaceType type) override;
    using AccessibleText::text;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant&) override {}
    QVariant minimumValue() const override { return {}; }
    QVariant maximumValue() const override { return {}; }
    QVariant minimumStepSize() const override { return {}; }

  private:
    QString shownText() const override;
    PopUpButton* button() const;

    ChoiceValues values;
};

} // namespace tervale
