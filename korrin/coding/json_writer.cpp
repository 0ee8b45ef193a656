#include "korrin/coding/json_writer.h"

#include <cmath>
#include <cstring>

#include "korrin/coding/date_coding.h"
#include "korrin/coding/instant_text.h"
#include "korrin/coding/json_number.h"
#include "korrin/foundation/words.h"

namespace korrin::json {
namespace {

using words::loadWord;

// Marks the bytes that JSON demands to be escaped.
std::uint64_t bytesToEscape(std::uint64_t word) {
  return words::bytesEqual(word, '"') | words::bytesEqual(word, '\\') |
         words::bytesBelow(word, 0x20);
}

bool mustBeEscaped(char c) { return c == '"' || c == '\\' || static_cast<unsigned char>(c) < 0x20; }

}  // namespace

void Writer::write(bool value) { out_.append(std::string_view(value ? "true" : "false")); }

void Writer::write(double value) {
  if (std::isfinite(value)) {
    out_.setEnd(writeDouble(out_.room(maximumNumberLength), value));
    return;
  }
  const std::string_view name = nonFiniteName(value);
  if (options_.nonFinite == NonFinite::strings) {
    writeString(name);
    return;
  }
  if (!isDiagnosing_) throw NotFinite{};
  // A number stands in a record: there is a path.
  std::string path = path_.text();
  std::string sentence = path + ": expected a finite number, found " + std::string(name);
  throw EncodingError(std::move(path), std::move(sentence));
}

void Writer::write(std::int64_t value) {
  out_.setEnd(writeInteger(out_.room(maximumNumberLength), value));
}

void Writer::write(const UUID& value) {
  char* const at = out_.room(UUID::textLength + 2);
  at[0] = '"';
  value.writeText(at + 1);
  at[UUID::textLength + 1] = '"';
  out_.setEnd(at + UUID::textLength + 2);
}

void Writer::write(Instant value) {
  if (options_.dates == DateStrategy::iso8601)
    writeString(instantText(value));
  else
    out_.setEnd(writeInstantNumber(out_.room(maximumNumberLength), value, options_.dates));
}

void Writer::writeString(std::string_view text) {
  // Whole words first: most strings hold nothing that must be escaped.
  char* out = out_.room(text.size() + 2);
  *out++ = '"';
  const char* at = text.data();
  const char* const end = at + text.size();
  while (end - at >= 8) {
    const std::uint64_t word = loadWord(at);
    if (bytesToEscape(word) != 0) break;
    std::memcpy(out, at, sizeof word);
    at += 8;
    out += 8;
  }
  while (at != end && !mustBeEscaped(*at)) *out++ = *at++;
  if (at == end) *out++ = '"';
  out_.setEnd(out);
  if (at != end) writeEscaped({at, static_cast<std::size_t>(end - at)});
}

// The rest of a string, from a character on that must be escaped.
void Writer::writeEscaped(std::string_view text) {
  for (const char c : text) {
    if (mustBeEscaped(c))
      writeEscape(static_cast<unsigned char>(c));
    else
      out_.append(c);
  }
  out_.append('"');
}

void Writer::writeEscape(unsigned char byte) {
  constexpr std::string_view letters = "\"\"\\\\\bb\ff\nn\rr\tt";  // a character, then its letter
  out_.append('\\');
  for (std::size_t i = 0; i < letters.size(); i += 2) {
    if (static_cast<unsigned char>(letters[i]) == byte) {
      out_.append(letters[i + 1]);
      return;
    }
  }
  constexpr std::string_view digits = "0123456789abcdef";
  out_.append(std::string_view("u00"));
  out_.append(digits[byte >> 4]);
  out_.append(digits[byte & 15]);
}

void Writer::startLine() {
  const std::size_t count = 2 * depth_;
  char* const at = out_.room(count + 1);
  *at = '\n';
  std::memset(at + 1, ' ', count);
  out_.setEnd(at + count + 1);
}

}  // namespace korrin::json
