// SPDX-License-Identifier: MIT
// The verb "curve": the table itself, in one row.
#include "billiard/batch/curve_job.h"

#include "billiard/batch/curve_facts.h"
#include "billiard/batch/errors.h"
#include "billiard/batch/number_text.h"

namespace batch {

namespace {

class only_row : public block {
public:
    void compute(table_shelf& tables, work_monitor&) override {
        const curve_facts f = facts_of(tables.table(0));
        for (const double x : {f.circumference, f.area, f.x1, f.y1, f.x2, f.y2})
            text += real_text(x) + ',';
        text += std::string(f.convex ? "1," : "0,") + std::to_string(f.inflections) + ',' +
                real_text(f.mean_chord) + '\n';
    }

    std::string take_rows() override { return std::move(text); }

private:
    std::string text;
};

} // namespace

void curve_job::leave_out(const written_rows& written) {
    if (written.count > rows) throw usage_error("the file has more rows than this command");
    rows -= written.count;
}

std::unique_ptr<block> curve_job::next() {
    if (rows == 0) return nullptr;
    --rows;
    return std::make_unique<only_row>();
}

} // namespace batch
