// SPDX-License-Identifier: MIT
// The random numbers of --random: any of them by its place, the same on every machine.
#pragma once

#include <cstdint>

namespace batch {

/// Output `place`, from 0, of the generator SplitMix64 with this seed.
///
/// Steele, Lea, Flood: Fast splittable pseudorandom number generators, OOPSLA 2014. Its state is a
/// counter, and so each part of a run reads its own places.
inline std::uint64_t splitmix64(std::uint64_t seed, std::uint64_t place) {
    std::uint64_t z = seed + (place + 1) * 0x9e3779b97f4a7c15u;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
}

/// The odd multiple of 2^-53 in (0, 1) that the upper 52 bits tell: exact, and never an end.
inline double uniform(std::uint64_t bits) {
    return static_cast<double>((bits >> 12) * 2 + 1) * 0x1p-53;
}

} // namespace batch
