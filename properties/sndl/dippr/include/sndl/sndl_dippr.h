/* Pure component properties from the DIPPR 801 correlations, vapour density from equations of
 * state. T in K, P in Pa absolute; molar densities in kmol/m3, viscosities in Pa s, ideal gas
 * heat capacity in J/(kmol K). Status codes: sndl_status.h. */
#ifndef SNDL_DIPPR_H
#define SNDL_DIPPR_H

#include <stdint.h>

#include "sndl/sndl_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Size of the caller's name buffer, the width of one name field and the size of the id array. */
#define SNDL_DPR_NAMES_BYTES 10016
#define SNDL_DPR_NAME_WIDTH 50
#define SNDL_DPR_IDS 217

int32_t DprGetClist(char* names, int32_t* ids);
int32_t DprMw(int32_t id, double* mw);
int32_t DprIcp(int32_t id, double T, double* cp);
int32_t DprVdn(int32_t id, double T, double P, double* vdn);
int32_t DprLdn(int32_t id, double T, double* ldn);
int32_t DprVvs(int32_t id, double T, double* vis);
int32_t DprLvs(int32_t id, double T, double* vis);
int32_t DprMixVdn(int32_t n, int32_t* ids, double T, double P, double* y, double* vdn);
int32_t DprMixIcp(int32_t n, int32_t* ids, double T, double* y, double* cp);
int32_t DprMixVvs(int32_t n, int32_t* ids, double T, double* y, double* vis);
int32_t DprIcpRng(int32_t id, double* tLow, double* tHigh);
int32_t DprVdnRng(int32_t id, double* tLow, double* tHigh);
int32_t DprVvsRng(int32_t id, double* tLow, double* tHigh);
int32_t DprLdnRng(int32_t id, double* tLow, double* tHigh);
int32_t DprLvsRng(int32_t id, double* tLow, double* tHigh);
int32_t DprVpRng(int32_t id, double* tLow, double* tHigh);

#ifdef __cplusplus
}
#endif

#endif
