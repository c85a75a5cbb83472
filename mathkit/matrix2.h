// SPDX-License-Identifier: MIT
// Linear maps of the plane.
#pragma once

/// Two rows and two columns, (xx xy; yx yy).
struct matrix2 {
    double xx = 1, xy = 0, yx = 0, yy = 1;

    double trace() const { return xx + yy; }
    double determinant() const { return xx * yy - xy * yx; }
    double square() const { return xx * xx + xy * xy + yx * yx + yy * yy; } ///< of all entries
};

/// First b, then a.
inline matrix2 operator*(const matrix2& a, const matrix2& b) {
    return {a.xx * b.xx + a.xy * b.yx, a.xx * b.xy + a.xy * b.yy, a.yx * b.xx + a.yy * b.yx,
            a.yx * b.xy + a.yy * b.yy};
}

/// The (u, v) that j maps to (x, y), with the directions left out that j shrinks to less than `w`:
/// to divide by what rounding left of a zero would throw the solution along them. The form is
/// (J^T J + w^2)^-1 J^T, free of cancellation.
inline void damped_solution(const matrix2& j, double x, double y, double w, double& u, double& v) {
    const double ww = w * w;
    const double d = j.determinant(), scale = d * d + ww * (j.square() + ww);
    u = (d * (j.yy * x - j.xy * y) + ww * (j.xx * x + j.yx * y)) / scale;
    v = (d * (j.xx * y - j.yx * x) + ww * (j.xy * x + j.yy * y)) / scale;
}
