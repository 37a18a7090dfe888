#pragma once

#include <QProxyStyle>

namespace corvane {

inline constexpr char accentProperty[] = "accent";

/// Whether a widget is the accent button of its window.
bool IsAccent(const QWidget* widget);

/// Fusion with flat fills, edges that are seen in both themes, and the measures of all windows. All colours
/// come from the palette's ThemeColours.
class ControlStyle : public QProxyStyle {
    Q_OBJECT

public:
    ControlStyle();

    void polish(QWidget* widget) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap standard, const QStyleOption* option,
                       const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;

private:
    bool DrawPanel(PrimitiveElement element, const QStyleOption& option, QPainter& painter,
                   const QWidget* widget) const;
    void DrawLabel(ControlElement element, const QStyleOption& option, QPainter& painter,
                   const QWidget* widget) const;
};

} // namespace corvane
