/* Water and steam properties, IAPWS-IF97.
 * T in K, P in Pa absolute; densities in kg/m3, viscosities in Pa s. Status codes: sndl_status.h. */
#ifndef SNDL_IAPWS_H
#define SNDL_IAPWS_H

#include <stdint.h>

#include "sndl/sndl_status.h"

#ifdef __cplusplus
extern "C" {
#endif

int32_t IapwsVdnw(double T, double P, double* d);
int32_t IapwsLdnw(double T, double P, double* d);
int32_t IapwsVvs(double T, double P, double* vis);
int32_t IapwsLvs(double T, double P, double* vis);
int32_t IapwsVkap(double T, double P, double* kappa);
int32_t IapwsTs(double P, double* T);

#ifdef __cplusplus
}
#endif

#endif
