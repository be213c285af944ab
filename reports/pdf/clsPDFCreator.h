#pragma once

#include <cstdint>
#include <ctime>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "reports/pdf/PdfStream.h"

namespace marvello {

struct FontMetrics;

/// What a document takes from outside itself.
struct PdfSurroundings {
    std::function<std::tm()> now;         ///< Local time: date of the document and name of a temporary file.
    std::function<int()> randomDigit;     ///< 0 to 9, the last digit of that name.
    std::function<std::string()> folder;  ///< Where temporary files go.
    /// Those of the system.
    static PdfSurroundings system();
};

/// What a path does at its end; the bits go together. No bit leaves the path open for further calls.
enum PathOptions : int {
    strokePath = 1,
    closePath = 2,
    fillPath = 4,  ///< Leaves out the other two.
};

/// The pages on which a form shows without being asked; the bits go together.
enum RepeatOptions : int {
    onFirstPage = 1,
    onEvenPages = 2,
    onOddPages = 4,
    notOnFirstPage = 8,
};

/// Any other value is the left end.
enum TextAlign : int { alignLeft = 1, alignRight = 2, alignCentre = 3 };

/// Writes PDF 1.3 files with pages of text, paths, images and forms. What is drawn goes to the file at once:
/// only the lists of objects are held in memory.
///
/// Calls come in the order InitPDFFile, then for each page StartPage, what is drawn, EndPage, then
/// ClosePDFFile. Fonts, images and forms are made outside of pages. Another order gives a broken file and is
/// not noticed, but for writing with no file open.
///
/// The origin is the page's lower left corner, y grows upwards. Lengths are in the unit of ScaleMode, but for
/// the size of a font, which is in points. Texts and names are bytes in Windows-1252 and go out as they are:
/// in a text that is drawn, the caller writes "\" before a bracket or a "\". Numbers are written to 3
/// decimals.
///
/// Operations that write raise PdfFileError when the file cannot be opened or written or none is open, and
/// std::domain_error for an infinity or not a number.
class clsPDFCreator {
  public:
    explicit clsPDFCreator(PdfSurroundings surroundings = PdfSurroundings::system());

    // Settings, for this document and those after it

    /// The title that a viewer shows.
    void SetTitle(std::string title) { title_ = std::move(title); }
    const std::string& Title() const { return title_; }
    /// The unit of lengths: 0 point, 1 inch, 2 millimetre, 3 centimetre. In any other all lengths are 0.
    void SetScaleMode(int mode) { scaleMode_ = mode; }
    int ScaleMode() const { return scaleMode_; }
    /// 0 is A4, 1 A3, 2 letter, 3 the wide 8.5 by 12 inches. Any other is stored and leaves the size as it
    /// is.
    void SetPaperSize(int size);
    int PaperSize() const { return paperSize_; }
    void SetPaperWidth(double width) { paperWidth_ = storedPoints(width); }
    float PaperWidth() const { return userLength(paperWidth_); }
    void SetPaperHeight(double height) { paperHeight_ = storedPoints(height); }
    float PaperHeight() const { return userLength(paperHeight_); }
    /// 1 portrait, 2 landscape. Landscape turns the shown page and leaves the paper size as it is.
    void SetOrientation(int orientation) { orientation_ = orientation; }
    int Orientation() const { return orientation_; }
    /// What is cut off all around the page, and around forms made after it.
    void SetMargin(double margin) { margin_ = storedPoints(margin); }
    float Margin() const { return userLength(margin_); }

    // Document

    /// Starts a document, in a temporary file for an empty name. A document still open ends without its end.
    /// Returns the name of the file.
    std::string InitPDFFile(const std::string& fileName);
    void ClosePDFFile();
    /// Returns the number of the page. Throws std::length_error beyond page 32767.
    std::int16_t StartPage();
    void EndPage() { endStream(); }
    /// The count of pages so far, equally the number of the current page.
    std::int16_t Pages() const { return document_.pages; }

    // Fonts

    /// Makes `name` a TrueType font that is not embedded: "Courier New", "Times New Roman" or "Arial", with
    /// any other family as Courier New. `style` is 1 regular, 2 bold, 3 italic, 4 bold italic; any other does
    /// nothing.
    void LoadFont(const std::string& name, const std::string& family, int style);
    /// Makes `name` a Type 1 font known to viewers, such as "Helvetica". It cannot be measured.
    void LoadFontStandard(const std::string& name, const std::string& baseFont, int style);
    /// The width of a text in a font made by LoadFont, `size` in points; 0 for any other font.
    float Length(std::string_view text, std::string_view fontName, float size) const;

    // State of text

    void SetWordSpacing(double value);
    void SetCharSpacing(double value);
    /// In percent.
    void SetTextHorizontalScaling(double value);
    /// 0 fills letters, 1 outlines them; others are ignored.
    void SetTextRenderingMode(int value);

    // State of graphics

    /// From -255 to 0 a grey level, black to white from 0 to -255; any other value is a colour with red in
    /// its low byte, then green, then blue.
    void SetColorStroke(std::int32_t colour);
    void SetColorFill(std::int32_t colour);
    /// A full line when both are 0.
    void SetDash(double on, double off);
    void SetLineWidth(double value);
    /// 0 to 2; others are ignored.
    void SetLineCap(int value);
    /// 0 to 2; others are ignored.
    void SetLineJoin(int value);
    /// At least 1; others are ignored.
    void SetMiterLimit(double value);

    // Paths, with `options` of PathOptions

    void MoveTo(double x, double y);
    void LineTo(double x, double y, int options);
    void Curve(double x1, double y1, double x2, double y2, double x3, double y3, int options);
    /// With a radius above 0 the corners are round; it goes up to half of the shorter side.
    void Rectangle(double x, double y, double w, double h, int options, double radius = 0);
    void DrawCircle(double x, double y, double r, int options);
    /// Chords of an arc from the angle `start` in steps of `step` as far as `end`, in degrees. `ratio` is the
    /// height of an ellipse over its width, `rotation` turns the whole. A `pie` goes from the centre and
    /// back. Throws std::invalid_argument for a step that leads nowhere.
    void Arc(double x, double y, double r, double start, double end, double ratio, bool pie, double rotation,
             double step, int options);

    // Text

    /// `align` is of TextAlign; `size` in points, `angle` in degrees.
    void DrawText(double x, double y, std::string_view text, std::string_view fontName, float size,
                  int align = alignLeft, double angle = 0);

    // Images

    /// Makes `name` the image of a bitmap file; false when there is no bitmap. Throws BitmapError (see
    /// Bitmap.h).
    bool LoadImgFromBMPFile(const std::string& name, const std::string& path, bool gray);
    /// Makes `name` the image in a buffer such as Bitmap holds. Bits per pixel other than 1, 4, 8 and 24 do
    /// nothing. Throws std::invalid_argument for a buffer that is shorter than its size says.
    void LoadImgFromBuffer(const std::string& name, std::string_view buffer, std::string_view palette,
                           bool gray);
    /// y is the image's top edge.
    void DrawImg(std::string_view name, double x, double y, double w, double h);

    // Forms

    /// What is drawn from here to EndObject is shown by DrawObject, and from the next page on by itself on
    /// the pages that `options` of RepeatOptions tell.
    void StartObject(const std::string& name, int options);
    void EndObject() { endStream(); }
    void DrawObject(std::string_view name);

  private:
    struct MeasuredFont {
        std::string name;
        int family;
        int style;
    };
    struct RepeatingObject {
        std::string name;
        int options;
    };
    /// All that ends with the document.
    struct Document {
        std::int16_t pages = 0;
        int highestObject = 0;
        std::vector<std::int64_t> offsets;  ///< By object number; 0 for a number never used.
        int encodingObject = 0;
        std::int64_t streamStart = 0;
        std::string pageList, fontList, imageList, formList;  ///< References as the file has them.
        std::vector<MeasuredFont> fonts;
        std::vector<RepeatingObject> repeating;
        double wordSpacing = 0;  ///< Points, as the next.
        double charSpacing = 0;
        double horizontalScaling = 100;
    };

    double points(double length) const;
    float storedPoints(double length) const;
    float userLength(double points) const;

    void Writeline(std::string_view text);
    void writeLines(std::initializer_list<std::string_view> lines);
    /// A line of numbers and what follows them.
    void writeNumbers(std::initializer_list<double> values, std::string_view rest);
    void writeEndobj();
    /// Opens an object and returns its number: the one given, or the next for 0.
    int NewObject(int number = 0);
    int nextObject() const { return document_.highestObject + 1; }
    void startStream();
    /// Ends the stream of a page or form, and writes the object with its length.
    void endStream();
    std::string temporaryName(const std::tm& now) const;
    void writeFixedObjects(const std::tm& now);
    int writeResources();
    void writePageTree(int resources);
    void writeCrossReferences();
    std::string cropBox() const;

    void writeFontDescriptor(const FontMetrics& metrics);
    void writeColour(std::int32_t colour, std::string_view grey, std::string_view rgb);
    void Paint(int options);
    void roundedRectangle(double x, double y, double w, double h, double radius);
    void drawRepeatingObjects();
    void writePalette(std::string_view palette);

    PdfSurroundings surroundings_;
    std::string title_ = "(senza titolo)";
    int scaleMode_ = 0;
    int paperSize_ = 0;
    float paperWidth_ = 0;
    float paperHeight_ = 0;
    int orientation_ = 1;
    float margin_ = 0;
    PdfStream stream_;
    Document document_;
    std::string line_;  ///< The line in the making, kept for its memory.
};

}  // namespace marvello
