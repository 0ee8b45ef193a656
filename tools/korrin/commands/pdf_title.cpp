#include "commands/pdf_title.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>

#include "korrin/foundation/text.h"

namespace korrin::host {
namespace {

/// The number behind the last `key`; nothing when there is none.
std::optional<std::uint64_t> numberBehind(std::string_view text, std::string_view key) {
  const std::size_t at = text.rfind(key);
  if (at == std::string_view::npos) return std::nullopt;
  text.remove_prefix(at + key.size());
  while (!text.empty() && (text.front() == ' ' || text.front() == '\n' || text.front() == '\r'))
    text.remove_prefix(1);
  std::uint64_t number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
  return end.ec == std::errc() ? std::optional(number) : std::nullopt;
}

void addUnit(std::string& text, std::uint32_t unit) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  for (const int shift : {12, 8, 4, 0}) text += digits[unit >> shift & 0xF];
}

/// UTF-16 in hexadecimal digits, which holds any character and needs no escapes.
std::string hexText(const Text& text) {
  std::string hex = "<FEFF";
  const std::string& bytes = text.str();
  for (std::size_t i = 0; i < bytes.size();) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    std::uint32_t scalar = length == 1 ? first : first & (0x7Fu >> length);
    for (std::size_t k = 1; k < length; ++k)
      scalar = scalar << 6 | (static_cast<unsigned char>(bytes[i + k]) & 0x3F);
    if (scalar >= 0x10000) {
      addUnit(hex, 0xD800 + ((scalar - 0x10000) >> 10));
      addUnit(hex, 0xDC00 + ((scalar - 0x10000) & 0x3FF));
    } else {
      addUnit(hex, scalar);
    }
    i += length;
  }
  return hex + ">";
}

}  // namespace

std::string withTitle(std::string pdf, std::string_view title) {
  const std::size_t trailer = pdf.rfind("\ntrailer");
  if (trailer == std::string::npos) return pdf;
  const std::string_view end = std::string_view(pdf).substr(trailer);
  const std::optional<std::uint64_t> size = numberBehind(end, "/Size");
  const std::optional<std::uint64_t> root = numberBehind(end, "/Root");
  const std::optional<std::uint64_t> table = numberBehind(end, "startxref");
  if (!size || !root || !table) return pdf;
  const std::string object = std::to_string(*size);
  const std::size_t objectAt = pdf.size();
  pdf += object + " 0 obj\n<< /Title " + hexText(title) + " >>\nendobj\n";
  const std::size_t tableAt = pdf.size();
  const std::string offset = std::to_string(objectAt);
  pdf += "xref\n" + object + " 1\n" +
         std::string(10 - std::min<std::size_t>(10, offset.size()), '0') + offset +
         " 00000 n \ntrailer\n<< /Size " + std::to_string(*size + 1) + " /Root " +
         std::to_string(*root) + " 0 R /Info " + object + " 0 R /Prev " + std::to_string(*table) +
         " >>\nstartxref\n" + std::to_string(tableAt) + "\n%%EOF\n";
  return pdf;
}

}  // namespace korrin::host
