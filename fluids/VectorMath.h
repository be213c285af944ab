#pragma once

#include <cstdint>
#include <cstring>

namespace marvello::fluids {

/// Numbers that one instruction works on.
inline constexpr int laneCount = 4;
using Lanes = double __attribute__((vector_size(laneCount * sizeof(double))));
using LaneBits = std::int64_t __attribute__((vector_size(laneCount * sizeof(std::int64_t))));

// All are inlined whatever the optimizer thinks, so that each caller gets them for its own instruction set.

[[gnu::always_inline]] inline void load(const double* from, Lanes& to) { std::memcpy(&to, from, sizeof to); }

[[gnu::always_inline]] inline double sumOf(const Lanes& x) { return (x[0] + x[1]) + (x[2] + x[3]); }

/// Replaces `x` by e^x, to about one unit in the last place. Beyond +-700 it stays at the value there, so
/// that nothing overflows.
///
/// x is k ln 2 + r with |r| <= (ln 2)/2; e^r is its Taylor polynomial, and 2^k is put into the exponent bits.
[[gnu::always_inline]] inline void exponential(Lanes& x) {
    constexpr double limit = 700;
    constexpr double rounding = 0x1.8p52;  // adding it leaves the nearest integer in the low bits
    constexpr double perLn2 = 1.4426950408889634;
    constexpr double ln2High = 0x1.62e42fefa3800p-1;  // trailing zeros: k times this is exact
    constexpr double ln2Low = 0x1.ef35793c76730p-45;
    x = x > limit ? Lanes{} + limit : x;
    x = x < -limit ? Lanes{} - limit : x;
    const Lanes shifted = x * perLn2 + rounding;
    const Lanes k = shifted - rounding;
    const Lanes r = (x - k * ln2High) - k * ln2Low;
    const Lanes r2 = r * r;
    const Lanes r4 = r2 * r2;
    // 1 + r + r^2 (c2 + c3 r + ... ), the coefficients 1/n!, in pairs so that they do not wait for each
    // other.
    const Lanes c23 = 1.0 / 2 + r * (1.0 / 6);
    const Lanes c45 = 1.0 / 24 + r * (1.0 / 120);
    const Lanes c67 = 1.0 / 720 + r * (1.0 / 5040);
    const Lanes c89 = 1.0 / 40320 + r * (1.0 / 362880);
    const Lanes c1011 = 1.0 / 3628800 + r * (1.0 / 39916800);
    const Lanes c1213 = 1.0 / 479001600 + r * (1.0 / 6227020800);
    const Lanes high = (c67 + r2 * c89) + r4 * (c1011 + r2 * c1213);
    const Lanes polynomial = (c23 + r2 * c45) + r4 * high;
    const Lanes power = 1.0 + (r + r2 * polynomial);
    LaneBits bits;
    std::memcpy(&bits, &shifted, sizeof bits);
    bits = (bits + 1023) << 52;
    Lanes scale;
    std::memcpy(&scale, &bits, sizeof scale);
    x = power * scale;
}

}  // namespace marvello::fluids
