#include "fluids/RefpropSession.h"

#include <algorithm>
#include <string_view>

namespace marvello {

namespace {

constexpr std::int32_t filesLength = 10000;
constexpr std::int32_t mixturesLength = 255;
constexpr std::int32_t referenceLength = 3;

std::string padded(std::string text, std::int32_t length) {
    text.resize(static_cast<std::size_t>(length), ' ');
    return text;
}

}  // namespace

RefpropAnswer RefpropSession::answer(std::int32_t code) const {
    if (code == 0) return {};
    std::string_view text(herr_.data(), herr_.size());
    text = text.substr(0, text.find('\0'));
    return {code, std::string(text.substr(0, text.find_last_not_of(' ') + 1))};
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
    library_->WMOLdll(z_.data(), &molarMass_);
    const RefpropAnswer referred = setReference(reference, isBlend ? 2 : 1);
    return loaded.code > 0 ? loaded : referred;
}

RefpropAnswer RefpropSession::load(const std::string& files, std::int32_t count, const std::string& mixtures,
                                   const std::string& reference) {
    std::int32_t code = 0;
    herr_.fill(' ');
    library_->SETUPdll(&count, padded(files, filesLength).data(), padded(mixtures, mixturesLength).data(),
                       padded(reference, referenceLength).data(), &code, herr_.data(), filesLength,
                       mixturesLength, referenceLength, usualErrorLength);
    return answer(code);
}

double RefpropSession::useMassFractions(const std::vector<double>& massFractions) {
    Fractions mass{};
    std::copy_n(massFractions.begin(), std::min(massFractions.size(), mass.size()), mass.begin());
    double molarMass = 0;
    library_->XMOLEdll(mass.data(), z_.data(), &molarMass);
    return molarMass;
}

RefpropAnswer RefpropSession::setReference(const std::string& reference, std::int32_t flag) {
    std::int32_t code = 0;
    const double unused = 0;
    library_->SETREFdll(padded(reference, referenceLength).data(), &flag, z_.data(), &unused, &unused,
                        &unused, &unused, &code, herr_.data(), referenceLength, usualErrorLength);
    return answer(code);
}

RefpropState RefpropSession::saturationAtT(double t, std::int32_t side, RefpropState r) {
    std::int32_t code = 0;
    library_->SATTdll(&t, z_.data(), &side, &r.p, &r.Dl, &r.Dv, x_.data(), y_.data(), &code, herr_.data(),
                      usualErrorLength);
    r.answer = answer(code);
    return r;
}

RefpropState RefpropSession::saturationAtP(double p, std::int32_t side, RefpropState r) {
    std::int32_t code = 0;
    library_->SATPdll(&p, z_.data(), &side, &r.t, &r.Dl, &r.Dv, x_.data(), y_.data(), &code, herr_.data(),
                      usualErrorLength);
    r.answer = answer(code);
    return r;
}

RefpropState RefpropSession::atTP(double t, double p, RefpropState r) {
    std::int32_t code = 0;
    library_->TPFLSHdll(&t, &p, z_.data(), &r.D, &r.Dl, &r.Dv, x_.data(), y_.data(), &r.q, &r.e, &r.h, &r.s,
                        &r.cv, &r.cp, &r.w, &code, herr_.data(), usualErrorLength);
    r.answer = answer(code);
    return r;
}

RefpropState RefpropSession::atTS(double t, double s, RefpropState r) {
    std::int32_t code = 0;
    const std::int32_t root = 0;
    library_->TSFLSHdll(&t, &s, z_.data(), &root, &r.p, &r.D, &r.Dl, &r.Dv, x_.data(), y_.data(), &r.q, &r.e,
                        &r.h, &r.cv, &r.cp, &r.w, &code, herr_.data(), usualErrorLength);
    r.answer = answer(code);
    return r;
}

RefpropState RefpropSession::atPH(double p, double h, RefpropState r, std::int32_t errorLength) {
    std::int32_t code = 0;
    library_->PHFLSHdll(&p, &h, z_.data(), &r.t, &r.D, &r.Dl, &r.Dv, x_.data(), y_.data(), &r.q, &r.e, &r.s,
                        &r.cv, &r.cp, &r.w, &code, herr_.data(), errorLength);
    r.answer = answer(code);
    return r;
}

RefpropState RefpropSession::atPS(double p, double s, RefpropState r) {
    std::int32_t code = 0;
    library_->PSFLSHdll(&p, &s, z_.data(), &r.t, &r.D, &r.Dl, &r.Dv, x_.data(), y_.data(), &r.q, &r.e, &r.h,
                        &r.cv, &r.cp, &r.w, &code, herr_.data(), usualErrorLength);
    r.answer = answer(code);
    return r;
}

}  // namespace marvello
