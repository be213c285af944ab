#pragma once

#include <QImage>
#include <QPainterPath>
#include <string>

namespace marvello::pictures {

/// The maker's emblem in a square with sides of 1, y downwards.
QPainterPath emblem();

// What is printed on a machine.
/// Emblem and the maker's name in a line, clear around them.
QImage wordMark();
/// The plate of a compressor with lines of data.
QImage namePlate(const std::string& serie);
/// The lit display of a frequency converter.
QImage converterDisplay();

}  // namespace marvello::pictures
