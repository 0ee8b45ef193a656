#include "tests/support/pdf_builder.h"

#include <cstdio>
#include <stdexcept>

#include <zlib.h>

namespace korrin::test {
namespace {

std::string text(std::uint64_t value) { return std::to_string(value); }

// Feeds a deflation piece by piece.
class Deflation {
 public:
  Deflation() {
    if (deflateInit(&stream_, Z_BEST_SPEED) != Z_OK) throw std::runtime_error("deflateInit");
  }
  ~Deflation() { deflateEnd(&stream_); }
  Deflation(const Deflation&) = delete;
  Deflation& operator=(const Deflation&) = delete;

  void add(std::string_view data, int flush) {
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
    stream_.avail_in = static_cast<uInt>(data.size());
    do {
      char buffer[16384];
      stream_.next_out = reinterpret_cast<Bytef*>(buffer);
      stream_.avail_out = sizeof buffer;
      deflate(&stream_, flush);
      output_.append(buffer, sizeof buffer - stream_.avail_out);
    } while (stream_.avail_out == 0);
  }

  std::string take() { return std::move(output_); }

 private:
  z_stream stream_{};
  std::string output_;
};

}  // namespace

std::string deflated(std::string_view data) {
  Deflation deflation;
  deflation.add(data, Z_FINISH);
  return deflation.take();
}

std::string deflatedRun(char byte, std::size_t size) {
  Deflation deflation;
  const std::string piece(65536, byte);
  for (; size > piece.size(); size -= piece.size()) deflation.add(piece, Z_NO_FLUSH);
  deflation.add(std::string_view(piece).substr(0, size), Z_FINISH);
  return deflation.take();
}

std::string bigEndian(std::uint64_t value, int width) {
  std::string bytes;
  for (int i = width - 1; i >= 0; --i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  return bytes;
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  const std::size_t at = text.rfind(from);
  if (at == text.npos) throw std::invalid_argument("no " + std::string(from));
  return text.replace(at, from.size(), to);
}

std::span<const std::byte> asBytes(std::string_view text) {
  return std::as_bytes(std::span(text.data(), text.size()));
}

PdfBuilder& PdfBuilder::raw(std::string_view bytes) {
  file_ += bytes;
  return *this;
}

PdfBuilder& PdfBuilder::object(std::uint32_t number, std::string_view body) {
  pretendAt(number, file_.size());
  file_ += text(number) + " 0 obj\n";
  file_ += body;
  file_ += "\nendobj\n";
  return *this;
}

PdfBuilder& PdfBuilder::stream(std::uint32_t number, std::string_view entries,
                               std::string_view data) {
  std::string body = "<<" + std::string(entries);
  if (entries.find("/Length") == entries.npos) body += "/Length " + text(data.size());
  body += ">>\nstream\n";
  body += data;
  body += "\nendstream";
  return object(number, body);
}

PdfBuilder& PdfBuilder::objectStream(
    std::uint32_t number, const std::vector<std::pair<std::uint32_t, std::string>>& objects) {
  std::string head;
  std::string bodies;
  for (std::size_t i = 0; i < objects.size(); ++i) {
    const auto& [objectNumber, body] = objects[i];
    head += text(objectNumber) + " " + text(bodies.size()) + " ";
    bodies += body + "\n";
    pretendIn(objectNumber, number, i);
  }
  return stream(number,
                "/Type/ObjStm/N " + text(objects.size()) + "/First " + text(head.size()) +
                    "/Filter/FlateDecode",
                deflated(head + bodies));
}

PdfBuilder& PdfBuilder::pretendAt(std::uint32_t number, std::size_t offset) {
  entries_[number] = {1, offset, 0};
  size_ = std::max(size_, number + 1);
  return *this;
}

PdfBuilder& PdfBuilder::pretendIn(std::uint32_t number, std::uint32_t container,
                                  std::size_t index) {
  entries_[number] = {2, container, index};
  size_ = std::max(size_, number + 1);
  return *this;
}

PdfBuilder& PdfBuilder::pretendFree(std::uint32_t number) {
  entries_[number] = {0, 0, 1};
  size_ = std::max(size_, number + 1);
  return *this;
}

std::string PdfBuilder::trailerEntries(std::string_view trailer) {
  std::string entries = "/Size " + text(size_) + std::string(trailer);
  if (lastSection_) entries += "/Prev " + text(*lastSection_);
  return entries;
}

void PdfBuilder::finishSection(std::size_t start) {
  file_ += "startxref\n" + text(start) + "\n%%EOF\n";
  lastSection_ = start;
  entries_.clear();
}

PdfBuilder& PdfBuilder::table(std::string_view trailer) {
  const std::size_t start = file_.size();
  file_ += "xref\n0 1\n0000000000 65535 f \n";
  for (auto entry = entries_.begin(); entry != entries_.end();) {
    // One subsection for each run of consecutive numbers.
    auto end = entry;
    std::uint32_t count = 0;
    while (end != entries_.end() && end->first == entry->first + count) ++end, ++count;
    file_ += text(entry->first) + " " + text(count) + "\n";
    for (; entry != end; ++entry) {
      char line[32];
      std::snprintf(line, sizeof line, "%010llu %05llu %c \n",
                    static_cast<unsigned long long>(entry->second.second),
                    static_cast<unsigned long long>(entry->second.third),
                    entry->second.type == 1 ? 'n' : 'f');
      file_ += line;
    }
  }
  file_ += "trailer\n<<" + trailerEntries(trailer) + ">>\n";
  finishSection(start);
  return *this;
}

PdfBuilder& PdfBuilder::crossReferenceStream(std::uint32_t number, std::string_view trailer) {
  const std::size_t start = file_.size();
  pretendAt(number, start);
  std::string rows;
  std::string index;
  std::uint32_t first = 0;
  std::uint32_t count = 0;
  for (const auto& [object, entry] : entries_) {
    if (count > 0 && object == first + count) {
      ++count;
    } else {
      if (count > 0) index += text(first) + " " + text(count) + " ";
      first = object;
      count = 1;
    }
    rows += bigEndian(static_cast<std::uint64_t>(entry.type), 1) + bigEndian(entry.second, 4) +
            bigEndian(entry.third, 2);
  }
  index += text(first) + " " + text(count);
  stream(number,
         "/Type/XRef/W[1 4 2]/Index[" + index + "]/Filter/FlateDecode" + trailerEntries(trailer),
         deflated(rows));
  finishSection(start);
  return *this;
}

PdfBuilder tree() {
  PdfBuilder pdf;
  pdf.object(1, "<</Pages 2 0 R>>").object(2, "<</Kids[3 0 R]>>");
  return pdf;
}

PdfBuilder wholeTree() { return tree().object(3, "<</MediaBox[0 0 3 3]>>"); }

std::string onePage(std::string_view pageEntries) {
  return PdfBuilder()
      .object(1, "<</Type/Catalog/Pages 2 0 R>>")
      .object(2, "<</Type/Pages/Kids[3 0 R]/Count 1>>")
      .object(3, "<</Type/Page/Parent 2 0 R " + std::string(pageEntries) + ">>")
      .table()
      .file();
}

std::string onePageInObjectStream(std::string_view pageEntries) {
  return PdfBuilder()
      .objectStream(4, {{1, "<</Type/Catalog/Pages 2 0 R>>"},
                        {2, "<</Type/Pages/Kids[3 0 R]/Count 1>>"},
                        {3, "<</Type/Page/Parent 2 0 R " + std::string(pageEntries) + ">>"}})
      .crossReferenceStream(5)
      .file();
}

}  // namespace korrin::test
