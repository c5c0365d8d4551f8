/* Pure component properties from the DIPPR 801 correlations, vapour density from equations of
 * state. T in K, P in Pa absolute; molar densities in kmol/m3, viscosities in Pa s, ideal gas
 * heat capacity in J/(kmol K). Status codes: sndl_status.h.
 *
 * Statuses common to all operations: 6 for an id not in the catalogue (outputs untouched), 12
 * for a missing output pointer or a temperature or pressure that is not a positive number.
 * Outside a correlation's temperature range the status is 1 (above) or 2 (below) and the value
 * is still computed from the correlation.
 *
 * Vapour density (DprVdn): components with a GERG-2008 pure-fluid equation (Kunz and Wagner
 * 2012: the 21 natural gas components) use it; its range is 60 K to 700 K, not below the
 * component's triple point. The others use Peng-Robinson from the catalogue's Tc, Pc and
 * acentric factor, from the triple point to 1500 K (lower where the Peng-Robinson alpha
 * function stops falling: neon 781 K, nitric oxide 609 K). Above 70 MPa the status is 3.
 * Status 5 marks a point in the liquid region: below Tc and above the saturation pressure
 * (the reference equation's own, from the Gibbs energies of its two roots; for the cubic, the
 * catalogue's vapour-pressure correlation), or where the equation has no gas root. The value is
 * then the metastable gas root where there is one, else the liquid-like root. Range statuses
 * take precedence over 5.
 *
 * Mixtures: fractions that do not sum to 1 are scaled to do so; a negative fraction gives 10, a
 * zero sum 11, a count outside 1 to 217 gives 12. Components with a zero fraction take no part.
 * The first non-zero status of a component is returned with the mixture's value.
 * DprMixIcp: mole-fraction average. DprMixVvs: Wilke's rule. DprMixVdn: a single component
 * goes to DprVdn; otherwise Peng-Robinson with van der Waals one-fluid mixing and no binary
 * parameters, status 5 below Kay's pseudo-critical temperature where the liquid-like root is
 * the stable one (a pseudo-pure test; it does not trace a dew point). */
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

/* Fills name i into names[i * 50 ...], NUL-terminated and NUL-padded to the field's end, and
 * ids[i], for the 200 components in list order; returns the count. Bytes past the last field
 * are left as they were. Positions 0 to 25 are fixed (natural gas components are picked by
 * position). */
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
int32_t DprVdnRng(int32_t id, double* tLow, double* tHigh); /* the equation of state's range */
int32_t DprVvsRng(int32_t id, double* tLow, double* tHigh);
int32_t DprLdnRng(int32_t id, double* tLow, double* tHigh);
int32_t DprLvsRng(int32_t id, double* tLow, double* tHigh);
int32_t DprVpRng(int32_t id, double* tLow, double* tHigh);

#ifdef __cplusplus
}
#endif

#endif
