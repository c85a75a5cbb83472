// SPDX-License-Identifier: MIT
// Runs the billiard beside the program and tells which pixels the program must have drawn.
//
// It reads one command a line and answers each with one line of numbers:
//
//     curve KIND PARAMETER...  takes a curve; the present point stays, as in the program
//     section W H X1 Y1 X2 Y2  a phase canvas of W x H pixels that shows that range
//     plane W H                a path canvas of W x H pixels
//     click X Y                starts at the pixel of the section; answers the start's pixel
//     point S P                starts at the point; answers the start's pixel
//     iterate N                answers the pixels X Y of N bounces that lie in the section
//     impact                   answers the impact's pixel in the plane
//     boundary                 answers the pixels of the boundary's corners in the plane
// A start that the map refuses and an orbit that fails are answered by "refused".
#include "billiard/radius-core/TBilliard.h"
#include "mathkit/TError.h"
#include "mathkit/TMapW2S.h"
#include "tests/reference_curves.h"

#include <cmath>
#include <iostream>
#include <sstream>
#include <string>

namespace {

// The phase canvas keeps this many pixels on the left and at the bottom for its axes.
constexpr int margin = 30;

TBilliardMap map;
TMapW2S section, plane;

template<class Value>
Value next(std::istream& words) {
    Value value{};
    words >> value;
    return value;
}

void set_curve(std::istream& words) {
    std::string curve;
    std::getline(words >> std::ws, curve);
    map.setF(new_reference_curve(curve));
}

int pixel(double value) {
    return static_cast<int>(std::rint(value));
}

void put_pixel(const TMapW2S& map_to, double x, double y) {
    std::cout << pixel(x * map_to.ax + map_to.bx) << ' ' << pixel(y * map_to.ay + map_to.by) << ' ';
}

void put_if_shown(double S, double P) {
    const int x = pixel(S * section.ax + section.bx), y = pixel(P * section.ay + section.by);
    if (section.screen.isinside(x, y)) std::cout << x << ' ' << y << ' ';
}

void start_at(double S, double P) {
    if (map.setPoint(S, P))
        put_if_shown(S, P);
    else
        std::cout << "refused";
}

void iterate(int n) {
    for (int i = 0; i < n; ++i) {
        double S, P;
        map.iterate();
        map.getPoint(S, P);
        put_if_shown(S, P);
    }
}

void set_section(std::istream& words) {
    const auto w = next<int>(words), h = next<int>(words);
    double range[4];
    for (double& end : range)
        end = next<double>(words);
    section.set_world(range[0], range[1], range[2], range[3]);
    section.set_screen(margin, 0, w - 1, h - margin, false);
}

void set_plane(std::istream& words) {
    const auto w = next<int>(words), h = next<int>(words);
    map.circumference.getborder(plane.world);
    plane.world.zoom(1.02, 1.02);
    plane.set_screen(0, 0, w, h, true);
}

void put_boundary() {
    for (int i = 0; i < map.circumference.size(); ++i) {
        double x, y;
        map.circumference.get(i, x, y);
        put_pixel(plane, x, y);
    }
}

void put_impact() {
    double x, y;
    map.getXY(x, y);
    put_pixel(plane, x, y);
}

void obey(const std::string& line) {
    std::istringstream words(line);
    const auto command = next<std::string>(words);
    if (command == "curve") return set_curve(words);
    if (command == "section") return set_section(words);
    if (command == "plane") return set_plane(words);
    if (command == "iterate") return iterate(next<int>(words));
    if (command == "impact") return put_impact();
    if (command == "boundary") return put_boundary();
    const auto a = next<double>(words), b = next<double>(words);
    if (command == "click")
        return start_at(a * section.cx + section.dx, b * section.cy + section.dy);
    if (command == "point") return start_at(a, b);
    throw TError(("no such command: " + command).c_str());
}

} // namespace

int main() {
    // The program's own start.
    map.setF(new TOvalAFunction(5.0));
    map.setPoint(0.5, 0.5);

    for (std::string line; std::getline(std::cin, line);) {
        try {
            obey(line);
        } catch (const TError& error) {
            std::cerr << line << ": " << error.text().c_str() << '\n';
            std::cout << "refused";
        }
        std::cout << std::endl;
    }
    return 0;
}
