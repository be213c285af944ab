#pragma once

#include <algorithm>
#include <string>

#include "demo/pictures/Bodies.h"

namespace marvello::pictures {

/// How a compressor is built, in mm from the motor end (open drive: from the shaft end), the floor and the
/// middle. Photos and drawings are made from it, so that both show the same machine.
struct Design {
    enum class Ribs { none, along, around };
    enum class Separator { lying, upright };
    enum class Feet { cast, rails };

    std::string serie;
    Body body;
    bool openDrive = false;
    bool hasConverter = false;
    bool hasEconomizer = false;
    bool hasSlideHousing = false;  ///< a slide valve with a housing of its own at the discharge end
    bool hasInjection = false;
    Ribs ribs = Ribs::along;
    Separator separator = Separator::lying;
    Feet feet = Feet::cast;
    unsigned accent = 0;  ///< screen colour of the ring that tells variants apart; 0: none

    double axis = 0;  ///< height of the shaft
    double coverTo = 0, motorTo = 0, flangeTo = 0, screwTo = 0, separatorTo = 0, slideTo = 0;
    double motorRadius = 0, flangeRadius = 0, screwRadius = 0, separatorRadius = 0;
    double separatorX = 0, separatorBottom = 0, separatorTop = 0;  ///< of an upright one
    double slideRadius = 0, slideDrop = 0;                         ///< of its housing, and below the shaft
    double dome = 0;                                               ///< depth of the separator's end
    double shaftTo = 0, shaftRadius = 0;                           ///< of an open drive
    double boxFrom = 0, boxTo = 0, boxTop = 0, boxDepth = 0;       ///< terminal box or converter
    double suctionX = 0, suctionTop = 0, suctionRadius = 0;
    double dischargeX = 0, dischargeTop = 0, dischargeRadius = 0;
    double economizerX = 0, economizerRadius = 0;
    double feetFrom = 0;

    double feetTo() const { return feetFrom + body.feetLength; }
    /// False where the separator surrounds the rotors.
    bool showsRotors() const { return screwTo > flangeTo + 0.05 * body.length; }
    /// Thickness of the rims that are bolted together.
    double collar() const { return 0.022 * body.length; }
    double motorRim() const { return motorRadius + 0.062 * body.width; }
    double separatorRim() const { return std::min(separatorRadius + 0.05 * body.width, 0.5 * body.width); }
    double ribHeight() const { return 0.036 * body.width; }
};

Design designOf(const std::string& serie, const Body& body);

/// The outer diameter in mm of a connection such as 2 1/8" (a copper pipe) or DN 100; 0 for an empty text.
/// Throws std::runtime_error if the text is neither.
double connectionDiameter(const std::string& text);

}  // namespace marvello::pictures
