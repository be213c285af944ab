#include "demo/pictures/Machine.h"

namespace marvello::pictures {

void assemble(Scene& scene, const Design& design) {
    if (design.openDrive)
        assemblies::bearingHousing(scene, design);
    else
        assemblies::motor(scene, design);
    assemblies::mainFlange(scene, design);
    assemblies::rotorHousing(scene, design);
    if (design.separator == Design::Separator::upright)
        assemblies::uprightSeparator(scene, design);
    else if (design.openDrive)
        assemblies::dischargeCover(scene, design);
    else
        assemblies::lyingSeparator(scene, design);
    assemblies::connections(scene, design);
    if (design.feet == Design::Feet::cast)
        assemblies::castFeet(scene, design);
    else
        assemblies::rails(scene, design);
    if (design.hasConverter)
        assemblies::converter(scene, design);
    else if (!design.openDrive)
        assemblies::terminalBox(scene, design);
}

Scene machineOf(const Design& design) {
    Scene scene;
    assemble(scene, design);
    assemblies::marks(scene, design);
    scene.finish();
    return scene;
}

View viewOf(const Design& design) {
    View view;
    if (design.openDrive) view.around = -36;
    if (design.separator == Design::Separator::upright) view.around = 24;
    return view;
}

}  // namespace marvello::pictures
