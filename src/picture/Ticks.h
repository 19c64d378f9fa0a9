// Round numbers along an axis.
#pragma once

#include <string>
#include <vector>

namespace corvan {

/// The smallest 1, 2 or 5 times a power of ten that divides a span into at most so many steps; 0 for a span of 0 or
/// less, or that is not finite.
double PassoTacche(double span, double most);

/// The multiples of a step from one bound to the other, in this order; none for a step of 0, or more than 10,000.
std::vector<double> Tacche(double from, double to, double step);

/// A multiple of a step with as many decimals as the step has; whole numbers from 10,000 on in groups of three.
std::string TestoTacca(double value, double step);

}  // namespace corvan
