// SPDX-License-Identifier: MIT
// Where orbits start: points that were typed, at random, and the cells of a grid.
#include "billiard/batch/start_list.h"

#include "billiard/batch/errors.h"
#include "billiard/batch/number_text.h"
#include "billiard/batch/random_stream.h"
#include "mathkit/turn.h"

#include <numbers>

namespace batch {

namespace {

start start_at_point(TBilliardMap& map, double S, double P) {
    map.setPoint(S, P);
    return {S, P, map.phi, map.alpha};
}

class point_source : public start_source {
public:
    point_source(double S, double P) : S(S), P(P) {}
    std::int64_t size() const override { return 1; }
    start at(std::int64_t, TBilliardMap& map) const override { return start_at_point(map, S, P); }

private:
    double S, P;
};

class angle_source : public start_source {
public:
    angle_source(double phi, double alpha) : phi(phi), alpha(alpha) {}
    std::int64_t size() const override { return 1; }
    start at(std::int64_t, TBilliardMap& map) const override {
        start from{0, 0, phi, alpha};
        map.setPhiAlpha(phi, alpha);
        map.getPoint(from.S, from.P);
        return from;
    }

private:
    double phi, alpha;
};

class random_source : public start_source {
public:
    random_source(std::int64_t count, std::uint64_t seed) : count(count), seed(seed) {}
    std::int64_t size() const override { return count; }
    start at(std::int64_t i, TBilliardMap& map) const override {
        const auto place = 2 * static_cast<std::uint64_t>(i);
        return start_at_point(map, uniform(splitmix64(seed, place)),
                              2 * uniform(splitmix64(seed, place + 1)) - 1);
    }

private:
    std::int64_t count;
    std::uint64_t seed;
};

// The middle of cell i of n between a and b: a decimal fraction where there is a short one.
double middle(double a, double b, std::int64_t i, std::int64_t n) {
    const auto right = static_cast<double>(2 * i + 1);
    const auto left = static_cast<double>(2 * (n - i) - 1);
    return (a * left + b * right) / static_cast<double>(2 * n);
}

class cell_source : public start_source {
public:
    cell_source(std::int64_t width, std::int64_t height, const section_window& window)
        : width(width),
          height(height),
          window(window) {}
    std::int64_t size() const override { return width * height; }
    start at(std::int64_t i, TBilliardMap& map) const override {
        return start_at_point(map, middle(window.S1, window.S2, i % width, width),
                              middle(window.P2, window.P1, i / width, height));
    }

private:
    std::int64_t width, height;
    section_window window;
};

} // namespace

std::unique_ptr<start_source> typed_point(double S, double P) {
    if (!(S > 0 && S < 1 && P > -1 && P < 1)) {
        throw usage_error("the start " + real_text(S) + "," + real_text(P) +
                          " is outside the section, 0 < S < 1 and -1 < P < 1");
    }
    return std::make_unique<point_source>(S, P);
}

std::unique_ptr<start_source> typed_angles(double phi, double alpha) {
    if (!(alpha > 0 && alpha < std::numbers::pi)) {
        throw usage_error("the start " + real_text(phi) + "," + real_text(alpha) +
                          " is outside the section, 0 < alpha < pi");
    }
    return std::make_unique<angle_source>(kit::wrapped(phi), alpha);
}

std::unique_ptr<start_source> random_points(std::int64_t count, std::uint64_t seed) {
    return std::make_unique<random_source>(count, seed);
}

std::unique_ptr<start_source> cell_centres(std::int64_t width, std::int64_t height,
                                           const section_window& window) {
    return std::make_unique<cell_source>(width, height, window);
}

void start_list::add(std::unique_ptr<start_source> source) {
    constexpr std::int64_t most = std::int64_t{1} << 53;
    if (source->size() > most - total) throw usage_error("there are too many starts");
    total += source->size();
    sources.push_back(std::move(source));
}

start start_list::at(std::int64_t i, TBilliardMap& map) const {
    std::size_t k = 0;
    while (i >= sources[k]->size())
        i -= sources[k++]->size();
    return sources[k]->at(i, map);
}

} // namespace batch
