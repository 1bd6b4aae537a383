// SPDX-License-Identifier: MIT
/* What Wine's <math.h> lacks and the standard library's names: functions of long double, which is double
   here. They are declared, so that the library's headers compile; nothing calls them. */
#include_next <math.h>

#ifdef __cplusplus
extern "C" {
#endif
typedef long double fill_one(long double);
typedef long double fill_two(long double, long double);
fill_one acosl, asinl, atanl, ceill, cosl, coshl, expl, fabsl, floorl, logl, log10l, sinl, sinhl, sqrtl, tanl,
    tanhl, acoshl, asinhl, atanhl, cbrtl, erfl, erfcl, exp2l, expm1l, lgammal, log1pl, log2l, logbl,
    nearbyintl, rintl, roundl, tgammal, truncl;
fill_two atan2l, fmodl, powl, copysignl, fdiml, fmaxl, fminl, hypotl, nextafterl, nexttowardl, remainderl;
long double frexpl(long double, int*);
long double ldexpl(long double, int);
long double modfl(long double, long double*);
long double fmal(long double, long double, long double);
long double remquol(long double, long double, int*);
long double scalblnl(long double, long);
long double scalbnl(long double, int);
int ilogbl(long double);
long lrintl(long double);
long lroundl(long double);
long long llrintl(long double);
long long llroundl(long double);
float erfcf(float);
float nexttowardf(float, long double);
#ifdef __cplusplus
}
#endif
