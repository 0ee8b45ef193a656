#pragma once

// Small PDFs for the tests, put together object by object: with a classic cross-reference table or
// a cross-reference stream, with objects in object streams, and with every part open to being
// wrong.

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korrin::test {

/// `data` as a zlib stream.
std::string deflated(std::string_view data);

/// `size` times `byte` as a zlib stream, made without holding the data.
std::string deflatedRun(char byte, std::size_t size);

/// `value` as `width` bytes, the most significant one first.
std::string bigEndian(std::uint64_t value, int width);

/// `text` with the last `from` in it replaced by `to`. Throws std::invalid_argument when there is
/// none.
std::string replaced(std::string text, std::string_view from, std::string_view to);

std::span<const std::byte> asBytes(std::string_view text);

class PdfBuilder {
 public:
  explicit PdfBuilder(std::string header = "%PDF-1.7\n") : file_(std::move(header)) {}

  /// Appends bytes that belong to no object.
  PdfBuilder& raw(std::string_view bytes);

  /// Appends "<number> 0 obj <body> endobj".
  PdfBuilder& object(std::uint32_t number, std::string_view body);

  /// Appends a stream object; /Length is added to `entries` unless they have one.
  PdfBuilder& stream(std::uint32_t number, std::string_view entries, std::string_view data);

  /// Appends an object stream with `objects` in it, deflated.
  PdfBuilder& objectStream(std::uint32_t number,
                           const std::vector<std::pair<std::uint32_t, std::string>>& objects);

  /// The next cross-reference section says that `number` is at `offset`, in `container`, or free.
  PdfBuilder& pretendAt(std::uint32_t number, std::size_t offset);
  PdfBuilder& pretendIn(std::uint32_t number, std::uint32_t container, std::size_t index);
  PdfBuilder& pretendFree(std::uint32_t number);

  /// Appends a section for what was appended since the last one, and "startxref". `trailer` are
  /// entries such as "/Root 1 0 R"; /Prev is added from the second section on.
  PdfBuilder& table(std::string_view trailer = "/Root 1 0 R");
  PdfBuilder& crossReferenceStream(std::uint32_t number, std::string_view trailer = "/Root 1 0 R");

  /// Where the next byte goes, and where the last section began.
  std::size_t offset() const { return file_.size(); }
  std::size_t lastSection() const { return lastSection_.value_or(0); }

  const std::string& file() const { return file_; }

 private:
  struct Entry {
    int type = 0;
    std::uint64_t second = 0;
    std::uint64_t third = 0;
  };

  std::string trailerEntries(std::string_view trailer);
  void finishSection(std::size_t start);

  std::string file_;
  std::map<std::uint32_t, Entry> entries_;
  std::uint32_t size_ = 1;
  std::optional<std::size_t> lastSection_;
};

/// The catalogue, object 1, and the root of the tree, object 2, whose only child is object 3.
PdfBuilder tree();

/// The same with the page, whose box is 3 by 3.
PdfBuilder wholeTree();

/// A catalogue, a tree of one page with `pageEntries`, and a table.
std::string onePage(std::string_view pageEntries);

/// The same in an object stream and with a cross-reference stream.
std::string onePageInObjectStream(std::string_view pageEntries);

}  // namespace korrin::test
