#pragma once

// The forms in which a command prints what it found.

#include <array>

#include "korrin/foundation/enumeration.h"

namespace korrin::host {

enum class ReportFormat { text, json };

}  // namespace korrin::host

namespace korrin {

template <>
struct CaseTable<host::ReportFormat> {
  static constexpr std::array cases = {Case{host::ReportFormat::text, "text"},
                                       Case{host::ReportFormat::json, "json"}};
};

}  // namespace korrin
