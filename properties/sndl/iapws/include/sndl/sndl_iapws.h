/* Water and steam properties, IAPWS-IF97.
 * T in K, P in Pa absolute; densities in kg/m3, viscosities in Pa s. Status codes: sndl_status.h.
 *
 * Sources: IAPWS R7-97(2012) (regions 1 to 5, B23), SR5-05(2016) (region 3 v(T, p), refined by
 * Newton steps on the Helmholtz function until p(rho, T) = P to 1e-12), R12-08 viscosity in its
 * industrial form (no critical enhancement). Isentropic exponent: kappa = w^2 rho / P.
 *
 * Status of the (T, P) operations, first match wins:
 *   4  P <= 0 (no value: the output is NaN)
 *   3  P above 100 MPa
 *   2  T below 273.15 K
 *   1  T above 2273.15 K for P up to 50 MPa, above 1073.15 K for P above 50 MPa
 *   5  the point lies on the other side of the saturation line than the phase the operation
 *      names (steam operations at a compressed-liquid point, liquid operations at a steam
 *      point; above 647.096 K a point below 22.064 MPa counts as steam, one above it as
 *      supercritical and fits both). The value returned is the named phase's metastable state
 *      from region 1 or 2 (up to 623.15 K, while that state is mechanically stable), otherwise
 *      the stable state (region 3 has one equation for both sides).
 *   0  otherwise.
 * A point within 1e-9 (relative) of the saturation pressure lies on the line and takes the
 * phase asked for, with status 0. Outside the range the equations are extrapolated and a value
 * is returned wherever one can be computed.
 *
 * IapwsTs: 0 from the triple-point pressure 611.657 Pa to the critical pressure 22.064 MPa;
 * 4 below (value still computed for P > 0, NaN for P <= 0), 3 above (the saturation equation
 * continued). A null output pointer gives 12. */
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
