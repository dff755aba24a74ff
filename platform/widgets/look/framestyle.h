#pragma once
// The program's style: Fusion, but child windows have flat frames that stay legible in both palettes, and the
// chosen entry of a menu lies on a tint.
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
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* returned = nullptr) const override;
    QIcon standardIcon(StandardPixmap standard, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
};

/// Thin lines between things that lie side by side.
QColor quietLine(const QPalette& palette);

} // namespace velm
