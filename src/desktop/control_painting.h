#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
class QStyle;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionHeader;
class QStyleOptionProgressBar;
class QStyleOptionSlider;
class QStyleOptionTab;
class QWidget;

namespace corvane {

// How the controls look. Each takes its colours from the palette of the option.

/// A box with round corners whose edge of 1 px lies within it.
void DrawBox(QPainter& painter, const QRectF& box, const QColor& fill, const QColor& edge, double radius);

/// The ring of the focus, as an outline within the rectangle.
void DrawRing(QPainter& painter, const QRectF& box, const QColor& colour, double radius);

/// The face of a button; `accent`: of the one that does the window's work.
void DrawButton(QPainter& painter, const QStyleOption& option, bool accent);
void DrawToolButton(QPainter& painter, const QStyleOption& option, bool accent);

void DrawTickBox(QPainter& painter, const QStyleOption& option);
void DrawRadioButton(QPainter& painter, const QStyleOption& option);
void DrawComboBox(QPainter& painter, const QStyleOptionComboBox& option, const QStyle& style,
                  const QWidget* widget);
void DrawSlider(QPainter& painter, const QStyleOptionSlider& option, const QStyle& style,
                const QWidget* widget);
void DrawScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QStyle& style,
                   const QWidget* widget);
void DrawTab(QPainter& painter, const QStyleOptionTab& option);
void DrawHeaderSection(QPainter& painter, const QStyleOptionHeader& option);
void DrawProgress(QPainter& painter, const QStyleOptionProgressBar& option);

} // namespace corvane
