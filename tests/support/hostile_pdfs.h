#pragma once

// Documents made to exhaust whoever reads them, each by one trick. None is kept as a file: they are
// made from their description.

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "korrin/validation/pdf/first_page_box.h"

namespace korrin::test {

struct HostilePdf {
  const char* name;
  /// Makes the document; those that can be of any size get about `size` bytes long.
  std::string (*make)(std::size_t size);
  /// What is read when it is a megabyte long.
  PdfOutcome outcome;
};

const std::vector<HostilePdf>& hostilePdfs();

inline std::ostream& operator<<(std::ostream& out, const HostilePdf& pdf) {
  return out << pdf.name;
}

}  // namespace korrin::test
