// Sine, cosine, arc tangents and hypotenuse computed the same way on every system. The C
// libraries round these functions differently in the last bit (Windows' in one case of seven
// for hypot), and the files the program writes must not depend on where it runs.
#pragma once

namespace vorna {

// Within an ulp or so of the exact value; NaN in, NaN out; the sign of zero is kept.
double Sin(double x);
double Cos(double x);
double Atan(double x);
double Atan2(double y, double x);
double Asin(double x);
double Acos(double x);
// Without overflow or underflow on the way.
double Hypot(double x, double y);

} // namespace vorna
