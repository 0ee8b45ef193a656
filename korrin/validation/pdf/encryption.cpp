#include "korrin/validation/pdf/encryption.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "korrin/validation/pdf/crypto.h"
#include "korrin/validation/pdf/objects.h"
#include "korrin/validation/pdf/value.h"

namespace korrin::pdf {
namespace {

// What stands in for the missing characters of a password; the empty one is all of it.
constexpr std::array<std::uint8_t, 32> padding = {
    0x28, 0xBF, 0x4E, 0x5E, 0x4E, 0x75, 0x8A, 0x41, 0x64, 0x00, 0x4E, 0x56, 0xFF, 0xFA, 0x01, 0x08,
    0x2E, 0x2E, 0x00, 0xB6, 0xD0, 0x68, 0x3E, 0x80, 0x2F, 0x0C, 0xA9, 0xFE, 0x64, 0x53, 0x69, 0x7A};

constexpr std::size_t pieceSize = 16 * 1024;

// The encryption dictionary.
struct Handler {
  std::size_t version = 0;
  std::size_t revision = 0;
  std::size_t keySize = 5;
  std::uint32_t permissions = 0;
  bool encryptsMetadata = true;
  Decryption::Method method = Decryption::Method::rc4;
  ShortString owner;
  ShortString user;
  ShortString userKey;
  ShortString identifier;
};

void append(std::vector<std::byte>& bytes, ByteView more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

void appendLittleEndian(std::vector<std::byte>& bytes, std::uint64_t value, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<std::byte>(value >> (8 * i) & 0xFF));
}

bool areEqual(ByteView a, ByteView b) { return std::equal(a.begin(), a.end(), b.begin(), b.end()); }

ByteView passwordPadding() { return std::as_bytes(std::span(padding)); }

class Rc4Source : public ByteSource {
 public:
  Rc4Source(ByteView key, ByteView data) : rc4_(key), rest_(data) {}

  ByteView next() override {
    const ByteView in = rest_.first(std::min(rest_.size(), piece_.size()));
    rest_ = rest_.subspan(in.size());
    rc4_.apply(in, piece_.data());
    return ByteView(piece_).first(in.size());
  }

 private:
  Rc4 rc4_;
  ByteView rest_;
  std::vector<std::byte> piece_ = std::vector<std::byte>(pieceSize);
};

// The data begins with the initial vector. The padding at its end is left on: what reads the data
// knows where it ends.
class AesSource : public ByteSource {
 public:
  AesSource(ByteView key, ByteView data) {
    keySize_ = std::min(key.size(), key_.size());
    std::copy_n(key.begin(), keySize_, key_.begin());
    if (data.size() < chain_.size()) return;
    std::copy_n(data.begin(), chain_.size(), chain_.begin());
    rest_ = data.subspan(chain_.size());
    rest_ = rest_.first(rest_.size() / chain_.size() * chain_.size());
  }

  ByteView next() override {
    const ByteView in = rest_.first(std::min(rest_.size(), piece_.size()));
    rest_ = rest_.subspan(in.size());
    if (!in.empty()) decryptAesCbc(ByteView(key_).first(keySize_), chain_, in, piece_.data());
    return ByteView(piece_).first(in.size());
  }

 private:
  std::array<std::byte, 32> key_{};
  std::size_t keySize_ = 0;
  AesBlock chain_{};
  ByteView rest_;
  std::vector<std::byte> piece_ = std::vector<std::byte>(pieceSize);
};

ShortString stringOf(Objects& objects, const Value& value) {
  const Value string = objects.resolveOrdinary(value);
  if (string.kind != Value::Kind::string) return {};
  Scanner scanner = objects.inFile(string.place);
  return readString(scanner);
}

// The first of the two strings in the trailer's /ID.
ShortString identifierOf(Objects& objects, const Value& identifiers) {
  const Value array = objects.resolveOrdinary(identifiers);
  if (array.kind != Value::Kind::array) return {};
  Scanner scanner = objects.inFile(array.place);
  scanner.next();
  const auto first = readValue(scanner);
  return first ? stringOf(objects, *first) : ShortString{};
}

// Versions 4 and 5 name the method by way of a table of crypt filters.
std::optional<Decryption::Method> methodOf(Objects& objects, const Value& filters,
                                           const Value& streamFilter) {
  const Value name = objects.resolveOrdinary(streamFilter);
  if (name.isNull() || name.isName("Identity")) return Decryption::Method::none;
  const Value table = objects.resolveOrdinary(filters);
  if (table.kind != Value::Kind::dictionary) return std::nullopt;
  Scanner scanner = objects.inFile(table.place);
  const auto [filter] = readEntries(scanner, std::array{name.name.text()});
  const Value dictionary = objects.resolveOrdinary(filter);
  if (dictionary.kind != Value::Kind::dictionary) return std::nullopt;
  scanner = objects.inFile(dictionary.place);
  const auto [entry] = readEntries(scanner, std::array<std::string_view, 1>{"CFM"});
  const Value method = objects.resolveOrdinary(entry);
  if (method.isNull() || method.isName("None")) return Decryption::Method::none;
  if (method.isName("V2")) return Decryption::Method::rc4;
  if (method.isName("AESV2")) return Decryption::Method::aes128;
  if (method.isName("AESV3")) return Decryption::Method::aes256;
  return std::nullopt;
}

std::optional<Handler> readHandler(Objects& objects, const Value& dictionary,
                                   const Value& identifiers) {
  Scanner scanner = objects.inFile(dictionary.place);
  const auto [name, version, revision, length, permissions, owner, user, userKey, metadata, filters,
              streamFilter] = readEntries(scanner, std::array<std::string_view, 11>{
                                                       "Filter", "V", "R", "Length", "P", "O", "U",
                                                       "UE", "EncryptMetadata", "CF", "StmF"});
  if (!objects.resolveOrdinary(name).isName("Standard")) return std::nullopt;
  Handler handler;
  handler.version = objects.resolveOrdinary(version).asSize().value_or(0);
  handler.revision = objects.resolveOrdinary(revision).asSize().value_or(0);
  // Permissions are a signed number by the rule and an unsigned one in some files.
  const double flags = objects.resolveOrdinary(permissions).number;
  if (flags >= -2147483648.0 && flags <= 4294967295.0)
    handler.permissions = static_cast<std::uint32_t>(static_cast<std::int64_t>(flags));
  const Value metadataFlag = objects.resolveOrdinary(metadata);
  handler.encryptsMetadata = metadataFlag.isNull() || metadataFlag.isTrue;
  handler.owner = stringOf(objects, owner);
  handler.user = stringOf(objects, user);
  handler.userKey = stringOf(objects, userKey);
  handler.identifier = identifierOf(objects, identifiers);

  const std::size_t bits = objects.resolveOrdinary(length).asSize().value_or(40);
  switch (handler.version) {
    case 1:
      break;
    case 2:
    case 3:
      handler.keySize = bits / 8;
      break;
    case 4:
    case 5: {
      const auto method = methodOf(objects, filters, streamFilter);
      if (!method) return std::nullopt;
      handler.method = *method;
      handler.keySize = handler.version == 4 ? 16 : 32;
      break;
    }
    default:
      return std::nullopt;
  }
  if (handler.keySize < 5 || handler.keySize > 32) return std::nullopt;
  return handler;
}

using Key = std::array<std::byte, 32>;

// Revisions 2 to 4: the key comes from the padded password and is right if it encrypts to /U.
std::optional<Key> legacyKey(const Handler& handler) {
  const std::size_t size = handler.keySize;
  if (size > 16 || handler.owner.size < 32 || handler.user.size < 16) return std::nullopt;
  const ByteView identifier = handler.identifier.first(handler.identifier.size);
  std::vector<std::byte> seed;
  append(seed, passwordPadding());
  append(seed, handler.owner.first(32));
  appendLittleEndian(seed, handler.permissions, 4);
  append(seed, identifier);
  if (handler.revision >= 4 && !handler.encryptsMetadata) appendLittleEndian(seed, 0xFFFFFFFF, 4);
  auto hash = md5(seed);
  if (handler.revision >= 3)
    for (int i = 0; i < 50; ++i) hash = md5(ByteView(hash).first(size));
  Key key{};
  std::copy_n(hash.begin(), size, key.begin());

  if (handler.revision == 2) {
    std::array<std::byte, 32> check{};
    Rc4(ByteView(key).first(size)).apply(passwordPadding(), check.data());
    return areEqual(check, handler.user.first(32)) ? std::optional(key) : std::nullopt;
  }
  std::vector<std::byte> plain;
  append(plain, passwordPadding());
  append(plain, identifier);
  auto check = md5(plain);
  for (int round = 0; round < 20; ++round) {
    Key roundKey = key;
    for (std::byte& byte : roundKey) byte ^= static_cast<std::byte>(round);
    Rc4(ByteView(roundKey).first(size)).apply(check, check.data());
  }
  return areEqual(check, handler.user.first(16)) ? std::optional(key) : std::nullopt;
}

// The hash of revision 6 for an empty user password: rounds of AES and a digest that the AES output
// chooses, until its last byte is small enough for the round.
Key hardenedHash(ByteView salt, Budget& budget) {
  const auto first = sha256(salt);
  std::vector<std::byte> hash(first.begin(), first.end());
  std::vector<std::byte> block;
  for (unsigned round = 0;; ++round) {
    block.clear();
    for (int i = 0; i < 64; ++i) append(block, hash);
    AesBlock chain{};
    std::copy_n(hash.begin() + 16, chain.size(), chain.begin());
    encryptAesCbc(ByteView(hash).first(16), chain, block, block.data());
    // The first 16 bytes as a number modulo 3: 256 leaves 1, so the sum of the bytes will do.
    unsigned sum = 0;
    for (std::size_t i = 0; i < 16; ++i) sum += static_cast<unsigned>(block[i]);
    if (sum % 3 == 0) {
      const auto digest = sha256(block);
      hash.assign(digest.begin(), digest.end());
    } else if (sum % 3 == 1) {
      const auto digest = sha384(block);
      hash.assign(digest.begin(), digest.end());
    } else {
      const auto digest = sha512(block);
      hash.assign(digest.begin(), digest.end());
    }
    if (round >= 63 && static_cast<unsigned>(block.back()) <= round - 31) break;
    // The hash of a document that asks for too many is not the one wanted, nor is it needed.
    if (!budget.payFor(1, price::hashRound)) break;
  }
  Key key{};
  std::copy_n(hash.begin(), key.size(), key.begin());
  return key;
}

// Revisions 5 and 6: /U holds a hash and two salts, one to check with and one for the key that
// opens /UE.
std::optional<Key> modernKey(const Handler& handler, Budget& budget) {
  if (handler.keySize != 32 || handler.user.size < 48 || handler.userKey.size < 32)
    return std::nullopt;
  const ByteView user = handler.user.first(48);
  const auto hash = [&](ByteView salt) {
    return handler.revision == 5 ? sha256(salt) : hardenedHash(salt, budget);
  };
  if (!areEqual(hash(user.subspan(32, 8)), user.first(32))) return std::nullopt;
  const Key intermediate = hash(user.subspan(40, 8));
  Key key{};
  AesBlock chain{};
  decryptAesCbc(intermediate, chain, handler.userKey.first(32), key.data());
  return key;
}

}  // namespace

Decryption::Decryption(Method method, std::span<const std::byte> key)
    : method_(method), keySize_(std::min(key.size(), key_.size())) {
  std::copy_n(key.begin(), keySize_, key_.begin());
}

std::unique_ptr<ByteSource> Decryption::open(std::span<const std::byte> data, std::uint32_t number,
                                             std::uint64_t generation) const {
  const ByteView key = ByteView(key_).first(keySize_);
  if (method_ == Method::none) return std::make_unique<PlainSource>(data);
  if (method_ == Method::aes256) return std::make_unique<AesSource>(key, data);
  // Every object has a key of its own.
  std::vector<std::byte> seed;
  append(seed, key);
  appendLittleEndian(seed, number, 3);
  appendLittleEndian(seed, generation, 2);
  constexpr std::array<std::uint8_t, 4> salt = {0x73, 0x41, 0x6C, 0x54};
  if (method_ == Method::aes128) append(seed, std::as_bytes(std::span(salt)));
  const auto hash = md5(seed);
  const ByteView objectKey = ByteView(hash).first(std::min(keySize_ + 5, hash.size()));
  if (method_ == Method::aes128) return std::make_unique<AesSource>(hash, data);
  return std::make_unique<Rc4Source>(objectKey, data);
}

std::variant<NotEncrypted, Decryption, Locked> unlock(Objects& objects, const Value& encrypt,
                                                      const Value& identifiers) {
  const Value dictionary = objects.resolveOrdinary(encrypt);
  if (dictionary.isNull() && !encrypt.isNull()) return Locked{};
  if (dictionary.isNull()) return NotEncrypted{};
  if (dictionary.kind != Value::Kind::dictionary) return Locked{};
  const auto handler = readHandler(objects, dictionary, identifiers);
  if (!handler) return Locked{};
  std::optional<Key> key;
  if (handler->revision >= 2 && handler->revision <= 4)
    key = legacyKey(*handler);
  else if (handler->revision == 5 || handler->revision == 6)
    key = modernKey(*handler, objects.budget());
  if (!key) return Locked{};
  return Decryption(handler->method, std::span(*key).first(handler->keySize));
}

}  // namespace korrin::pdf
