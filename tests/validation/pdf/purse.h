#pragma once

#include <cstddef>

#include "korrin/validation/pdf/pdf_budget.h"

namespace korrin::pdf {

/// A budget of so many steps.
inline Budget purseOf(std::size_t steps) {
  Budget budget(0);
  budget.payFor(limits::stepsBase - steps, 1);
  return budget;
}

}  // namespace korrin::pdf
