#pragma once
// A form laid out at its design size and shown at another: one scale for both directions,
// and the offset that centres the design, so the whole keeps its proportions.

#include <algorithm>
#include <cmath>

#include "forms/Control.h"

namespace corvanna {

struct DesignScale {
    double s = 1.0;
    int ox = 0, oy = 0;

    // The largest scale at which a design of w0 by h0 twips fits in width by height, centred.
    static DesignScale fit(int width, int height, double w0, double h0) {
        DesignScale d;
        d.s = std::max(0.01, std::min(width / w0, height / h0));
        d.ox = static_cast<int>(std::lround((width - w0 * d.s) / 2));
        d.oy = static_cast<int>(std::lround((height - h0 * d.s) / 2));
        return d;
    }
    // The same scale for what lies inside a container placed by it.
    DesignScale inside() const { return DesignScale{s, 0, 0}; }

    int x(int v) const { return ox + static_cast<int>(std::lround(v * s)); }
    int y(int v) const { return oy + static_cast<int>(std::lround(v * s)); }
    // Edges are scaled, not sizes, so controls that meet at the design size still meet.
    void place(Control& c, int left, int top, int width, int height) const {
        const int l = x(left), t = y(top);
        c.move(l, t, x(left + width) - l, y(top + height) - t);
    }
};

}  // namespace corvanna
