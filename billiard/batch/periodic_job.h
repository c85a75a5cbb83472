// SPDX-License-Identifier: MIT
// The verb "periodic": the periodic points that a search finds.
#pragma once

#include "billiard/batch/periodic_search.h"
#include "billiard/batch/row_job.h"
#include "billiard/batch/start_list.h"

#include <vector>

namespace batch {

/// A row for each point of each periodic orbit, order by order.
///
/// An orbit must not be given twice, whichever start has found it: the search of one order is not
/// cut into parts. Parts are made of whole orders.
class periodic_job : public row_job {
public:
    /// Orders 1 to `orders`, searched from each of the starts, which must outlive the job.
    periodic_job(const start_list& starts, int orders, shard part);

    std::string columns() const override { return "order,S,P,phi,alpha,trace,kind,residual"; }
    job_size size() const override;
    void leave_out(const written_rows& rows) override { rows_to_leave_out = rows.count; }
    std::unique_ptr<block> next() override;
    std::int64_t units() const override;

private:
    class slice;
    std::string rows_of_order();
    bool is_left_out();

    const start_list& starts;
    int order;      ///< of the next slice
    int last_order; ///< of this part
    std::int64_t next_start = 0;
    std::int64_t rows_to_leave_out = 0;

    std::vector<periodic_orbit> found; ///< in the slices of one order that are delivered
};

} // namespace batch
