#include "fluids/RefpropSession.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <new>
#include <string_view>
#include <utility>

namespace marvello {

namespace {

constexpr std::int32_t filesLength = 10000;
constexpr std::int32_t mixturesLength = 255;
constexpr std::int32_t referenceLength = 3;

std::string padded(std::string text, std::int32_t length) {
    text.resize(static_cast<std::size_t>(length), ' ');
    return text;
}

/// The turns of all sessions in a library that keeps one set-up.
struct Turns {
    std::recursive_mutex lock;
    std::uint64_t last = 0;  ///< the session that called last
};

Turns& turns() {
    static Turns ofProcess;
    return ofProcess;
}

std::uint64_t nextNumber() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

using Handle = std::unique_ptr<FluidHandle, void (*)(FluidHandle*)>;

Handle openHandle(const FluidHandleFunctions* handles) {
    if (handles == nullptr) return {nullptr, [](FluidHandle*) {}};
    Handle handle(handles->open(), handles->close);
    if (!handle) throw std::bad_alloc();
    return handle;
}

}  // namespace

const std::string& RefpropAnswer::sentence() const {
    static const std::string none;
    return text ? *text : none;
}

RefpropSession::RefpropSession(SharedRefpropFunctions library)
    : library_(std::move(library)), handle_(openHandle(library_->handles)), number_(nextNumber()) {}

template <class... Parameters, class... Arguments>
void RefpropSession::call(void (*RefpropFunctions::*shared)(Parameters...),
                          void (*FluidHandleFunctions::*own)(FluidHandle*, Parameters...),
                          Arguments... arguments) {
    if (handle_) {
        (library_->handles->*own)(handle_.get(), arguments...);
        return;
    }
    const std::lock_guard turn(turns().lock);
    if (turns().last != number_) {
        turns().last = number_;
        if (load_) send(*load_);
        if (reference_) send(*reference_);
    }
    ((*library_).*shared)(arguments...);
}

RefpropAnswer RefpropSession::answer(std::int32_t code) const {
    if (code == 0) return {};
    std::string_view text(herr_.data(), herr_.size());
    text = text.substr(0, text.find('\0'));
    return {code, std::make_shared<const std::string>(text.substr(0, text.find_last_not_of(' ') + 1))};
}

RefpropAnswer RefpropSession::setUp(const std::vector<std::string>& files,
                                    const std::vector<double>& massFractions, const std::string& folder,
                                    const std::string& reference) {
    const bool isBlend = files.size() > 1;
    std::string joined;
    for (const std::string& file : files) joined += folder + file + (isBlend ? "|" : "");
    const RefpropAnswer loaded =
        load(joined, static_cast<std::int32_t>(files.size()), folder + "hmx.bnc", reference);
    useMassFractions(massFractions);
    molarMass_ = molarMassOf(z_);
    const RefpropAnswer referred = setReference(reference, isBlend ? 2 : 1);
    return loaded.code > 0 ? loaded : referred;
}

RefpropAnswer RefpropSession::load(const std::string& files, std::int32_t count, const std::string& mixtures,
                                   const std::string& reference) {
    const Load load{files, count, mixtures, reference};
    load_.reset();
    reference_.reset();
    const RefpropAnswer loaded = send(load);
    load_ = load;
    return loaded;
}

RefpropAnswer RefpropSession::send(const Load& load) {
    std::int32_t code = 0;
    herr_.fill(' ');
    call(&RefpropFunctions::SETUPdll, &FluidHandleFunctions::SETUPdll, &load.count,
         padded(load.files, filesLength).data(), padded(load.mixtures, mixturesLength).data(),
         padded(load.reference, referenceLength).data(), &code, herr_.data(), filesLength, mixturesLength,
         referenceLength, usualErrorLength);
    return answer(code);
}

double RefpropSession::molarMassOf(const Fractions& moles) {
    double molarMass = 0;
    call(&RefpropFunctions::WMOLdll, &FluidHandleFunctions::WMOLdll, moles.data(), &molarMass);
    return molarMass;
}

double RefpropSession::useMassFractions(const std::vector<double>& massFractions) {
    Fractions mass{};
    std::copy_n(massFractions.begin(), std::min(massFractions.size(), mass.size()), mass.begin());
    double molarMass = 0;
    call(&RefpropFunctions::XMOLEdll, &FluidHandleFunctions::XMOLEdll, mass.data(), z_.data(), &molarMass);
    return molarMass;
}

RefpropAnswer RefpropSession::setReference(const std::string& reference, std::int32_t flag) {
    const Reference chosen{reference, flag, z_};
    const RefpropAnswer set = send(chosen);
    reference_ = chosen;
    return set;
}

RefpropAnswer RefpropSession::send(const Reference& reference) {
    std::int32_t code = 0;
    const double unused = 0;
    call(&RefpropFunctions::SETREFdll, &FluidHandleFunctions::SETREFdll,
         padded(reference.reference, referenceLength).data(), &reference.flag, reference.fractions.data(),
         &unused, &unused, &unused, &unused, &code, herr_.data(), referenceLength, usualErrorLength);
    return answer(code);
}

RefpropState RefpropSession::saturationAtT(double t, std::int32_t side, RefpropState r) {
    std::int32_t code = 0;
    call(&RefpropFunctions::SATTdll, &FluidHandleFunctions::SATTdll, &t, z_.data(), &side, &r.p, &r.Dl, &r.Dv,
         x_.data(), y_.data(), &code, herr_.data(), usualErrorLength);
    r.answer = answer(code);
    return r;
}

RefpropState RefpropSession::saturationAtP(double p, std::int32_t side, RefpropState r) {
    std::int32_t code = 0;
    call(&RefpropFunctions::SATPdll, &FluidHandleFunctions::SATPdll, &p, z_.data(), &side, &r.t, &r.Dl, &r.Dv,
         x_.data(), y_.data(), &code, herr_.data(), usualErrorLength);
    r.answer = answer(code);
    return r;
}

RefpropState RefpropSession::atTP(double t, double p, RefpropState r) {
    std::int32_t code = 0;
    call(&RefpropFunctions::TPFLSHdll, &FluidHandleFunctions::TPFLSHdll, &t, &p, z_.data(), &r.D, &r.Dl,
         &r.Dv, x_.data(), y_.data(), &r.q, &r.e, &r.h, &r.s, &r.cv, &r.cp, &r.w, &code, herr_.data(),
         usualErrorLength);
    r.answer = answer(code);
    return r;
}

RefpropState RefpropSession::atTS(double t, double s, RefpropState r) {
    std::int32_t code = 0;
    const std::int32_t root = 0;
    call(&RefpropFunctions::TSFLSHdll, &FluidHandleFunctions::TSFLSHdll, &t, &s, z_.data(), &root, &r.p, &r.D,
         &r.Dl, &r.Dv, x_.data(), y_.data(), &r.q, &r.e, &r.h, &r.cv, &r.cp, &r.w, &code, herr_.data(),
         usualErrorLength);
    r.answer = answer(code);
    return r;
}

RefpropState RefpropSession::atPH(double p, double h, RefpropState r, std::int32_t errorLength) {
    std::int32_t code = 0;
    call(&RefpropFunctions::PHFLSHdll, &FluidHandleFunctions::PHFLSHdll, &p, &h, z_.data(), &r.t, &r.D, &r.Dl,
         &r.Dv, x_.data(), y_.data(), &r.q, &r.e, &r.s, &r.cv, &r.cp, &r.w, &code, herr_.data(), errorLength);
    r.answer = answer(code);
    return r;
}

RefpropState RefpropSession::atPS(double p, double s, RefpropState r) {
    std::int32_t code = 0;
    call(&RefpropFunctions::PSFLSHdll, &FluidHandleFunctions::PSFLSHdll, &p, &s, z_.data(), &r.t, &r.D, &r.Dl,
         &r.Dv, x_.data(), y_.data(), &r.q, &r.e, &r.h, &r.cv, &r.cp, &r.w, &code, herr_.data(),
         usualErrorLength);
    r.answer = answer(code);
    return r;
}

void RefpropStates::resize(std::size_t count) {
    for (auto* numbers : {&t, &p, &D, &Dl, &Dv, &q, &e, &h, &s, &cv, &cp, &w}) numbers->resize(count);
    code.resize(count);
}

/// `single` finds one of the states with its inputs in it.
template <class Single>
void RefpropSession::states(FluidStatesFunction FluidHandleFunctions::* own, Single single,
                            std::span<const double> first, std::span<const double> second,
                            RefpropStates& to) {
    to.resize(first.size());
    if (handle_) {
        const FluidStateArrays arrays{to.t.data(),  to.p.data(), to.D.data(), to.Dl.data(), to.Dv.data(),
                                      to.q.data(),  to.e.data(), to.h.data(), to.s.data(),  to.cv.data(),
                                      to.cp.data(), to.w.data(), nullptr,     nullptr,      to.code.data()};
        (library_->handles->*own)(handle_.get(), static_cast<std::int32_t>(first.size()), first.data(),
                                  second.data(), z_.data(), &arrays);
        return;
    }
    for (std::size_t i = 0; i < first.size(); ++i) {
        const RefpropState state = single(first[i], second[i]);
        to.t[i] = state.t;
        to.p[i] = state.p;
        to.D[i] = state.D;
        to.Dl[i] = state.Dl;
        to.Dv[i] = state.Dv;
        to.q[i] = state.q;
        to.e[i] = state.e;
        to.h[i] = state.h;
        to.s[i] = state.s;
        to.cv[i] = state.cv;
        to.cp[i] = state.cp;
        to.w[i] = state.w;
        to.code[i] = state.answer.code;
    }
}

void RefpropSession::statesAtTP(std::span<const double> t, std::span<const double> p, RefpropStates& to) {
    const auto single = [this](double atT, double atP) { return this->atTP(atT, atP, {.t = atT, .p = atP}); };
    states(&FluidHandleFunctions::statesAtTP, single, t, p, to);
}

void RefpropSession::statesAtPH(std::span<const double> p, std::span<const double> h, RefpropStates& to) {
    const auto single = [this](double atP, double atH) { return this->atPH(atP, atH, {.p = atP, .h = atH}); };
    states(&FluidHandleFunctions::statesAtPH, single, p, h, to);
}

void RefpropSession::statesAtPS(std::span<const double> p, std::span<const double> s, RefpropStates& to) {
    const auto single = [this](double atP, double atS) { return this->atPS(atP, atS, {.p = atP, .s = atS}); };
    states(&FluidHandleFunctions::statesAtPS, single, p, s, to);
}

}  // namespace marvello
