// A table must name every field of its record.

#include "korrin/foundation/record.h"

struct Lamp {
  double brightness;
  bool isOn;
};

template <>
constexpr auto korrin::fieldsOf<Lamp>() {
  return std::tuple{
      Field{"brightness", &Lamp::brightness},
#ifndef KORRIN_WRONG
      Field{"isOn", &Lamp::isOn},
#endif
  };
}
static_assert(korrin::tableIsComplete<Lamp>);
