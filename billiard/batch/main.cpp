// SPDX-License-Identifier: MIT
// The model without a window: a command line, rows of numbers.
#include "billiard/batch/errors.h"
#include "billiard/batch/row_file.h"
#include "billiard/batch/run_command.h"
#include "billiard/batch/signals.h"

#include <cstdio>
#include <exception>
#include <new>

namespace {

constexpr int failed = 1, wrong_command = 2, nobody_reads = 128 + 13; // as SIGPIPE's end counts

int complain(const char* what, int status) {
    std::fprintf(stderr, "billiard-batch: %s\n", what);
    return status;
}

int run(int argc, char** argv) {
    const batch::parsed_line line = batch::parse_command_line(argc, argv);
    if (line.answer.empty()) return batch::run_command(line.what);
    batch::row_file output;
    output.write(line.answer);
    output.close();
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    batch::handle_signals();
    try {
        return run(argc, argv);
    } catch (const batch::usage_error& error) {
        return complain(error.what(), wrong_command);
    } catch (const batch::closed_pipe&) {
        return nobody_reads;
    } catch (const std::bad_alloc&) {
        return complain("not enough memory", failed);
    } catch (const std::exception& error) {
        return complain(error.what(), failed);
    }
}
