#pragma once

// All public operations that read a project, an asset or a text, for tests of what must hold for
// each of them whatever surrounds it.

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::test {

struct Operation {
  std::string name;
  /// Runs it and tells the outcome as text: the same for equal projects at any time.
  std::function<std::string(const KorrinProject&)> outcome;

  friend std::ostream& operator<<(std::ostream& out, const Operation& operation) {
    return out << operation.name;
  }
};

const std::vector<Operation>& everyOperation();

}  // namespace korrin::test
