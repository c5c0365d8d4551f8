/* Status codes returned by the property libraries (sndl_iapws, sndl_aga, sndl_dippr, sndl_math).
 * Every operation returns one of these as a 32-bit integer; 0 is success. */
#ifndef SNDL_STATUS_H
#define SNDL_STATUS_H

enum {
    SNDL_ERR_CALC = -1,     /* the calculation failed (no value) */
    SNDL_NORMAL = 0,
    SNDL_ERR_TOVER = 1,     /* temperature above the valid range */
    SNDL_ERR_TUNDER = 2,    /* temperature below the valid range */
    SNDL_ERR_POVER = 3,     /* pressure above the valid range */
    SNDL_ERR_PUNDER = 4,    /* pressure below the valid range */
    SNDL_ERR_PHASE = 5,     /* the point lies in the other phase than the one asked for */
    SNDL_ERR_NOCOMP = 6,    /* unknown component */
    SNDL_ERR_NODATA = 7,    /* no data for this component and property */
    SNDL_ERR_RANK = 8,      /* least squares: rank below the number of terms */
    SNDL_ERR_SIZE = 9,      /* least squares: inconsistent sizes */
    SNDL_ERR_YRANGE = 10,   /* a mole fraction outside its range */
    SNDL_ERR_YSUM = 11,     /* mole fractions do not sum to 1 */
    SNDL_ERR_XINVALID = 12, /* bad input */
    SNDL_ERR_HOVER = 13,    /* heating value above the range */
    SNDL_ERR_HUNDER = 14,   /* heating value below the range */
    SNDL_ERR_GOVER = 15,    /* relative density above the range */
    SNDL_ERR_GUNDER = 16,   /* relative density below the range */
    SNDL_ERR_LESSDATA = 17  /* least squares: fewer data rows than terms */
};

#endif
