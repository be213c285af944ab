#include "demo/pictures/DimensionDrawing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <utility>

#include "demo/pictures/Design.h"
#include "demo/pictures/Sheet.h"
#include "demo/pictures/Views.h"

namespace marvello::pictures {

namespace {

using Align = WmfWriter::Align;

constexpr double sheetWidth = 190, margin = 4;
constexpr double viewsTop = 9, viewsHeight = 62;
constexpr double lineHeight = 4.4, textSize = 3.0;
constexpr std::size_t lettersOnLine = 38;
constexpr const char* letters[]{"A", "B", "C", "D", "E", "F"};

/// The models of a body in lines that fit their column.
std::vector<std::string> linesOf(const std::vector<std::string>& models) {
    std::vector<std::string> lines(1);
    for (const std::string& model : models) {
        if (!lines.back().empty() && lines.back().size() + model.size() + 2 > lettersOnLine)
            lines.emplace_back();
        lines.back() += (lines.back().empty() ? "" : "  ") + model;
    }
    return lines;
}

double rowHeight(const DimensionRow& row) {
    return lineHeight * static_cast<double>(linesOf(row.models).size()) + 1.4;
}

/// The middle of each column: models on the left, six lengths, connections.
struct Columns {
    double models = margin + 1.5;
    double length = 70;   ///< of A
    double pitch = 12.5;  ///< of lengths
    double connection = 148;
    double connectionPitch = 16;

    double ofLength(std::size_t i) const { return length + pitch * static_cast<double>(i); }
    double ofConnection(std::size_t i) const { return connection + connectionPitch * static_cast<double>(i); }
};

/// Both views have one scale, with room for dimension lines left of and between them.
double scaleOf(const Body& b) {
    return std::min(viewsHeight / b.height, (sheetWidth - 56) / (b.length + b.width));
}

double groundOf(const Body& b) { return viewsTop + b.height * scaleOf(b); }

double tableTopOf(const Body& b) { return groundOf(b) + 22; }

/// Gives where the side view stands.
Placing drawViews(Sheet& sheet, const Design& d, const std::vector<std::string>& shown) {
    const Body& b = d.body;
    const double scale = scaleOf(b), ground = groundOf(b);
    const double used = (b.length + b.width) * scale, gap = std::min(28.0, sheetWidth - used - 34);
    const double left = (sheetWidth - used - gap) / 2 + 5;
    const Placing side{{left, ground}, scale};
    const Placing end{{left + (b.length + b.width / 2) * scale + gap, ground}, scale};
    drawSide(sheet, side, d);
    drawEnd(sheet, end, d);
    const double lowAtEnd =
        d.separator == Design::Separator::upright ? d.separatorBottom + d.dome : d.axis - 0.1 * b.height;
    sheet.across(side(d.feetFrom, -0.02 * b.height), side(d.feetTo(), -0.02 * b.height), ground + 7,
                 shown[3]);
    sheet.across(side(0, d.axis - (d.openDrive ? d.shaftRadius : 0.4 * d.motorRadius)),
                 side(b.length, lowAtEnd), ground + 14, shown[0]);
    sheet.upright(side(d.openDrive ? 0 : -0.03 * b.length, d.axis), side(d.feetFrom - 0.03 * b.length, 0),
                  left - 5, shown[5]);
    const double top = d.suctionTop >= b.height ? d.suctionX
                       : d.boxTop >= b.height   ? d.boxFrom
                                                : d.dischargeX;
    sheet.upright(side(top, b.height), side(d.feetFrom - 0.03 * b.length, 0), left - 12, shown[2]);
    sheet.across(end(-b.feetWidth / 2, -0.02 * b.height), end(b.feetWidth / 2, -0.02 * b.height), ground + 7,
                 shown[4]);
    sheet.across(end(-b.width / 2, d.axis), end(b.width / 2, d.axis), ground + 14, shown[1]);
    return side;
}

void drawBalloons(Sheet& sheet, const Design& d, const Placing& side) {
    // Letters of their own circles: D and E are lengths as well.
    const auto beside = [&](double x, double top, double radius, double dx, const char* letter) {
        const Spot meant = side(x + (dx > 0 ? 1 : -1) * radius, top - radius);
        sheet.balloon({meant.x + dx, meant.y - 2.6}, meant, letter);
    };
    beside(d.suctionX, d.suctionTop, 0.6 * d.suctionRadius, d.suctionX < d.boxFrom || d.openDrive ? -8 : 8,
           "S");
    beside(d.dischargeX, d.dischargeTop, 0.5 * d.dischargeRadius, 8, "D");
    if (!d.hasEconomizer) return;
    const double up = 0.33 * (d.economizerX > d.screwTo ? d.separatorRadius : 0.95 * d.screwRadius);
    const Spot meant = side(d.economizerX, d.axis + up);
    const double over =
        side(0, d.axis + std::max(d.flangeRadius, d.separatorRadius + 0.05 * d.body.width)).y - 4.8;
    sheet.balloon({meant.x + 1.5, over}, meant, "E");
}

double drawHeader(Sheet& sheet, const Columns& columns, double top, bool hasEconomizer) {
    constexpr double height = 6.4;
    const double base = top + 4.3;
    sheet.wmf().setText(textSize, true);
    for (std::size_t i = 0; i < std::size(letters); ++i)
        sheet.wmf().text({columns.ofLength(i), base}, Align::centre, letters[i]);
    sheet.balloonAlone({columns.ofConnection(0), top + 3.1}, "S");
    sheet.balloonAlone({columns.ofConnection(1), top + 3.1}, "D");
    if (hasEconomizer) sheet.balloonAlone({columns.ofConnection(2), top + 3.1}, "E");
    return top + height;
}

void drawRow(Sheet& sheet, const Columns& columns, double top, const DimensionRow& row) {
    WmfWriter& wmf = sheet.wmf();
    wmf.setText(textSize);
    double base = top + 4.0;
    for (const std::string& line : linesOf(row.models)) {
        wmf.text({columns.models, base}, Align::left, line);
        base += lineHeight;
    }
    base = top + 4.0;
    for (std::size_t i = 0; i < row.lengths.size(); ++i)
        wmf.text({columns.ofLength(i) + 3.4, base}, Align::right, std::to_string(row.lengths[i]));
    for (std::size_t i = 0; i < row.connections.size(); ++i)
        wmf.text({columns.ofConnection(i), base}, Align::centre, row.connections[i]);
}

double drawTable(Sheet& sheet, double top, const std::vector<DimensionRow>& rows, bool hasEconomizer) {
    const Columns columns;
    const auto rule = [&](double y, double width) {
        sheet.wmf().setLine(WmfWriter::Line::solid, width, 0x87949C);
        sheet.wmf().line({margin, y}, {sheetWidth - margin, y});
    };
    double y = drawHeader(sheet, columns, top, hasEconomizer);
    rule(y, 0.35);
    for (const DimensionRow& row : rows) {
        drawRow(sheet, columns, y, row);
        y += rowHeight(row);
        rule(y, 0.13);
    }
    return y;
}

void drawTitle(Sheet& sheet, double top, const std::string& serie) {
    WmfWriter& wmf = sheet.wmf();
    sheet.emblem({margin + 1, top + 1.6}, 6.4);
    wmf.setText(3.6, true);
    wmf.text({margin + 9, top + 6.1}, Align::left, "KESTROM");
    wmf.setText(5.0, true);
    wmf.text({sheetWidth / 2, top + 6.6}, Align::centre, serie);
    wmf.setText(3.6);
    wmf.text({sheetWidth - margin - 1, top + 6.1}, Align::right, "mm");
}

double heightOf(double tableTop, const std::vector<DimensionRow>& rows) {
    double height = tableTop + 6.4 + 10;
    for (const DimensionRow& row : rows) height += rowHeight(row);
    return height;
}

}  // namespace

std::vector<DimensionRow> dimensionRows(const SeriesBodies& series) {
    std::vector<DimensionRow> rows;
    for (const Body& body : series.bodies) {
        DimensionRow row{body.models, {}, {body.suction, body.discharge}};
        for (const double length : {body.length, body.width, body.height, body.feetLength, body.feetWidth,
                                    designOf(series.serie, body).axis})
            row.lengths.push_back(static_cast<int>(std::lround(length)));
        if (series.hasEconomizer()) row.connections.push_back(body.economizer);
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<std::uint8_t> dimensionDrawing(const SeriesBodies& series) {
    const std::vector<DimensionRow> rows = dimensionRows(series);
    std::vector<std::string> shown(std::begin(letters), std::end(letters));
    if (rows.size() == 1)
        std::transform(rows.front().lengths.begin(), rows.front().lengths.end(), shown.begin(),
                       [](int length) { return std::to_string(length); });
    const double tableTop = tableTopOf(series.typical());
    Sheet sheet(sheetWidth, heightOf(tableTop, rows));
    const Design design = designOf(series.serie, series.typical());
    const Placing side = drawViews(sheet, design, shown);
    drawBalloons(sheet, design, side);
    drawTitle(sheet, drawTable(sheet, tableTop, rows, series.hasEconomizer()), series.serie);
    return sheet.wmf().finish();
}

}  // namespace marvello::pictures
