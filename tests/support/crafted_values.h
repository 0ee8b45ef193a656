#pragma once

// Values as somebody would choose them who knows how hashes are often computed and wants every
// look-up in a table of them to take as long as a search.

#include <cstddef>
#include <string>
#include <vector>

#include "korrin/foundation/uuid.h"

namespace korrin::test {

struct IdentifierFamily {
  const char* name;
  UUID (*member)(std::size_t index);  ///< Different for every index below 2 to the power of 16.
};

/// Each with a relation between the two halves under which they cancel out in many a mixture.
const std::vector<IdentifierFamily>& identifierFamilies();

/// Members of the family with which an exclusive or of the halves, and of the second one shifted by
/// 29 bits, is always zero.
std::vector<UUID> collidingIdentifiers(std::size_t count);

/// Different texts of 16 ASCII characters that share a hash under libstdc++'s `std::hash` of
/// strings.
std::vector<std::string> collidingTexts(std::size_t count);

/// Different texts of one length, with one byte in the middle and one at the end.
std::vector<std::string> textsAlikeInTheMiddleAndAtTheEnd(std::size_t count);

}  // namespace korrin::test
