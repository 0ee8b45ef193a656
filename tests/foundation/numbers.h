#pragma once

#include "korrin/foundation/list.h"

namespace korrin {

/// So many numbers, from 0 on.
inline List<int> numbers(int count) {
  List<int> list;
  for (int i = 0; i < count; ++i) list.push_back(i);
  return list;
}

}  // namespace korrin
