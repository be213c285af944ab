#include "tests/fluids/FluidCalls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>

#include "fluids/Refprop.h"

namespace marvello::test {
namespace {

constexpr Fractions pure{1.0};

/// An error buffer as a caller has it.
struct Buffer {
    static constexpr std::int32_t length = 255;
    std::int32_t code = 12345;
    std::string text = std::string(length, '#');

    Answer answer() const { return {code, text.substr(0, text.find_last_not_of(' ') + 1)}; }
};

std::string padded(const std::string& text, std::size_t length) {
    return text + std::string(length - text.size(), ' ');
}

}  // namespace

Answer setUp(const std::string& files, std::int32_t count, const std::string& reference) {
    Buffer error;
    SETUPdll(&count, padded(files, 10000).data(), padded("Fluids\\hmx.bnc", 255).data(),
             padded(reference, 3).data(), &error.code, error.text.data(), 10000, 255, 3, Buffer::length);
    return error.answer();
}

Answer setReference(const std::string& reference, std::int32_t flag) {
    Buffer error;
    const double zero = 0;
    SETREFdll(padded(reference, 3).data(), &flag, pure.data(), &zero, &zero, &zero, &zero, &error.code,
              error.text.data(), 3, Buffer::length);
    return error.answer();
}

Properties saturationAtT(double t, std::int32_t side) {
    Buffer error;
    Properties out;
    SATTdll(&t, pure.data(), &side, &out.p, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &error.code,
            error.text.data(), Buffer::length);
    out.error = error.answer();
    return out;
}

Properties saturationAtP(double p, std::int32_t side) {
    Buffer error;
    Properties out;
    SATPdll(&p, pure.data(), &side, &out.t, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &error.code,
            error.text.data(), Buffer::length);
    out.error = error.answer();
    return out;
}

Properties atTP(double t, double p) {
    Buffer error;
    Properties out;
    out.t = t;
    out.p = p;
    TPFLSHdll(&t, &p, pure.data(), &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.q, &out.e,
              &out.h, &out.s, &out.cv, &out.cp, &out.w, &error.code, error.text.data(), Buffer::length);
    out.error = error.answer();
    return out;
}

Properties atTS(double t, double s) {
    Buffer error;
    Properties out;
    out.t = t;
    out.s = s;
    const std::int32_t root = 0;
    TSFLSHdll(&t, &s, pure.data(), &root, &out.p, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(),
              &out.q, &out.e, &out.h, &out.cv, &out.cp, &out.w, &error.code, error.text.data(),
              Buffer::length);
    out.error = error.answer();
    return out;
}

Properties atPH(double p, double h) {
    Buffer error;
    Properties out;
    out.p = p;
    out.h = h;
    PHFLSHdll(&p, &h, pure.data(), &out.t, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.q,
              &out.e, &out.s, &out.cv, &out.cp, &out.w, &error.code, error.text.data(), Buffer::length);
    out.error = error.answer();
    return out;
}

Properties atPS(double p, double s) {
    Buffer error;
    Properties out;
    out.p = p;
    out.s = s;
    PSFLSHdll(&p, &s, pure.data(), &out.t, &out.D, &out.Dl, &out.Dv, out.x.data(), out.y.data(), &out.q,
              &out.e, &out.h, &out.cv, &out.cp, &out.w, &error.code, error.text.data(), Buffer::length);
    out.error = error.answer();
    return out;
}

std::vector<std::vector<std::string>> readFields(const std::string& file, const std::string& first) {
    std::ifstream stream(std::string(MARVELLO_SOURCE_FOLDER) + "/tests/fluids/data/" + file);
    EXPECT_TRUE(stream) << file;
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(stream, line);) {
        if (!line.starts_with(first + ",")) continue;
        std::vector<std::string>& row = rows.emplace_back();
        for (std::size_t from = first.size() + 1; from <= line.size();) {
            const std::size_t end = std::min(line.find(',', from), line.size());
            row.push_back(line.substr(from, end - from));
            from = end + 1;
        }
    }
    return rows;
}

std::vector<std::vector<double>> readRows(const std::string& file, const std::string& fluid) {
    std::vector<std::vector<double>> rows;
    for (const std::vector<std::string>& fields : readFields(file, fluid)) {
        std::vector<double>& row = rows.emplace_back();
        for (const std::string& field : fields) {
            double value = std::numeric_limits<double>::quiet_NaN();
            std::from_chars(field.data(), field.data() + field.size(), value);
            row.push_back(value);
        }
    }
    return rows;
}

double deviation(double a, double b) { return b == 0 ? std::abs(a) : std::abs(a / b - 1); }

}  // namespace marvello::test
