#pragma once

#include <QCheckBox>
#include <QVariantAnimation>

namespace tervale {

/// A switch of two positions. The user's click or Space only asks for the other one, through
/// `requested`; what it shows is what `setChecked` was last told.
class ToggleSwitch : public QCheckBox {
    Q_OBJECT

  public:
    /// `name` is for assistive technology; the visible label stands elsewhere.
    explicit ToggleSwitch(const QString& name, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    void requested(bool on);

  protected:
    void nextCheckState() override;
    bool hitButton(const QPoint& point) const override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void slide(bool on);

    /// Where the knob is, from 0 (off) to 1 (on).
    qreal position = 0;
    QVariantAnimation animation;
};

} // namespace tervale
