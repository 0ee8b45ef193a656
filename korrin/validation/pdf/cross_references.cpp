#include "korrin/validation/pdf/cross_references.h"

#include <algorithm>
#include <limits>

#include "korrin/validation/pdf/stream_data.h"

namespace korrin::pdf {
namespace {

// An entry of a table, as in "0000000015 00000 n", without its end of line.
constexpr std::size_t entrySize = 18;

bool areDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), isDigit); }

bool isEntry(std::string_view file, std::size_t offset) {
  if (offset > file.size() || file.size() - offset < entrySize) return false;
  const std::string_view entry = file.substr(offset, entrySize);
  return areDigits(entry.substr(0, 10)) && entry[10] == ' ' && areDigits(entry.substr(11, 5)) &&
         entry[16] == ' ' && (entry[17] == 'n' || entry[17] == 'f');
}

std::uint64_t field(std::span<const std::byte> row, std::size_t offset, std::size_t width) {
  std::uint64_t value = 0;
  for (const std::byte byte : row.subspan(offset, width))
    value = value << 8 | static_cast<std::uint64_t>(byte);
  return value;
}

}  // namespace

bool CrossReferences::load() {
  std::optional<std::size_t> next = startOffset();
  bool readAny = false;
  while (next) {
    const auto older = readSection(*next);
    if (!older) break;
    readAny = true;
    if (older->hidden) {
      const std::size_t table = sections_.size() - 1;
      if (readSection(*older->hidden))
        std::get<TableSection>(sections_[table]).hasHiddenObjects = true;
    }
    next = older->previous;
  }
  return readAny;
}

// Offsets count from the header in documents with something before it, from the start of the file
// in others; which it is shows where the newest section is.
std::optional<std::size_t> CrossReferences::startOffset() {
  const std::size_t window = std::min(file_.size(), limits::headerWindow);
  const std::size_t keyword = file_.substr(file_.size() - window).rfind("startxref");
  budget_->payForBytes(window);
  if (keyword == file_.npos) return std::nullopt;
  Scanner scanner(file_, *budget_, file_.size() - window + keyword);
  scanner.next();
  const auto stated = scanner.takeCount();
  if (!stated) return std::nullopt;
  const std::size_t offset = asOffset(*stated);
  if (headerOffset_ != 0 && !beginsSection(offset) && beginsSection(offset + headerOffset_))
    shift_ = headerOffset_;
  return offset + shift_;
}

bool CrossReferences::beginsSection(std::size_t offset) {
  if (offset >= file_.size()) return false;
  Scanner scanner(file_, *budget_, offset);
  return scanner.takeKeyword("xref") || takeObjectHeader(scanner);
}

std::optional<std::size_t> CrossReferences::shifted(const Value& offset) {
  if (offset.isNull()) return std::nullopt;
  const auto stated = offset.asSize();
  if (!stated) damaged_ = true;
  return stated ? std::optional(*stated + shift_) : std::nullopt;
}

std::optional<CrossReferences::Older> CrossReferences::readSection(std::size_t offset) {
  // A section met before closes a loop: everything that it leads to has been read.
  if (std::find(visited_.begin(), visited_.end(), offset) != visited_.end()) return std::nullopt;
  if (!budget_->payForCrossReferenceSection()) return std::nullopt;
  visited_.push_back(offset);
  Scanner scanner(file_, *budget_, offset);
  const auto older = scanner.takeKeyword("xref") ? readTable(scanner) : readStream(scanner);
  if (!older) damaged_ = true;
  return older;
}

void CrossReferences::note(const Trailer& trailer) {
  if (trailer_.root.isNull()) trailer_.root = trailer.root;
  if (trailer_.encrypt.isNull()) trailer_.encrypt = trailer.encrypt;
  if (trailer_.identifiers.isNull()) trailer_.identifiers = trailer.identifiers;
}

std::optional<CrossReferences::Older> CrossReferences::readTable(Scanner& scanner) {
  const std::size_t start = scanner.position();
  while (!scanner.takeKeyword("trailer"))
    if (!takeSubsection(scanner)) return std::nullopt;
  const auto [root, encrypt, identifiers, previous, hidden] = readEntries(
      scanner, std::array<std::string_view, 5>{"Root", "Encrypt", "ID", "Prev", "XRefStm"});
  note({root, encrypt, identifiers});
  sections_.emplace_back(TableSection{start, false});
  return Older{shifted(hidden), shifted(previous)};
}

// The entries are only passed; the first, the second and the last one vouch for their distance:
// normally 20 bytes; writers with other line ends use 19 or 21.
std::optional<CrossReferences::Subsection> CrossReferences::takeSubsection(Scanner& scanner) {
  if (!budget_->payFor(1, price::subsection)) return std::nullopt;
  const auto first = scanner.takeCount();
  const auto count = scanner.takeCount();
  if (!first || !count) return std::nullopt;
  const std::size_t entries = scanner.toNextToken();
  if (*count == 0) return Subsection{*first, 0, entries, 0};
  if (*count > file_.size() / entrySize || !isEntry(file_, entries)) return std::nullopt;
  for (const std::size_t stride : {std::size_t{20}, std::size_t{19}, std::size_t{21}}) {
    const std::size_t last = asOffset(entries + (*count - 1) * stride);
    if (!isEntry(file_, last) || (*count > 1 && !isEntry(file_, entries + stride))) continue;
    scanner.moveTo(last + entrySize);
    return Subsection{*first, *count, entries, stride};
  }
  return std::nullopt;
}

std::optional<std::array<std::size_t, 3>> CrossReferences::takeWidths(const Value& widths) {
  std::array<std::size_t, 3> result{};
  if (widths.kind != Value::Kind::array) return std::nullopt;
  Scanner scanner(file_, *budget_, widths.place.offset);
  scanner.next();
  for (std::size_t& width : result) {
    const auto stated = scanner.takeCount();
    if (!stated || *stated > sizeof(std::uint64_t)) return std::nullopt;
    width = static_cast<std::size_t>(*stated);
  }
  if (result[0] + result[1] + result[2] == 0) return std::nullopt;
  return result;
}

std::optional<CrossReferences::Older> CrossReferences::readStream(Scanner& scanner) {
  const auto header = takeObjectHeader(scanner);
  if (!header) return std::nullopt;
  const auto [type, widths, index, previous, root, encrypt, identifiers, length, filter,
              parameters] =
      readEntries(scanner,
                  std::array<std::string_view, 10>{"Type", "W", "Index", "Prev", "Root", "Encrypt",
                                                   "ID", "Length", "Filter", "DecodeParms"});
  const auto fields = takeWidths(widths);
  if (!type.isName("XRef") || !fields) return std::nullopt;
  Objects objects(file_, *this, *budget_);
  auto rows = readStreamData(objects, scanner, {length, filter, parameters}, {},
                             std::numeric_limits<std::size_t>::max());
  if (!rows) return std::nullopt;
  rows->shrink_to_fit();
  if (!budget_->payForKeeping(rows->size())) return std::nullopt;
  note({root, encrypt, identifiers});
  StreamSection section{std::move(*rows), *fields, std::nullopt};
  if (index.kind == Value::Kind::array) section.indexes = index.place.offset;
  sections_.emplace_back(std::move(section));
  return Older{std::nullopt, shifted(previous)};
}

ObjectPlace CrossReferences::find(std::uint32_t number) {
  bool hidden = false;
  for (const Section& section : sections_) {
    if (!budget_->payFor(1, price::section)) break;
    const auto* table = std::get_if<TableSection>(&section);
    const auto place =
        table ? find(*table, number) : find(std::get<StreamSection>(section), number);
    // What a table calls free may be hidden from old readers in the stream that belongs to it.
    const bool free = place && place->kind == ObjectPlace::Kind::free;
    if (place && !(free && table && table->hasHiddenObjects)) return *place;
    if (!place && hidden) return {};
    hidden = free;
  }
  return {};
}

std::optional<ObjectPlace> CrossReferences::find(const TableSection& section,
                                                 std::uint32_t number) {
  Scanner scanner(file_, *budget_, section.subsections);
  while (!scanner.takeKeyword("trailer")) {
    const auto subsection = takeSubsection(scanner);
    if (!subsection) return std::nullopt;
    if (number < subsection->first || number - subsection->first >= subsection->count) continue;
    const std::size_t entry =
        asOffset(subsection->entries + (number - subsection->first) * subsection->stride);
    if (!isEntry(file_, entry)) return ObjectPlace{};
    // The mark of the list of free objects belongs to object 0 alone; at any other number the
    // whole table is off by one.
    if (number != 0 && file_.substr(entry, entrySize) == "0000000000 65535 f") return ObjectPlace{};
    scanner.moveTo(entry);
    const std::size_t offset = asOffset(scanner.takeCount().value_or(0));
    if (file_[entry + entrySize - 1] == 'f' || offset == 0)
      return ObjectPlace{ObjectPlace::Kind::free};
    return ObjectPlace{ObjectPlace::Kind::ordinary, offset + shift_, 0, 0};
  }
  return std::nullopt;
}

std::optional<ObjectPlace> CrossReferences::find(const StreamSection& section,
                                                 std::uint32_t number) {
  const auto [typeWidth, secondWidth, thirdWidth] = section.widths;
  const std::size_t rowSize = typeWidth + secondWidth + thirdWidth;
  std::uint64_t row = number;
  if (section.indexes) {
    Scanner scanner(file_, *budget_, *section.indexes);
    scanner.next();
    std::uint64_t rowsBefore = 0;
    while (true) {
      const auto first = scanner.takeCount();
      const auto count = scanner.takeCount();
      if (!first || !count) return std::nullopt;
      if (number >= *first && number - *first < *count) {
        row = rowsBefore + (number - *first);
        break;
      }
      rowsBefore += *count;
      // Rows beyond the data say nothing, and their count must not overflow.
      if (rowsBefore > section.rows.size()) return std::nullopt;
    }
  }
  if (row >= section.rows.size() / rowSize) return std::nullopt;
  const std::span<const std::byte> fields =
      std::span(section.rows).subspan(static_cast<std::size_t>(row) * rowSize, rowSize);
  const std::uint64_t type = typeWidth == 0 ? 1 : field(fields, 0, typeWidth);
  const std::uint64_t second = field(fields, typeWidth, secondWidth);
  const std::uint64_t third = field(fields, typeWidth + secondWidth, thirdWidth);
  if (type == 1) return ObjectPlace{ObjectPlace::Kind::ordinary, asOffset(second) + shift_, 0, 0};
  // No object stream has the number 0, which belongs to the list of free objects.
  if (type == 2 && second > 0 && second <= std::numeric_limits<std::uint32_t>::max())
    return ObjectPlace{ObjectPlace::Kind::compressed, 0, static_cast<std::uint32_t>(second),
                       asOffset(third)};
  return ObjectPlace{ObjectPlace::Kind::free};
}

}  // namespace korrin::pdf
