// Cholesky's factorisation of the few rows that a mixture has: a general library's is made for large matrices, and took
// three times as long here.
// Not here: what is solved with it (TwoPhaseSplit, StabilityTest).
#pragma once

#include "package/PhasePair.h"

namespace orvane::package {

/// Factorises a symmetric matrix, of which the lower triangle is read, in place, into L D L^T. False when it is not
/// positive definite; then the matrix is undefined.
bool factorise(SmallMatrix& matrix);

/// Solves with what factorise() left; the right-hand side becomes the solution.
void solveFactorised(const SmallMatrix& factor, SmallVector& rightHandSide);

}  // namespace orvane::package
