#include "catalogue/clsLimits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <stdexcept>

#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello {

namespace {

struct LimitLook {
    int type, drawStyle, color, drawWidth;
    const char *description, *caption;
    bool visible;
};

constexpr LimitLook otherLook = {limitType::application, 0, 0, 2, "", "", true};

// Kept: the spelling of the descriptions, by which users know the lines.
constexpr std::array limitLooks = {
    LimitLook{limitType::over, 1, 255, 2, "Over limit", "", true},
    LimitLook{limitType::application, 0, 0, 3, "Application limit", "", true},
    LimitLook{limitType::injection, 0, 33535, 2, "Iniection limit", "", true},
    LimitLook{limitType::oilCooling, 0, 16745092, 2, "Oil cooling limit", "", true},
    LimitLook{limitType::smallMotor, 0, 16711935, 2, "Motor Small limit", "", true},
    LimitLook{limitType::step25, 2, 8421504, 2, "", "25%", true},
    LimitLook{limitType::step50, 4, 8421504, 2, "", "50%", true},
    LimitLook{limitType::step75, 2, 8421504, 2, "", "75%", true},
    LimitLook{limitType::oilFilter, 0, 49152, 2, "Oil Filter", "", true},
    LimitLook{limitType::hOnly, 4, 65535, 2, "H only", "", false},
    LimitLook{limitType::hSuggested, 4, 65280, 2, "H suggested", "", false},
    LimitLook{limitType::sSuggested, 4, 16711680, 2, "S Suggested", "", false},
    LimitLook{limitType::forbidden, 0, 231, 2, "", "", true},
    LimitLook{limitType::hertz50, 0, 7273, 2, "50Hz", "50Hz", true},
    LimitLook{limitType::hertz60, 0, 7273, 2, "60Hz", "60Hz", true},
    LimitLook{limitType::hertz70, 0, 1234, 2, "70Hz", "70Hz", true},
};

constexpr double pi = std::numbers::pi;

/// A two-argument arc tangent with a single-precision result.
float vectorAngle(double y, double x) {
    if (x > 0) return y == 0 ? 0.0F : static_cast<float>(std::atan(y / x));
    if (x < 0) {
        if (y == 0) return static_cast<float>(pi);
        return static_cast<float>(std::atan(y / x) + (y > 0 ? pi : -pi));
    }
    if (y == 0) return 0.0F;
    return static_cast<float>(y > 0 ? pi / 2 : -pi / 2);
}

void widen(std::optional<clsPoint>& left, std::optional<clsPoint>& right, const clsPoint& topLeft,
           const clsPoint& bottomRight) {
    if (!left || !right) {
        left = topLeft;
        right = bottomRight;
        return;
    }
    left->x = std::min(left->x, topLeft.x);
    left->Y = std::max(left->Y, topLeft.Y);
    right->x = std::max(right->x, bottomRight.x);
    right->Y = std::min(right->Y, bottomRight.Y);
}

template <class List>
void requirePosition(const List& list, int index, const char* what) {
    if (index < 1 || index > static_cast<int>(list.size())) {
        throw std::out_of_range(std::string("There is no ") + what + " " + std::to_string(index) + ".");
    }
}

/// How often a closed line goes round a point; none for a line that is open or that passes the point so near
/// that the rounding of its angles could count.
std::optional<int> clearWinding(const clsPoints& line, double x, double y) {
    constexpr double clearance = 0.01;  // K, of an edge; its angle is then at least 1e-5 from a half turn
    constexpr double farthest = 500;    // K
    constexpr int mostPoints = 100;     // whose angles add up to 2e-5 of rounding, a fifth of `noTurn`
    const clsPoint* from = &*line.begin();
    const clsPoint& last = *(line.end() - 1);
    if (from->x != last.x || from->Y != last.Y || line.Count() > mostPoints) return std::nullopt;
    int winding = 0;
    for (auto to = line.begin() + 1; to != line.end(); from = &*to++) {
        const double p = from->x - x;
        const double q = from->Y - y;
        const double nextQ = to->Y - y;
        const double dx = to->x - from->x;
        const double dy = to->Y - from->Y;
        const double square = dx * dx + dy * dy;
        const double along = square > 0 ? std::clamp(-(p * dx + q * dy) / square, 0.0, 1.0) : 0;
        const double nearX = p + along * dx;
        const double nearY = q + along * dy;
        const bool isClear = nearX * nearX + nearY * nearY > clearance * clearance &&
                             std::abs(p) < farthest && std::abs(q) < farthest;
        if (!isClear) return std::nullopt;
        const double side = p * dy - q * dx;  // above 0 where the edge passes on the right of the point
        if (q <= 0 && nextQ > 0 && side > 0) ++winding;
        if (q > 0 && nextQ <= 0 && side < 0) --winding;
    }
    return winding;
}

clsPoint parsePoint(const std::string& piece) {
    const std::size_t comma = piece.find(',');
    if (comma != std::string::npos) {
        const std::size_t next = piece.find(',', comma + 1);  // further elements are ignored
        const auto x = storedNumber(piece.substr(0, comma));
        const auto y =
            storedNumber(piece.substr(comma + 1, next == std::string::npos ? next : next - comma - 1));
        if (x && y) return {*x, *y};
    }
    throw std::invalid_argument("\"" + piece + "\" is no point \"x,y\" of an envelope line");
}

}  // namespace

void clsPoints::add(double x, double y) {
    points_.push_back({x, y});
    widen(left_, right_, points_.back(), points_.back());
}

const clsPoint& clsPoints::Item(int index) const {
    requirePosition(points_, index, "point");
    return points_[static_cast<std::size_t>(index) - 1];
}

void clsPoints::Remove(int index) {
    requirePosition(points_, index, "point");
    points_.erase(points_.begin() + (index - 1));
}

void clsPoints::ClearAll() {
    points_.clear();
    left_.reset();
    right_.reset();
}

clsPoints parsePoints(std::string_view text) {
    std::string plain(text);
    std::erase_if(plain, [](char c) { return c == '(' || c == ')'; });
    clsPoints points;
    for (const std::string& piece : splitText(plain, ';')) {
        const clsPoint point = parsePoint(piece);
        points.add(point.x, point.Y);
    }
    return points;
}

void clsLimit::setType(int type) {
    const auto* found = std::find_if(limitLooks.begin(), limitLooks.end(),
                                     [type](const LimitLook& look) { return look.type == type; });
    const LimitLook& look = found == limitLooks.end() ? otherLook : *found;
    LimitType = type;
    DrawStyle = look.drawStyle;
    Color = look.color;
    DrawWidth = look.drawWidth;
    Description = look.description;
    Caption = look.caption;
    Visible = look.visible;
}

void clsLimits::add(std::shared_ptr<const clsLimit> limit) {
    const std::optional<clsPoint> left = limit->LeftPoint();
    const std::optional<clsPoint> right = limit->RightPoint();
    if (!left || !right) throw std::invalid_argument("An envelope line has no points.");
    widen(left_, right_, *left, *right);
    limits_.push_back(std::move(limit));
}

const clsLimit& clsLimits::Item(int index) const {
    requirePosition(limits_, index, "limit");
    return *limits_[static_cast<std::size_t>(index) - 1];
}

void clsLimits::Remove(int index) {
    requirePosition(limits_, index, "limit");
    limits_.erase(limits_.begin() + (index - 1));
}

const clsLimit* clsLimits::GetLimitType(int type) const {
    for (const auto& limit : limits_) {
        if (limit->LimitType == type) return limit.get();
    }
    return nullptr;
}

clsLimits clsLimits::GetLimitsFromPoint(double x, double y) const {
    clsLimits holding;
    for (const auto& limit : limits_) {
        if (polygonTest(limit->Points, x, y) > PolygonState::outside) holding.add(limit);
    }
    return holding;
}

HoldingLimits clsLimits::holding(double x, double y) const {
    HoldingLimits found;
    for (const auto& limit : limits_) {
        if (polygonTest(limit->Points, x, y) > PolygonState::outside) found.add(limit->LimitType);
    }
    return found;
}

PolygonState polygonTest(const clsPoints& line, double x, double y) {
    if (line.Count() < 4) return PolygonState::undecided;
    for (const clsPoint& point : line) {
        if (point.x == x && point.Y == y) return PolygonState::onVertex;
    }
    if (const auto winding = clearWinding(line, x, y))
        return *winding == 0 ? PolygonState::outside : PolygonState::inside;
    double sum = 0;
    for (int i = 1; i < line.Count(); ++i) {
        const clsPoint& from = line.Item(i);
        const clsPoint& to = line.Item(i + 1);
        const float theta = vectorAngle(from.Y - y, from.x - x);
        const double cosine = std::cos(static_cast<double>(theta));
        const double sine = std::sin(static_cast<double>(theta));
        const double p = to.x - x;
        const double q = to.Y - y;
        const float phi = vectorAngle(q * cosine - p * sine, p * cosine + q * sine);
        if (static_cast<double>(phi) == pi) return PolygonState::onEdge;  // kept: a single never equals it
        sum += static_cast<double>(phi);
    }
    constexpr double noTurn = 0.0001;  // radians
    const double turn = std::abs(sum);
    if (turn < noTurn) return PolygonState::outside;
    return turn > pi ? PolygonState::inside : PolygonState::undecided;
}

}  // namespace marvello
