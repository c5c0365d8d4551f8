/* Linear least squares. Status codes: sndl_status.h. */
#ifndef SNDL_MATH_H
#define SNDL_MATH_H

#include <stdint.h>

#include "sndl/sndl_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* X: row-major (nData + nCons) x nCol basis matrix, may be overwritten. Y: nData values.
 * c: nTerm coefficients; yCal: the fitted value of each data row; sigma: residual standard
 * deviation.
 *
 * Only the first nTerm columns of each row are used (nCol is the row stride). The nCons rows
 * after the data rows are homogeneous constraints: the solution satisfies X_cons c = 0 exactly.
 * Method: every column is scaled to unit length, then a column-pivoting Householder QR.
 * tol is the relative rank threshold: a pivot of R at most tol times the largest counts as
 * zero; tol = 1e-12 separates a coincident grid point from a narrow but usable range.
 * sigma = sqrt(sum of squared residuals / (nData + nCons - nTerm)), 0 for a square system.
 * Status: 9 for inconsistent sizes (nTerm < 1, nData or nCons < 0, nCol < nTerm, null
 * pointers, tol < 0), 17 when nData < nTerm - nCons, 12 for a non-finite X or Y, 8 when the
 * rank is below nTerm; outputs are written only on success. */
int32_t SolveLsqr(double* X, double* Y, int32_t nData, int32_t nCons, int32_t nTerm, int32_t nCol,
                  double* c, double* yCal, double* sigma, double tol);

#ifdef __cplusplus
}
#endif

#endif
