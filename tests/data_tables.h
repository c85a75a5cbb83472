// SPDX-License-Identifier: MIT
// Reads the files in tests/data, comma-separated reference tables most of them.
#pragma once

#include <cstdlib>
#include <map>
#include <string>
#include <vector>

/// One row of a table, its cells found by the names of the columns.
class data_row {
public:
    std::map<std::string, std::string> cells;

    const std::string& text(const std::string& column) const { return cells.at(column); }
    double number(const std::string& column) const {
        return std::strtod(text(column).c_str(), nullptr);
    }
    /// As reference_curves.h names it.
    std::string curve() const { return text("kind") + " " + text("params"); }
    int integer(const std::string& column) const {
        return static_cast<int>(std::strtol(text(column).c_str(), nullptr, 10));
    }
};

/// The path of the file tests/data/`name`.
std::string data_file(const std::string& name);

/// The rows of the table tests/data/`name` that are to be judged; throws when it is missing or a
/// line is too short.
std::vector<data_row> read_data_table(const std::string& name);
