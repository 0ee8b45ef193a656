#pragma once

// The bound on the readers of formats whose headers link to one another.

namespace korrin::raster {

/// How many times the readers of linked headers may advance before they give a file up. It makes
/// their time independent of the file's length. Real files stay two orders of magnitude below it.
inline constexpr int maximumSteps = 65'536;

/// Counts the steps of one file's reader.
class StepBudget {
 public:
  /// Whether one more step is allowed, which it then takes.
  bool spend() noexcept { return left_-- > 0; }

 private:
  int left_ = maximumSteps;
};

}  // namespace korrin::raster
