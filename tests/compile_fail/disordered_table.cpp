// A table must name the fields in the order in which the record holds them.

#include "korrin/foundation/record.h"

struct Lamp {
  korrin::UUID id;
  bool isOn;
};

template <>
constexpr auto korrin::fieldsOf<Lamp>() {
#ifdef KORRIN_WRONG
  return std::tuple{Field{"isOn", &Lamp::isOn}, Field{"id", &Lamp::id}};
#else
  return std::tuple{Field{"id", &Lamp::id}, Field{"isOn", &Lamp::isOn}};
#endif
}
static_assert(korrin::tableIsComplete<Lamp>);
