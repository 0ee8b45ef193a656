#include "korrin/validation/pdf/encryption.h"

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "korrin/validation/pdf/cross_references.h"
#include "korrin/validation/pdf/crypto.h"
#include "korrin/validation/pdf/objects.h"

#include "tests/support/hostile_pdf_streams.h"
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

class HostileEncryptedDocument : public testing::TestWithParam<HostilePdf> {};

TEST_P(HostileEncryptedDocument, HasAnOutcome) {
  EXPECT_EQ(pageOf(GetParam().make(std::size_t{1} << 20)).outcome, GetParam().outcome);
}

INSTANTIATE_TEST_SUITE_P(Trick, HostileEncryptedDocument, testing::ValuesIn(encryptedHostilePdfs()),
                         [](const auto& row) { return std::string(row.param.name); });

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
                    Change{"KeyTooLongForItsVersion", "/Length 128", "/Length 256"},
                    Change{"RevisionBeforeTheFirst", "/R 3", "/R 1"},
                    Change{"RevisionOfALongerKey", "/R 3", "/R 6"},
                    Change{"NoOwnerEntry", "/O <", "/Q <"}, Change{"NoUserEntry", "/U <", "/Q <"},
                    Change{"UserEntryThatIsNoString", "/U <", "/U 7 /Q <"},
                    Change{"NoIdentifiers", "/ID [", "/IX ["},
                    Change{"IdentifiersThatAreNoArray", "/ID [", "/ID 7 /IX ["},
                    Change{"IdentifiersOfNothing", "/ID [", "/ID []/IX ["},
                    Change{"IdentifierThatIsNoString", "/ID [", "/ID [7"},
                    Change{"OtherPermissions", "/P -4", "/P -8"},
                    Change{"PermissionsBelowAllNumbers", "/P -4", "/P -2147483649"},
                    Change{"PermissionsAboveAllNumbers", "/P -4", "/P 4294967296"}),
    [](const auto& row) { return row.param.name; });

TEST(Encryption, MayStateItsPermissionsWithoutASign) {
  EXPECT_EQ(pageOf(replaced(contentOf("rc4_128"), "/P -4", "/P 4294967292")), box(300, 400));
}

class UnusableLongKey : public testing::TestWithParam<Change> {};

TEST_P(UnusableLongKey, LocksTheDocument) {
  const auto& [name, from, to] = GetParam();
  EXPECT_EQ(pageOf(replaced(contentOf("aes_256"), from, to)), locked);
}

INSTANTIATE_TEST_SUITE_P(Entry, UnusableLongKey,
                         testing::Values(Change{"NoUserEntry", "/U <", "/Q <"},
                                         Change{"NoEncryptedKey", "/UE <", "/QE <"},
                                         Change{"VersionOfShortKeys", "/V 5", "/V 4"}),
                         [](const auto& row) { return row.param.name; });

// A document that says it is encrypted, with what proves the empty password right, but whose object
// stream stands there as it is.
PdfPage pageOfPlainStreams(const std::string& filters) {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>")
      .objectStream(4, {{2, "<</Kids[3 0 R]>>"}, {3, "<</MediaBox[0 0 3 3]>>"}})
      .object(7, "<</StdCF<</CFM/None>>>>")
      .object(8, "/StdCF")
      .object(9, "<</CFM/None>>")
      .crossReferenceStream(
          6,
          "/Root 1 0 R/ID[<bb766c3b97e7e2f6704f5834ee5fcc5f><>]/Encrypt<</Filter/Standard"
          "/O<566fa873ee33c797cd3b904fdadf814afa34df9a38f6ed41b984e2c6da2aa6f5>"
          "/U<2494d8d530e1ad3404dd0627dc2facc80122456a91bae5134273a6db134c87c4>"
          "/P -4/R 4/V 4" +
              filters + ">>");
  return pageOf(pdf.file());
}

struct CryptFilters {
  const char* name;
  const char* entries;
};

class FilterThatLeavesStreamsAlone : public testing::TestWithParam<CryptFilters> {};

TEST_P(FilterThatLeavesStreamsAlone, LetsThePageBeRead) {
  EXPECT_EQ(pageOfPlainStreams(GetParam().entries), box(3, 3));
}

INSTANTIATE_TEST_SUITE_P(
    Entries, FilterThatLeavesStreamsAlone,
    testing::Values(CryptFilters{"NoFilter", ""}, CryptFilters{"Identity", "/StmF/Identity"},
                    CryptFilters{"NoMethod", "/StmF/StdCF/CF<</StdCF<<>>>>"},
                    CryptFilters{"MethodNone", "/StmF/StdCF/CF<</StdCF<</CFM/None>>>>"},
                    CryptFilters{"TableElsewhere", "/StmF 8 0 R/CF 7 0 R"},
                    CryptFilters{"FilterElsewhere", "/StmF/StdCF/CF<</StdCF 9 0 R>>"}),
    [](const auto& row) { return row.param.name; });

class UnknownCryptFilter : public testing::TestWithParam<CryptFilters> {};

TEST_P(UnknownCryptFilter, LocksTheDocument) {
  EXPECT_EQ(pageOfPlainStreams(GetParam().entries), locked);
}

INSTANTIATE_TEST_SUITE_P(
    Entries, UnknownCryptFilter,
    testing::Values(CryptFilters{"NoTable", "/StmF/StdCF"},
                    CryptFilters{"NotInTheTable", "/StmF/StdCF/CF<</Other<</CFM/V2>>>>"},
                    CryptFilters{"NoDictionary", "/StmF/StdCF/CF<</StdCF/V2>>"},
                    CryptFilters{"UnknownMethod", "/StmF/StdCF/CF<</StdCF<</CFM/AESV9>>>>"}),
    [](const auto& row) { return row.param.name; });

TEST(Encryption, OfARevisionThatItsVersionDoesNotKnowLocksTheDocument) {
  EXPECT_EQ(pageOf(replaced(contentOf("aes_256"), "/V 5", "/V 4")), locked);
  EXPECT_EQ(pageOf(replaced(contentOf("aes_256_revision_5"), "/V 5", "/V 4")), locked);
}

TEST(Encryption, WithoutThePackedKeyLocksTheDocument) {
  EXPECT_EQ(pageOf(replaced(contentOf("aes_256"), "/UE", "/QE")), locked);
  EXPECT_EQ(pageOf(replaced(contentOf("aes_256_revision_5"), "/UE", "/QE")), locked);
}

TEST(Encryption, ThatCannotBeFoundLocksTheDocument) {
  PdfBuilder pdf = wholeTree();
  EXPECT_EQ(pageOf(PdfBuilder(pdf).table("/Root 1 0 R/Encrypt 9 0 R").file()), locked);
  EXPECT_EQ(pageOf(PdfBuilder(pdf).table("/Root 1 0 R/Encrypt 7").file()), locked);
  EXPECT_EQ(pageOf(PdfBuilder(pdf).table("/Root 1 0 R/Encrypt<<>>").file()), locked);
  EXPECT_EQ(pageOf(pdf.raw("trailer<</Root 1 0 R/Encrypt 9 0 R>>").file()), locked);
}

TEST(Encryption, OfNothingIsNone) {
  PdfBuilder pdf = wholeTree();
  EXPECT_EQ(pageOf(PdfBuilder(pdf).table("/Root 1 0 R/Encrypt null").file()), box(3, 3));
  EXPECT_EQ(pageOf(pdf.raw("trailer<</Root 1 0 R/Encrypt null>>").file()), box(3, 3));
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

TEST(Encryption, MayStateThatMetadataIsEncrypted) {
  const auto pageWith = [](const char* entry) {
    return pageOf(replaced(contentOf("aes_128"), "/P -4", entry + std::string(" /P -4")));
  };
  EXPECT_EQ(pageWith("/EncryptMetadata true"), box(300, 400));
  EXPECT_EQ(pageWith("/EncryptMetadata null"), box(300, 400));
  EXPECT_EQ(pageWith("/EncryptMetadata false"), locked);
}

// The document with one more section, whose trailer has `entries`.
std::string revised(const std::string& name, const std::string& entries) {
  const std::string file = contentOf(name);
  const std::size_t start = file.rfind("startxref") + 10;
  const std::string previous = file.substr(start, file.find('\n', start) - start);
  return file + "xref\n0 0\ntrailer<</Root 1 0 R/Size 7/Prev " + previous + entries +
         ">>\nstartxref\n" + std::to_string(file.size()) + "\n%%EOF\n";
}

TEST(Encryption, IsThatOfAnOlderSectionWhereTheNewestSaysNothing) {
  EXPECT_EQ(pageOf(revised("rc4_128", "")), box(300, 400));
  EXPECT_EQ(pageOf(revised("rc4_128_password", "")), locked);
}

TEST(Encryption, IsWhatTheNewestSectionSays) {
  EXPECT_EQ(pageOf(revised("rc4_128", "/Encrypt 5 0 R")), box(300, 400));
  EXPECT_EQ(pageOf(revised("rc4_128", "/Encrypt 1 0 R")), locked);
  EXPECT_EQ(pageOf(revised("rc4_128", "/ID[(another)(another)]")), locked);
}

TEST(Encryption, PaysForTheRoundsOfItsHash) {
  const std::string file = contentOf("aes_256");
  const auto isUnlockedWith = [&](std::size_t steps) {
    pdf::Budget budget(0);
    budget.payFor(pdf::limits::stepsBase - steps, 1);
    pdf::CrossReferences references(file, 0, budget);
    EXPECT_TRUE(references.load());
    pdf::Objects objects(file, references, budget);
    const auto lock =
        unlock(objects, references.trailer().encrypt, references.trailer().identifiers);
    return std::holds_alternative<pdf::Decryption>(lock) && !budget.isExhausted();
  };
  // Two hashes of at least 64 rounds each; what else there is to pay is less than one.
  EXPECT_TRUE(isUnlockedWith(pdf::limits::stepsBase));
  EXPECT_FALSE(isUnlockedWith(2 * 63 * pdf::price::hashRound));
}

}  // namespace
}  // namespace korrin
