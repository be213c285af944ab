// Drawings and texts that come from outside: every record and every word that their readers know.

#include <QPainter>
#include <QTextDocument>

#include "controls/Metafile.h"
#include "controls/MetafileRecord.h"
#include "controls/RichText.h"
#include "tests/pictures/scenes/Scenes.h"
#include "tests/support/MetafileBytes.h"

namespace marvello::scenes {

namespace {

using Words = testing::MetafileBytes::Words;
using Function = MetafileFunction;

constexpr std::uint16_t black = 0, red = 0x00FF, green = 0xA000, gold = 0xC0FF;  // red lowest
constexpr std::uint16_t minus(int value) { return static_cast<std::uint16_t>(-value); }

/// A metafile whose objects are chosen as they are made.
class Sheet {
  public:
    Sheet(std::uint16_t width, std::uint16_t height) : file_(width, height) {}

    Sheet& add(Function function, const Words& words) {
        file_.add(static_cast<std::uint16_t>(function), words);
        return *this;
    }
    Sheet& pen(std::uint16_t style, std::uint16_t width, std::uint16_t colour, std::uint16_t blue = 0) {
        return add(Function::createPen, {style, width, 0, colour, blue}).select();
    }
    Sheet& brush(std::uint16_t style, std::uint16_t colour, std::uint16_t hatch = 0) {
        return add(Function::createBrush, {style, colour, 0x40, hatch}).select();
    }
    Sheet& font(int height, int tenths = 0, std::uint16_t weight = 400, bool italic = false) {
        return add(Function::createFont,
                   {static_cast<std::uint16_t>(height), 0, static_cast<std::uint16_t>(tenths), 0, weight,
                    static_cast<std::uint16_t>(italic ? 1 : 0), 0, 0, 0, 'A'})
            .select();
    }
    /// An object that is counted and never drawn with.
    Sheet& other(Function function) {
        ++objects_;
        return add(function, {0, 0});
    }
    Sheet& at(std::uint16_t y, std::uint16_t x) { return add(Function::moveTo, {y, x}); }
    /// "Ag" at a place.
    Sheet& text(std::uint16_t y, std::uint16_t x) {
        return add(Function::textOut, {2, 'A' | 'g' << 8, y, x});
    }
    Metafile read() const { return Metafile::fromBytes(file_.bytes()); }

  private:
    Sheet& select() { return add(Function::selectObject, {objects_++}); }

    testing::MetafileBytes file_;
    std::uint16_t objects_ = 1;
};

void addLines(Sheet& sheet) {
    for (std::uint16_t style = 0; style < 6; ++style) {
        const auto y = static_cast<std::uint16_t>(10 + 12 * style);
        sheet.pen(style, static_cast<std::uint16_t>(style % 2), black).at(y, 10);
        sheet.add(Function::lineTo, {y, 120}).add(Function::lineTo, {static_cast<std::uint16_t>(y + 8), 150});
    }
    sheet.pen(0, 5, red, 0x80).add(Function::polyline, {4, 170, 10, 210, 40, 170, 70, 200, 75});
    sheet.pen(1, 3, green).add(Function::polyline, {3, 215, 10, 215, 70, 250, 70});
    // Back to front, as a drawing may be: lengths have no sign.
    sheet.pen(0, minus(2), gold).add(Function::polyline, {2, 225, 10, 250, 60});
}

void addShapes(Sheet& sheet) {
    sheet.pen(0, 2, black);
    for (std::uint16_t hatch = 0; hatch < 7; ++hatch) {
        const auto x = static_cast<std::uint16_t>(10 + 35 * hatch);
        sheet.brush(2, red, hatch).add(Function::rectangle, {120, static_cast<std::uint16_t>(x + 30), 90, x});
    }
    sheet.brush(0, gold).add(Function::ellipse, {165, 70, 130, 10});
    sheet.add(Function::roundRectangle, {10, 30, 165, 140, 130, 80});
    sheet.brush(1, green).add(Function::ellipse, {165, 190, 130, 150});  // a brush that fills nothing
    sheet.brush(0, green).add(Function::polygon, {4, 200, 130, 245, 140, 230, 165, 205, 150});
    // Ends, begins, bottom, right, top, left: against the clock from the beginning to the end.
    sheet.add(Function::arc, {170, 10, 190, 80, 210, 70, 170, 10});
    sheet.add(Function::pie, {210, 120, 170, 140, 210, 140, 170, 80});
    sheet.add(Function::chord, {180, 150, 200, 215, 210, 210, 170, 150});
    const Words star{5, 232, 170, 245, 210, 215, 185, 249, 185, 220, 210};
    sheet.add(Function::setFillMode, {1}).add(Function::polygon, star);
    Words winding = star;
    for (std::size_t i = 2; i < winding.size(); i += 2)
        winding[i] = static_cast<std::uint16_t>(winding[i] + 45);
    sheet.add(Function::setFillMode, {2}).add(Function::polygon, winding);
    sheet.add(Function::setFillMode, {1});
    sheet.add(Function::polyPolygon,
              {2, 4, 3, 10, 220, 60, 220, 60, 258, 10, 258, 20, 228, 50, 228, 35, 250});
}

void addTexts(Sheet& sheet) {
    sheet.pen(0, 0, red);
    sheet.add(Function::setTextColour, {0x4000, 0x80}).add(Function::setBackgroundColour, {0xFFC0, 0x60});
    sheet.font(16);
    std::uint16_t x = 300;
    for (const std::uint16_t align : std::initializer_list<std::uint16_t>{0, 2, 6, 8, 24, 30}) {
        sheet.at(15, x).add(Function::lineTo, {45, x}).at(30, static_cast<std::uint16_t>(x - 20));
        sheet.add(Function::lineTo, {30, static_cast<std::uint16_t>(x + 20)});
        sheet.add(Function::setTextAlign, {align}).text(30, x);
        x = static_cast<std::uint16_t>(x + 48);
    }
    sheet.add(Function::setTextAlign, {0}).add(Function::setBackgroundMode, {1});
    sheet.font(-16).text(60, 280).font(0).text(60, 320).font(20, 0, 700).text(60, 360);
    sheet.font(20, 0, 400, true).text(60, 400).font(20, 450).text(90, 440).font(20, 900).text(90, 500);
    sheet.font(18).at(90, 290).add(Function::setTextAlign, {1}).text(0, 0);  // at the place of the pen
    sheet.add(Function::setTextAlign, {0});
    sheet.add(Function::extTextOut, {90, 320, 3, 0, 'e' | 'x' << 8, 't'});
    sheet.add(Function::extTextOut, {90, 360, 3, 4, 0, 0, 9, 9, 'r' | 'e' << 8, 'c'});
    sheet.add(Function::setBackgroundMode, {2})
        .add(Function::extTextOut, {90, 400, 2, 2, 0, 0, 9, 9, 0xE480});
}

/// Objects that are taken away, states in states, other measures.
void addStates(Sheet& sheet) {
    for (const Function unused : {Function::createPalette, Function::createPatternBrush,
                                  Function::createDibPatternBrush, Function::createRegion})
        sheet.other(unused);
    sheet.pen(0, 1, black).brush(0, gold);
    sheet.add(Function::saveState, {}).add(Function::setWindowOrigin, {minus(120), minus(280)});
    sheet.add(Function::rectangle, {20, 30, 0, 0});
    sheet.add(Function::saveState, {}).brush(0, red).add(Function::setWindowExtent, {440, 1040});
    sheet.add(Function::setWindowOrigin, {minus(240), minus(660)}).add(Function::rectangle, {40, 60, 0, 0});
    sheet.add(Function::restoreState, {minus(1)}).add(Function::rectangle, {45, 30, 25, 0});
    sheet.add(Function::saveState, {}).brush(0, green).add(Function::restoreState, {1});
    sheet.add(Function::rectangle, {140, 440, 120, 410});
    // The lowest number that is free: first 1, the pen that was made first, then 2.
    sheet.add(Function::deleteObject, {2}).add(Function::deleteObject, {1});
    sheet.add(Function::createBrush, {0, red, 0xFF, 0}).add(Function::createBrush, {0, green, 0xFF, 0});
    sheet.add(Function::selectObject, {1}).add(Function::rectangle, {170, 320, 150, 290});
    sheet.add(Function::selectObject, {2}).add(Function::rectangle, {170, 360, 150, 330});
}

std::unique_ptr<QWidget> metafile() {
    Sheet sheet(540, 270);
    addLines(sheet);
    addShapes(sheet);
    addTexts(sheet);
    addStates(sheet);
    return std::make_unique<Painted>(QSize(700, 370),
                                     [file = sheet.read()](QPainter& painter, const QRectF& room) {
                                         file.draw(painter, room.adjusted(10, 10, -10, -10));
                                     });
}

constexpr const char* richText =
    R"({\rtf1\ansi{\fonttbl{\f0 Roboto;}{\f1 No such font;}{\f2 Noto Sans CJK SC;}}
{\colortbl;\red200\green30\blue10;\red0\green120\blue60;\red300\green0\blue255;}{\stylesheet{\s1 left out;}}
{\info{\title left out}}{\*\unknown left out}{\header left out}{\pict\bin4 }}{{left out}
\pard\qc\fs36\b Centred, large, bold\b0\par
\pard\fs24 Plain, {\b bold}, {\i italic}, {\ul underlined}, \ul on\ulnone  off, {\strike struck out}, {\b\i both}.\par
\pard\cf1 The first colour, \cf2 the second, \cf3 one out of range, \cf9 none, \cf0 that of the look.\par
\pard\f2 The other font, \f1 one that no one has, \f0 the first. \b\i\fs30\cf1\plain Plain again.\par
\pard\qr\sb120\sa240 To the right, with space above and below.\par
\pard\ql\li720\ri1440 An indent at both sides of a paragraph that is long enough for two lines, so that its end
 is seen to wrap before the edge of the page.\par
\pard\li360\fi-360 \bullet\tab A line of a list, long enough to go on below its own text and not below the bullet,
 as the lines of a list do.\par
\pard\fi400 A first line set in, and the rest of the paragraph from the left edge on, which takes some words more
 than one line.\par
\pard\qj Set to both edges, so that the words of every line but the last one stand farther apart than they would.\par
\pard Signs: \'e9 \'80 \emdash \endash \lquote a\rquote \ldblquote b\rdblquote\emspace c\~d\_e \\ \{ \} f\-g\line new line.\par
Unicode: \u176?C \u8722?5 \uc2\u937??K {\uc0\u916}T \uc1\u-1279?\par
\fs8 Least \fs4 less \fs16 small \fs200 Most\fs24\par
\li-400\sb0 To the left of the page.\par
}and what stands after the end)";

void paintRichText(QPainter& painter, const QRectF& room) {
    QTextDocument document;
    readRichText(richText, document);
    document.setTextWidth(room.width());
    document.drawContents(&painter);
}

}  // namespace

Scene metafileScene() { return {"metafile", metafile}; }

Scene richTextScene() {
    return {"rich-text", [] { return std::make_unique<Painted>(QSize(620, 580), paintRichText); }};
}

}  // namespace marvello::scenes
