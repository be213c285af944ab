#include "controls/LookStyle.h"

#include <QIconEngine>
#include <QPainter>
#include <QPolygon>
#include <QStyleFactory>
#include <QStyleOptionComplex>
#include <QStyleOptionTitleBar>
#include <initializer_list>
#include <memory>
#include <utility>

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

void drawWindowButton(QPainter& painter, const QRect& rect, const QString& name, bool hovered) {
    if (!rect.isValid()) return;
    if (hovered) painter.fillRect(rect, Look::current().hover);
    QRectF place(0, 0, 14, 14);
    place.moveCenter(QRectF(rect).center());
    paintIcon(painter, place, name, Look::current().muted);
}

/// The buttons of a child window: in its title bar, or in the menu bar while it is maximised.
void drawWindowButtons(const QStyleOptionComplex& option, QStyle::ComplexControl control, QPainter& painter,
                       const QStyle& style, const QWidget* widget,
                       std::initializer_list<std::pair<QStyle::SubControl, const char*>> buttons) {
    for (const auto& [button, name] : buttons) {
        if (!(option.subControls & button)) continue;
        const bool hovered = (option.activeSubControls & button) && (option.state & QStyle::State_MouseOver);
        drawWindowButton(painter, style.subControlRect(control, &option, button, widget), QLatin1String(name),
                         hovered);
    }
}

void drawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QStyle& style,
                  const QWidget* widget) {
    const Look& look = Look::current();
    painter.fillRect(bar.rect, look.surfaceAlt);
    painter.setPen(look.line);
    painter.drawLine(bar.rect.bottomLeft(), bar.rect.bottomRight());
    painter.setPen(look.controlLine);
    painter.drawPolyline(
        QPolygon({bar.rect.bottomLeft(), bar.rect.topLeft(), bar.rect.topRight(), bar.rect.bottomRight()}));
    const QRect iconRect(bar.rect.left() + 10, bar.rect.center().y() - 8, 16, 16);
    bar.icon.paint(&painter, iconRect, Qt::AlignCenter, QIcon::Normal, QIcon::On);
    painter.setPen((bar.titleBarState & Qt::WindowActive) ? look.text : look.muted);
    painter.setFont(lookFont(13, QFont::Medium));
    painter.drawText(bar.rect.adjusted(34, 0, -100, 0), Qt::AlignLeft | Qt::AlignVCenter, bar.text);
    const bool isMinimized = bar.titleBarState & Qt::WindowMinimized;
    drawWindowButtons(bar, QStyle::CC_TitleBar, painter, style, widget,
                      {{isMinimized ? QStyle::SC_TitleBarNormalButton : QStyle::SC_TitleBarMinButton,
                        isMinimized ? "max" : "min"},
                       {QStyle::SC_TitleBarMaxButton, "max"},
                       {QStyle::SC_TitleBarCloseButton, "close"}});
}

/// The icon of a bar's button for what does not fit. It is read when it is painted first, which most windows
/// never do: its file brings in the readers of every kind of picture.
class ExtensionIcon : public QIconEngine {
  public:
    ExtensionIcon(const QProxyStyle& style, QStyle::StandardPixmap which) : style_(style), which_(which) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        icon().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override {
        return icon().pixmap(size / scale, scale, mode, state);
    }
    QIconEngine* clone() const override { return std::make_unique<ExtensionIcon>(*this).release(); }

  private:
    const QIcon& icon() {
        if (icon_.isNull()) icon_ = style_.QProxyStyle::standardIcon(which_);
        return icon_;
    }

    const QProxyStyle& style_;
    QStyle::StandardPixmap which_;
    QIcon icon_;
};

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
        case SH_DialogButtonBox_ButtonsHaveIcons:
        case SH_EtchDisabledText:
        case SH_DitherDisabledText:
        case SH_ToolTip_Mask:
        case SH_WindowFrame_Mask:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QIcon LookStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
    // QIcon takes ownership of its engine.
    if (which == SP_ToolBarHorizontalExtensionButton || which == SP_ToolBarVerticalExtensionButton)
        return QIcon(std::make_unique<ExtensionIcon>(*this, which).release());
    return QProxyStyle::standardIcon(which, option, widget);
}

QSize LookStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    if (type == CT_MdiControls) return {3 * 26, 24};
    return QProxyStyle::sizeFromContents(type, option, size, widget);
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
    if (control == CC_MdiControls) {
        drawWindowButtons(
            *option, control, *painter, *this, widget,
            {{SC_MdiMinButton, "min"}, {SC_MdiNormalButton, "max"}, {SC_MdiCloseButton, "close"}});
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

}  // namespace marvello
