// Any bytes at all are JSON for the document reader when they are for readers by other authors. A
// text that is not is refused for that before any field is; one that is may be refused for its
// fields only, and as a value that no record knows not at all.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "korrin/foundation/precondition.h"
#include "korrin/model/document_coding.h"

#include "tests/coding/json_oracles.h"
#include "tests/support/json_syntax.h"

namespace korrin::fuzz {
namespace {

std::optional<DecodingError> refusalOf(std::string_view text) {
  try {
    peekVersions(text);
    return std::nullopt;
  } catch (const DecodingError& error) {
    return error;
  }
}

void checkJSON(std::string_view text) {
  const auto disagreement = test::disagreement(text);
  precondition(!disagreement, disagreement.value_or("").c_str());

  const auto fault = test::syntaxFault(text);
  const auto refusal = refusalOf(text);
  if (fault) {
    precondition(refusal && refusal->what() == *fault && refusal->keyPath().empty() &&
                     refusal->kind() == DecodingError::Kind::dataCorrupted,
                 "a text that is no JSON is refused for something else");
    return;
  }
  precondition(!refusal || !std::string_view(refusal->what()).starts_with("line "),
               "a text that is JSON is refused as if it were not");
  const auto refusedInside = refusalOf(test::asUnknownMember(text));
  precondition(!refusedInside || std::string_view(refusedInside->what()).find("512 levels") !=
                                     std::string_view::npos,
               "a value that nobody asked for is refused");
}

}  // namespace
}  // namespace korrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korrin::fuzz::checkJSON({reinterpret_cast<const char*>(data), size});
  return 0;
}
