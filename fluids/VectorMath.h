#pragma once

#include <cstdint>
#include <cstring>

namespace marvello::fluids {

/// Numbers that one instruction works on.
inline constexpr int laneCount = 4;
using Lanes = double __attribute__((vector_size(laneCount * sizeof(double))));
using LaneBits = std::int64_t __attribute__((vector_size(laneCount * sizeof(std::int64_t))));

// ln 2 in two parts.
inline constexpr double ln2High = 0x1.62e42fefa3800p-1;  // trailing zeros: a whole number times this is exact
inline constexpr double ln2Low = 0x1.ef35793c76730p-45;

// All are inlined whatever the optimizer thinks, so that each caller gets them for its own instruction set.

[[gnu::always_inline]] inline void load(const double* from, Lanes& to) { std::memcpy(&to, from, sizeof to); }

[[gnu::always_inline]] inline double sumOf(const Lanes& x) { return (x[0] + x[1]) + (x[2] + x[3]); }

/// Replaces `x`, from -700 to 700, by e^x, to about one unit in the last place.
///
/// x is k ln 2 + r with |r| <= (ln 2)/2; e^r is its Taylor polynomial, and 2^k is put into the exponent bits.
[[gnu::always_inline]] inline void exponentialWithinRange(Lanes& x) {
    constexpr double rounding = 0x1.8p52;  // adding it leaves the nearest integer in the low bits
    constexpr double perLn2 = 1.4426950408889634;
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

/// The same for any `x`: beyond +-700 it stays at the value there, so that nothing overflows.
[[gnu::always_inline]] inline void exponential(Lanes& x) {
    constexpr double limit = 700;
    x = x > limit ? Lanes{} + limit : x;
    x = x < -limit ? Lanes{} - limit : x;
    exponentialWithinRange(x);
}

/// Replaces `x`, positive and not denormal, by ln x, to about one unit in the last place.
///
/// x is 2^k m with m from 1/sqrt(2) to sqrt(2), and ln m = 2 (s + s^3/3 + s^5/5 + ...) with s = (m - 1)/(m +
/// 1).
[[gnu::always_inline]] inline void logarithm(Lanes& x) {
    constexpr std::int64_t mantissa = 0x000fffffffffffff;
    constexpr std::int64_t half = 0x3fe0000000000000;  // the exponent of 1/2
    constexpr std::int64_t intoDouble =
        0x4330000000000000;  // as a double 2^52, with integers in the low bits
    LaneBits bits;
    std::memcpy(&bits, &x, sizeof bits);
    const LaneBits exponent = (bits >> 52) + intoDouble;
    Lanes k;
    std::memcpy(&k, &exponent, sizeof k);
    k -= 0x1p52 + 1022;
    const LaneBits fraction = (bits & mantissa) | half;
    Lanes m;
    std::memcpy(&m, &fraction, sizeof m);
    const auto isSmall = m < 0.70710678118654752;
    m = isSmall ? m + m : m;
    k = isSmall ? k - 1 : k;
    const Lanes s = (m - 1) / (m + 1);
    const Lanes z = s * s;
    const Lanes z2 = z * z;
    const Lanes z4 = z2 * z2;
    const Lanes c01 = 1.0 / 3 + z * (1.0 / 5);
    const Lanes c23 = 1.0 / 7 + z * (1.0 / 9);
    const Lanes c45 = 1.0 / 11 + z * (1.0 / 13);
    const Lanes c67 = 1.0 / 15 + z * (1.0 / 17);
    const Lanes c89 = 1.0 / 19 + z * (1.0 / 21);
    const Lanes series = z * ((c01 + z2 * c23) + z4 * ((c45 + z2 * c67) + z4 * c89));
    x = k * ln2High + ((s + s) + ((s + s) * series + k * ln2Low));
}

/// Whether the processor has the instructions that functions marked MARVELLO_WIDE are compiled for.
inline bool hasWideLanes() {
#ifdef __x86_64__
    static const bool has = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    return has;
#else
    return false;
#endif
}

#ifdef __x86_64__
#define MARVELLO_WIDE [[gnu::target("avx2,fma")]]
#else
#define MARVELLO_WIDE
#endif
/// Of a lambda that is given to inVectorUnit().
#define MARVELLO_INLINED __attribute__((always_inline))

template <class Work>
MARVELLO_WIDE void inWideLanes(const Work& work) {
    work();
}

/// Runs work compiled for the widest vector unit that the processor has.
template <class Work>
void inVectorUnit(const Work& work) {
    if (hasWideLanes()) {
        inWideLanes(work);
    } else {
        work();
    }
}

}  // namespace marvello::fluids
