#include "tests/support/hostile_pdf_streams.h"

#include <array>
#include <cstdint>
#include <utility>

#include "korrin/validation/pdf/pdf_budget.h"

#include "tests/support/pdf_builder.h"

namespace korrin::test {
namespace {

constexpr std::size_t largest = pdf::limits::inflatedStream;

std::string text(std::size_t value) { return std::to_string(value); }

// Compressed data written bit by bit.
class Blocks {
 public:
  // The head of zlib's format, and `data` as it is, in a block of its own.
  explicit Blocks(std::string_view data) : bytes_("\x78\x01") {
    put(0, 3);
    align();
    put(static_cast<unsigned>(data.size()), 16);
    put(static_cast<unsigned>(~data.size() & 0xFFFF), 16);
    bytes_ += data;
  }

  std::size_t size() const { return bytes_.size(); }

  // The lowest bit first, as numbers are.
  void put(unsigned value, int count) {
    for (int i = 0; i < count; ++i) {
      bits_ |= (value >> i & 1) << count_;
      if (++count_ == 8) align();
    }
  }

  // The highest bit first, as codes are.
  void putCode(unsigned code, int count) {
    while (count-- > 0) put(code >> count & 1, 1);
  }

  void align() {
    if (count_ > 0) bytes_ += static_cast<char>(bits_);
    bits_ = 0;
    count_ = 0;
  }

  void emptyStoredBlock() {
    put(0, 3);
    align();
    put(0xFFFF0000, 32);
  }

  void emptyFixedBlock() {
    put(2, 3);
    put(0, 7);
  }

  // Codes for lengths of codes, of which only those of 1 and of long runs of zeros are used.
  void startOfSmallTables() {
    put(4, 3);
    put(0, 10);
    put(14, 4);
    constexpr std::array order = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1};
    for (const int symbol : order) put(symbol == 18 || symbol == 1 ? 1 : 0, 3);
  }
  void zeroLengths(unsigned count) {
    putCode(1, 1);
    put(count - 11, 7);
  }
  void lengthOfOne() { putCode(0, 1); }

  // Only the end of the block has a code.
  void emptyBlockOfSmallTables() {
    startOfSmallTables();
    zeroLengths(138);
    zeroLengths(118);
    lengthOfOne();
    lengthOfOne();
    put(0, 1);
  }

  // Every symbol has a code.
  void emptyBlockOfFullTables() {
    put(4, 3);
    put(29, 5);
    put(29, 5);
    put(14, 4);
    constexpr std::array order = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1};
    for (const int symbol : order)
      put(symbol == 16 ? 1 : symbol == 4 || symbol == 5 || symbol == 8 || symbol == 9 ? 3 : 0, 3);
    lengths(6, 226);  // of 8
    lengths(7, 60);   // of 9
    lengths(4, 2);    // of 4
    lengths(5, 28);   // of 5
    putCode(482, 9);  // the end of the block
  }

  // A block of blanks that take a bit each.
  void blanksOfOneBit(std::size_t count) {
    startOfSmallTables();
    zeroLengths(32);
    lengthOfOne();
    zeroLengths(138);
    zeroLengths(85);
    lengthOfOne();
    lengthOfOne();
    for (std::size_t i = 0; i < count; ++i) put(0, 1);
    put(1, 1);
  }

  // A block of copies of three bytes each.
  void shortCopies(std::size_t count) {
    put(2, 3);
    for (std::size_t i = 0; i < count; ++i) {
      putCode(1, 7);
      putCode(0, 5);
    }
    put(0, 7);
  }

  std::string take() { return std::move(bytes_); }

 private:
  // `count` times the length with that code, most of them by repetition.
  void lengths(unsigned code, unsigned count) {
    putCode(code, 3);
    for (--count; count >= 3;) {
      const unsigned run = count >= 9 || count <= 6 ? std::min(count, 6u) : count - 3;
      putCode(0, 1);
      put(run - 3, 2);
      count -= run;
    }
    for (; count > 0; --count) putCode(code, 3);
  }

  std::string bytes_;
  unsigned bits_ = 0;
  int count_ = 0;
};

// A document whose tree visits two object streams in turns before it comes to the page.
std::string alternating(std::string_view entries, const std::string& data, int visits) {
  PdfBuilder pdf;
  std::string kids;
  for (int i = 0; i < visits; ++i) kids += i % 2 == 0 ? "8 0 R " : "7 0 R ";
  pdf.object(1, "<</Pages 2 0 R>>").object(2, "<</Kids[" + kids + "3 0 R]>>");
  pdf.object(3, "<</MediaBox[0 0 3 3]>>");
  const std::string dictionary = "/Type/ObjStm/N 2/First 8" + std::string(entries);
  pdf.stream(20, dictionary, data).stream(21, dictionary, data);
  return pdf.pretendIn(7, 20, 0).pretendIn(8, 21, 1).crossReferenceStream(9).file();
}

constexpr std::string_view twoNulls = "7 0 8 4 null null ";
constexpr int visits = 1000;

template <class Block>
std::string emptyBlocks(std::size_t size, Block block) {
  Blocks blocks(twoNulls);
  while (blocks.size() < size / 2) block(blocks);
  return alternating("/Filter/FlateDecode", blocks.take(), visits);
}

std::string emptyBlocksOfSmallTables(std::size_t size) {
  return emptyBlocks(size, [](Blocks& blocks) { blocks.emptyBlockOfSmallTables(); });
}
std::string emptyBlocksOfFullTables(std::size_t size) {
  return emptyBlocks(size, [](Blocks& blocks) { blocks.emptyBlockOfFullTables(); });
}
std::string emptyFixedBlocks(std::size_t size) {
  return emptyBlocks(size, [](Blocks& blocks) { blocks.emptyFixedBlock(); });
}
std::string emptyStoredBlocks(std::size_t size) {
  return emptyBlocks(size, [](Blocks& blocks) { blocks.emptyStoredBlock(); });
}

// One visit of one stream, and a page in it.
std::string pageBeforeEmptyBlocks(std::size_t size) {
  Blocks blocks("3 0 <</MediaBox[0 0 3 3]>>");
  while (blocks.size() < size) blocks.emptyBlockOfFullTables();
  return tree()
      .stream(4, "/Type/ObjStm/N 1/First 4/Filter/FlateDecode", blocks.take())
      .pretendIn(3, 4, 0)
      .crossReferenceStream(9)
      .file();
}

std::string symbolsOfOneBit(std::size_t size) {
  Blocks blocks(twoNulls);
  blocks.blanksOfOneBit(std::min(size / 2 * 8, largest - 100));
  return alternating("/Filter/FlateDecode", blocks.take(), visits);
}

std::string shortCopies(std::size_t size) {
  Blocks blocks(twoNulls);
  // A copy takes twelve bits. Streams as long as this are not kept beside one another.
  blocks.shortCopies(
      std::min(std::max(size, std::size_t{3} << 20) / 2 * 2 / 3, (largest - 100) / 3));
  return alternating("/Filter/FlateDecode", blocks.take(), visits);
}

// Rows of one byte, and of many that are all predicted in the most costly way.
std::string rowsOfOneByte(std::size_t) {
  return alternating("/Filter/FlateDecode/DecodeParms<</Predictor 15/Columns 1>>",
                     deflatedRun('\4', largest - 100), 6);
}
std::string costlyRows(std::size_t) {
  return alternating("/Filter/FlateDecode/DecodeParms<</Predictor 15/Columns 4096/Colors 3>>",
                     deflatedRun('\4', largest - 100), 6);
}

// Hardly any data in streams that are said to be long, and that cannot be unpacked, which is tried
// each time anew.
std::string longStatedLengths(std::size_t size) {
  return alternating("/Filter/FlateDecode/DecodeParms<</Predictor 99>>",
                     "\x78\x01" + std::string(size / 2, '\xFF'), visits);
}

// As long as a stream may be. Behind compressed data stands then what nothing reads.
std::string padded(std::string data) {
  data.resize(largest - 100, ' ');
  return data;
}
std::string deflatedTwice(std::string_view data) { return deflated(padded(deflated(data))); }

struct Packing {
  std::string_view entries;
  std::string (*pack)(std::string_view data, std::uint32_t stream);
};

// The box is an array in one object stream, and a side of it a number in another.
std::string arrayAndNumberApart(const Packing& packing, std::string_view trailer = "/Root 1 0 R",
                                std::string_view encryption = "") {
  PdfBuilder pdf = tree();
  pdf.object(3, "<</MediaBox 7 0 R>>");
  if (!encryption.empty()) pdf.object(30, encryption);
  const std::string dictionary = "/Type/ObjStm/N 1/First 4" + std::string(packing.entries);
  pdf.stream(20, dictionary, packing.pack(padded("7 0 [0 0 3 8 0 R]"), 20))
      .stream(21, dictionary, packing.pack(padded("8 0 3"), 21));
  return pdf.pretendIn(7, 20, 0).pretendIn(8, 21, 0).crossReferenceStream(9, trailer).file();
}

std::string arrayAndNumberInPlainStreams(std::size_t) {
  return arrayAndNumberApart(
      {"", [](std::string_view data, std::uint32_t) { return std::string(data); }});
}
std::string arrayAndNumberInDeflatedStreams(std::size_t) {
  return arrayAndNumberApart(
      {"/Filter/FlateDecode", [](std::string_view data, std::uint32_t) { return deflated(data); }});
}
std::string arrayAndNumberDeflatedTwice(std::size_t) {
  return arrayAndNumberApart(
      {"/Filter[/FlateDecode/FlateDecode]",
       [](std::string_view data, std::uint32_t) { return deflatedTwice(data); }});
}

// The same with as much cross-reference data kept as there may be.
std::string arrayAndNumberBesideKeptRows(std::size_t) {
  const std::string first = arrayAndNumberDeflatedTwice(0);
  std::string file = first.substr(0, first.rfind("startxref"));
  std::size_t previous = first.rfind("9 0 obj");
  constexpr std::size_t rows = pdf::limits::crossReferenceBytes / 2 - 1000;
  for (const std::uint32_t number : {10u, 11u}) {
    const std::string data = deflatedRun('\0', rows);
    const std::size_t section = file.size();
    file += text(number) + " 0 obj<</Type/XRef/Root 1 0 R/Size 99/Index[90 1]/W[1 4 2]/Prev " +
            text(previous) + "/Filter/FlateDecode/Length " + text(data.size()) + ">>stream\n" +
            data + "\nendstream endobj\n";
    previous = section;
  }
  return file + "startxref\n" + text(previous) + "\n%%EOF\n";
}

// RC4 with a key of 40 bits, which the empty password and an identifier that is absent give. The
// keys of the streams come from it and their numbers.
constexpr std::string_view encryption =
    "<</Filter/Standard/V 1/R 2/P 0"
    "/O<0000000000000000000000000000000000000000000000000000000000000000>"
    "/U<6111c794d454d715566d2a4ac2676855a3c0f7efb282d5b81222aa6ae3d2bf73>>>";
constexpr std::string_view encryptedTrailer = "/Root 1 0 R/Encrypt 30 0 R";

std::string encrypted(std::string_view data, std::uint32_t stream) {
  using Key = std::array<std::uint8_t, 10>;
  constexpr Key keyOf20 = {0x3e, 0x71, 0xec, 0x24, 0x67, 0xdd, 0x52, 0xda, 0x6e, 0xd4};
  constexpr Key keyOf21 = {0x70, 0x0a, 0x9d, 0x8f, 0x44, 0x3d, 0x81, 0x56, 0xbc, 0x8a};
  const Key& key = stream == 20 ? keyOf20 : keyOf21;
  std::array<std::uint8_t, 256> state{};
  for (std::size_t i = 0; i < state.size(); ++i) state[i] = static_cast<std::uint8_t>(i);
  std::uint8_t j = 0;
  for (std::size_t i = 0; i < state.size(); ++i) {
    j = static_cast<std::uint8_t>(j + state[i] + key[i % key.size()]);
    std::swap(state[i], state[j]);
  }
  std::string result(data);
  std::uint8_t i = 0;
  j = 0;
  for (char& c : result) {
    j = static_cast<std::uint8_t>(j + state[++i]);
    std::swap(state[i], state[j]);
    c = static_cast<char>(c ^ state[static_cast<std::uint8_t>(state[i] + state[j])]);
  }
  return result;
}

std::string arrayAndNumberInEncryptedStreams(std::size_t) {
  return arrayAndNumberApart({"", encrypted}, encryptedTrailer, encryption);
}
std::string arrayAndNumberDeflatedTwiceAndEncrypted(std::size_t) {
  return arrayAndNumberApart({"/Filter[/FlateDecode/FlateDecode]",
                              [](std::string_view data, std::uint32_t stream) {
                                return encrypted(deflatedTwice(data), stream);
                              }},
                             encryptedTrailer, encryption);
}

// Two long encrypted streams that are visited in turns.
std::string alternatingEncryptedStreams(std::size_t size) {
  PdfBuilder pdf = tree();
  std::string kids;
  for (int i = 0; i < visits; ++i) kids += i % 2 == 0 ? "7 0 R " : "8 0 R ";
  pdf.object(2, "<</Kids[" + kids + "3 0 R]>>")
      .object(3, "<</MediaBox[0 0 3 3]>>")
      .object(30, encryption);
  const std::string blanks(std::min(std::max(size, std::size_t{5} << 20) / 2, largest - 100), ' ');
  pdf.stream(20, "/Type/ObjStm/N 1/First 4", encrypted("7 0 null" + blanks, 20))
      .stream(21, "/Type/ObjStm/N 1/First 4", encrypted("8 0 null" + blanks, 21));
  return pdf.pretendIn(7, 20, 0)
      .pretendIn(8, 21, 0)
      .crossReferenceStream(9, encryptedTrailer)
      .file();
}

}  // namespace

const std::vector<HostilePdf>& hostilePdfStreams() {
  static const std::vector<HostilePdf> documents = {
      {"EmptyBlocksOfSmallTables", emptyBlocksOfSmallTables, PdfOutcome::unreadable},
      {"EmptyBlocksOfFullTables", emptyBlocksOfFullTables, PdfOutcome::unreadable},
      {"EmptyFixedBlocks", emptyFixedBlocks, PdfOutcome::unreadable},
      {"EmptyStoredBlocks", emptyStoredBlocks, PdfOutcome::unreadable},
      {"PageBeforeEmptyBlocks", pageBeforeEmptyBlocks, PdfOutcome::unreadable},
      {"SymbolsOfOneBit", symbolsOfOneBit, PdfOutcome::unreadable},
      {"ShortCopies", shortCopies, PdfOutcome::unreadable},
      {"RowsOfOneByte", rowsOfOneByte, PdfOutcome::unreadable},
      {"CostlyRows", costlyRows, PdfOutcome::unreadable},
      {"LongStatedLengths", longStatedLengths, PdfOutcome::unreadable},
      {"ArrayAndNumberInPlainStreams", arrayAndNumberInPlainStreams, PdfOutcome::box},
      {"ArrayAndNumberInDeflatedStreams", arrayAndNumberInDeflatedStreams, PdfOutcome::box},
      {"ArrayAndNumberDeflatedTwice", arrayAndNumberDeflatedTwice, PdfOutcome::box},
      {"ArrayAndNumberBesideKeptRows", arrayAndNumberBesideKeptRows, PdfOutcome::box}};
  return documents;
}

const std::vector<HostilePdf>& encryptedHostilePdfs() {
  static const std::vector<HostilePdf> documents = {
      {"ArrayAndNumberInEncryptedStreams", arrayAndNumberInEncryptedStreams, PdfOutcome::box},
      {"ArrayAndNumberDeflatedTwiceAndEncrypted", arrayAndNumberDeflatedTwiceAndEncrypted,
       PdfOutcome::box},
      {"AlternatingEncryptedStreams", alternatingEncryptedStreams, PdfOutcome::unreadable}};
  return documents;
}

}  // namespace korrin::test
