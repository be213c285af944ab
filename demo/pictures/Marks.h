#pragma once

#include <QImage>
#include <QPainterPath>
#include <memory>
#include <string>

#include "demo/pictures/Paint.h"

namespace marvello::pictures {

/// The maker's emblem in a square with sides of 1, y downwards.
QPainterPath emblem();

/// `image` as a decal of `width` mm whose lower left corner is the origin of `frame`.
std::shared_ptr<const Decal> decalOf(const QImage& image, const Frame& frame, double width, double reach);

// Pictures for decals; those of one colour are clear around the mark.
/// Emblem and the maker's name in a line.
QImage wordMark(QColor colour);
/// The plate of a compressor with lines of data.
QImage namePlate(const std::string& serie);
/// The lit display of a frequency converter.
QImage converterDisplay();

}  // namespace marvello::pictures
