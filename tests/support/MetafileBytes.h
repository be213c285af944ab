#pragma once

#include <QByteArray>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace marvello::testing {

/// Writes a metafile, record by record.
class MetafileBytes {
  public:
    using Words = std::vector<std::uint16_t>;

    /// Of so many units, 100 to the inch, with a pen that draws nothing as object 0.
    explicit MetafileBytes(std::uint16_t width = 200, std::uint16_t height = 100) {
        append({0xCDD7, 0x9AC6, 0, 0, 0, width, height, 100, 0, 0});
        std::uint16_t sum = 0;
        for (int i = 0; i < 10; ++i) sum = static_cast<std::uint16_t>(sum ^ wordAt(2 * i));
        append({sum, 1, 9, 0x0300, 0, 0, 8, 0, 0, 0});
        add(createPen, {5, 0, 0, 0, 0});
        add(selectObject, {0});
    }
    MetafileBytes& add(std::uint16_t function, const Words& parameters) {
        append({static_cast<std::uint16_t>(parameters.size() + 3), 0, function});
        append(parameters);
        return *this;
    }
    /// A brush of a colour, red lowest.
    MetafileBytes& brush(std::uint16_t low, std::uint16_t object) {
        return add(createBrush, {0, low, 0, 0}).add(selectObject, {object});
    }
    QByteArray bytes() const {
        MetafileBytes ended = *this;
        ended.add(0, {});
        return ended.bytes_;
    }
    QByteArray unended() const { return bytes_; }

    static constexpr std::uint16_t createPen = 0x02FA, createBrush = 0x02FC, createFont = 0x02FB,
                                   selectObject = 0x012D;

  private:
    std::uint16_t wordAt(int at) const {
        return static_cast<std::uint16_t>(static_cast<unsigned char>(bytes_[at]) |
                                          static_cast<unsigned char>(bytes_[at + 1]) << 8);
    }
    void append(const Words& words) {
        for (const auto word : words) {
            bytes_.append(static_cast<char>(word & 0xFF));
            bytes_.append(static_cast<char>(word >> 8));
        }
    }
    QByteArray bytes_;
};

}  // namespace marvello::testing
