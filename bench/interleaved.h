// SPDX-License-Identifier: MIT
// Wall-clock times of things that a processor clock cannot see, taken in turns.
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

namespace bench {

/// The medians of two figures, each measured `repetitions` times, one after the other in turns:
/// what slows the machine for a while slows both.
struct interleaved_medians {
    double first = 0, second = 0;

    interleaved_medians(int repetitions, const std::function<double()>& measure_first,
                        const std::function<double()>& measure_second) {
        std::vector<double> a, b;
        for (int i = 0; i < repetitions; ++i) {
            a.push_back(measure_first());
            b.push_back(measure_second());
        }
        first = median(a);
        second = median(b);
    }

private:
    static double median(std::vector<double> values) {
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::nth_element(values.begin(), middle, values.end());
        return *middle;
    }
};

} // namespace bench
