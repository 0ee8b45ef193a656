// A table of cases follows the declaration.

#include "korrin/foundation/enumeration.h"

enum class Switch { on, off };

template <>
struct korrin::CaseTable<Switch> {
#ifdef KORRIN_WRONG
  static constexpr std::array cases = {Case{Switch::off, "off"}, Case { Switch::on, "on" }};
#else
  static constexpr std::array cases = {Case{Switch::on, "on"}, Case{Switch::off, "off"}};
#endif
};

std::string_view text(Switch value) { return korrin::rawValue(value); }
