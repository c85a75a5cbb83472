// SPDX-License-Identifier: MIT
// The billiards of the rows of a reference table.
#pragma once

#include "billiard/radius-core/TBilliard.h"
#include "tests/data_tables.h"
#include "tests/reference_curves.h"

#include <memory>
#include <string>

/// Makes the billiard of a row once for a run of rows with the same curve.
class reference_billiards {
public:
    TBilliardMap& of(const data_row& row) {
        if (row.curve() != curve)
            map = std::make_unique<TBilliardMap>(new_reference_curve(row.curve()));
        curve = row.curve();
        return *map;
    }

private:
    std::string curve;
    std::unique_ptr<TBilliardMap> map;
};
