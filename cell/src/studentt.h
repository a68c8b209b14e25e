// Student's t distribution.
#pragma once

namespace ostrelcell {

// The t that a variable of that distribution stays within, on both sides of 0, with probability `confidence` (between
// 0 and 1). `freedom` is the number of degrees of freedom, at least 1.
double student_t(double confidence, double freedom);

}  // namespace ostrelcell
