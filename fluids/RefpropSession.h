#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "fluids/Refprop.h"

namespace marvello {

/// Expands `use` with the name of each function of fluids/Refprop.h.
#define MARVELLO_FOR_EACH_REFPROP_FUNCTION(use)                                                      \
    use(SETUPdll) use(SETREFdll) use(XMOLEdll) use(WMOLdll) use(SATTdll) use(SATPdll) use(TPFLSHdll) \
        use(TSFLSHdll) use(PHFLSHdll) use(PSFLSHdll)

/// The functions of fluids/Refprop.h, of whichever library has them.
struct RefpropFunctions {
#define MARVELLO_MEMBER(name) decltype(&::name) name;
    MARVELLO_FOR_EACH_REFPROP_FUNCTION(MARVELLO_MEMBER)
#undef MARVELLO_MEMBER
};

/// Returns the functions of the library that the program is linked with.
inline const RefpropFunctions& linkedRefprop() {
#define MARVELLO_ADDRESS(name) &::name,
    static const RefpropFunctions functions{MARVELLO_FOR_EACH_REFPROP_FUNCTION(MARVELLO_ADDRESS)};
#undef MARVELLO_ADDRESS
    return functions;
}

/// What the library says of a call: 0 and no sentence if all went well.
struct RefpropAnswer {
    std::int32_t code = 0;
    std::string sentence{};
};

/// The numbers of a state, in K, kPa, mol/dm^3, J/mol, J/(mol K), m/s, and what the library says of them.
struct RefpropState {
    double t = 0, p = 0, D = 0, Dl = 0, Dv = 0, q = 0, e = 0, h = 0, s = 0, cv = 0, cp = 0, w = 0;
    RefpropAnswer answer{};
};

/// A property library set up for one refrigerant: the one place that knows its buffers and their lengths. The
/// library keeps one set-up for the process, so a session ends when another one sets up.
///
/// A call returns `before` with the numbers that the library wrote; it does not write its inputs.
class RefpropSession {
  public:
    static constexpr std::size_t maximumComponents = 20;
    static constexpr std::int32_t usualErrorLength = 255;
    using Fractions = std::array<double, maximumComponents>;

    /// The functions have to outlive the session.
    explicit RefpropSession(const RefpropFunctions& library) : library_(&library) {}

    /// Loads the fluids, at most 20, and sets composition and reference state, which for a blend is its own.
    /// Returns the first error; later steps run all the same.
    RefpropAnswer setUp(const std::vector<std::string>& files, const std::vector<double>& massFractions,
                        const std::string& folder = "Fluids/", const std::string& reference = "DEF");

    double molarMass() const { return molarMass_; }  ///< Of the set-up, g/mol.

    // The steps of a set-up. `files` are joined with "|".
    RefpropAnswer load(const std::string& files, std::int32_t count, const std::string& mixtures,
                       const std::string& reference);
    /// Sets the composition by mass. Returns the molar mass in g/mol.
    double useMassFractions(const std::vector<double>& massFractions);
    /// `flag` is 1 for the components and 2 for the mixture.
    RefpropAnswer setReference(const std::string& reference, std::int32_t flag);

    void useFractions(const Fractions& moles) { z_ = moles; }
    const Fractions& fractions() const { return z_; }  ///< Of the whole, in moles.
    const Fractions& liquid() const { return x_; }     ///< Of the last state.
    const Fractions& vapour() const { return y_; }

    /// `side` is 1 for the bubble and 2 for the dew point.
    RefpropState saturationAtT(double t, std::int32_t side, RefpropState before = {});
    RefpropState saturationAtP(double p, std::int32_t side, RefpropState before = {});
    RefpropState atTP(double t, double p, RefpropState before = {});
    RefpropState atTS(double t, double s, RefpropState before = {});
    RefpropState atPH(double p, double h, RefpropState before = {},
                      std::int32_t errorLength = usualErrorLength);
    RefpropState atPS(double p, double s, RefpropState before = {});

  private:
    RefpropAnswer answer(std::int32_t code) const;

    const RefpropFunctions* library_;
    Fractions z_{1.0}, x_{}, y_{};
    double molarMass_ = 0;
    std::array<char, usualErrorLength> herr_{};
};

}  // namespace marvello
