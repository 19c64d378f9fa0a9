// From 64-bit floats to integers and singles, with the halves-to-even rounding that the file formats expect.
#pragma once

#include <cstdint>

namespace corvan {

/// The literal used for every conversion between degrees and radians; published positions depend on its last digit.
inline constexpr double Pi = 3.14159265358979;

/// Nearest whole number, halves to even; independent of the floating-point environment.
double ArrotondaPari(double value);

/// Nearest whole number, halves to even.
/// @throws RunTimeError when it lies outside the type's range or is not a number
std::int16_t AInt16(double value);
std::int32_t AInt32(double value);

/// The nearest single. @throws RunTimeError when the result is not finite
float ASingolo(double value);

/// The nearest single, or `otherwise` when the result is not finite.
float SingoloOppure(double value, float otherwise);

}  // namespace corvan
