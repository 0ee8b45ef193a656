#include "assets/sha256.h"

#include <array>

#include <mbedtls/md.h>

#include "korrin/foundation/ascii.h"
#include "korrin/foundation/precondition.h"

namespace korrin::host {

std::string sha256(std::span<const std::byte> bytes) {
  std::array<unsigned char, 32> digest{};
  const mbedtls_md_info_t* algorithm = mbedtls_md_info_from_type(MBEDTLS_MD_SHA256);
  precondition(algorithm != nullptr &&
                   mbedtls_md(algorithm, reinterpret_cast<const unsigned char*>(bytes.data()),
                              bytes.size(), digest.data()) == 0,
               "the cryptographic library lacks SHA-256");
  std::string text;
  text.reserve(2 * digest.size());
  for (const unsigned char byte : digest) appendHex(text, byte);
  return text;
}

}  // namespace korrin::host
