// Any bytes given as a document are refused in order or decode to a value that is written, read
// again and the same to the bit. A project among them is inspected as a host would.

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "korrin/coding/json_reader.h"
#include "korrin/foundation/precondition.h"
#include "korrin/foundation/same_bits.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/validation/document_validation.h"

#include "fuzz/document_input.h"

namespace korrin::fuzz {
namespace {

// The walk that good documents take.
template <class Value>
std::optional<Value> readInWrittenOrder(const DocumentInput& input) {
  const DecodingOptions options = input.decoding();
  try {
    return json::Reader(input.text, options).document<Value>();
  } catch (const json::Refused&) {
    return std::nullopt;
  } catch (const json::Malformed&) {
    return std::nullopt;
  }
}

void checkRefusal(const DecodingError& error) {
  const std::string message = error.what();
  precondition(Text(message).str() == message, "a refusal's message is ill-formed UTF-8");
  precondition(message.starts_with(error.keyPath()), "a refusal does not begin with its place");
  precondition(message.find("expected ") != std::string::npos, "a refusal expects nothing");
}

// The walk that finds out what to report.
template <class Value>
std::optional<Value> readInFieldOrder(const DocumentInput& input) {
  const DecodingOptions options = input.decoding();
  try {
    return json::Reader(input.text, options).diagnose<Value>();
  } catch (const DecodingError& error) {
    checkRefusal(error);
    return std::nullopt;
  }
}

template <class Value>
bool holdsNotANumber(const Value& value) {
  return !(value == value);
}

template <class Value>
void checkRoundTrip(const Value& value, const DocumentInput& input, const EncodingOptions& layout) {
  const std::string text = encodeJSON(value, layout);
  const Value decoded = decodeJSON<Value>(text, input.decoding());
  precondition(sameBits(decoded, value), "a value is read back as another one");
  precondition(encodeJSON(decoded, layout) == text, "a value is written in two ways");
  if constexpr (RecordType<Value>) {
    precondition(std::hash<Value>{}(decoded) == std::hash<Value>{}(value),
                 "a value read back hashes to something else");
    precondition(holdsNotANumber(value) || decoded == value, "a value read back is unequal");
  }
}

void inspect(const KorrinProject& project) {
  try {
    DocumentValidation::validate(project);
  } catch (const DocumentValidationError&) {
    // An answer like any other; preflight takes the project all the same.
  }
  const StageDefinition& stage = project.stage;
  precondition(DocumentValidation::gridCoordinates(-stage.size.width / 2, stage.size.width / 2,
                                                   stage.gridSpacingMillimeters)
                       .size() <= 4096,
               "a grid has more lines than it may");

  std::unordered_set<Text> known;
  for (std::size_t i = 0; i < project.items.size(); i += 2) known.insert(project.items[i].assetID);
  const std::vector<PreflightIssue> issues = PreflightEngine::inspect(project, known);
  precondition(PreflightEngine::inspect(project, known) == issues,
               "preflight changes its mind from one call to the next");
  precondition(std::ranges::all_of(issues,
                                   [](const PreflightIssue& issue) {
                                     return !issue.id.empty() && !issue.title.empty();
                                   }),
               "an issue has no name");
}

template <class Value>
void check(const DocumentInput& input) {
  const std::optional<Value> value = readInWrittenOrder<Value>(input);
  const std::optional<Value> again = readInFieldOrder<Value>(input);
  precondition(value.has_value() == again.has_value(), "the two walks disagree on a document");
  if (!value) return;
  precondition(sameBits(*value, *again), "the two walks read different values");
  checkRoundTrip(*value, input, input.options);
  if constexpr (std::same_as<Value, KorrinProject>) inspect(*value);
}

template <std::size_t... kind>
void checkKind(const DocumentInput& input, std::index_sequence<kind...>) {
  static_cast<void>(
      ((kind == input.kind && (check<std::tuple_element_t<kind, Documents>>(input), true)) || ...));
}

}  // namespace
}  // namespace korrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto input = korrin::fuzz::documentInput({reinterpret_cast<const char*>(data), size});
  korrin::fuzz::checkKind(input,
                          std::make_index_sequence<std::tuple_size_v<korrin::fuzz::Documents>>());
  return 0;
}
