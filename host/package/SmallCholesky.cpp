#include "package/SmallCholesky.h"

#include <cmath>

namespace orvane::package {

// Column by column, so that the inner loops run along what stands together in memory.
bool factorise(SmallMatrix& matrix) {
    const Eigen::Index n = matrix.rows();
    for (Eigen::Index j = 0; j < n; ++j) {
        double* const column = &matrix(0, j);
        if (!(column[j] > 0)) return false;
        const double perRoot = 1 / std::sqrt(column[j]);
        for (Eigen::Index i = j; i < n; ++i) column[i] *= perRoot;
        for (Eigen::Index k = j + 1; k < n; ++k) {
            double* const later = &matrix(0, k);
            const double factor = column[k];
            for (Eigen::Index i = k; i < n; ++i) later[i] -= factor * column[i];
        }
    }
    return true;
}

void solveFactorised(const SmallMatrix& factor, SmallVector& x) {
    const Eigen::Index n = factor.rows();
    for (Eigen::Index j = 0; j < n; ++j) {
        const double* const column = &factor(0, j);
        x[j] /= column[j];
        for (Eigen::Index i = j + 1; i < n; ++i) x[i] -= column[i] * x[j];
    }
    for (Eigen::Index j = n; j-- > 0;) {
        const double* const column = &factor(0, j);
        double sum = x[j];
        for (Eigen::Index i = j + 1; i < n; ++i) sum -= column[i] * x[i];
        x[j] = sum / column[j];
    }
}

}  // namespace orvane::package
