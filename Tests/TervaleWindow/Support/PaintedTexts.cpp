#include "TervaleWindow/Support/PaintedTexts.h"

#include "TervaleWindow/Support/Contrast.h"

#include <QImage>
#include <QMap>
#include <QPaintEngine>

#include <algorithm>

namespace tervale {

namespace {

/// Takes down the texts and leaves everything else out.
class TextRecorder final : public QPaintEngine {
  public:
    explicit TextRecorder(std::vector<PaintedText>& record)
        : QPaintEngine(QPaintEngine::AllFeatures),
          texts(record) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return QPaintEngine::User; }
    void updateState(const QPaintEngineState& state) override {
        if (state.state() & DirtyPen)
            pen = state.pen().color();
        if (state.state() & DirtyOpacity)
            opacity = state.opacity();
        if (state.state() & DirtyTransform)
            transform = state.transform();
    }
    void drawTextItem(const QPointF& start, const QTextItem& item) override {
        QColor color = pen;
        color.setAlphaF(color.alphaF() * static_cast<float>(opacity));
        const QRectF place(start.x(), start.y() - item.ascent(), item.width(),
                           item.ascent() + item.descent());
        texts.push_back({item.text(), color, transform.mapRect(place).toAlignedRect()});
    }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}

  private:
    std::vector<PaintedText>& texts;
    QColor pen = Qt::black;
    double opacity = 1;
    QTransform transform;
};

class RecordingDevice final : public QPaintDevice {
  public:
    RecordingDevice(const QWidget& of, std::vector<PaintedText>& record)
        : widget(of),
          engine(record) {}

    QPaintEngine* paintEngine() const override { return &engine; }

  protected:
    int metric(PaintDeviceMetric asked) const override {
        if (asked == PdmWidth)
            return widget.width();
        if (asked == PdmHeight)
            return widget.height();
        if (asked == PdmDevicePixelRatioScaled)
            return static_cast<int>(QPaintDevice::devicePixelRatioFScale());
        if (asked == PdmDevicePixelRatio)
            return 1;
        return asked == PdmDepth ? 32 : 96;
    }

  private:
    const QWidget& widget;
    mutable TextRecorder engine;
};

/// The commonest colour of a place.
QColor groundOf(const QRect& place, const QImage& picture) {
    QMap<QRgb, int> counts;
    const QRect seen = place.intersected(picture.rect());
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
        for (int x = seen.left(); x <= seen.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    return std::max_element(counts.begin(), counts.end()).key();
}

} // namespace

std::vector<PaintedText> paintedTexts(QWidget& widget) {
    std::vector<PaintedText> texts;
    RecordingDevice device(widget, texts);
    widget.render(&device);
    std::erase_if(texts, [&widget](const PaintedText& each) {
        return each.text.trimmed().isEmpty() || !widget.rect().intersects(each.place);
    });
    return texts;
}

double contrast(const PaintedText& text, const QImage& picture) {
    return contrast(groundOf(text.place, picture), text.color);
}

} // namespace tervale
