// SPDX-License-Identifier: MIT
// The contract of every plot font: text at an anchor, aligned, level or at an angle.
#pragma once

/// Draws text on a drawing context that only the back-end knows.
///
/// A caller sets the context, then size and rotation, then `align`, then draws:
///     font->set_dc(dc); font->setsizerot(12, 0); font->align = 5; font->drawText(x, y, text, -1);
class base_font {
public:
    /// Alignment flags, joined by |. With none the anchor is the left end of the base line.
    enum : unsigned {
        center = 1, ///< centred on the anchor along the text
        end = 2,    ///< the text ends at the anchor
        top = 4,    ///< the anchor is at the top: the base line moves down by the point size
        middle = 8  ///< the anchor is at mid height: the base line moves down by half of it
    };

    unsigned align = 0;

protected:
    double size = 12;   ///< points
    double rot = 0;     ///< radians, as setrot takes them
    void* dc = nullptr; ///< not owned

public:
    base_font() = default;
    base_font(const base_font&) = delete;
    base_font& operator=(const base_font&) = delete;
    virtual ~base_font() = default;

    /// Sets the size in points. Takes any value: text is drawn in the usable_size of it.
    virtual void setsize(double points) { size = points; }

    /// Sets the rotation in radians, counter-clockwise: 0 reads rightward, pi/2 upward. NaN and
    /// infinity count as 0.
    virtual void setrot(double radians) { rot = radians; }

    /// Both at once.
    virtual void setsizerot(double points, double radians);

    /// Draws `length` characters of `text`, or all up to the closing zero where length is negative,
    /// with the anchor at pixel (x, y) of the context.
    virtual void drawText(int x, int y, const wchar_t* text, int length) = 0;

    /// The same for a Latin-1 text: widens it and calls the wide operation.
    virtual void drawText(int x, int y, const char* text, int length);

    void set_dc(void* context) { dc = context; }

    /// For callers that lay out lines of text by themselves; what draws here has set the size.
    double get_size() const { return size; }

    /// The size that text is drawn with: `points` brought into the range from 1 to 400, and the
    /// default size for NaN. So no size that a user types can fail in a drawing.
    static double usable_size(double points);

    /// Pixels per point: those of a screen of 100 dots per inch, whatever the real one has.
    ///
    /// Capitals of the common faces are then about as many pixels high as the size has points, and
    /// so the alignment flags may count points as pixels.
    static constexpr double pixels_per_point = 100.0 / 72.0;

    /// The largest size of a coordinate that text is drawn at: far outside any picture, and far
    /// from the ends of int.
    static constexpr double coordinate_limit = 1 << 30;

protected:
    /// `length`, or that of `text` up to its closing zero where `length` is negative.
    static int length_of(const wchar_t* text, int length);

    /// The rotation that text is drawn with: that of setrot, 0 for NaN and infinity.
    double usable_rot() const;

    /// Moves the anchor to the left end of the base line, as `align` asks for a text of `width`
    /// pixels in the present size and rotation. Flags add up.
    void move_to_base_line(int& x, int& y, int width) const;
};
