#include "korrin/validation/pdf/crypto.h"

#include <utility>

#include <mbedtls/aes.h>
#include <mbedtls/md.h>

#include "korrin/foundation/precondition.h"

namespace korrin::pdf {
namespace {

const unsigned char* raw(ByteView bytes) {
  return reinterpret_cast<const unsigned char*>(bytes.data());
}

template <std::size_t size>
std::array<std::byte, size> digest(mbedtls_md_type_t type, ByteView bytes) {
  std::array<std::byte, size> result{};
  // Of an algorithm that the library lacks it is handed null, which it refuses.
  const int fault = mbedtls_md(mbedtls_md_info_from_type(type), raw(bytes), bytes.size(),
                               reinterpret_cast<unsigned char*>(result.data()));
  precondition(fault == 0, "the cryptographic library lacks a digest");
  return result;
}

class Aes {
 public:
  Aes() { mbedtls_aes_init(&context); }
  ~Aes() { mbedtls_aes_free(&context); }
  Aes(const Aes&) = delete;
  Aes& operator=(const Aes&) = delete;

  mbedtls_aes_context context;
};

}  // namespace

std::array<std::byte, 16> md5(ByteView bytes) { return digest<16>(MBEDTLS_MD_MD5, bytes); }
std::array<std::byte, 32> sha256(ByteView bytes) { return digest<32>(MBEDTLS_MD_SHA256, bytes); }
std::array<std::byte, 48> sha384(ByteView bytes) { return digest<48>(MBEDTLS_MD_SHA384, bytes); }
std::array<std::byte, 64> sha512(ByteView bytes) { return digest<64>(MBEDTLS_MD_SHA512, bytes); }

Rc4::Rc4(ByteView key) {
  for (std::size_t i = 0; i < state_.size(); ++i) state_[i] = static_cast<std::uint8_t>(i);
  std::uint8_t j = 0;
  for (std::size_t i = 0; i < state_.size(); ++i) {
    const auto byte = static_cast<std::uint8_t>(key[i % key.size()]);
    j = static_cast<std::uint8_t>(j + state_[i] + byte);
    std::swap(state_[i], state_[j]);
  }
}

void Rc4::apply(ByteView in, std::byte* out) {
  for (const std::byte byte : in) {
    i_ = static_cast<std::uint8_t>(i_ + 1);
    j_ = static_cast<std::uint8_t>(j_ + state_[i_]);
    std::swap(state_[i_], state_[j_]);
    const auto sum = static_cast<std::uint8_t>(state_[i_] + state_[j_]);
    *out++ = byte ^ static_cast<std::byte>(state_[sum]);
  }
}

void encryptAesCbc(ByteView key, AesBlock& chain, ByteView in, std::byte* out) {
  Aes aes;
  mbedtls_aes_setkey_enc(&aes.context, raw(key), static_cast<unsigned>(key.size() * 8));
  mbedtls_aes_crypt_cbc(&aes.context, MBEDTLS_AES_ENCRYPT, in.size(),
                        reinterpret_cast<unsigned char*>(chain.data()), raw(in),
                        reinterpret_cast<unsigned char*>(out));
}

void decryptAesCbc(ByteView key, AesBlock& chain, ByteView in, std::byte* out) {
  Aes aes;
  mbedtls_aes_setkey_dec(&aes.context, raw(key), static_cast<unsigned>(key.size() * 8));
  mbedtls_aes_crypt_cbc(&aes.context, MBEDTLS_AES_DECRYPT, in.size(),
                        reinterpret_cast<unsigned char*>(chain.data()), raw(in),
                        reinterpret_cast<unsigned char*>(out));
}

}  // namespace korrin::pdf
