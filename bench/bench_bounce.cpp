// SPDX-License-Identifier: MIT
// The bounce beside other ways to find the same impact, on every curve.
#include "bench/boost_search.h"
#include "bench/curves.h"
#include "bench/figure_table.h"
#include "bench/textbook_bounce.h"
#include "tests/counting_curve.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <string>

namespace {

using namespace bench;

/// Many short orbits spread over the section. Two right programs part on a chaotic orbit after some
/// thirty bounces; on shorter ones all contenders do the same work.
constexpr int orbit_count = 64, bounces_each = 24;

void start(TBilliardMap& map, int orbit) {
    const double golden = 0.6180339887498949, other = 0.7548776662466927;
    const double s = orbit * golden, p = orbit * other;
    map.setPoint(0.001 + 0.998 * (s - std::floor(s)), 0.98 * (2 * (p - std::floor(p)) - 1));
}

/// One pass over all orbits. Bounces go through the map's virtual operation, as in the program.
template<class AfterBounce>
void run_orbits(TBilliardMap& map, AfterBounce&& after) {
    TIterraMap& iterated = map;
    for (int orbit = 0; orbit < orbit_count; ++orbit) {
        start(map, orbit);
        try {
            for (int i = 0; i < bounces_each; ++i) {
                iterated.iterate();
                after(iterated);
            }
        } catch (const TError&) { // a path that no contender follows
        }
    }
}

void nothing(TIterraMap&) {}

void read_point(TIterraMap& map) {
    double s, p;
    map.getPoint(s, p);
    benchmark::DoNotOptimize(s);
    benchmark::DoNotOptimize(p);
}

template<class AfterBounce>
void add_benchmark(const std::string& name, const std::shared_ptr<TBilliardMap>& map,
                   AfterBounce after) {
    benchmark::RegisterBenchmark(name.c_str(), [map, after](benchmark::State& state) {
        for (auto _ : state)
            run_orbits(*map, after);
    });
}

/// Points of the curve that one bounce needs, on the average.
double points_per_bounce(TRadiusFunction* curve) {
    auto* counting = new counting_curve(curve);
    TBilliardMap map(counting); // owns it
    const long before = counting->points;
    long bounces = 0;
    run_orbits(map, [&](TIterraMap&) {
        counting->forget();
        ++bounces;
    });
    return static_cast<double>(counting->points - before) / static_cast<double>(bounces);
}

/// Keeps the curve that a billiard refers to as long as the billiard.
template<class Curve>
struct boost_map : textbook_billiard<Curve, boost_search> {
    boost_map(TRadiusFunction* F, const Curve& inlined, const boost_search& search = {})
        : textbook_billiard<Curve, boost_search>(F, kept, search),
          kept(inlined) {}
    Curve kept;
};

/// The part of all searches in which the library misses the root.
template<class Curve>
double misses(boost_map<Curve>& map) {
    run_orbits(map, nothing);
    return static_cast<double>(map.search.misses) / static_cast<double>(map.search.searches);
}

template<class Make, class Curve>
void add_curve(figure_table& table, const std::string& name, Make make, const Curve& inlined) {
    const auto fast = std::make_shared<TBilliardMap>(make());
    const auto boost = std::make_shared<boost_map<Curve>>(make(), inlined);
    const bool convex = fast->convex;

    add_benchmark(name + "/iterate", fast, nothing);
    add_benchmark(name + "/iterate+getPoint", fast, read_point);
    add_benchmark(name + "/textbook", std::make_shared<textbook_map>(make()), nothing);
    add_benchmark(name + "/boost", boost, nothing);
    add_benchmark(name + "/boost to 1e-12",
                  std::make_shared<boost_map<Curve>>(make(), inlined, boost_search{40}), nothing);

    const std::string bounce = name + ": iterate ";
    table.ratio(bounce + "faster than the textbook", name + "/textbook", name + "/iterate",
                at_least(2.5));
    table.ratio(bounce + "faster than Boost.Math", name + "/boost", name + "/iterate",
                at_least(convex ? 4.5 : 3));
    table.ratio(bounce + "faster than Boost.Math to 1e-12", name + "/boost to 1e-12",
                name + "/iterate");
    table.note(name + ": searches in which Boost.Math misses the root", misses(*boost));
    table.figure(name + ": points of the curve per bounce", points_per_bounce(make()),
                 at_most(convex ? 5.2 : 6.5));
    table.ratio(name + ": getPoint, in bounces", name + "/iterate+getPoint", name + "/iterate",
                at_most(0.25), 1);
}

} // namespace

int main(int argc, char** argv) {
    figure_table table;
    for_each_curve([&](const char* name, auto make, const auto& inlined) {
        add_curve(table, name, make, inlined);
    });
    return table.run(argc, argv);
}
