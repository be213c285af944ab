#include "workspace/DrawnMap.h"

#include "controls/CoreText.h"

namespace marvello {

std::shared_ptr<const EnvelopeMap> drawnMap(const ShownMap& shown) {
    auto map = std::make_shared<EnvelopeMap>();
    map->name = fromCore(shown.name);
    map->unit = fromCore(shown.unit);
    const auto polygonOf = [](const std::vector<PlanePoint>& points) {
        QPolygonF polygon;
        for (const PlanePoint& at : points) polygon += QPointF(at.x, at.y);
        return polygon;
    };
    for (std::size_t i = 0; i < shown.levels.size(); ++i) {
        EnvelopeMap::Line line{fromCore(shown.levels[i]), {}};
        for (const auto& part : shown.contours.lines[i].parts) line.parts.push_back(polygonOf(part));
        map->lines.push_back(std::move(line));
    }
    for (const ContourBand& band : shown.contours.bands) {
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        for (const PlanePolygon& border : band.borders) {
            path.addPolygon(polygonOf(border));
            path.closeSubpath();
        }
        map->bands.push_back(path);
    }
    return map;
}

}  // namespace marvello
