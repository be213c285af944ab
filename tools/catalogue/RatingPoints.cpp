#include "tools/catalogue/RatingPoints.h"

#include <algorithm>
#include <optional>

#include "data/Constants.h"
#include "data/Csv.h"
#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello {

namespace {

/// The same lines, those of comments empty.
std::string withoutComments(const std::string& text) {
    std::string kept;
    for (const auto& line : splitText(text, '\n'))
        if (const auto plain = trimmed(line); plain.empty() || plain.front() == '#')
            kept += '\n';
        else
            kept += line + '\n';
    return kept;
}

class PointReader {
  public:
    PointReader(const std::string& file, const RatingNames& names, Faults& faults)
        : file_(file), names_(names), faults_(faults) {}

    RatingPoints read(const std::vector<CsvRecord>& records) {
        RatingPoints points;
        if (records.empty()) {
            faults_.add(file_, "there are no points; the first line names the columns");
            return points;
        }
        if (!readHeader(records.front(), points)) return points;
        for (auto record = records.begin() + 1; record != records.end(); ++record) readPoint(*record, points);
        if (points.lines.empty() && faults_.empty())
            faults_.add(file_, "there are no points below the columns");
        return points;
    }

  private:
    bool readHeader(const CsvRecord& header, RatingPoints& points) {
        header_ = header.fields;
        const auto x = columnOf(names_.evaporating, header.line);
        const auto y = columnOf(names_.condensing, header.line);
        if (!x || !y) return false;
        x_ = *x;
        y_ = *y;
        if (names_.values.empty()) {
            for (std::size_t i = 0; i < header_.size(); ++i)
                if (i != x_ && i != y_) valueColumns_.push_back(i);
        } else {
            for (const auto& name : names_.values)
                if (const auto column = columnOf(name, header.line)) valueColumns_.push_back(*column);
        }
        if (valueColumns_.empty() && faults_.empty())
            faults_.add(file_, header.line, "there is no column of values beside the two temperatures");
        for (const auto column : valueColumns_) points.columns.push_back({trimmed(header_[column]), {}});
        return faults_.empty();
    }

    std::optional<std::size_t> columnOf(const std::string& name, int line) {
        const auto found = std::ranges::find_if(
            header_, [&](const auto& field) { return equalIgnoringCase(trimmed(field), trimmed(name)); });
        if (found != header_.end()) return static_cast<std::size_t>(found - header_.begin());
        std::string all;
        for (const auto& field : header_) all += (all.empty() ? "" : ", ") + trimmed(field);
        faults_.add(file_, line, "there is no column \"" + name + "\" among " + all);
        return std::nullopt;
    }

    void readPoint(const CsvRecord& record, RatingPoints& points) {
        if (record.fields.size() != header_.size()) {
            faults_.add(file_, record.line,
                        "the line has " + std::to_string(record.fields.size()) + " fields and not " +
                            std::to_string(header_.size()));
            return;
        }
        points.lines.push_back(record.line);
        points.evaporating.push_back(temperature(record, x_));
        points.condensing.push_back(temperature(record, y_));
        for (std::size_t i = 0; i < valueColumns_.size(); ++i)
            points.columns[i].values.push_back(number(record, valueColumns_[i]));
    }

    double number(const CsvRecord& record, std::size_t column) {
        const auto value = storedNumber(record.fields[column]);
        if (!value)
            faults_.add(file_, record.line,
                        trimmed(header_[column]) + ": \"" + record.fields[column] +
                            "\" is not a number; the decimal mark is \".\"");
        return value.value_or(0);
    }

    /// No refrigerant boils or condenses outside this range; what stands there belongs to another column or
    /// has lost its decimal mark.
    double temperature(const CsvRecord& record, std::size_t column) {
        constexpr double least = -zeroCelsius;
        constexpr double most = 500;
        const double value = number(record, column);
        if (value < least || value > most)
            faults_.add(file_, record.line,
                        trimmed(header_[column]) + ": " + record.fields[column] +
                            " is no temperature in degrees Celsius");
        return value;
    }

    const std::string& file_;
    const RatingNames& names_;
    Faults& faults_;
    std::vector<std::string> header_;
    std::size_t x_ = 0;
    std::size_t y_ = 0;
    std::vector<std::size_t> valueColumns_;
};

}  // namespace

RatingPoints readRatingPoints(const std::string& text, const std::string& file, const RatingNames& names,
                              Faults& faults) {
    const auto records = readCsv(withoutComments(text), file, faults);
    if (!faults.empty()) return {};
    return PointReader(file, names, faults).read(records);
}

}  // namespace marvello
