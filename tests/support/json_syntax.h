#pragma once

// Whether the document reader takes a text for JSON, whatever the text holds.

#include <optional>
#include <string>
#include <string_view>

#include "korrin/coding/decoding_report.h"
#include "korrin/coding/json_scanner.h"

namespace korrin::test {

/// The message about the place where `text` stops being JSON; nothing when it is JSON.
inline std::optional<std::string> syntaxFault(std::string_view text) {
  json::Scanner scanner(text);
  try {
    scanner.skipSpace();
    scanner.skipValue();
    scanner.finish();
    return std::nullopt;
  } catch (const json::Malformed& fault) {
    return json::notJSON(scanner, fault).what();
  }
}

/// `value` as a member that no record knows, in a document that is otherwise good.
inline std::string asUnknownMember(std::string_view value) {
  return R"({"schemaVersion":1,"minimumReaderVersion":1,"x":)" + std::string(value) + "}";
}

}  // namespace korrin::test
