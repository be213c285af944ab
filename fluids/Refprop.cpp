#include "fluids/Refprop.h"

#include <memory>

#include "fluids/FluidHandles.h"

// The functions without a handle use one that the process has for them.

namespace {

const marvello::FluidHandleFunctions& handles = *FLUIDHANDLESdll();

FluidHandle* ofProcess() {
    static const std::unique_ptr<FluidHandle, void (*)(FluidHandle*)> handle(handles.open(), handles.close);
    return handle.get();
}

}  // namespace

extern "C" {

[[gnu::visibility("default")]] void SETUPdll(const std::int32_t* nc, const char* hfiles, const char* hfmix,
                                             const char* hrf, std::int32_t* ierr, char* herr,
                                             std::int32_t filesLength, std::int32_t mixLength,
                                             std::int32_t referenceLength, std::int32_t errorLength) {
    handles.SETUPdll(ofProcess(), nc, hfiles, hfmix, hrf, ierr, herr, filesLength, mixLength, referenceLength,
                     errorLength);
}

[[gnu::visibility("default")]] void SETREFdll(const char* hrf, const std::int32_t* ixflag, const double* x0,
                                              const double* h0, const double* s0, const double* t0,
                                              const double* p0, std::int32_t* ierr, char* herr,
                                              std::int32_t referenceLength, std::int32_t errorLength) {
    handles.SETREFdll(ofProcess(), hrf, ixflag, x0, h0, s0, t0, p0, ierr, herr, referenceLength, errorLength);
}

[[gnu::visibility("default")]] void XMOLEdll(const double* xkg, double* xmol, double* wmix) {
    handles.XMOLEdll(ofProcess(), xkg, xmol, wmix);
}

[[gnu::visibility("default")]] void WMOLdll(const double* x, double* wm) {
    handles.WMOLdll(ofProcess(), x, wm);
}

[[gnu::visibility("default")]] void SATTdll(const double* t, const double* x, const std::int32_t* kph,
                                            double* p, double* Dl, double* Dv, double* xliq, double* xvap,
                                            std::int32_t* ierr, char* herr, std::int32_t errorLength) {
    handles.SATTdll(ofProcess(), t, x, kph, p, Dl, Dv, xliq, xvap, ierr, herr, errorLength);
}

[[gnu::visibility("default")]] void SATPdll(const double* p, const double* x, const std::int32_t* kph,
                                            double* t, double* Dl, double* Dv, double* xliq, double* xvap,
                                            std::int32_t* ierr, char* herr, std::int32_t errorLength) {
    handles.SATPdll(ofProcess(), p, x, kph, t, Dl, Dv, xliq, xvap, ierr, herr, errorLength);
}

[[gnu::visibility("default")]] void TPFLSHdll(const double* t, const double* p, const double* z, double* D,
                                              double* Dl, double* Dv, double* x, double* y, double* q,
                                              double* e, double* h, double* s, double* cv, double* cp,
                                              double* w, std::int32_t* ierr, char* herr,
                                              std::int32_t errorLength) {
    handles.TPFLSHdll(ofProcess(), t, p, z, D, Dl, Dv, x, y, q, e, h, s, cv, cp, w, ierr, herr, errorLength);
}

[[gnu::visibility("default")]] void TSFLSHdll(const double* t, const double* s, const double* z,
                                              const std::int32_t* kr, double* p, double* D, double* Dl,
                                              double* Dv, double* x, double* y, double* q, double* e,
                                              double* h, double* cv, double* cp, double* w,
                                              std::int32_t* ierr, char* herr, std::int32_t errorLength) {
    handles.TSFLSHdll(ofProcess(), t, s, z, kr, p, D, Dl, Dv, x, y, q, e, h, cv, cp, w, ierr, herr,
                      errorLength);
}

[[gnu::visibility("default")]] void PHFLSHdll(const double* p, const double* h, const double* z, double* t,
                                              double* D, double* Dl, double* Dv, double* x, double* y,
                                              double* q, double* e, double* s, double* cv, double* cp,
                                              double* w, std::int32_t* ierr, char* herr,
                                              std::int32_t errorLength) {
    handles.PHFLSHdll(ofProcess(), p, h, z, t, D, Dl, Dv, x, y, q, e, s, cv, cp, w, ierr, herr, errorLength);
}

[[gnu::visibility("default")]] void PSFLSHdll(const double* p, const double* s, const double* z, double* t,
                                              double* D, double* Dl, double* Dv, double* x, double* y,
                                              double* q, double* e, double* h, double* cv, double* cp,
                                              double* w, std::int32_t* ierr, char* herr,
                                              std::int32_t errorLength) {
    handles.PSFLSHdll(ofProcess(), p, s, z, t, D, Dl, Dv, x, y, q, e, h, cv, cp, w, ierr, herr, errorLength);
}
}
