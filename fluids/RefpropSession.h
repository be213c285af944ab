#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "fluids/FluidHandles.h"

namespace marvello {

/// Expands `use` with the name of each function of fluids/Refprop.h.
#define MARVELLO_FOR_EACH_REFPROP_FUNCTION(use)                                                      \
    use(SETUPdll) use(SETREFdll) use(XMOLEdll) use(WMOLdll) use(SATTdll) use(SATPdll) use(TPFLSHdll) \
        use(TSFLSHdll) use(PHFLSHdll) use(PSFLSHdll)

/// The functions of fluids/Refprop.h, of whichever library has them, and those with handles if it has them.
struct RefpropFunctions {
#define MARVELLO_MEMBER(name) decltype(&::name) name;
    MARVELLO_FOR_EACH_REFPROP_FUNCTION(MARVELLO_MEMBER)
#undef MARVELLO_MEMBER
    const FluidHandleFunctions* handles = nullptr;
};

/// Functions whose library stays loaded as long as they are held.
using SharedRefpropFunctions = std::shared_ptr<const RefpropFunctions>;

/// Returns the functions of the library that the program is linked with.
inline const SharedRefpropFunctions& linkedRefprop() {
#define MARVELLO_ADDRESS(name) &::name,
    static const auto functions = std::make_shared<const RefpropFunctions>(
        RefpropFunctions{MARVELLO_FOR_EACH_REFPROP_FUNCTION(MARVELLO_ADDRESS) FLUIDHANDLESdll()});
#undef MARVELLO_ADDRESS
    return functions;
}

/// What the library says of a call: 0 and no sentence if all went well. A copy copies no text.
struct RefpropAnswer {
    std::int32_t code = 0;
    std::shared_ptr<const std::string> text{};

    const std::string& sentence() const;
};

/// The numbers of a state, in K, kPa, mol/dm^3, J/mol, J/(mol K), m/s, and what the library says of them.
struct RefpropState {
    double t = 0, p = 0, D = 0, Dl = 0, Dv = 0, q = 0, e = 0, h = 0, s = 0, cv = 0, cp = 0, w = 0;
    RefpropAnswer answer{};
};

/// The numbers of many states as those of RefpropState, and the code of each: 0 if all went well.
struct RefpropStates {
    std::vector<double> t, p, D, Dl, Dv, q, e, h, s, cv, cp, w;
    std::vector<std::int32_t> code;

    void resize(std::size_t count);
};

/// A property library set up for one refrigerant: the one place that knows its buffers and their lengths. For
/// one thread at a time; different sessions may be used in different threads at the same time.
///
/// In a library with handles each session has its own, and the threads run next to each other. One that has
/// the ten functions alone keeps one set-up for the process: the calls of all sessions take turns under one
/// lock, and a session that finds the set-up of another in the library sets up anew first. Results are the
/// same.
///
/// A call returns `before` with the numbers that the library wrote; it does not write its inputs.
class RefpropSession {
  public:
    static constexpr std::size_t maximumComponents = 20;
    static constexpr std::int32_t usualErrorLength = 255;
    using Fractions = std::array<double, maximumComponents>;

    /// Throws std::bad_alloc.
    explicit RefpropSession(SharedRefpropFunctions library);

    /// Whether the calls of this session run next to those of others.
    bool isConcurrent() const { return handle_ != nullptr; }

    /// Loads the fluids, at most 20, and sets composition and reference state, which for a blend is its own.
    /// Returns the first error; later steps run all the same.
    RefpropAnswer setUp(const std::vector<std::string>& files, const std::vector<double>& massFractions,
                        const std::string& folder = "Fluids/", const std::string& reference = "DEF");

    double molarMass() const { return molarMass_; }  ///< Of the set-up, g/mol.
    double molarMassOf(const Fractions& moles);      ///< Of any mixture of its fluids, g/mol.

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

    // Many states at once, several times as fast in a library with handles; `to` is made as long as the
    // inputs, of which there are as many of one kind as of the other. The single call has the sentence to a
    // code.
    void statesAtTP(std::span<const double> t, std::span<const double> p, RefpropStates& to);
    void statesAtPH(std::span<const double> p, std::span<const double> h, RefpropStates& to);
    void statesAtPS(std::span<const double> p, std::span<const double> s, RefpropStates& to);

  private:
    /// What a set-up was asked for, to do it again.
    struct Load {
        std::string files;
        std::int32_t count = 0;
        std::string mixtures;
        std::string reference;
    };
    struct Reference {
        std::string reference;
        std::int32_t flag = 0;
        Fractions fractions{};
    };

    /// Calls either function, the one with the session's own handle if it has one.
    template <class... Parameters, class... Arguments>
    void call(void (*RefpropFunctions::*shared)(Parameters...),
              void (*FluidHandleFunctions::*own)(FluidHandle*, Parameters...), Arguments... arguments);
    template <class Single>
    void states(FluidStatesFunction FluidHandleFunctions::* own, Single single, std::span<const double> first,
                std::span<const double> second, RefpropStates& to);
    RefpropAnswer send(const Load& load);
    RefpropAnswer send(const Reference& reference);
    RefpropAnswer answer(std::int32_t code) const;

    SharedRefpropFunctions library_;
    std::unique_ptr<FluidHandle, void (*)(FluidHandle*)> handle_;
    std::uint64_t number_;  ///< among the sessions of the process
    std::optional<Load> load_;
    std::optional<Reference> reference_;
    Fractions z_{1.0}, x_{}, y_{};
    double molarMass_ = 0;
    std::array<char, usualErrorLength> herr_{};
};

}  // namespace marvello
