#pragma once

// Encrypted documents. Page data is encrypted only where it lies in an object stream, but whether a
// document may be read at all depends on its password: one that opens with the empty user password
// is read, any other is not.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <variant>

#include "korrin/validation/pdf/stream_decoder.h"

namespace korrin::pdf {

class Objects;
struct Value;

/// Decrypts the streams of a document that has been unlocked.
class Decryption {
 public:
  enum class Method { none, rc4, aes128, aes256 };

  Decryption(Method method, std::span<const std::byte> key);

  /// The decrypted `data` of the stream in object `number`; `data` must outlive the result.
  std::unique_ptr<ByteSource> open(std::span<const std::byte> data, std::uint32_t number,
                                   std::uint64_t generation) const;

 private:
  Method method_;
  std::array<std::byte, 32> key_{};
  std::size_t keySize_;
};

/// The document needs a password, or is encrypted in a way that is not known here.
struct Locked {};
struct NotEncrypted {};

/// Tries the empty user password on the trailer's values of /Encrypt and /ID.
std::variant<NotEncrypted, Decryption, Locked> unlock(Objects& objects, const Value& encrypt,
                                                      const Value& identifiers);

}  // namespace korrin::pdf
