#pragma once

#include <cstdint>

/// The functions of the property library, as any program calls them.
///
/// Units: K, kPa, mol/dm^3, J/mol, J/(mol K), m/s, g/mol. Every argument goes by pointer; the lengths of the
/// text buffers come at the end, by value. Texts are fixed-length buffers that end at their length or at a
/// NUL. Arrays of fractions hold 20 numbers.
///
/// `ierr` is 0 or a number of fluids/PropertyError.h, and `herr` then holds one sentence, padded with blanks;
/// after a failure every number asked for is -9999990. These functions share one set-up in the process and
/// are to be called from one thread at a time; fluids/FluidHandles.h has the same with set-ups of one's own.
///
/// Outputs of a flash: overall density D, densities Dl and Dv of liquid and vapour (both D in one phase),
/// compositions x and y of liquid and vapour, quality q in moles (in one phase -998 liquid, 998 vapour, 999
/// supercritical), internal energy e, enthalpy h, entropy s, heat capacities cv and cp and speed of sound w
/// (-9999990 in two phases).
extern "C" {

/// Loads `nc` fluids whose file names are in `hfiles`, separated by '|'. `hrf` is the reference state: DEF
/// (the fluid's usual one), IIR, NBP or ASH. Lengths: hfiles, hfmix, hrf, herr.
void SETUPdll(const std::int32_t* nc, const char* hfiles, const char* hfmix, const char* hrf,
              std::int32_t* ierr, char* herr, std::int32_t filesLength, std::int32_t mixLength,
              std::int32_t referenceLength, std::int32_t errorLength);

/// Chooses the reference state; `ixflag` 1 is of the components, 2 of the mixture. `x0` to `p0` are not used.
void SETREFdll(const char* hrf, const std::int32_t* ixflag, const double* x0, const double* h0,
               const double* s0, const double* t0, const double* p0, std::int32_t* ierr, char* herr,
               std::int32_t referenceLength, std::int32_t errorLength);

/// Mole fractions and molar mass from mass fractions.
void XMOLEdll(const double* xkg, double* xmol, double* wmix);

/// Molar mass from mole fractions.
void WMOLdll(const double* x, double* wm);

/// Saturation at a temperature; `kph` 1 is the bubble point, 2 the dew point.
void SATTdll(const double* t, const double* x, const std::int32_t* kph, double* p, double* Dl, double* Dv,
             double* xliq, double* xvap, std::int32_t* ierr, char* herr, std::int32_t errorLength);

/// Saturation at a pressure.
void SATPdll(const double* p, const double* x, const std::int32_t* kph, double* t, double* Dl, double* Dv,
             double* xliq, double* xvap, std::int32_t* ierr, char* herr, std::int32_t errorLength);

/// The state at temperature and pressure. On the saturation line of a pure fluid it is saturated vapour.
void TPFLSHdll(const double* t, const double* p, const double* z, double* D, double* Dl, double* Dv,
               double* x, double* y, double* q, double* e, double* h, double* s, double* cv, double* cp,
               double* w, std::int32_t* ierr, char* herr, std::int32_t errorLength);

/// The state at temperature and entropy. The root flag `kr` is not looked at: there is one root.
void TSFLSHdll(const double* t, const double* s, const double* z, const std::int32_t* kr, double* p,
               double* D, double* Dl, double* Dv, double* x, double* y, double* q, double* e, double* h,
               double* cv, double* cp, double* w, std::int32_t* ierr, char* herr, std::int32_t errorLength);

/// The state at pressure and enthalpy.
void PHFLSHdll(const double* p, const double* h, const double* z, double* t, double* D, double* Dl,
               double* Dv, double* x, double* y, double* q, double* e, double* s, double* cv, double* cp,
               double* w, std::int32_t* ierr, char* herr, std::int32_t errorLength);

/// The state at pressure and entropy.
void PSFLSHdll(const double* p, const double* s, const double* z, double* t, double* D, double* Dl,
               double* Dv, double* x, double* y, double* q, double* e, double* h, double* cv, double* cp,
               double* w, std::int32_t* ierr, char* herr, std::int32_t errorLength);
}
