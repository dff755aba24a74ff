#pragma once
// The program's style: Fusion's measures, drawn flat and legible in both palettes. Each group of things has a file of
// its own: child windows in titlepaint, buttons, fields and boxes in boxpaint, bars in barpaint.
#include <QColor>
#include <QPalette>
#include <QProxyStyle>

namespace velm {

class FrameStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// Takes over the style that draws all the rest.
    explicit FrameStyle(QStyle* base);

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    void polish(QWidget* widget) override;
    using QProxyStyle::polish;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* returned = nullptr) const override;
    QIcon standardIcon(StandardPixmap standard, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
};

/// Thin lines between things that lie side by side.
QColor quietLine(const QPalette& palette);

} // namespace velm
