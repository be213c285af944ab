#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace marvello {

/// The fluid library's file is missing or lacks a function.
class FluidLibraryError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The exported functions of the fluid library with their published argument lists: everything by pointer,
/// composition arrays of 20, texts of fixed length, and the lengths of the texts by value at the end.
/// Units: K, kPa, mol/dm^3, J/mol, J/mol-K, m/s, g/mol.
struct RefpropFunctions {
    using Integer = std::int32_t;
    using Length = std::int32_t;
    using Number = double*;
    using Composition = double*;
    using Text = char*;

    void (*SETUPdll)(Integer* nc, Text hfiles, Text hfmix, Text hrf, Integer* ierr, Text herr, Length files,
                     Length mix, Length reference, Length error);
    void (*SETREFdll)(Text hrf, Integer* ixflag, Composition z, Number h0, Number s0, Number t0, Number p0,
                      Integer* ierr, Text herr, Length reference, Length error);
    void (*XMOLEdll)(Composition xkg, Composition z, Number wm);
    void (*WMOLdll)(Composition z, Number wm);
    void (*SATTdll)(Number t, Composition z, Integer* kph, Number p, Number dl, Number dv, Composition x,
                    Composition y, Integer* ierr, Text herr, Length error);
    void (*SATPdll)(Number p, Composition z, Integer* kph, Number t, Number dl, Number dv, Composition x,
                    Composition y, Integer* ierr, Text herr, Length error);
    void (*TPFLSHdll)(Number t, Number p, Composition z, Number d, Number dl, Number dv, Composition x,
                      Composition y, Number q, Number e, Number h, Number s, Number cv, Number cp, Number w,
                      Integer* ierr, Text herr, Length error);
    void (*TSFLSHdll)(Number t, Number s, Composition z, Integer* kr, Number p, Number d, Number dl,
                      Number dv, Composition x, Composition y, Number q, Number e, Number h, Number cv,
                      Number cp, Number w, Integer* ierr, Text herr, Length error);
    void (*PHFLSHdll)(Number p, Number h, Composition z, Number t, Number d, Number dl, Number dv,
                      Composition x, Composition y, Number q, Number e, Number s, Number cv, Number cp,
                      Number w, Integer* ierr, Text herr, Length error);
    void (*PSFLSHdll)(Number p, Number s, Composition z, Number t, Number d, Number dl, Number dv,
                      Composition x, Composition y, Number q, Number e, Number h, Number cv, Number cp,
                      Number w, Integer* ierr, Text herr, Length error);
};

/// The functions of the library file `Refprop` in the application folder, loaded at the first call and again
/// after the application folder was changed. Raises FluidLibraryError.
const RefpropFunctions& refpropFunctions();

}  // namespace marvello
