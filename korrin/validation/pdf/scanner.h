#pragma once

// A pull scanner over the bytes of a PDF or of one unpacked object stream: it hands out one token
// after the other and builds nothing. Every byte it passes is paid for; when the budget is used up
// it reports the end.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "korrin/foundation/ascii.h"
#include "korrin/validation/pdf/pdf_budget.h"

namespace korrin::pdf {

using Bytes = std::vector<std::byte>;

/// The characters of `bytes`, for comparing and searching.
inline std::string_view asText(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool isWhiteSpace(char c);
/// Neither white space nor one of the delimiters ( ) < > [ ] { } / %.
bool isRegular(char c);

/// A stated number as an offset into a file. Every number beyond all files that fit in memory
/// stands for one such, to which a shift may still be added.
inline std::size_t asOffset(std::uint64_t stated) {
  constexpr std::uint64_t beyondAllFiles = std::numeric_limits<std::ptrdiff_t>::max();
  return static_cast<std::size_t>(std::min(stated, beyondAllFiles));
}

/// Where `word`, which is not empty, stands first in `text`, npos where it does not. Takes time in
/// proportion to the text whatever is in it, unlike the search of the text itself.
std::size_t find(std::string_view text, std::string_view word);

/// A place that outlives a scanner: in the file itself (container 0) or in the object stream whose
/// number is `container`.
struct Place {
  std::uint32_t container = 0;
  std::size_t offset = 0;
};

struct Token {
  enum class Kind {
    end,
    word,  ///< A run of regular characters - a number or a keyword - or one stray delimiter.
    name,
    literalString,
    hexString,
    arrayOpen,
    arrayClose,
    dictionaryOpen,
    dictionaryClose,
  };
  Kind kind = Kind::end;
  std::size_t begin = 0;
  std::size_t end = 0;
};

class Scanner {
 public:
  /// Scans `bytes` of the file from `offset` on.
  Scanner(std::string_view bytes, Budget& budget, std::size_t offset);
  /// Scans the object stream `container`, whose bytes the scanner keeps alive.
  Scanner(std::shared_ptr<const Bytes> bytes, std::uint32_t container, Budget& budget,
          std::size_t offset);

  Token next();

  /// Moves to where the next token begins, or to the end, and gives that place.
  std::size_t toNextToken();

  /// Passes over the rest of the array or dictionary whose opening token has just been taken.
  void skipToClosing();

  /// Looks at the next token and takes it if it is the keyword `text`.
  bool takeKeyword(std::string_view text);

  /// Takes the next token if it is a whole number of at most 18 digits without a sign.
  std::optional<std::uint64_t> takeCount();

  std::string_view text(const Token& token) const;

  std::size_t position() const { return position_; }
  void moveTo(std::size_t offset) { position_ = offset < bytes_.size() ? offset : bytes_.size(); }
  Place place(std::size_t offset) const { return {container_, offset}; }
  std::string_view bytes() const { return bytes_; }
  Budget& budget() const { return *budget_; }

 private:
  /// The first place from `offset` on that is neither white space nor in a comment.
  std::size_t pastWhiteSpace(std::size_t offset) const;
  std::size_t pastRegular(std::size_t offset) const;
  bool endsWord(std::size_t offset) const;
  struct StringEnd {
    std::size_t offset;
    std::size_t tokens;
  };
  StringEnd pastLiteralString(std::size_t offset) const;

  std::shared_ptr<const Bytes> owner_;
  std::string_view bytes_;
  Budget* budget_;
  std::size_t position_;
  std::uint32_t container_ = 0;
};

}  // namespace korrin::pdf
