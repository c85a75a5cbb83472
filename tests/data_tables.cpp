// SPDX-License-Identifier: MIT
// Where the data of the tests lies, and how a table of it is read. The only file compiled
// with that path: all others come out of a compiler's cache whatever folder they stand in.
#include "tests/data_tables.h"

#include <fstream>
#include <stdexcept>

namespace {

// The cells of one line; a cell in double quotes may hold commas.
std::vector<std::string> split_cells(const std::string& line) {
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

} // namespace

std::string data_file(const std::string& name) {
    return std::string(TEST_DATA_DIR) + "/" + name;
}

std::vector<data_row> read_data_table(const std::string& name) {
    std::ifstream file(data_file(name));
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
