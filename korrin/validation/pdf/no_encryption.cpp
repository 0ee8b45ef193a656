// Stands in for encryption.cpp where the library is built without it: every encrypted document
// counts as locked.

#include "korrin/validation/pdf/encryption.h"
#include "korrin/validation/pdf/value.h"

namespace korrin::pdf {

Decryption::Decryption(Method method, std::span<const std::byte>) : method_(method), keySize_(0) {}

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
