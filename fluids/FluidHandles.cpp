#include "fluids/FluidHandles.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <exception>
#include <filesystem>
#include <initializer_list>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "fluids/PropertyError.h"
#include "fluids/PropertyLibrary.h"
#include "fluids/StateArrays.h"
#include "platform/Places.h"

struct FluidHandle {
    marvello::fluids::PropertyLibrary library;
};

namespace {

using marvello::FluidStateArrays;
using marvello::fluids::Fault;
using marvello::fluids::Flash;
using marvello::fluids::FluidState;
using marvello::fluids::maxComponents;
using marvello::fluids::PerComponent;
using marvello::fluids::PhaseLanes;
using marvello::fluids::Property;
using marvello::fluids::PropertyError;
using marvello::fluids::PropertyLibrary;
using marvello::fluids::StateArrays;
using Side = marvello::fluids::PhaseBoundary::Side;
using marvello::fluids::SaturationPoint;
using marvello::fluids::undefined;

/// A text of at most `length` characters, up to a NUL and without blanks at its end.
std::string readText(const char* buffer, std::int32_t length) {
    std::string_view text(buffer, static_cast<std::size_t>(std::max(length, 0)));
    text = text.substr(0, text.find('\0'));
    const std::size_t last = text.find_last_not_of(' ');
    return std::string(text.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

/// Where an error goes.
struct Report {
    std::int32_t* code;
    char* text;
    std::int32_t length;

    void set(std::int32_t fault, std::string_view sentence) const {
        *code = fault;
        const auto room = static_cast<std::size_t>(std::max(length, 0));
        const std::size_t used = std::min(room, sentence.size());
        if (used > 0) std::memcpy(text, sentence.data(), used);
        std::fill(text + used, text + room, ' ');
    }
};

/// The numbers that a function gives back: single ones and arrays of fractions.
struct Outputs {
    std::initializer_list<double*> numbers;
    std::initializer_list<double*> fractions;

    void clear() const {
        for (double* number : numbers) *number = undefined;
        for (double* array : fractions) std::fill(array, array + maxComponents, undefined);
    }
};

/// Runs `action` on the library of a handle; whatever it throws becomes an error code and undefined outputs.
template <class Action>
void guarded(FluidHandle* handle, const Report& report, const Outputs& outputs, Action action) noexcept {
    const auto fail = [&](Fault fault, std::string_view text) {
        report.set(static_cast<std::int32_t>(fault), text);
        outputs.clear();
    };
    try {
        report.set(0, "");
        if (handle == nullptr) throw PropertyError(Fault::notSetUp, "No fluid has been set up.");
        action(handle->library);
        for (const double* number : outputs.numbers) {
            if (!std::isfinite(*number))
                throw PropertyError(Fault::noConvergence, "The state has no finite properties.");
        }
    } catch (const PropertyError& error) {
        fail(error.fault(), error.what());
    } catch (const std::exception& error) {
        fail(Fault::internalFailure, error.what());
    } catch (...) {
        fail(Fault::internalFailure, "The property library failed.");
    }
}

double finite(double value, const char* what) {
    if (!std::isfinite(value)) {
        throw PropertyError(Fault::badArgument, std::string("The ") + what + " is not a finite number.");
    }
    return value;
}

Side sideOf(std::int32_t kph) {
    if (kph != 1 && kph != 2) {
        throw PropertyError(Fault::badArgument,
                            "The phase flag is " + std::to_string(kph) + ", not 1 (bubble) or 2 (dew).");
    }
    return kph == 1 ? Side::bubble : Side::dew;
}

void deliverCompositions(const PropertyLibrary& library, const PerComponent& logK, double share, double* x,
                         double* y) {
    library.compositions(logK, share, {x, maxComponents}, {y, maxComponents});
}

void deliverSaturation(const PropertyLibrary& library, const SaturationPoint& point, Side side, double* Dl,
                       double* Dv, double* xliq, double* xvap) {
    *Dl = point.liquidDensity;
    *Dv = point.vapourDensity;
    deliverCompositions(library, point.logK, side == Side::bubble ? 0 : 1, xliq, xvap);
}

/// Where the outputs common to all flashes go.
struct FlashOutputs {
    double *D, *Dl, *Dv;
    double *x, *y;  ///< both or neither
    double *q, *e, *cv, *cp, *w;

    void deliver(const PropertyLibrary& library, const FluidState& state) const {
        *D = state.density;
        *Dl = state.liquidDensity;
        *Dv = state.vapourDensity;
        if (x != nullptr) deliverCompositions(library, state.logK, state.quality, x, y);
        *q = state.quality;
        *e = state.energy;
        *cv = state.cv;
        *cp = state.cp;
        *w = state.soundSpeed;
    }
};

/// The current folder first, then the one that holds this library.
std::vector<std::filesystem::path> fluidFolders() {
    std::vector<std::filesystem::path> folders{"."};
    const auto library = marvello::fileWith(reinterpret_cast<const void*>(&FLUIDHANDLESdll));
    if (!library.empty()) folders.push_back(library.parent_path());
    return folders;
}

std::vector<std::string> fileNames(const std::string& joined, std::int32_t count) {
    if (count < 1 || count > static_cast<std::int32_t>(maxComponents)) {
        throw PropertyError(Fault::badArgument,
                            "The number of components is " + std::to_string(count) + ", not 1 to 20.");
    }
    std::vector<std::string> names;
    for (std::size_t from = 0; names.size() < static_cast<std::size_t>(count);) {
        const std::size_t end = std::min(joined.find('|', from), joined.size());
        names.push_back(joined.substr(from, end - from));
        if (names.back().empty()) {
            throw PropertyError(Fault::badArgument, "File name " + std::to_string(names.size()) + " of " +
                                                        std::to_string(count) + " is missing.");
        }
        from = std::min(end + 1, joined.size());
    }
    return names;
}

void setUp(FluidHandle* handle, const std::int32_t* nc, const char* hfiles, const char* hfmix,
           const char* hrf, std::int32_t* ierr, char* herr, std::int32_t filesLength, std::int32_t mixLength,
           std::int32_t referenceLength, std::int32_t errorLength) {
    guarded(handle, {ierr, herr, errorLength}, {}, [&](PropertyLibrary& library) {
        library = PropertyLibrary();
        library.setUp(
            {fileNames(readText(hfiles, filesLength), *nc), readText(hfmix, mixLength), fluidFolders()},
            readText(hrf, referenceLength));
    });
}

void setReference(FluidHandle* handle, const char* hrf, const std::int32_t* ixflag, const double* x0,
                  const double* /*h0*/, const double* /*s0*/, const double* /*t0*/, const double* /*p0*/,
                  std::int32_t* ierr, char* herr, std::int32_t referenceLength, std::int32_t errorLength) {
    guarded(handle, {ierr, herr, errorLength}, {}, [&](PropertyLibrary& library) {
        if (*ixflag != 1 && *ixflag != 2) {
            throw PropertyError(Fault::badArgument,
                                "The reference flag is " + std::to_string(*ixflag) + ", not 1 or 2.");
        }
        const std::string reference = readText(hrf, referenceLength);
        if (*ixflag == 1 || library.componentCount() == 1) {
            library.setReferenceOfComponents(reference);
        } else {
            library.setReferenceOfMixture(reference, {x0, library.componentCount()});
        }
    });
}

void moleFractions(FluidHandle* handle, const double* xkg, double* xmol, double* wmix) {
    std::int32_t code = 0;
    guarded(handle, {&code, nullptr, 0}, {{wmix}, {xmol}}, [&](PropertyLibrary& library) {
        const std::size_t count = library.componentCount();
        *wmix = library.moleFractions({xkg, count}, {xmol, count});
        std::fill(xmol + count, xmol + maxComponents, 0.0);
    });
}

void molarMass(FluidHandle* handle, const double* x, double* wm) {
    std::int32_t code = 0;
    guarded(handle, {&code, nullptr, 0}, {{wm}, {}},
            [&](PropertyLibrary& library) { *wm = library.molarMass({x, library.componentCount()}); });
}

void saturationAtT(FluidHandle* handle, const double* t, const double* x, const std::int32_t* kph, double* p,
                   double* Dl, double* Dv, double* xliq, double* xvap, std::int32_t* ierr, char* herr,
                   std::int32_t errorLength) {
    guarded(handle, {ierr, herr, errorLength}, {{p, Dl, Dv}, {xliq, xvap}}, [&](PropertyLibrary& library) {
        const Side side = sideOf(*kph);
        const SaturationPoint point =
            library.flash(x).saturationAtTemperature(finite(*t, "temperature"), side);
        *p = point.pressure;
        deliverSaturation(library, point, side, Dl, Dv, xliq, xvap);
    });
}

void saturationAtP(FluidHandle* handle, const double* p, const double* x, const std::int32_t* kph, double* t,
                   double* Dl, double* Dv, double* xliq, double* xvap, std::int32_t* ierr, char* herr,
                   std::int32_t errorLength) {
    guarded(handle, {ierr, herr, errorLength}, {{t, Dl, Dv}, {xliq, xvap}}, [&](PropertyLibrary& library) {
        const Side side = sideOf(*kph);
        const SaturationPoint point = library.flash(x).saturationAtPressure(finite(*p, "pressure"), side);
        *t = point.temperature;
        deliverSaturation(library, point, side, Dl, Dv, xliq, xvap);
    });
}

void atTP(FluidHandle* handle, const double* t, const double* p, const double* z, double* D, double* Dl,
          double* Dv, double* x, double* y, double* q, double* e, double* h, double* s, double* cv,
          double* cp, double* w, std::int32_t* ierr, char* herr, std::int32_t errorLength) {
    guarded(handle, {ierr, herr, errorLength}, {{D, Dl, Dv, q, e, h, s, cv, cp, w}, {x, y}},
            [&](PropertyLibrary& library) {
                const FluidState state =
                    library.flash(z).atTemperaturePressure(finite(*t, "temperature"), finite(*p, "pressure"));
                *h = state.enthalpy;
                *s = state.entropy;
                FlashOutputs{D, Dl, Dv, x, y, q, e, cv, cp, w}.deliver(library, state);
            });
}

void atTS(FluidHandle* handle, const double* t, const double* s, const double* z, const std::int32_t* /*kr*/,
          double* p, double* D, double* Dl, double* Dv, double* x, double* y, double* q, double* e, double* h,
          double* cv, double* cp, double* w, std::int32_t* ierr, char* herr, std::int32_t errorLength) {
    guarded(handle, {ierr, herr, errorLength}, {{p, D, Dl, Dv, q, e, h, cv, cp, w}, {x, y}},
            [&](PropertyLibrary& library) {
                const FluidState state =
                    library.flash(z).atTemperatureEntropy(finite(*t, "temperature"), finite(*s, "entropy"));
                *p = state.pressure;
                *h = state.enthalpy;
                FlashOutputs{D, Dl, Dv, x, y, q, e, cv, cp, w}.deliver(library, state);
            });
}

void atPH(FluidHandle* handle, const double* p, const double* h, const double* z, double* t, double* D,
          double* Dl, double* Dv, double* x, double* y, double* q, double* e, double* s, double* cv,
          double* cp, double* w, std::int32_t* ierr, char* herr, std::int32_t errorLength) {
    guarded(handle, {ierr, herr, errorLength}, {{t, D, Dl, Dv, q, e, s, cv, cp, w}, {x, y}},
            [&](PropertyLibrary& library) {
                const FluidState state =
                    library.flash(z).atPressureEnthalpy(finite(*p, "pressure"), finite(*h, "enthalpy"));
                *t = state.temperature;
                *s = state.entropy;
                FlashOutputs{D, Dl, Dv, x, y, q, e, cv, cp, w}.deliver(library, state);
            });
}

void atPS(FluidHandle* handle, const double* p, const double* s, const double* z, double* t, double* D,
          double* Dl, double* Dv, double* x, double* y, double* q, double* e, double* h, double* cv,
          double* cp, double* w, std::int32_t* ierr, char* herr, std::int32_t errorLength) {
    guarded(handle, {ierr, herr, errorLength}, {{t, D, Dl, Dv, q, e, h, cv, cp, w}, {x, y}},
            [&](PropertyLibrary& library) {
                const FluidState state =
                    library.flash(z).atPressureEntropy(finite(*p, "pressure"), finite(*s, "entropy"));
                *t = state.temperature;
                *h = state.enthalpy;
                FlashOutputs{D, Dl, Dv, x, y, q, e, cv, cp, w}.deliver(library, state);
            });
}

/// Writes what an array call finds, and makes single calls of the others.
class ArraySink : public StateArrays::Sink {
  public:
    struct Inputs {
        Property property;
        const double* pressures;
        const double* values;
        const double* fractions;
    };

    ArraySink(FluidHandle* handle, const Inputs& inputs, const FluidStateArrays& to)
        : handle_(handle), in_(inputs), to_(to) {}

    void use(const Flash& flash) { flash_ = &flash; }

    void take(std::size_t i, const PhaseLanes& states, std::size_t lane) override {
        const FluidState state = flash_->laneState(states, lane);
        to_.t[i] = state.temperature;
        to_.p[i] = state.pressure;
        to_.h[i] = state.enthalpy;
        to_.s[i] = state.entropy;
        to_.ierr[i] = 0;
        at(i).deliver(handle_->library, state);
    }

    void leave(std::size_t i) override {
        FlashOutputs o = at(i);
        if (o.x == nullptr) o.x = o.y = unwanted_.data();
        const double* p = in_.pressures + i;
        const double* value = in_.values + i;
        const double* z = in_.fractions;
        double* t = to_.t + i;
        double* h = to_.h + i;
        double* s = to_.s + i;
        std::int32_t* code = to_.ierr + i;
        to_.p[i] = *p;
        switch (in_.property) {
            case Property::temperature:
                *t = *value;
                return atTP(handle_, value, p, z, o.D, o.Dl, o.Dv, o.x, o.y, o.q, o.e, h, s, o.cv, o.cp, o.w,
                            code, nullptr, 0);
            case Property::enthalpy:
                *h = *value;
                return atPH(handle_, p, value, z, t, o.D, o.Dl, o.Dv, o.x, o.y, o.q, o.e, s, o.cv, o.cp, o.w,
                            code, nullptr, 0);
            case Property::entropy:
                *s = *value;
                return atPS(handle_, p, value, z, t, o.D, o.Dl, o.Dv, o.x, o.y, o.q, o.e, h, o.cv, o.cp, o.w,
                            code, nullptr, 0);
        }
    }

  private:
    FlashOutputs at(std::size_t i) {
        double* x = to_.x == nullptr ? nullptr : to_.x + i * maxComponents;
        double* y = to_.x == nullptr ? nullptr : to_.y + i * maxComponents;
        return {to_.D + i, to_.Dl + i, to_.Dv + i, x,          y,
                to_.q + i, to_.e + i,  to_.cv + i, to_.cp + i, to_.w + i};
    }

    FluidHandle* handle_;
    Inputs in_;
    FluidStateArrays to_;
    const Flash* flash_ = nullptr;
    PerComponent unwanted_{};
};

void findStates(FluidHandle* handle, std::int32_t count, const ArraySink::Inputs& in,
                const FluidStateArrays& to) {
    const auto size = static_cast<std::size_t>(std::max(count, 0));
    ArraySink sink(handle, in, to);
    std::int32_t code = 0;
    guarded(handle, {&code, nullptr, 0}, {}, [&](PropertyLibrary& library) {
        const Flash& flash = library.flash(in.fractions);
        sink.use(flash);
        const double zero = in.property == Property::enthalpy  ? flash.shift().enthalpy
                            : in.property == Property::entropy ? flash.shift().entropy
                                                               : 0;
        StateArrays(flash.fluid(), sink).find(in.property, {in.pressures, size}, {in.values, size}, zero);
    });
    // Without a set-up each is left, and says why.
    for (std::size_t i = 0; code != 0 && i < size; ++i) sink.leave(i);
}

void statesAtTP(FluidHandle* handle, std::int32_t count, const double* t, const double* p, const double* z,
                const FluidStateArrays* to) {
    findStates(handle, count, {Property::temperature, p, t, z}, *to);
}

void statesAtPH(FluidHandle* handle, std::int32_t count, const double* p, const double* h, const double* z,
                const FluidStateArrays* to) {
    findStates(handle, count, {Property::enthalpy, p, h, z}, *to);
}

void statesAtPS(FluidHandle* handle, std::int32_t count, const double* p, const double* s, const double* z,
                const FluidStateArrays* to) {
    findStates(handle, count, {Property::entropy, p, s, z}, *to);
}

}  // namespace

extern "C" [[gnu::visibility("default")]] const marvello::FluidHandleFunctions* FLUIDHANDLESdll() {
    static constexpr marvello::FluidHandleFunctions functions{marvello::fluidHandlesVersion,
                                                              [] { return new (std::nothrow) FluidHandle; },
                                                              [](FluidHandle* handle) { delete handle; },
                                                              setUp,
                                                              setReference,
                                                              moleFractions,
                                                              molarMass,
                                                              saturationAtT,
                                                              saturationAtP,
                                                              atTP,
                                                              atTS,
                                                              atPH,
                                                              atPS,
                                                              statesAtTP,
                                                              statesAtPH,
                                                              statesAtPS};
    return &functions;
}
