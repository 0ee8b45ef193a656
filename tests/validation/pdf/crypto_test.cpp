// The primitives against the test vectors of RFC 1321, FIPS 180 and SP 800-38A, and a known RC4
// one.

#include "korrin/validation/pdf/crypto.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/pdf_builder.h"

namespace korrin::pdf {
namespace {

using test::asBytes;

std::string hex(ByteView bytes) {
  constexpr char digits[] = "0123456789abcdef";
  std::string text;
  for (const std::byte byte : bytes) {
    text += digits[static_cast<unsigned>(byte) >> 4];
    text += digits[static_cast<unsigned>(byte) & 15];
  }
  return text;
}

std::vector<std::byte> fromHex(std::string_view text) {
  std::vector<std::byte> bytes;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2)
    bytes.push_back(static_cast<std::byte>(std::stoi(std::string(text.substr(i, 2)), nullptr, 16)));
  return bytes;
}

TEST(Digest, AgreesWithThePublishedVectors) {
  EXPECT_EQ(hex(md5(asBytes(""))), "d41d8cd98f00b204e9800998ecf8427e");
  EXPECT_EQ(hex(md5(asBytes("abc"))), "900150983cd24fb0d6963f7d28e17f72");
  EXPECT_EQ(hex(sha256(asBytes("abc"))),
            "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(hex(sha384(asBytes("abc"))),
            "cb00753f45a35e8bb5a03d699ac65007272c32ab0eded1631a8b605a43ff5bed"
            "8086072ba1e7cc2358baeca134c825a7");
  EXPECT_EQ(hex(sha512(asBytes("abc"))),
            "ddaf35a193617abacc417349ae20413112e6fa4e89a97ea20a9eeee64b55d39a"
            "2192992a274fc1a836ba3c23a3feebbd454d4423643ce80e2a9ac94fa54ca49f");
}

TEST(Rc4, AgreesWithAKnownVectorInOneGoOrTwo) {
  std::vector<std::byte> whole(9);
  Rc4(asBytes("Key")).apply(asBytes("Plaintext"), whole.data());
  EXPECT_EQ(hex(whole), "bbf316e8d940af0ad3");
  std::vector<std::byte> halves(9);
  Rc4 rc4(asBytes("Key"));
  rc4.apply(asBytes("Plai"), halves.data());
  rc4.apply(asBytes("ntext"), halves.data() + 4);
  EXPECT_EQ(halves, whole);
}

struct AesVector {
  const char* name;
  const char* key;
  const char* encrypted;
};

class AesCbc : public testing::TestWithParam<AesVector> {};

TEST_P(AesCbc, AgreesWithThePublishedVector) {
  const auto plain = fromHex("6bc1bee22e409f96e93d7e117393172aae2d8a571e03ac9c9eb76fac45af8e51");
  const auto key = fromHex(GetParam().key);
  AesBlock start;
  for (std::size_t i = 0; i < start.size(); ++i) start[i] = static_cast<std::byte>(i);
  std::vector<std::byte> encrypted(plain.size());
  AesBlock chain = start;
  encryptAesCbc(key, chain, plain, encrypted.data());
  EXPECT_EQ(hex(encrypted), GetParam().encrypted);
  std::vector<std::byte> decrypted(plain.size());
  chain = start;
  decryptAesCbc(key, chain, ByteView(encrypted).first(16), decrypted.data());
  decryptAesCbc(key, chain, ByteView(encrypted).subspan(16), decrypted.data() + 16);
  EXPECT_EQ(decrypted, plain);
}

INSTANTIATE_TEST_SUITE_P(
    Key, AesCbc,
    testing::Values(AesVector{"OfSixteenBytes", "2b7e151628aed2a6abf7158809cf4f3c",
                              "7649abac8119b246cee98e9b12e9197d5086cb9b507219ee95db113a917678b2"},
                    AesVector{"OfThirtyTwoBytes",
                              "603deb1015ca71be2b73aef0857d77811f352c073b6108d72d9810a30914dff4",
                              "f58c4c04d6e5f1ba779eabfb5f7bfbd69cfc4e967edb808d679f777bc6702c7d"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace korrin::pdf
