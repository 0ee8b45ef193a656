#pragma once

// JSON Schema validators of other authors, run as programs: Debian's in Python, which decides, and
// one in JavaScript as a second opinion where script/schema-validator has installed it.

#include <string>
#include <vector>

namespace korrin::test {

/// A text, and the URI of the schema that is to judge it.
struct SchemaCase {
  std::string schema;
  std::string text;
};

/// Why no validator can be asked; empty when one can.
std::string whyNoValidator();

/// "valid", "invalid" or "not JSON" for each case, "depends on formats" where validators that take
/// formats for demands and for remarks disagree, a sentence where the second opinion is another.
/// Throws std::runtime_error when a validator does not take the schemas.
std::vector<std::string> verdictsOn(const std::vector<SchemaCase>& cases,
                                    const std::vector<std::string>& schemas);

}  // namespace korrin::test
