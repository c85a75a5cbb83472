// SPDX-License-Identifier: MIT
// Times of a bounce, told on demand: `compare` asks two of these programs in turns.
#include "bench/curves.h"
#include "billiard/radius-core/TBilliard.h"
#include "mathkit/TError.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <limits>
#include <memory>
#include <vector>

namespace {

// As many bounces as one press of the space bar has.
constexpr int bounces_each = 1000;

// Nanoseconds per bounce on three orbits, which are others for each round.
double time_of_bounce(TBilliardMap& map, int round) {
    using wall_clock = std::chrono::steady_clock;
    TIterraMap& iterated = map; // as the program calls it
    const auto begin = wall_clock::now();
    long bounces = 0;
    for (int orbit = 3 * round; orbit < 3 * round + 3; ++orbit) {
        const double s = orbit * 0.6180339887498949, p = orbit * 0.7548776662466927;
        map.setPoint(0.001 + 0.998 * (s - std::floor(s)), 0.98 * (2 * (p - std::floor(p)) - 1));
        try {
            for (int i = 0; i < bounces_each; ++i, ++bounces)
                iterated.iterate();
        } catch (const TError&) { // an orbit that ends early is as good
        }
    }
    const std::chrono::duration<double, std::nano> time = wall_clock::now() - begin;
    return time.count() / static_cast<double>(bounces);
}

} // namespace

int main() {
    std::vector<std::unique_ptr<TBilliardMap>> maps;
    bench::for_each_curve([&](const char* name, auto make, const auto&) {
        maps.push_back(std::make_unique<TBilliardMap>(make()));
        std::printf("%s\n", name);
    });
    std::printf("\n");
    std::fflush(stdout);
    unsigned curve;
    int round;
    while (std::scanf("%u %d", &curve, &round) == 2 && curve < maps.size()) {
        double least = std::numeric_limits<double>::max();
        for (int i = 0; i < 3; ++i) // the least of three: the machine has other work
            least = std::min(least, time_of_bounce(*maps[curve], round));
        std::printf("%.9g\n", least);
        std::fflush(stdout);
    }
}
