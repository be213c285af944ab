#include "controls/Look.h"

#include <QApplication>
#include <QFile>
#include <QPalette>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

#include "controls/Accessibility.h"
#include "controls/LookStyle.h"

// The resources are in a static library: nothing links them unless they are asked for.
static void initialiseResources() { Q_INIT_RESOURCE(controls); }

namespace marvello {

namespace {

const Look* installed = nullptr;

QColor withAlpha(QColor colour, double alpha) {
    colour.setAlphaF(static_cast<float>(alpha));
    return colour;
}

QPalette paletteOf(const Look& look) {
    QPalette palette;
    palette.setColor(QPalette::Window, look.window);
    palette.setColor(QPalette::Base, look.surface);
    palette.setColor(QPalette::AlternateBase, look.surfaceAlt);
    palette.setColor(QPalette::Button, look.surfaceAlt);
    palette.setColor(QPalette::Text, look.text);
    palette.setColor(QPalette::WindowText, look.text);
    palette.setColor(QPalette::ButtonText, look.text);
    palette.setColor(QPalette::PlaceholderText, look.muted);
    palette.setColor(QPalette::Highlight, look.accentTint);
    palette.setColor(QPalette::HighlightedText, look.text);
    palette.setColor(QPalette::Link, look.accent);
    palette.setColor(QPalette::ToolTipBase, look.text);
    palette.setColor(QPalette::ToolTipText, look.surface);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, look.disabled);
    palette.setColor(QPalette::Disabled, QPalette::Base, look.surfaceAlt);
    return palette;
}

QString styleSheetOf(const Look& look) {
    QFile file(QStringLiteral(":/controls/look.qss"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QString sheet = QString::fromUtf8(file.readAll());
    // A name that begins with another one comes before it.
    const std::array<std::pair<const char*, QColor>, 13> names{{{"@surface-alt", look.surfaceAlt},
                                                                {"@surface", look.surface},
                                                                {"@window", look.window},
                                                                {"@raised", look.raised},
                                                                {"@control-line", look.controlLine},
                                                                {"@line", look.line},
                                                                {"@text", look.text},
                                                                {"@muted", look.muted},
                                                                {"@disabled", look.disabled},
                                                                {"@accent-tint", look.accentTint},
                                                                {"@accent", look.accent},
                                                                {"@hover", look.hover},
                                                                {"@red", look.red}}};
    for (const auto& [name, colour] : names) sheet.replace(QLatin1String(name), colour.name());
    return sheet;
}

/// Relative luminance (WCAG 2.1).
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

}  // namespace

QColor Look::adapted(const QColor& colour) const {
    constexpr double wanted = 5;
    constexpr float step = 0.01F;
    if (!isDark) return colour;
    constexpr float grey = 0.05F;
    constexpr float middle = 0.5F;
    QColor result = colour;
    float lightness = colour.lightnessF();
    // What stands out most on white, black, stands out most here: nearly white.
    if (colour.hslSaturationF() < grey && lightness < middle) {
        lightness = 0.95F - lightness;
        result = QColor::fromHslF(0, 0, lightness);
    }
    while (contrast(result, surface) < wanted && lightness < 1) {
        lightness = std::min(lightness + step, 1.0F);
        result = QColor::fromHslF(std::max(colour.hslHueF(), 0.0F), colour.hslSaturationF(), lightness);
    }
    return result;
}

const Look& Look::light() {
    static const Look look{.window = "#EDF1F3",
                           .surface = "#FFFFFF",
                           .surfaceAlt = "#F6F8F9",
                           .raised = "#FFFFFF",
                           .line = "#D9DFE3",
                           .controlLine = "#87949C",
                           .text = "#182126",
                           .muted = "#55626A",
                           .disabled = "#76838B",
                           .accent = "#0E6A80",
                           .accentHover = "#0B5A6D",
                           .accentPress = "#084957",
                           .onAccent = "#FFFFFF",
                           .accentTint = "#DCECF0",
                           .hover = "#E4EAED",
                           .focusHalo = withAlpha("#0E6A80", 0.22),
                           .errorTint = "#FBEAE8",
                           .green = "#1B7F45",
                           .orange = "#C96A00",
                           .red = "#C3271D",
                           .blue = "#2B62C4",
                           .onMark = "#FFFFFF",
                           .isDark = false};
    return look;
}

const Look& Look::dark() {
    static const Look look{.window = "#14191C",
                           .surface = "#1B2226",
                           .surfaceAlt = "#20282D",
                           .raised = "#252E33",
                           .line = "#323C42",
                           .controlLine = "#6F7E86",
                           .text = "#E4EAED",
                           .muted = "#A3B0B7",
                           .disabled = "#82919A",
                           .accent = "#58B9CE",
                           .accentHover = "#73C7D9",
                           .accentPress = "#3FA4BA",
                           .onAccent = "#06222A",
                           .accentTint = "#213D47",
                           .hover = "#2A3439",
                           .focusHalo = withAlpha("#58B9CE", 0.28),
                           .errorTint = "#3A2422",
                           .green = "#45BB7A",
                           .orange = "#F0A03C",
                           .red = "#F06A60",
                           .blue = "#78A6F3",
                           .onMark = "#10171A",
                           .isDark = true};
    return look;
}

const Look& Look::current() { return installed ? *installed : light(); }

const Look& Look::matching(const QPalette& systemPalette) {
    return systemPalette.color(QPalette::Window).lightness() < 128 ? dark() : light();
}

void Look::install(QApplication& application, const Look& look) {
    installed = &look;
    initialiseResources();
    installAccessibility();
    // The application takes ownership of the style.
    QApplication::setStyle(std::make_unique<LookStyle>().release());
    QApplication::setPalette(paletteOf(look));
    application.setStyleSheet(styleSheetOf(look));
    // The style sheet brings back what the desktop has for menus and the like; the font replaces it.
    QApplication::setFont(lookFont());
}

QFont lookFont(int pixelSize, QFont::Weight weight) {
    QFont font;
    font.setFamilies({QStringLiteral("Roboto"), QStringLiteral("Noto Sans CJK SC")});
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}

}  // namespace marvello
