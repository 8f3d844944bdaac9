#pragma once

#include <QIconEngine>
#include <QPainter>
#include <QStyleOptionComplex>
#include <QStyleOptionFrame>

class QLineEdit;

namespace tervale {

/// Fields for text and for times, and tool tips.

inline constexpr int fieldHeight = 28;
inline constexpr int searchRadius = 8;
inline constexpr int searchIconSide = 14;
inline constexpr int searchIconMargin = 7;

/// Fields that look for something have a rounded ground instead of a box.
void markAsSearchField(QLineEdit& field);
bool isSearchField(const QWidget* widget);

void paintField(QPainter& painter, const QStyleOptionFrame& option, const QWidget* widget);
/// Where a field has its text.
QRect fieldContents(const QStyleOption& option, const QWidget* widget);
QSize fieldSize(const QSize& contents);

void paintSpinBox(QPainter& painter, const QStyleOptionComplex& option);
QRect spinBoxRect(const QStyleOptionComplex& option, QStyle::SubControl part);
QSize spinBoxSize(const QSize& contents, const QFontMetrics& metrics);

void paintToolTip(QPainter& painter, const QStyleOption& option);

/// The disc with a cross that clears a field, drawn for any size, on light and dark alike.
class ClearIconEngine : public QIconEngine {
  public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;
};

} // namespace tervale
