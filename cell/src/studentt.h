// Student's t distribution.
#ifndef OSTREL_CELL_STUDENTT_H
#define OSTREL_CELL_STUDENTT_H

namespace ostrelcell {

// The t that a variable of that distribution stays within, on both sides of 0, with probability `confidence` (between
// 0 and 1). `freedom` is the number of degrees of freedom, at least 1.
double studentT(double confidence, double freedom);

}  // namespace ostrelcell

#endif
