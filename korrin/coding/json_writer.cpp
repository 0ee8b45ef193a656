#include "korrin/coding/json_writer.h"

#include <cmath>

#include "korrin/coding/date_coding.h"
#include "korrin/coding/instant_text.h"
#include "korrin/coding/json_number.h"

namespace korrin::json {
namespace {

bool mustBeEscaped(char c) { return c == '"' || c == '\\' || static_cast<unsigned char>(c) < 0x20; }

}  // namespace

void Writer::Buffer::grow(std::size_t count) {
  constexpr std::size_t smallest = 1024;
  const auto used = static_cast<std::size_t>(at_ - text_.data());
  text_.resize(std::max({smallest, 2 * text_.size(), used + count}));
  at_ = text_.data() + used;
  end_ = text_.data() + text_.size();
}

void Writer::write(bool value) {
  if (value)
    out_.append("true", 4);
  else
    out_.append("false", 5);
}

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
  std::string path = path_.text();
  const std::string where = path.empty() ? "" : path + ": ";
  throw EncodingError(std::move(path),
                      where + "expected a finite number, found " + std::string(name));
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
  out_.append('"');
  while (!text.empty()) {
    const auto plain = static_cast<std::size_t>(
        std::find_if(text.begin(), text.end(), mustBeEscaped) - text.begin());
    out_.append(text.data(), plain);
    text.remove_prefix(plain);
    if (text.empty()) break;
    writeEscape(static_cast<unsigned char>(text.front()));
    text.remove_prefix(1);
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
  out_.append("u00", 3);
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
