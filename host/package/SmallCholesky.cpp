#include "package/SmallCholesky.h"

namespace orvane::package {

// L D L^T, without the square roots that each column would wait for; on the diagonal stands 1 / D. Column by column,
// so that the inner loops run along what stands together in memory.
bool factorise(SmallMatrix& matrix) {
    const Eigen::Index n = matrix.rows();
    for (Eigen::Index j = 0; j < n; ++j) {
        double* const column = &matrix(0, j);
        if (!(column[j] > 0)) return false;
        column[j] = 1 / column[j];
        for (Eigen::Index k = j + 1; k < n; ++k) {
            double* const later = &matrix(0, k);
            const double factor = column[k] * column[j];
            for (Eigen::Index i = k; i < n; ++i) later[i] -= factor * column[i];
            column[k] = factor;
        }
    }
    return true;
}

void solveFactorised(const SmallMatrix& factor, SmallVector& x) {
    const Eigen::Index n = factor.rows();
    for (Eigen::Index j = 0; j < n; ++j) {
        const double* const column = &factor(0, j);
        for (Eigen::Index i = j + 1; i < n; ++i) x[i] -= column[i] * x[j];
    }
    for (Eigen::Index j = n; j-- > 0;) {
        const double* const column = &factor(0, j);
        double sum = x[j] * column[j];
        for (Eigen::Index i = j + 1; i < n; ++i) sum -= column[i] * x[i];
        x[j] = sum;
    }
}

}  // namespace orvane::package
