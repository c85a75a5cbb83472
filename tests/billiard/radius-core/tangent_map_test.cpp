// SPDX-License-Identifier: MIT
// The tangent map: reference derivatives, areas, and the differences of neighbouring bounces.
#include "billiard/radius-core/tangent_map.h"

#include "tests/reference_billiards.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace {

constexpr double pi = 3.14159265358979324;

struct phase_point {
    double phi, alpha;
};

phase_point image(TBilliard& billiard, phase_point p) {
    billiard.findit(p.phi, p.alpha);
    return p;
}

chord path_from(TBilliard& billiard, phase_point p) {
    const phase_point q = image(billiard, p);
    return {mirror_at(*billiard.F, p.phi, p.alpha), mirror_at(*billiard.F, q.phi, q.alpha)};
}

double largest(const matrix2& m) {
    const double sum = m.xx + m.xy + m.yx + m.yy; // no number fails every comparison
    if (std::isnan(sum)) return sum;
    return std::max({std::fabs(m.xx), std::fabs(m.xy), std::fabs(m.yx), std::fabs(m.yy)});
}

matrix2 operator-(const matrix2& a, const matrix2& b) {
    return {a.xx - b.xx, a.xy - b.xy, a.yx - b.yx, a.yy - b.yy};
}

TEST(TangentMap, HasTheReferenceDerivatives) {
    reference_billiards made;
    for (const data_row& row : read_data_table("bounces.csv")) {
        const chord path = path_from(made.of(row), {row.number("phi"), row.number("alpha")});
        const matrix2 wanted = {row.number("dphi1_dphi"), row.number("dphi1_dalpha"),
                                row.number("dalpha1_dphi"), row.number("dalpha1_dalpha")};
        // The impact is known to a tolerance, which near a tangent is no small part of the path.
        const double blur =
            row.number("tol_phi") * path.to.density / std::min(path.length, path.to.sin_alpha);
        EXPECT_LE(largest(tangent_of_angles(path) - wanted), (5e-10 + 0.1 * blur) * largest(wanted))
            << row.text("id");
    }
}

TEST(TangentMap, HasTheReferenceTraces) {
    reference_billiards made;
    for (const data_row& row : read_data_table("fixpoints.csv")) {
        TBilliard& billiard = made.of(row);
        phase_point p = {row.number("phi"), row.number("alpha")};
        matrix2 section, angles;
        for (int i = 0; i < row.integer("order"); ++i) {
            const chord path = path_from(billiard, p);
            section = tangent_of_section(path, billiard.circumference.length) * section;
            angles = tangent_of_angles(path) * angles;
            p = image(billiard, p);
        }
        const double wanted = row.number("trace");
        const double tolerance = 1e-9 * largest(section) * largest(section);
        EXPECT_NEAR(section.trace(), wanted, tolerance) << row.text("id");
        EXPECT_NEAR(angles.trace(), wanted, tolerance) << row.text("id");
    }
}

/// The central difference of the bounce, and twice its step's; empty where a corner or a bulge lies
/// between the neighbours.
std::optional<matrix2> difference(TBilliard& billiard, phase_point p) {
    const auto by = [&](double dphi, double dalpha, double h) {
        const phase_point high = image(billiard, {p.phi + h * dphi, p.alpha + h * dalpha});
        const phase_point low = image(billiard, {p.phi - h * dphi, p.alpha - h * dalpha});
        const double turn = std::remainder(high.phi - low.phi, 2 * pi);
        return std::pair(turn / (2 * h), (high.alpha - low.alpha) / (2 * h));
    };
    const auto of_step = [&](double h) {
        const auto [xx, yx] = by(1, 0, h);
        const auto [xy, yy] = by(0, 1, h);
        return matrix2{xx, xy, yx, yy};
    };
    const matrix2 fine = of_step(1e-5), coarse = of_step(2e-5);
    if (largest(fine - coarse) > 1e-5 * largest(fine)) return {};
    return fine;
}

TEST(TangentMap, IsTheLimitOfDifferencesAndKeepsAreas) {
    std::set<std::string> curves = {"Ellipse 1e-9", "OvalC 5 0", "Fourier 1 2.5 7"};
    for (const data_row& row : read_data_table("bounces.csv"))
        curves.insert(row.curve());
    for (const std::string& c : curves) {
        TBilliardMap map(new_reference_curve(c));
        int compared = 0;
        for (int i = 0; i < 50; ++i) {
            map.setPoint(0.011 + 0.0197 * i, -0.97 + 0.0393 * i);
            const phase_point p = {map.phi, map.alpha};
            const chord path = path_from(map, p);
            const matrix2 m = tangent_of_section(path, map.circumference.length);
            const double terms = std::fabs(m.xx * m.yy) + std::fabs(m.xy * m.yx);
            EXPECT_NEAR(m.determinant(), 1, 4e-15 * (1 + terms)) << c << " " << i;
            if (const auto wanted = difference(map, p)) {
                ++compared;
                EXPECT_LE(largest(tangent_of_angles(path) - *wanted), 2e-5 * largest(*wanted))
                    << c << " " << i;
            }
        }
        EXPECT_GT(compared, 30) << c;
    }
}

TEST(TangentMap, ArcSharesAreExactBetweenTheRows) {
    // On a semicircle the arc grows with the angle about its centre.
    TBilliardMap stadium(new_reference_curve("Stadium 1"));
    for (double u = 0.01; u < pi / 2; u += 0.01) {
        const double S = stadium.arcShare(std::atan2(std::sin(u), 1 + std::cos(u)));
        EXPECT_NEAR(S, u / (4 + 2 * pi), 1e-12);
    }
    EXPECT_EQ(stadium.arcShare(0), 0);
    EXPECT_EQ(stadium.arcShare(2 * pi), 1);
    EXPECT_NEAR(TBilliard(new_reference_curve("Formula 0")).arcShare(pi), 0.5, 1e-15);
}

} // namespace
