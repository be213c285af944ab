#include "demo/pictures/Design.h"

#include <map>
#include <regex>
#include <stdexcept>

namespace marvello::pictures {

namespace {

/// The colour of the ring of the series that have one, by application or variant.
unsigned accentOf(const std::string& serie) {
    static const std::map<std::string, unsigned> accents{
        {"TK-A(P)", 0xC9812B}, {"TK-A(Q)", 0x5E9A62}, {"TK-A(V)", 0x2E97AF}, {"MV-A(V)", 0x2E97AF},
        {"MV-E", 0x3D6FB0},    {"MV-G", 0x5E9A62},    {"MV-H", 0xB5482F},    {"GH", 0x9CC7DD},
        {"GH4", 0x3D6FB0},     {"TK-C", 0x3D6FB0},    {"TK-D", 0x2E97AF}};
    const auto found = accents.find(serie);
    return found == accents.end() ? 0 : found->second;
}

bool startsWith(const std::string& text, const char* begin) { return text.rfind(begin, 0) == 0; }

/// What all with a lying separator share: heights and lengths as shares of the body's.
void layOut(Design& d) {
    const Body& b = d.body;
    d.axis = 0.45 * b.height;
    d.coverTo = 0.10 * b.length;
    d.motorTo = 0.555 * b.length;
    d.flangeTo = 0.595 * b.length;
    d.screwTo = 0.80 * b.length;
    d.separatorTo = b.length;
    d.slideTo = b.length;
    d.slideRadius = 0.17 * b.width;
    d.slideDrop = 0.12 * b.width;
    d.motorRadius = 0.355 * b.width;
    d.flangeRadius = 0.435 * b.width;
    d.screwRadius = 0.33 * b.width;
    d.separatorRadius = 0.375 * b.width;
    d.dome = 0.10 * b.length;
    d.boxFrom = 0.22 * b.length;
    d.boxTo = 0.44 * b.length;
    d.boxTop = 0.955 * b.height;
    d.boxDepth = 0.44 * b.width;
    d.suctionX = 0.058 * b.length;
    d.suctionTop = 0.90 * b.height;
    d.dischargeX = 0.87 * b.length;
    d.dischargeTop = b.height;
    d.economizerX = 0.70 * b.length;
    d.feetFrom = 0.50 * b.length - 0.5 * b.feetLength;
}

void makeTk(Design& d) {
    const Body& b = d.body;
    if (d.serie == "TK-E") {
        d.screwTo = 0.70 * b.length;
        d.economizerX = 0.647 * b.length;
        d.separatorRadius = 0.44 * b.width;
        d.axis = 0.47 * b.height;
        d.dome = 0.13 * b.length;
        d.dischargeX = 0.86 * b.length;
    }
    if (d.serie == "TK-A(V)" || d.serie == "TK-D") {
        d.hasSlideHousing = true;
        d.separatorTo = 0.93 * b.length;
        d.screwTo = 0.765 * b.length;
        d.dischargeX = 0.83 * b.length;
    }
    d.hasConverter = d.serie == "TK-B" || d.serie == "TK-C" || d.serie == "TK-D";
    if (d.hasConverter) {
        d.axis = 0.405 * b.height;
        d.boxFrom = 0.165 * b.length;
        d.boxTo = 0.505 * b.length;
        d.boxTop = b.height;
        d.boxDepth = 0.56 * b.width;
        d.dischargeTop = 0.93 * b.height;
        d.suctionTop = 0.84 * b.height;
    }
}

void makeMv(Design& d) {
    const Body& b = d.body;
    const bool small = d.serie == "MV-J";
    d.ribs = Design::Ribs::none;
    d.feet = small ? Design::Feet::cast : Design::Feet::rails;
    d.axis = 0.47 * b.height;
    d.coverTo = 0.075 * b.length;
    d.motorTo = small ? 0.50 * b.length : 0.46 * b.length;
    d.flangeTo = d.motorTo + 0.045 * b.length;
    d.screwTo = d.flangeTo;  // the separator surrounds the rotors
    d.motorRadius = 0.375 * b.width;
    d.flangeRadius = 0.445 * b.width;
    d.screwRadius = 0.36 * b.width;
    d.separatorRadius = small ? 0.35 * b.width : 0.395 * b.width;
    d.dome = small ? 0.16 * b.length : 0.12 * b.length;
    d.boxFrom = 0.17 * b.length;
    d.boxTo = small ? 0.37 * b.length : 0.35 * b.length;
    d.boxDepth = 0.40 * b.width;
    d.suctionX = 0.415 * b.length;
    if (small) d.suctionX = 0.44 * b.length;
    d.suctionTop = b.height;
    d.dischargeX = 0.80 * b.length;
    d.dischargeTop = 0.965 * b.height;
    d.economizerX = 0.63 * b.length;
    if (d.serie == "MV-A(V)") {
        d.hasSlideHousing = true;
        d.separatorTo = 0.93 * b.length;
        d.dischargeX = 0.76 * b.length;
    }
    if (d.serie == "MV-H") d.separatorRadius = 0.41 * b.width;
}

void makeGh(Design& d) {
    const Body& b = d.body;
    d.separator = Design::Separator::upright;
    d.ribs = d.serie == "GH" ? Design::Ribs::along : Design::Ribs::around;
    d.axis = 0.40 * b.height;
    d.coverTo = 0.085 * b.length;
    d.motorTo = 0.45 * b.length;
    d.flangeTo = 0.49 * b.length;
    d.screwTo = 0.74 * b.length;
    d.motorRadius = 0.335 * b.width;
    d.screwRadius = 0.30 * b.width;
    d.separatorRadius = 0.30 * b.width;
    d.separatorX = b.length - d.separatorRadius;
    d.separatorBottom = 0.055 * b.height;
    d.separatorTop = 0.875 * b.height;
    d.dome = 0.09 * b.height;
    d.boxFrom = 0.17 * b.length;
    d.boxTo = 0.37 * b.length;
    d.boxTop = 0.83 * b.height;
    d.boxDepth = 0.42 * b.width;
    d.suctionTop = 0.78 * b.height;
    d.dischargeX = d.separatorX;
    d.feetFrom = d.separatorX - b.feetLength;
    d.hasInjection = true;
}

void makeDz(Design& d) {
    const Body& b = d.body;
    d.ribs = Design::Ribs::around;
    d.coverTo = 0.085 * b.length;
    d.motorTo = 0.48 * b.length;
    d.flangeTo = 0.52 * b.length;
    d.screwTo = 0.88 * b.length;
    d.screwRadius = 0.385 * b.width;
    d.separatorRadius = 0.29 * b.width;  // an end cover: the oil separator stands elsewhere
    d.separatorTo = b.length - 18;
    d.dome = 0.055 * b.length;
    d.motorRadius = 0.365 * b.width;
    d.boxFrom = 0.15 * b.length;
    d.boxTo = 0.37 * b.length;
    d.dischargeX = 0.80 * b.length;
    d.economizerX = 0.63 * b.length;
    d.suctionX = 0.455 * b.length;
    d.suctionTop = 0.94 * b.height;
}

void makeNl(Design& d) {
    const Body& b = d.body;
    d.openDrive = true;
    d.slideRadius = 0.15 * b.width;
    d.slideDrop = 0.10 * b.width;
    d.ribs = Design::Ribs::none;
    d.axis = 0.46 * b.height;
    d.shaftTo = 0.16 * b.length;
    d.shaftRadius = 0.052 * b.width;
    d.coverTo = 0.16 * b.length;
    d.motorTo = 0.36 * b.length;  // the bearing housing
    d.flangeTo = 0.41 * b.length;
    d.screwTo = 0.79 * b.length;
    d.motorRadius = 0.23 * b.width;
    d.flangeRadius = 0.43 * b.width;
    d.screwRadius = 0.37 * b.width;
    d.separatorRadius = 0.32 * b.width;
    d.separatorTo = 0.90 * b.length;
    d.dome = 0.04 * b.length;
    d.hasSlideHousing = true;
    d.suctionX = 0.535 * b.length;
    d.suctionTop = b.height;
    d.dischargeX = 0.845 * b.length;
    d.dischargeTop = 0.94 * b.height;
    d.feetFrom = 0.325 * b.length;
    d.hasInjection = true;
}

}  // namespace

Design designOf(const std::string& serie, const Body& body) {
    Design d;
    d.serie = serie;
    d.body = body;
    d.accent = accentOf(serie);
    d.hasEconomizer = !body.economizer.empty();
    d.suctionRadius = connectionDiameter(body.suction) / 2;
    d.dischargeRadius = connectionDiameter(body.discharge) / 2;
    d.economizerRadius = connectionDiameter(body.economizer) / 2;
    layOut(d);
    if (startsWith(serie, "TK"))
        makeTk(d);
    else if (startsWith(serie, "MV"))
        makeMv(d);
    else if (startsWith(serie, "GH"))
        makeGh(d);
    else if (startsWith(serie, "DZ"))
        makeDz(d);
    else if (startsWith(serie, "NL"))
        makeNl(d);
    else
        throw std::runtime_error("It is not known how a compressor of the series " + serie + " is built.");
    return d;
}

double connectionDiameter(const std::string& text) {
    if (text.empty()) return 0;
    static const std::map<int, double> steelPipes{{100, 114.3}, {125, 139.7}};  // ISO 4200
    static const std::regex inches(R"re((?:(\d) )?(\d)/([1-9])")re"), nominal(R"(DN (\d+))");
    std::smatch part;
    if (std::regex_match(text, part, inches)) {
        const double whole = part[1].matched ? std::stoi(part[1]) : 0;
        return 25.4 * (whole + std::stoi(part[2]) / static_cast<double>(std::stoi(part[3])));
    }
    if (std::regex_match(text, part, nominal)) {
        const auto pipe = steelPipes.find(std::stoi(part[1]));
        if (pipe != steelPipes.end()) return pipe->second;
    }
    throw std::runtime_error("\"" + text + "\" is no size of a connection.");
}

}  // namespace marvello::pictures
