#include "demo/pictures/Photo.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <fstream>
#include <locale>
#include <stdexcept>
#include <utility>

#include "demo/pictures/Marks.h"

namespace marvello::pictures {

namespace {

/// The measures of a machine, for the scene in scenes/ that builds and lights it.
void writeScene(std::ostream& scene, const Motif& motif) {
    const Design& d = motif.design;
    const bool isUpright = d.separator == Design::Separator::upright;
    const std::pair<const char*, double> measures[]{
        {"StandIn", motif.isStandIn},
        {"L", d.body.length},
        {"W", d.body.width},
        {"H", d.body.height},
        {"FeetWidth", d.body.feetWidth},
        {"FeetFrom", d.feetFrom},
        {"FeetTo", d.feetTo()},
        {"OpenDrive", d.openDrive},
        {"HasConverter", d.hasConverter},
        {"HasEconomizer", d.hasEconomizer},
        {"HasSlideHousing", d.hasSlideHousing},
        {"HasInjection", d.hasInjection},
        {"HasRails", d.feet == Design::Feet::rails},
        {"HasAccent", d.accent != 0},
        {"Upright", isUpright},
        {"Ribs", static_cast<double>(d.ribs)},  // none, along, around
        {"ShowsRotors", d.showsRotors()},
        {"Axis", d.axis},
        {"CoverTo", d.coverTo},
        {"MotorTo", d.motorTo},
        {"FlangeTo", d.flangeTo},
        {"ScrewTo", d.screwTo},
        {"SeparatorTo", d.separatorTo},
        {"SlideTo", d.slideTo},
        {"MotorRadius", d.motorRadius},
        {"MotorRim", d.motorRim()},
        {"FlangeRadius", d.flangeRadius},
        {"ScrewRadius", d.screwRadius},
        {"SeparatorRadius", d.separatorRadius},
        {"SeparatorRim", d.separatorRim()},
        {"SeparatorX", d.separatorX},
        {"SeparatorBottom", d.separatorBottom},
        {"SeparatorTop", d.separatorTop},
        {"SlideRadius", d.slideRadius},
        {"SlideDrop", d.slideDrop},
        {"Dome", d.dome},
        {"ShaftRadius", d.shaftRadius},
        {"Collar", d.collar()},
        {"RibHeight", d.ribHeight()},
        {"BoxFrom", d.boxFrom},
        {"BoxTo", d.boxTo},
        {"BoxTop", d.boxTop},
        {"BoxDepth", d.boxDepth},
        {"SuctionX", d.suctionX},
        {"SuctionTop", d.suctionTop},
        {"SuctionRadius", d.suctionRadius},
        {"DischargeX", d.dischargeX},
        {"DischargeTop", d.dischargeTop},
        {"DischargeRadius", d.dischargeRadius},
        {"EconomizerX", d.economizerX},
        {"EconomizerRadius", d.economizerRadius},
        // From where it shows what it is: degrees from straight ahead towards the discharge end.
        {"Around", d.openDrive ? -36
                   : isUpright ? 24
                               : 33},
    };
    scene.imbue(std::locale::classic());
    scene << "#version 3.7;\nglobal_settings { assumed_gamma 1 }\n";
    for (const auto& [name, value] : measures) scene << "#declare " << name << " = " << value << ";\n";
    scene << "#declare Accent = srgb <" << (d.accent >> 16 & 255) << ", " << (d.accent >> 8 & 255) << ", "
          << (d.accent & 255) << ">/255;\n#include \"machine.inc\"\n#include \"studio.inc\"\n";
}

}  // namespace

void takePhoto(const Motif& motif, const std::filesystem::path& file, QSize size, bool isDraft) {
    const QTemporaryDir folder;
    const auto in = [&](const char* name) { return folder.filePath(QLatin1String(name)); };
    std::ofstream scene(in("machine.pov").toStdString());
    writeScene(scene, motif);
    scene.close();
    if (!scene || !wordMark().save(in("wordmark.png")) ||
        !namePlate(motif.design.serie).save(in("plate.png")) || !converterDisplay().save(in("display.png")))
        throw std::runtime_error("The scene of " + motif.name + " cannot be written.");

    QStringList arguments{"+Imachine.pov", "+Ophoto.png", "+L" MARVELLO_SCENES, "-D", "-GD", "-GR",
                          "-GS",           "+WT1"};
    arguments << QStringLiteral("+W%1").arg(size.width()) << QStringLiteral("+H%1").arg(size.height());
    if (isDraft)
        arguments << "-A";
    else
        arguments << "+A0.15" << "+AM1" << "+R2";
    QProcess povray;
    povray.setWorkingDirectory(folder.path());
    povray.setProcessChannelMode(QProcess::MergedChannels);
    povray.start(QStringLiteral(MARVELLO_POVRAY), arguments);
    povray.waitForFinished(-1);
    const QImage image(in("photo.png"));
    if (povray.exitCode() != 0 || image.isNull())
        throw std::runtime_error("povray, " + motif.name + ": " + povray.errorString().toStdString() + '\n' +
                                 povray.readAll().toStdString());
    if (!image.convertToFormat(QImage::Format_RGB32).save(QString::fromStdString(file.string()), "jpg", 86))
        throw std::runtime_error(file.string() + " cannot be written.");
}

}  // namespace marvello::pictures
