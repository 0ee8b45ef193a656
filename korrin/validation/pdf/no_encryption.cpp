// Stands in for encryption.cpp where the library is built without it: every encrypted document
// counts as locked. Nothing is ever decrypted, and so the constructor of Decryption is not even
// defined here: whoever made one would not get past the linker.

#include "korrin/validation/pdf/encryption.h"
#include "korrin/validation/pdf/value.h"

namespace korrin::pdf {

std::unique_ptr<ByteSource> Decryption::open(std::span<const std::byte> data, std::uint32_t,
                                             std::uint64_t) const {
  return std::make_unique<PlainSource>(data);
}

std::variant<NotEncrypted, Decryption, Locked> unlock(Objects&, const Value& encrypt,
                                                      const Value&) {
  if (encrypt.isNull()) return NotEncrypted{};
  return Locked{};
}

}  // namespace korrin::pdf
