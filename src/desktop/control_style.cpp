#include "desktop/control_style.h"

#include "desktop/control_painting.h"
#include "desktop/focus_ring.h"
#include "desktop/icons.h"
#include "desktop/measures.h"
#include "desktop/theme_colours.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QFocusFrame>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPainter>
#include <QStyleOption>
#include <QTabBar>
#include <algorithm>

namespace corvane {
namespace {

constexpr int fieldInset = 4; // between the edge of a field and its text, beside the style's own

template<typename Option>
const Option& As(const QStyleOption* option) {
    return *qstyleoption_cast<const Option*>(option);
}

/// How far the ring reaches beyond its control: less where the control fills what it lies in.
int ReachOf(const QStyleOption* option) {
    // The frame names itself in the option only.
    const auto* frame = option ? qobject_cast<const QFocusFrame*>(option->styleObject) : nullptr;
    const QWidget* control = frame ? frame->widget() : nullptr;
    const QWidget* around = frame ? frame->parentWidget() : nullptr;
    if (!control || !around)
        return ringReach;
    const QRect place(control->mapTo(around, QPoint()), control->size());
    const int room = std::min({place.left(), place.top(), around->width() - place.right() - 1,
                               around->height() - place.bottom() - 1});
    return room >= ringReach ? ringReach : 0;
}

bool DrawsFocusInCells(const QWidget* widget) {
    return qobject_cast<const QAbstractItemView*>(widget) || qobject_cast<const QTabBar*>(widget);
}

/// The icon of an accent button, in the colour of its text.
QIcon Tinted(const QIcon& icon, const QSize& size, double ratio, const QColor& colour) {
    if (icon.isNull())
        return icon;
    QPixmap picture = icon.pixmap(size, ratio);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), colour);
    return QIcon(picture);
}

} // namespace

bool IsAccent(const QWidget* widget) {
    return widget && widget->property(accentProperty).toBool();
}

ControlStyle::ControlStyle() : QProxyStyle("Fusion") {}

void ControlStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QHeaderView*>(widget))
        widget->setAttribute(Qt::WA_Hover);
    if (auto* tabs = qobject_cast<QTabBar*>(widget))
        tabs->setExpanding(false);
}

bool ControlStyle::DrawPanel(PrimitiveElement element, const QStyleOption& option, QPainter& painter,
                             const QWidget* widget) const {
    const ThemeColours& colours = ColoursOf(option.palette);
    const QColor edge = option.state & State_Enabled ? colours.edge : colours.line;
    const QColor field = option.state & State_Enabled ? colours.base : colours.window;
    switch (element) {
    case PE_PanelLineEdit:
        if (As<QStyleOptionFrame>(&option).lineWidth > 0)
            DrawBox(painter, option.rect, field, edge, cornerRadius);
        else
            painter.fillRect(option.rect, option.palette.base());
        return true;
    case PE_FrameLineEdit:
        DrawBox(painter, option.rect, {}, edge, cornerRadius);
        return true;
    case PE_Frame:
        DrawBox(painter, option.rect, qobject_cast<const QAbstractScrollArea*>(widget) ? field : QColor(),
                edge, cornerRadius);
        return true;
    case PE_FrameGroupBox:
    case PE_FrameTabWidget:
        DrawBox(painter, option.rect, {}, colours.line, cornerRadius);
        return true;
    case PE_FrameMenu:
        DrawBox(painter, option.rect, {}, colours.edge, 0);
        return true;
    case PE_PanelTipLabel:
        DrawBox(painter, option.rect, colours.base, colours.edge, 0);
        return true;
    case PE_FrameDefaultButton:
    case PE_FrameStatusBarItem:
    case PE_FrameTabBarBase:
        return true;
    default:
        return false;
    }
}

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    switch (element) {
    case PE_PanelButtonCommand:
        return DrawButton(*painter, *option, IsAccent(widget));
    case PE_PanelButtonTool:
        return DrawToolButton(*painter, *option, IsAccent(widget));
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        return DrawTickBox(*painter, *option);
    case PE_IndicatorRadioButton:
        return DrawRadioButton(*painter, *option);
    case PE_FrameFocusRect:
        // FocusRing draws that of the other controls, around them.
        if (DrawsFocusInCells(widget))
            DrawRing(*painter, option->rect, ColoursOf(option->palette).ring, 2);
        return;
    default:
        if (!DrawPanel(element, *option, *painter, widget))
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ControlStyle::DrawLabel(ControlElement element, const QStyleOption& option, QPainter& painter,
                             const QWidget* widget) const {
    const QColor white = ColoursOf(option.palette).onAccent;
    const auto draw = [&](auto own) {
        own.palette.setColor(QPalette::ButtonText, white);
        own.icon = Tinted(own.icon, own.iconSize, painter.device()->devicePixelRatio(), white);
        QProxyStyle::drawControl(element, &own, &painter, widget);
    };
    if (element == CE_PushButtonLabel)
        draw(As<QStyleOptionButton>(&option));
    else
        draw(As<QStyleOptionToolButton>(&option));
}

void ControlStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    switch (element) {
    case CE_PushButtonLabel:
    case CE_ToolButtonLabel:
        if (IsAccent(widget) && option->state & State_Enabled)
            return DrawLabel(element, *option, *painter, widget);
        break;
    case CE_FocusFrame:
        return DrawRing(*painter, option->rect, ColoursOf(option->palette).ring, cornerRadius + 1);
    case CE_TabBarTabShape:
        return DrawTab(*painter, As<QStyleOptionTab>(option));
    case CE_HeaderSection:
        return DrawHeaderSection(*painter, As<QStyleOptionHeader>(option));
    case CE_HeaderEmptyArea:
        painter->fillRect(option->rect, ColoursOf(option->palette).button);
        return;
    case CE_ProgressBarGroove:
        return DrawProgress(*painter, As<QStyleOptionProgressBar>(option));
    case CE_ProgressBarContents:
        return;
    case CE_ToolBar:
    case CE_MenuBarEmptyArea:
        painter->fillRect(option->rect, option->palette.window());
        return;
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
    switch (control) {
    case CC_ComboBox:
        return DrawComboBox(*painter, As<QStyleOptionComboBox>(option), *proxy(), widget);
    case CC_Slider:
        return DrawSlider(*painter, As<QStyleOptionSlider>(option), *proxy(), widget);
    case CC_ToolButton:
        // In a tool bar a button has no face until it is pointed at; this one has.
        if (IsAccent(widget))
            DrawButton(*painter, *option, true);
        break;
    case CC_ScrollBar:
        return DrawScrollBar(*painter, As<QStyleOptionSlider>(option), *proxy(), widget);
    default:
        break;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect ControlStyle::subElementRect(SubElement element, const QStyleOption* option,
                                   const QWidget* widget) const {
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    const bool field = element == SE_LineEditContents && As<QStyleOptionFrame>(option).lineWidth > 0;
    return field ? rect.adjusted(fieldInset, 0, -fieldInset, 0) : rect;
}

QIcon ControlStyle::standardIcon(StandardPixmap standard, const QStyleOption* option,
                                 const QWidget* widget) const {
    const ThemeColours& colours = ColoursOf(QGuiApplication::palette());
    switch (standard) {
    case SP_MessageBoxInformation:
        return ColouredIcon("info", colours.ring);
    case SP_MessageBoxQuestion:
        return ColouredIcon("about", colours.ring);
    case SP_MessageBoxWarning:
        return ColouredIcon("warning", colours.warning);
    case SP_MessageBoxCritical:
        return ColouredIcon("error", colours.error);
    default:
        return QProxyStyle::standardIcon(standard, option, widget);
    }
}

QSize ControlStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                     const QWidget* widget) const {
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton:
        result.rwidth() = std::max(result.width() + 2 * betweenControls, Scaled(64));
        [[fallthrough]];
    case CT_ComboBox:
        result.setHeight(std::max(result.height(), Scaled(controlHeight)));
        break;
    case CT_LineEdit:
        if (As<QStyleOptionFrame>(option).lineWidth == 0)
            break; // the editor of a cell
        result.rwidth() += 2 * fieldInset;
        result.setHeight(std::max(result.height(), Scaled(controlHeight)));
        break;
    case CT_ToolButton:
        result = result.expandedTo({Scaled(controlHeight), Scaled(controlHeight)});
        break;
    case CT_CheckBox:
    case CT_RadioButton:
        result.setHeight(std::max(result.height(), Scaled(tickRowHeight)));
        break;
    case CT_TabBarTab:
        result = {result.width() + betweenControls, std::max(result.height(), Scaled(32))};
        break;
    case CT_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
            item && item->menuItemType != QStyleOptionMenuItem::Separator)
            result.setHeight(std::max(result.height(), Scaled(tickRowHeight)));
        break;
    default:
        break;
    }
    return result;
}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return Scaled(insideGroup);
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return Scaled(betweenControls);
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return Scaled(indicatorSize);
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return Scaled(betweenControls);
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
        return Scaled(smallIcon);
    case PM_ToolBarIconSize:
        return Scaled(toolIcon);
    case PM_SliderLength:
    case PM_SliderThickness:
    case PM_SliderControlThickness:
        return Scaled(indicatorSize);
    case PM_ScrollBarExtent:
        return Scaled(14);
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuVMargin:
        return 4;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_DefaultFrameWidth:
        // Two leave a round corner its room beside the contents.
        return qobject_cast<const QAbstractScrollArea*>(widget) ? 2 : 1;
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return ReachOf(option);
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ControlStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
    constexpr int longestMotion = 120; // milliseconds
    switch (hint) {
    case SH_Table_GridLineColor:
        return static_cast<int>(ColoursOf(option ? option->palette : QGuiApplication::palette()).line.rgb());
    case SH_FocusFrame_AboveWidget:
        return 1;
    case SH_FocusFrame_Mask:
        if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(returned))
            mask->region = QRegion(option->rect) - option->rect.adjusted(ringWidth + 2, ringWidth + 2,
                                                                         -ringWidth - 2, -ringWidth - 2);
        return 1;
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    case SH_Widget_Animation_Duration:
        return std::min(longestMotion, QProxyStyle::styleHint(hint, option, widget, returned));
    default:
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

} // namespace corvane
