// SPDX-License-Identifier: MIT
// The one table of verbs and options: the parser, the help, the completion and the errors read it.
#include "billiard/batch/command_options.h"

#include "billiard/batch/number_text.h"

#include <algorithm>

namespace batch {

bool option_entry::belongs_to(std::string_view verb) const {
    const auto names = split(verbs, ' ');
    return std::find(names.begin(), names.end(), verb) != names.end();
}

// clang-format off
const std::vector<verb_entry>& verbs() {
    static const std::vector<verb_entry> table = {
        {.name = "orbit",
         .summary = "every bounce of each start",
         .columns = "orbit,bounce,S,P,phi,alpha,x,y,length",
         .example = "billiard-batch orbit oval-a:c=5 --start 0.3,0.2 -n 10000 -o orbit.csv"},
        {.name = "map",
         .summary = "exponent, rotation and mean chord of each start, or a picture of a grid",
         .columns = "S,P,lyapunov,rotation,chord,bounces",
         .example = "billiard-batch map oval-a:c=2 --cells 800x800 -o lyapunov.png"},
        {.name = "scan",
         .summary = "the chaotic share of the section over a parameter",
         .columns = "the ranges' values,circumference,area,chord,lyapunov,chaotic,chaotic_error",
         .example = "billiard-batch scan oval-a:c=1.5..6/46 --random 500 -o chaos.csv"},
        {.name = "periodic",
         .summary = "the periodic points that a search finds, with their stability",
         .columns = "order,S,P,phi,alpha,trace,kind,residual",
         .example = "billiard-batch periodic oval-a:c=3 --order 4 --cells 40x40"},
        {.name = "curve",
         .summary = "length, area, box and convexity of the table itself",
         .columns = "circumference,area,x1,y1,x2,y2,convex,inflections,mean_chord",
         .example = "billiard-batch curve stadium:z=1"},
    };
    return table;
}

const std::vector<option_entry>& options() {
    constexpr const char* all = "orbit map scan periodic curve";
    static const std::vector<option_entry> table = {
        {.name = "-n", .value = "N", .verbs = "orbit map scan",
         .help = "bounces of each orbit (default 1000)"},
        {.name = "--start", .value = "S,P", .verbs = "orbit map",
         .help = "start at a point of the section; may be given many times", .repeatable = true},
        {.name = "--angles", .value = "PHI,ALPHA", .verbs = "orbit map",
         .help = "the same by the polar angle and the angle to the tangent, radians; may be given "
                 "many times", .repeatable = true},
        {.name = "--from", .value = "FILE", .verbs = "orbit map",
         .help = "starts from the columns S and P of a CSV file; - is standard input"},
        {.name = "--random", .value = "N", .verbs = "orbit map scan",
         .help = "N starts, uniform in the section (scan: default 200)"},
        {.name = "--seed", .value = "K", .verbs = "orbit map scan",
         .help = "which random starts, a whole number (default 1)"},
        {.name = "--cells", .value = "WxH", .verbs = "map periodic",
         .help = "starts in the centres of a grid (periodic: default 100x100)"},
        {.name = "--window", .value = "S1,P1,S2,P2", .verbs = "map periodic",
         .help = "the part of the section that the grid covers (default 0,-1,1,1)"},
        {.name = "--threshold", .value = "X", .verbs = "scan",
         .help = "exponents above X count as chaotic (default: by -n, see the manual)"},
        {.name = "--order", .value = "Q", .verbs = "periodic",
         .help = "the highest order (default 4)"},
        {.name = "--let", .value = "NAME=VALUE", .verbs = all,
         .help = "a further name of a formula: a number, an expression or, for scan, a range; may "
                 "be given many times", .repeatable = true},
        {.name = "-o", .value = "FILE", .verbs = all,
         .help = "write to FILE, not to standard output; map --cells draws a picture if it ends in "
                 ".png", .decides_rows = false},
        {.name = "--show", .value = "WHAT", .verbs = "map",
         .help = "the picture's column: lyapunov, rotation or chord (default lyapunov)",
         .decides_rows = false, .choices = "lyapunov rotation chord"},
        {.name = "--range", .value = "LO,HI", .verbs = "map",
         .help = "values at the ends of the picture's colours (default: the least and the largest)",
         .decides_rows = false},
        {.name = "--scale", .value = "K", .verbs = "map",
         .help = "the picture has K x K pixels for a cell (default 1)", .decides_rows = false},
        {.name = "-j", .value = "N", .verbs = all,
         .help = "threads (default: one for each core); the rows do not depend on it",
         .decides_rows = false},
        {.name = "--shard", .value = "K/N", .verbs = all,
         .help = "the K-th of N parts; the parts one after another are the whole",
         .decides_rows = false},
        {.name = "--resume", .value = "", .verbs = all,
         .help = "go on with the file of -o after its last whole row", .decides_rows = false},
        {.name = "--dry-run", .value = "", .verbs = all,
         .help = "tell rows, bounces and an estimate of the time, and do nothing",
         .decides_rows = false},
        {.name = "--progress", .value = "WHEN", .verbs = all,
         .help = "always, never or auto: only where standard error is a terminal (default)",
         .decides_rows = false, .choices = "always never auto"},
    };
    return table;
}
// clang-format on

const option_entry& find_option(std::string_view name) {
    return *std::find_if(options().begin(), options().end(),
                         [&](const option_entry& option) { return name == option.name; });
}

} // namespace batch
