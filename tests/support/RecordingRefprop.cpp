// A fluid library that computes nothing: it notes how it is called. Built as the library file of a folder of
// its own.

#include <cstdint>
#include <string>

#include "fluids/Refprop.h"

namespace {

using Integer = std::int32_t;

std::string notes;

std::string trimmedText(const char* text, Integer length) {
    std::string field(text, static_cast<std::size_t>(length));
    return field.substr(0, field.find_last_not_of(' ') + 1);
}

std::string number(double value) { return std::to_string(value).substr(0, 6); }

void note(const std::string& line) { notes += line + "\n"; }

}  // namespace

extern "C" {

const char* recordedCalls() { return notes.c_str(); }
void forgetCalls() { notes.clear(); }

void SETUPdll(const Integer* nc, const char* files, const char* mix, const char* reference, Integer* ierr,
              char*, Integer l1, Integer l2, Integer l3, Integer l4) {
    note("SETUP " + std::to_string(*nc) + " " + trimmedText(files, l1) + " " + trimmedText(mix, l2) + " " +
         trimmedText(reference, l3) + " " + std::to_string(l1) + " " + std::to_string(l4));
    *ierr = 0;
}
void XMOLEdll(const double* xkg, double* z, double* wm) {
    note("XMOLE " + number(xkg[0]) + " " + number(xkg[1]));
    z[0] = 0.75;
    z[1] = 0.25;
    *wm = 50;
}
void WMOLdll(const double* z, double* wm) {
    note("WMOL " + number(z[0]));
    *wm = 100;
}
void SETREFdll(const char* reference, const Integer* ixflag, const double* z, const double*, const double*,
               const double*, const double*, Integer* ierr, char*, Integer l1, Integer l2) {
    note("SETREF " + trimmedText(reference, l1) + " " + std::to_string(*ixflag) + " " + number(z[1]) + " " +
         std::to_string(l2));
    *ierr = 0;
}
void SATTdll(const double* t, const double*, const Integer* kph, double* p, double*, double*, double*,
             double*, Integer*, char*, Integer) {
    note("SATT " + number(*t) + " " + std::to_string(*kph));
    *p = 100;
}
void SATPdll(const double* p, const double*, const Integer* kph, double* t, double* dl, double* dv, double*,
             double*, Integer*, char*, Integer) {
    note("SATP " + number(*p) + " " + std::to_string(*kph));
    *t = 300;
    *dl = 10;
    *dv = 1;
}
void TPFLSHdll(const double* t, const double* p, const double*, double* d, double*, double*, double*, double*,
               double*, double*, double* h, double* s, double*, double*, double*, Integer*, char*, Integer) {
    note("TP " + number(*t) + " " + number(*p));
    *d = *h = *s = 1;
}
void TSFLSHdll(const double* t, const double* s, const double*, const Integer* kr, double*, double*, double*,
               double*, double*, double*, double*, double*, double* h, double*, double*, double*, Integer*,
               char*, Integer) {
    note("TS " + number(*t) + " " + number(*s) + " " + std::to_string(*kr));
    *h = 1;
}
void PHFLSHdll(const double* p, const double* h, const double*, double* t, double*, double*, double*, double*,
               double*, double*, double*, double* s, double*, double*, double*, Integer*, char*,
               Integer length) {
    note("PH " + number(*p) + " " + number(*h) + " " + std::to_string(length));
    *t = 300;
    *s = 1;
}
void PSFLSHdll(const double* p, const double* s, const double*, double* t, double*, double*, double*, double*,
               double*, double*, double*, double* h, double*, double*, double*, Integer*, char*, Integer) {
    note("PS " + number(*p) + " " + number(*s));
    *t = 300;
    *h = 1;
}

}  // extern "C"
