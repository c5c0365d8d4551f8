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
 * deviation. tol: see the implementation's header comment. */
int32_t SolveLsqr(double* X, double* Y, int32_t nData, int32_t nCons, int32_t nTerm, int32_t nCol,
                  double* c, double* yCal, double* sigma, double tol);

#ifdef __cplusplus
}
#endif

#endif
