#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marvello {

/// A point of the plane of evaporating (x) against condensing (Y) dew temperature, degrees Celsius.
struct clsPoint {
    double x = 0;
    double Y = 0;
};

/// An ordered line of points with the corners of its bounding box.
class clsPoints {
  public:
    void add(double x, double y);
    int Count() const { return static_cast<int>(points_.size()); }
    /// By position from 1. Throws std::out_of_range.
    const clsPoint& Item(int index) const;
    /// Leaves the corners as they are.
    void Remove(int index);
    void ClearAll();

    /// Smallest x and largest y, or nothing before the first add.
    const std::optional<clsPoint>& getLeftPoint() const { return left_; }
    /// Largest x and smallest y, or nothing before the first add.
    const std::optional<clsPoint>& getRightPoint() const { return right_; }

    auto begin() const { return points_.begin(); }
    auto end() const { return points_.end(); }

  private:
    std::vector<clsPoint> points_;
    std::optional<clsPoint> left_;
    std::optional<clsPoint> right_;
};

/// Reads "x,y;x,y;...", brackets ignored and "." the decimal mark. Throws std::invalid_argument that names
/// the piece which is not two numbers.
clsPoints parsePoints(std::string_view text);

/// The types of the lines of an envelope, as the catalogue stores them.
namespace limitType {
inline constexpr int over = -1;        ///< around all the others
inline constexpr int application = 0;  ///< where the compressor may run
inline constexpr int injection = 1;
inline constexpr int oilCooling = 2;
inline constexpr int smallMotor = 3;  ///< where the small motor suffices
inline constexpr int step25 = 4;      ///< where the capacity step of 25 % is allowed, and so on
inline constexpr int step50 = 5;
inline constexpr int step75 = 6;
inline constexpr int oilFilter = 7;
inline constexpr int hOnly = 8;  ///< for the versions H and S of a model
inline constexpr int hSuggested = 9;
inline constexpr int sSuggested = 10;
inline constexpr int forbidden = 11;
inline constexpr int hertz50 = 12;  ///< where an inverter may go up to this frequency
inline constexpr int hertz60 = 13;
inline constexpr int hertz70 = 14;
inline constexpr int last = hertz70;
}  // namespace limitType

/// One closed line of an envelope.
class clsLimit {
  public:
    bool Visible = true;
    int DrawStyle = 0;  ///< 0 solid, 1 dash, 2 dot, 4 dash-dot-dot.
    int DrawWidth = 1;
    std::string Key;
    std::string Name;
    std::string Description;  ///< Text of the legend.
    std::string Caption;      ///< Label written on the line.
    clsPoints Points;
    int Color = 0;  ///< 0x00BBGGRR.
    int LimitType = limitType::application;

    const std::optional<clsPoint>& LeftPoint() const { return Points.getLeftPoint(); }
    const std::optional<clsPoint>& RightPoint() const { return Points.getRightPoint(); }

    /// Takes the drawing attributes and texts that belong to `type`.
    void setType(int type);
};

/// What a line says about a point.
enum class PolygonState { undecided = 0, outside = 1, onVertex = 2, onEdge = 3, inside = 4 };

/// Which lines hold a point, by their types.
class HoldingLimits {
  public:
    void add(int type) {
        ++count_;
        if (type >= limitType::over && type <= limitType::last) types_ |= bitOf(type);
    }
    int Count() const { return count_; }
    /// Of the types above.
    bool FindLimitType(int type) const { return (types_ & bitOf(type)) != 0; }

  private:
    static constexpr unsigned bitOf(int type) { return 1U << (type - limitType::over); }

    int count_ = 0;
    unsigned types_ = 0;
};

/// The envelope of a compressor: its lines, and the corners of all of them. Copies share the lines.
class clsLimits {
  public:
    /// Appends. Throws std::invalid_argument for a limit without points.
    void add(std::shared_ptr<const clsLimit> limit);
    int Count() const { return static_cast<int>(limits_.size()); }
    /// By position from 1. Throws std::out_of_range.
    const clsLimit& Item(int index) const;
    void Remove(int index);

    /// Whether both have the very same lines.
    bool sharesLinesWith(const clsLimits& other) const { return limits_ == other.limits_; }

    /// The first limit of a type, or nothing.
    const clsLimit* GetLimitType(int type) const;
    bool FindLimitType(int type) const { return GetLimitType(type) != nullptr; }

    /// The limits that hold the point, in the order of this set; they are shared with it.
    clsLimits GetLimitsFromPoint(double x, double y) const;
    /// The same by type alone, for a calculation.
    HoldingLimits holding(double x, double y) const;

    const std::optional<clsPoint>& getLeftPoint() const { return left_; }
    const std::optional<clsPoint>& getRightPoint() const { return right_; }

    auto begin() const { return limits_.begin(); }
    auto end() const { return limits_.end(); }

  private:
    std::vector<std::shared_ptr<const clsLimit>> limits_;
    std::optional<clsPoint> left_;
    std::optional<clsPoint> right_;
};

/// Sums the signed angles under which the edges of a line are seen from a point. The edge from the last point
/// back to the first is not walked, and angles (not their sum) are in single precision: both decide points on
/// an edge. Clear of the edges of a closed line the sum is its winding number, which is counted there.
PolygonState polygonTest(const clsPoints& line, double x, double y);

}  // namespace marvello
