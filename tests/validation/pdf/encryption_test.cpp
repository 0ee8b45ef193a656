#include "korrin/validation/pdf/encryption.h"

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "korrin/validation/pdf/crypto.h"

#include "tests/support/pdf_builder.h"
#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;

const std::filesystem::path documents =
    std::filesystem::path(KORRIN_SOURCE_DIR) / "tests/validation/pdf/documents";

std::string contentOf(const std::string& name) {
  std::ifstream file(documents / (name + ".pdf"), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class EncryptedDocument : public testing::TestWithParam<const char*> {};

TEST_P(EncryptedDocument, IsReadWhenItOpensWithTheEmptyPassword) {
  EXPECT_EQ(pageOf(contentOf(GetParam())), box(300, 400));
}

TEST_P(EncryptedDocument, IsLockedWhenItNeedsAPassword) {
  const std::string content = contentOf(GetParam() + std::string("_password"));
  ASSERT_FALSE(content.empty());
  EXPECT_EQ(pageOf(content), locked);
}

TEST_P(EncryptedDocument, IsReadWhenItsCrossReferencesAreRebuilt) {
  EXPECT_EQ(pageOf(replaced(contentOf(GetParam()), "startxref", "startxxxx")), box(300, 400));
}

TEST_P(EncryptedDocument, IsLockedWhenItNeedsAPasswordAndItsCrossReferencesAreRebuilt) {
  const std::string content = contentOf(GetParam() + std::string("_password"));
  EXPECT_EQ(pageOf(replaced(content, "startxref", "startxxxx")), locked);
}

INSTANTIATE_TEST_SUITE_P(Method, EncryptedDocument,
                         testing::Values("rc4_40", "rc4_128", "rc4_128_crypt_filter", "aes_128",
                                         "aes_128_clear_metadata", "aes_256_revision_5", "aes_256"),
                         [](const auto& row) { return std::string(row.param); });

struct Change {
  const char* name;
  const char* from;
  const char* to;
};

class UnknownEncryption : public testing::TestWithParam<Change> {};

TEST_P(UnknownEncryption, LocksTheDocument) {
  const auto& [name, from, to] = GetParam();
  EXPECT_EQ(pageOf(replaced(contentOf("rc4_128"), from, to)), locked);
}

INSTANTIATE_TEST_SUITE_P(
    Entry, UnknownEncryption,
    testing::Values(Change{"AnotherHandler", "/Filter /Standard", "/Filter /Bespoke!"},
                    Change{"NoHandler", "/Filter /Standard", "/Fiterl /Standard"},
                    Change{"UnknownVersion", "/V 2", "/V 6"},
                    Change{"UnknownRevision", "/R 3", "/R 7"},
                    Change{"KeyTooLong", "/Length 128", "/Length 999"},
                    Change{"KeyTooShort", "/Length 128", "/Length 032"},
                    Change{"NoOwnerEntry", "/O <", "/Q <"}, Change{"NoUserEntry", "/U <", "/Q <"},
                    Change{"OtherPermissions", "/P -4", "/P -8"}),
    [](const auto& row) { return row.param.name; });

TEST(Encryption, ThatCannotBeFoundLocksTheDocument) {
  PdfBuilder pdf = wholeTree();
  EXPECT_EQ(pageOf(PdfBuilder(pdf).table("/Root 1 0 R/Encrypt 9 0 R").file()), locked);
  EXPECT_EQ(pageOf(PdfBuilder(pdf).table("/Root 1 0 R/Encrypt 7").file()), locked);
  EXPECT_EQ(pageOf(PdfBuilder(pdf).table("/Root 1 0 R/Encrypt<<>>").file()), locked);
}

TEST(Encryption, OfNothingIsNone) {
  PdfBuilder pdf = wholeTree();
  EXPECT_EQ(pageOf(pdf.table("/Root 1 0 R/Encrypt null").file()), box(3, 3));
}

TEST(Decryption, GoesOnAcrossPieces) {
  // Longer than the pieces in which data is decrypted, and not a whole number of them.
  pdf::Bytes plain(100'000);
  for (std::size_t i = 0; i < plain.size(); ++i)
    plain[i] = static_cast<std::byte>(i * 7 + (i >> 8));
  const pdf::Bytes key(32, std::byte{0x5A});
  pdf::Bytes encrypted(16 + plain.size());
  pdf::AesBlock chain{};
  pdf::encryptAesCbc(key, chain, plain, encrypted.data() + 16);

  const pdf::Decryption decryption(pdf::Decryption::Method::aes256, key);
  const auto source = decryption.open(encrypted, 1, 0);
  pdf::Bytes decrypted;
  for (auto piece = source->next(); !piece.empty(); piece = source->next())
    decrypted.insert(decrypted.end(), piece.begin(), piece.end());
  EXPECT_EQ(decrypted, plain);
}

TEST(Decryption, LeavesOutWhatIsNoWholeBlock) {
  const pdf::Decryption decryption(pdf::Decryption::Method::aes256, pdf::Bytes(32));
  for (const std::size_t size : {0u, 15u, 16u, 31u}) {
    const pdf::Bytes data(size);
    EXPECT_TRUE(decryption.open(data, 1, 0)->next().empty()) << size;
  }
  const pdf::Bytes data(47);
  EXPECT_EQ(decryption.open(data, 1, 0)->next().size(), 16u);
}

}  // namespace
}  // namespace korrin
