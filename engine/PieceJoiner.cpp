#include "engine/PieceJoiner.h"

#include <algorithm>
#include <cmath>

namespace marvello {

int PointNumbers::numberOf(const PlanePoint& point) {
    const Place place{std::llround(point.x / tolerance_), std::llround(point.y / tolerance_)};
    const auto [known, isNew] = numbers_.try_emplace(place, count());
    if (isNew) points_.push_back(point);
    return known->second;
}

void PieceJoiner::addEdge(int from, int to) {
    if (from == to) return;
    next_.resize(static_cast<std::size_t>(points_.count()));
    auto& back = next_[static_cast<std::size_t>(to)];
    if (const auto same = std::ranges::find(back, from); same != back.end())
        back.erase(same);
    else
        next_[static_cast<std::size_t>(from)].push_back(to);
}

void PieceJoiner::add(const PlanePolygon& piece) {
    if (piece.size() < 3) return;
    const int first = points_.numberOf(piece.front());
    int from = first;
    for (std::size_t i = 1; i < piece.size(); ++i) {
        const int to = points_.numberOf(piece[i]);
        addEdge(from, to);
        from = to;
    }
    addEdge(from, first);
}

std::vector<PlanePolygon> PieceJoiner::borders() const {
    std::vector<PlanePolygon> borders;
    auto rest = next_;
    for (std::size_t start = 0; start < rest.size(); ++start) {
        while (!rest[start].empty()) {
            PlanePolygon border;
            auto at = start;
            while (!rest[at].empty()) {
                border.push_back(points_.point(static_cast<int>(at)));
                const int to = rest[at].back();
                rest[at].pop_back();
                at = static_cast<std::size_t>(to);
                if (at == start) break;
            }
            borders.push_back(std::move(border));
        }
    }
    return borders;
}

void SegmentJoiner::add(const PlanePoint& from, const PlanePoint& to) {
    const int a = points_.numberOf(from);
    const int b = points_.numberOf(to);
    if (a == b) return;
    neighbours_.resize(static_cast<std::size_t>(points_.count()));
    neighbours_[static_cast<std::size_t>(a)].push_back(b);
    neighbours_[static_cast<std::size_t>(b)].push_back(a);
}

std::vector<std::vector<PlanePoint>> SegmentJoiner::lines() const {
    std::vector<std::vector<PlanePoint>> lines;
    auto rest = neighbours_;
    const auto follow = [&](std::size_t at) {
        std::vector<PlanePoint> line{points_.point(static_cast<int>(at))};
        while (!rest[at].empty()) {
            const auto to = static_cast<std::size_t>(rest[at].back());
            rest[at].pop_back();
            auto& back = rest[to];
            back.erase(std::ranges::find(back, static_cast<int>(at)));
            at = to;
            line.push_back(points_.point(static_cast<int>(at)));
        }
        lines.push_back(std::move(line));
    };
    // First those with ends; what is left then is closed.
    for (std::size_t at = 0; at < rest.size(); ++at)
        while (rest[at].size() % 2 == 1) follow(at);
    for (std::size_t at = 0; at < rest.size(); ++at)
        while (!rest[at].empty()) follow(at);
    return lines;
}

}  // namespace marvello
