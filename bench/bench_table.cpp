// SPDX-License-Identifier: MIT
// The table of arc length: the time of a new curve, and the work that hostile curves can cause.
#include "bench/curves.h"
#include "bench/figure_table.h"
#include "bench/gauss_kronrod_table.h"
#include "billiard/radius-core/TBilliard.h"
#include "tests/counting_curve.h"

#include <benchmark/benchmark.h>

#include <numbers>
#include <string>
#include <vector>

namespace {

using namespace bench;

/// The sign changes of the curvature, with R, R' and R'' asked one by one at each angle.
std::vector<double> plain_inflections(TRadiusFunction& curve) {
    const double step = std::numbers::pi / 1000;
    curvature_root root(&curve);
    std::vector<double> list;
    double before = curve.curvature(-std::numbers::pi);
    for (double x = -std::numbers::pi + step; x <= 3 * std::numbers::pi; x += step) {
        const double here = curve.curvature(x);
        double a = x - step, b = x;
        if (before * here < 0) list.push_back(root.brent1(a, b, 1e-14));
        before = here;
    }
    return list;
}

template<class Make>
void add_curve(figure_table& table, const std::string& name, Make make) {
    const std::string fast = name + "/setF", plain = name + "/plain";
    benchmark::RegisterBenchmark(fast.c_str(), [make](benchmark::State& state) {
        TBilliard billiard;
        for (auto _ : state)
            billiard.setF(make());
    });
    benchmark::RegisterBenchmark(plain.c_str(), [make](benchmark::State& state) {
        for (auto _ : state) {
            TBilliard billiard; // no setF: the plain table stands in for the program's
            billiard.F = make();
            plain_table rows;
            rows.build(*billiard.F);
            billiard.circumference.phi.swap(rows.phi);
            billiard.circumference.s.swap(rows.s);
            billiard.circumference.r.swap(rows.r);
            if (!billiard.F->isConvex()) benchmark::DoNotOptimize(plain_inflections(*billiard.F));
        }
    });
    table.ratio(name + ": setF faster than Gauss-Kronrod 7/15 on each row", plain, fast,
                at_least(3));
}

/// A curve that counts calls, each of R, R' or both as one evaluation.
void add_hostile(figure_table& table, const std::string& name, TRadiusFunction* curve) {
    auto* counting = new counting_curve(curve, counting_curve::every_call);
    TBilliard billiard(counting); // owns it
    table.figure(name + ": evaluations", static_cast<double>(counting->points), at_most(2e6));
    table.figure(name + ": rows", billiard.circumference.size(), at_most(50000));
}

void add_hostile_curves(figure_table& table) {
    auto* sliver = new TTriangleFunction;
    sliver->setDegrees(0.01, 0.01);
    add_hostile(table, "oval C 2, n = 200", new TGenOvalFunction(2, 200));
    add_hostile(table, "oval C 2, n = 100000", new TGenOvalFunction(2, 100000));
    add_hostile(table, "stadium 1e6", new TStadiumFunction(1e6));
    add_hostile(table, "stadium 1e-9", new TStadiumFunction(1e-9));
    add_hostile(table, "ellipse 1e6", new TEllipseFunction(1e6));
    add_hostile(table, "triangle 0.01/0.01", sliver);
    for (const char* formula :
         {"5+tan(t)", "5+sin(1000*t)", "5+sin(1000000000*t)", "0", "1/0", "log(t-1)", "sqrt(t-3)",
          "1/t", "exp(exp(t))", "1e-300", "1e300", "tan(1000*t)", "t^t"})
        add_hostile(table, std::string("formula ") + formula,
                    new symbolic::TSymbolicRadius(formula));
}

} // namespace

int main(int argc, char** argv) {
    figure_table table;
    for_each_curve([&](const char* name, auto make, const auto& /*inlined*/) {
        add_curve(table, name, make);
    });
    add_hostile_curves(table);
    return table.run(argc, argv);
}
