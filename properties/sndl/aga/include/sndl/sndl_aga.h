/* Natural gas compressibility: AGA Report No. 8 and ISO 12213.
 * T in K, P in Pa absolute; vdn in kmol/m3 and mw in kg/kmol, so vdn * mw is kg/m3.
 * y is the 21-element composition vector; x the 4-element gross input vector.
 * Status codes: sndl_status.h. */
#ifndef SNDL_AGA_H
#define SNDL_AGA_H

#include <stdint.h>

#include "sndl/sndl_status.h"

#ifdef __cplusplus
extern "C" {
#endif

int32_t AgaDtlVdnMw(double T, double P, double* y, double* vdn, double* mw);
int32_t AgaGr1VdnMw(double T, double P, double hv, double rd, double* x, int32_t n, double* vdn,
                    double* mw);
int32_t AgaGr2VdnMw(double T, double P, double rd, double* x, int32_t n, double* vdn, double* mw);
int32_t IsoMcaVdnMw(double T, double P, double* y, double* vdn, double* mw);
int32_t IsoPpmVdnMw(double T, double P, double hv, double rd, double* x, int32_t n, double* vdn,
                    double* mw);

#ifdef __cplusplus
}
#endif

#endif
