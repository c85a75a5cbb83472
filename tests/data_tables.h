// SPDX-License-Identifier: MIT
// Reads the comma-separated reference tables in tests/data.
#pragma once

#include <cstdlib>
#include <fstream>
#include <map>
#include <stdexcept>
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

/// The cells of one line; a cell in double quotes may hold commas.
inline std::vector<std::string> split_cells(const std::string& line) {
    std::vector<std::string> cells(1);
    bool quoted = false;
    for (const char c : line) {
        if (c == '"') {
            quoted = !quoted;
        } else if (c == ',' && !quoted) {
            cells.emplace_back();
        } else if (c != '\r') {
            cells.back() += c;
        }
    }
    return cells;
}

/// The rows of the table tests/data/`name` that are to be judged; throws when it is missing or a
/// line is too short.
inline std::vector<data_row> read_data_table(const std::string& name) {
    std::ifstream file(std::string(TEST_DATA_DIR) + "/" + name);
    std::string line;
    if (!std::getline(file, line)) throw std::runtime_error("no table " + name);
    const std::vector<std::string> columns = split_cells(line);
    std::vector<data_row> rows;
    while (std::getline(file, line)) {
        const std::vector<std::string> cells = split_cells(line);
        if (cells.size() < columns.size())
            throw std::runtime_error((name + ": short line ").append(line));
        data_row& row = rows.emplace_back();
        for (std::size_t i = 0; i < columns.size(); ++i)
            row.cells[columns[i]] = cells[i];
        if (row.cells["flag"] == "by-design") rows.pop_back();
    }
    return rows;
}
