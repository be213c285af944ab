#pragma once

#include <QColor>
#include <QFont>

class QApplication;
class QPalette;

namespace marvello {

/// Every colour of the screen by its role, once for light and once for dark.
struct Look {
    QColor window;       ///< behind tabs and splitters
    QColor surface;      ///< panels, lists, boxes, tool bar
    QColor surfaceAlt;   ///< list header, group row, status bar, help, switched-off box
    QColor raised;       ///< dialogs, drop lists, menus
    QColor line;         ///< hairlines
    QColor controlLine;  ///< border of anything that can be operated
    QColor text;
    QColor muted;
    QColor disabled;
    QColor accent;
    QColor accentHover;
    QColor accentPress;
    QColor onAccent;
    QColor accentTint;  ///< selected row
    QColor hover;       ///< row or button under the mouse
    QColor focusHalo;
    QColor errorTint;
    QColor green;
    QColor orange;
    QColor red;
    QColor blue;
    QColor onMark;
    bool isDark;

    /// A colour of the catalogue as this look shows it: unchanged in light; in dark it becomes lighter
    /// until it stands out 5:1 from the surface.
    QColor adapted(const QColor& colour) const;

    static const Look& light();
    static const Look& dark();
    /// The look that was installed; light before that.
    static const Look& current();

    /// Dark when the system's palette is dark.
    static const Look& matching(const QPalette& systemPalette);

    /// Gives the application style, palette, font and style sheet of `look`. To be called once at start,
    /// before the first window.
    static void install(QApplication& application, const Look& look);
};

/// The program's font. `pixelSize` is in logical pixels; the weight is QFont::Normal or QFont::Medium.
QFont lookFont(int pixelSize = 13, QFont::Weight weight = QFont::Normal);

}  // namespace marvello
