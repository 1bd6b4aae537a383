// SPDX-License-Identifier: MIT
/* What Wine's <math.h> lacks and the standard library's names: functions of long double, which is double
   here. They are declared, so that the library's headers compile; nothing calls them. */
#include_next <math.h>

#ifdef __cplusplus
extern "C" {
#endif
#define ONE(name) long double name(long double)
#define TWO(name) long double name(long double, long double)
ONE(acosl);
ONE(asinl);
ONE(atanl);
ONE(ceill);
ONE(cosl);
ONE(coshl);
ONE(expl);
ONE(fabsl);
ONE(floorl);
ONE(logl);
ONE(log10l);
ONE(sinl);
ONE(sinhl);
ONE(sqrtl);
ONE(tanl);
ONE(tanhl);
ONE(acoshl);
ONE(asinhl);
ONE(atanhl);
ONE(cbrtl);
ONE(erfl);
ONE(erfcl);
ONE(exp2l);
ONE(expm1l);
ONE(lgammal);
ONE(log1pl);
ONE(log2l);
ONE(logbl);
ONE(nearbyintl);
ONE(rintl);
ONE(roundl);
ONE(tgammal);
ONE(truncl);
TWO(atan2l);
TWO(fmodl);
TWO(powl);
TWO(copysignl);
TWO(fdiml);
TWO(fmaxl);
TWO(fminl);
TWO(hypotl);
TWO(nextafterl);
TWO(nexttowardl);
TWO(remainderl);
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
#undef ONE
#undef TWO
#ifdef __cplusplus
}
#endif
