/* Natural gas compressibility: AGA Report No. 8 (1994) and ISO 12213.
 * T in K, P in Pa absolute; vdn in kmol/m3 and mw in kg/kmol, so vdn * mw is kg/m3.
 * y is the 21-element composition vector; x the 4-element gross input vector.
 * Status codes: sndl_status.h.
 *
 * Composition y (mole fractions, not percent), in this order: methane, nitrogen, carbon
 * dioxide, ethane, propane, water, hydrogen sulfide, hydrogen, carbon monoxide, oxygen,
 * isobutane, n-butane, isopentane, n-pentane, n-hexane, n-heptane, n-octane, n-nonane,
 * n-decane, helium, argon. The fractions must sum to 1 within 1e-6; they are used as given,
 * never rescaled.
 *
 * Statuses. Input checks come first, in this order: 12 for unusable arguments, 10, 11,
 * 13/14, 15/16, then 12 for gross inputs that no gas matches.
 *   12 SNDL_ERR_XINVALID  a null pointer, T not above 0, P below 0, a non-finite T or P, the
 *                         gross vector's length n below 4; or gross inputs that no gas of the
 *                         method matches (SGERG-88's conflicting Hs, d, xCO2, xH2; a negative
 *                         nitrogen fraction from gross method 1).
 *   10 SNDL_ERR_YRANGE    a fraction outside the method's range (or not a number).
 *   11 SNDL_ERR_YSUM      the fractions do not sum to 1 within 1e-6.
 *   13/14 SNDL_ERR_HOVER/HUNDER  heating value above/below the method's range.
 *   15/16 SNDL_ERR_GOVER/GUNDER  relative density above/below the method's range.
 *   -1 SNDL_ERR_CALC      no density solves the equation (no value).
 *   1/2 SNDL_ERR_TOVER/TUNDER    temperature above/below the method's range; 3 SNDL_ERR_POVER
 *                         pressure above it. The value is still computed and returned.
 *   5 SNDL_ERR_PHASE      the equation has no gas-like root at (T, P): the dense (liquid-like)
 *                         root is returned. A gas root that exists is returned with status 0,
 *                         also where it is metastable. A range status outranks this one.
 * With a status of 10 to 16, 12 or -1 the outputs are left unchanged. Densities are solved
 * to machine precision.
 *
 * Ranges (inclusive):
 *   AgaDtlVdnMw   any fractions in [0, 1]; 144.26 to 677.59 K (-200 to 760 degF), P up to
 *                 275.79 MPa (40000 psia): the report's expanded range.
 *   IsoMcaVdnMw   the ISO 12213-2 ranges of the analysis (methane 0.5 to 1, nitrogen to 0.5,
 *                 CO2 to 0.3, ethane to 0.2, propane to 0.05, water to 0.00015, H2S to 0.0002,
 *                 hydrogen to 0.1, CO to 0.03, oxygen to 0.0002, each butane and their sum to
 *                 0.015, each pentane and their sum to 0.005, hexane to 0.001, heptane to
 *                 decane each to 0.0005, helium to 0.005, argon to 0.0002); 225 to 350 K,
 *                 P up to 65 MPa.
 *   AgaGr1VdnMw   hv in MJ/m3 (combustion and metering at 60 degF, 14.73 psia) from 476.66
 *                 BTU/ft3 to 42.87 MJ/m3; rd (real gas, 60 degF, 14.73 psia) 0.554 to 0.87.
 *   AgaGr2VdnMw   rd as method 1.
 *                 Both gross methods: x = (N2, CO2, H2, CO), x[0] used by method 2 only;
 *                 N2 to 0.5, CO2 to 0.3, H2 to 0.1, CO to 0.03; 263 to 338 K, P up to 12 MPa.
 *   IsoPpmVdnMw   hv = Hs in MJ/m3 (combustion 25 degC, metering 0 degC, 101.325 kPa) from
 *                 536.78 BTU/ft3 to 48 MJ/m3; rd = d (0 degC, 101.325 kPa) 0.55 to 0.90;
 *                 x = (unused, CO2, H2, unused), CO2 to 0.3, H2 to 0.1, CO = 0.0964 H2;
 *                 n is not read; 250.15 to 338.15 K, P up to 12 MPa. */
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
