#include "korrin/validation/pdf/stream_data.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "korrin/validation/pdf/objects.h"
#include "korrin/validation/pdf/stream_decoder.h"

namespace korrin::pdf {
namespace {

constexpr std::string_view endOfStream = "endstream";

// Whether the data may end here: "endstream" follows, after an end of line and perhaps a few
// blanks.
bool endsAt(std::string_view file, std::size_t offset) {
  constexpr std::size_t mostBlanks = 16;
  const std::string_view rest = file.substr(offset, mostBlanks + endOfStream.size());
  const auto blanks = std::find_if_not(rest.begin(), rest.end(), isWhiteSpace) - rest.begin();
  return rest.substr(static_cast<std::size_t>(blanks)).starts_with(endOfStream);
}

// The stated length counts only if the data ends there; otherwise the next "endstream" does, and a
// stream that has none goes on to the end of the file.
std::optional<std::string_view> dataOf(Objects& objects, Scanner& scanner, const Value& length) {
  if (!scanner.takeKeyword("stream")) return std::nullopt;
  const std::string_view file = scanner.bytes();
  std::size_t start = scanner.position();
  if (start < file.size() && file[start] == '\r') ++start;
  if (start < file.size() && file[start] == '\n') ++start;
  const std::string_view rest = file.substr(start);
  Budget& budget = scanner.budget();
  if (const auto size = objects.resolveOrdinary(length).asSize())
    if (*size <= rest.size() && endsAt(file, start + *size))
      return budget.payForBytes(*size) ? std::optional(rest.substr(0, *size)) : std::nullopt;
  const std::size_t end = find(rest, endOfStream);
  const std::size_t size = end == rest.npos ? rest.size() : end;
  if (!budget.payFor(size, price::searchedByte)) return std::nullopt;
  return rest.substr(0, size);
}

// A value that may stand alone or in an array, as filters and their parameters do.
std::vector<Value> listOf(Objects& objects, const Value& value) {
  const Value resolved = objects.resolveOrdinary(value);
  if (resolved.isNull()) return {};
  if (resolved.kind != Value::Kind::array) return {resolved};
  std::vector<Value> list;
  Scanner scanner = objects.inFile(resolved.place);
  scanner.next();
  while (list.size() <= limits::filters) {
    const auto element = readValue(scanner);
    if (!element) break;
    list.push_back(objects.resolveOrdinary(*element));
  }
  return list;
}

Predictor predictorOf(Objects& objects, const Value& parameters) {
  Predictor predictor;
  if (parameters.kind != Value::Kind::dictionary) return predictor;
  Scanner scanner = objects.inFile(parameters.place);
  const auto [algorithm, colors, bits, columns] = readEntries(
      scanner,
      std::array<std::string_view, 4>{"Predictor", "Colors", "BitsPerComponent", "Columns"});
  const auto sizeOf = [&](const Value& value, std::size_t standard) {
    const Value resolved = objects.resolveOrdinary(value);
    // A size that is none must not pass for the standard one.
    return resolved.isNull() ? standard
                             : resolved.asSize().value_or(std::numeric_limits<std::size_t>::max());
  };
  predictor.algorithm = sizeOf(algorithm, predictor.algorithm);
  predictor.colors = sizeOf(colors, predictor.colors);
  predictor.bitsPerComponent = sizeOf(bits, predictor.bitsPerComponent);
  predictor.columns = sizeOf(columns, predictor.columns);
  return predictor;
}

}  // namespace

std::optional<Bytes> readStreamData(Objects& objects, Scanner scanner, const StreamEntries& entries,
                                    const StreamKey& key, std::size_t wanted) {
  const auto data = dataOf(objects, scanner, entries.length);
  const std::vector<Value> filters = listOf(objects, entries.filter);
  const std::vector<Value> parameters = listOf(objects, entries.parameters);
  if (!data || filters.size() > limits::filters) return std::nullopt;
  for (const Value& filter : filters)
    if (!filter.isName("FlateDecode") && !filter.isName("Fl")) return std::nullopt;

  Budget& budget = scanner.budget();
  const std::span<const std::byte> raw = std::as_bytes(std::span(data->data(), data->size()));
  PlainSource plain(raw);
  if (key.decryption && !budget.payFor(raw.size(), price::decryptedByte)) return std::nullopt;
  const auto decrypted =
      key.decryption ? key.decryption->open(raw, key.number, key.generation) : nullptr;
  ByteSource& source = decrypted ? *decrypted : static_cast<ByteSource&>(plain);
  if (filters.empty()) return copy(source, wanted, budget);

  std::optional<Bytes> bytes;
  for (std::size_t i = 0; i < filters.size(); ++i) {
    const Predictor predictor =
        i < parameters.size() ? predictorOf(objects, parameters[i]) : Predictor{};
    // Only the last stage knows how much of its output is wanted, and only without a predictor.
    const bool whole = i + 1 < filters.size() || predictor.algorithm > 1;
    const std::size_t stage = whole ? std::numeric_limits<std::size_t>::max() : wanted;
    if (i == 0) {
      bytes = inflate(source, stage, budget);
    } else {
      PlainSource previous(*bytes);
      bytes = inflate(previous, stage, budget);
    }
    if (!bytes || !undoPredictor(*bytes, predictor, budget)) return std::nullopt;
  }
  return bytes;
}

}  // namespace korrin::pdf
