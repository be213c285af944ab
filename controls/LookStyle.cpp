#include "controls/LookStyle.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionComplex>
#include <QStyleOptionTitleBar>

#include "controls/Icons.h"
#include "controls/Look.h"

namespace marvello {

namespace {

void drawCheckBox(const QStyleOption& option, QPainter& painter) {
    const Look& look = Look::current();
    const bool on = option.state & QStyle::State_On;
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(on ? look.accent : look.controlLine);
    painter.setBrush(on ? look.accent : look.surface);
    painter.drawRoundedRect(box, 3, 3);
    if (on) paintIcon(painter, option.rect.adjusted(1, 1, -1, -1), QStringLiteral("check"), look.onAccent);
    painter.restore();
}

void drawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QStyle& style,
                  const QWidget* widget) {
    const Look& look = Look::current();
    const bool active = bar.titleBarState & Qt::WindowActive;
    painter.fillRect(bar.rect, look.surfaceAlt);
    painter.setPen(look.line);
    painter.drawLine(bar.rect.bottomLeft(), bar.rect.bottomRight());
    const QRect menu = style.subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarSysMenu, widget);
    if (bar.subControls & QStyle::SC_TitleBarSysMenu) bar.icon.paint(&painter, menu);
    painter.setPen(active ? look.text : look.muted);
    painter.setFont(lookFont(13, QFont::Medium));
    const QRect label = style.subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, widget);
    painter.drawText(label.adjusted(4, 0, -4, 0), Qt::AlignLeft | Qt::AlignVCenter, bar.text);

    const auto button = [&](QStyle::SubControl control, const QString& name) {
        if (!(bar.subControls & control)) return;
        const QRect rect = style.subControlRect(QStyle::CC_TitleBar, &bar, control, widget);
        if (!rect.isValid()) return;
        if ((bar.activeSubControls & control) && (bar.state & QStyle::State_MouseOver))
            painter.fillRect(rect, look.hover);
        QRectF place(0, 0, 14, 14);
        place.moveCenter(QRectF(rect).center());
        paintIcon(painter, place, name, look.muted);
    };
    if (bar.titleBarState & Qt::WindowMinimized)
        button(QStyle::SC_TitleBarNormalButton, QStringLiteral("max"));
    else
        button(QStyle::SC_TitleBarMinButton, QStringLiteral("min"));
    button(QStyle::SC_TitleBarMaxButton, QStringLiteral("max"));
    button(QStyle::SC_TitleBarCloseButton, QStringLiteral("close"));
}

}  // namespace

LookStyle::LookStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
            return 14;
        case PM_TitleBarHeight:
            return 30;
        case PM_MdiSubWindowFrameWidth:
            return 1;
        case PM_ToolBarIconSize:
            return 20;
        case PM_SmallIconSize:
            return 16;
        case PM_SplitterWidth:
            return 5;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const {
    switch (hint) {
        case SH_ItemView_ShowDecorationSelected:
            return 1;
        case SH_EtchDisabledText:
        case SH_DitherDisabledText:
            return 0;
        case SH_ToolTip_Mask:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    switch (element) {
        case PE_FrameFocusRect:
            return;
        case PE_IndicatorCheckBox:
        case PE_IndicatorItemViewItemCheck:
            drawCheckBox(*option, *painter);
            return;
        case PE_FrameWindow:
            painter->setPen(Look::current().controlLine);
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            return;
        default:
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    if (control == CC_TitleBar)
        if (const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option)) {
            drawTitleBar(*bar, *painter, *this, widget);
            return;
        }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

}  // namespace marvello
