#include "fluids/FluidCache.h"

#include "fluids/FluidFile.h"
#include "fluids/FluidPath.h"
#include "fluids/JsonField.h"
#include "fluids/MixtureFile.h"
#include "fluids/PropertyError.h"

namespace marvello::fluids {
namespace {

FluidText find(const std::string& name, const char* what, const std::vector<std::filesystem::path>& folders) {
    const std::filesystem::path path = findFluidFile(name, folders);
    if (path.empty()) {
        throw PropertyError(Fault::fluidFile, std::string("There is no ") + what + " file \"" + name + "\".");
    }
    return readFluidText(path);
}

/// Of the texts of the fluids and, for more than one, of the mixture at the end.
std::shared_ptr<const Mixture> read(const std::vector<FluidText>& texts) {
    if (texts.size() == 1) {
        const PureFluid fluid = readFluidFile(texts.front());
        return std::make_shared<const Mixture>(Mixture{{fluid}, {}, fluid.gasConstant});
    }
    std::vector<PureFluid> components;
    std::vector<std::string> names;
    for (std::size_t i = 0; i + 1 < texts.size(); ++i) {
        components.push_back(readFluidFile(texts[i]));
        names.push_back(components.back().name);
    }
    MixtureModel model = readMixtureFile(texts.back(), names);
    return std::make_shared<const Mixture>(std::move(components), std::move(model.pairs), model.gasConstant);
}

}  // namespace

FluidCache& FluidCache::ofProcess() {
    static FluidCache cache;
    return cache;
}

std::shared_ptr<const Mixture> FluidCache::mixture(const FluidFiles& files) {
    std::vector<FluidText> texts;
    for (const std::string& name : files.fluids) texts.push_back(find(name, "fluid", files.folders));
    if (files.fluids.size() > 1) texts.push_back(find(files.mixture, "mixture", files.folders));
    std::vector<std::string> key;
    for (const FluidText& text : texts) key.push_back(text.text);
    return mixtures_.get(key, [&] { return read(texts); });
}

std::shared_ptr<const FluidModel> FluidCache::fluid(const std::shared_ptr<const Mixture>& mixture,
                                                    const Composition& composition) {
    return fluids_.get({mixture, composition}, [&] {
        return std::make_shared<const FluidModel>(mixture->reduced(composition.kept), composition.fractions);
    });
}

}  // namespace marvello::fluids
