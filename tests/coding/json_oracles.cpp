#include "tests/coding/json_oracles.h"

#include <nlohmann/json.hpp>
#include <rapidjson/error/error.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include "tests/support/json_syntax.h"

namespace korrin::test {
namespace {

// Takes every value and remembers why the reader stopped.
class Acceptor : public nlohmann::json_sax<nlohmann::json> {
 public:
  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool start_object(std::size_t) override { return true; }
  bool key(string_t&) override { return true; }
  bool end_object() override { return true; }
  bool start_array(std::size_t) override { return true; }
  bool end_array() override { return true; }
  bool parse_error(std::size_t, const std::string&,
                   const nlohmann::detail::exception& fault) override {
    constexpr int numberOutOfRange = 406;
    isOutOfRange = fault.id == numberOutOfRange;
    return false;
  }

  bool isOutOfRange = false;
};

}  // namespace

Verdict nlohmannVerdict(std::string_view text) {
  Acceptor acceptor;
  if (nlohmann::json::sax_parse(text, &acceptor)) return Verdict::accepted;
  return acceptor.isOutOfRange ? Verdict::undecided : Verdict::refused;
}

Verdict rapidjsonVerdict(std::string_view text) {
  rapidjson::MemoryStream stream(text.data(), text.size());
  rapidjson::Reader reader;
  rapidjson::BaseReaderHandler<> handler;
  constexpr unsigned flags = rapidjson::kParseValidateEncodingFlag |
                             rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;
  const rapidjson::ParseResult result = reader.Parse<flags>(stream, handler);
  if (!result.IsError()) return Verdict::accepted;
  return result.Code() == rapidjson::kParseErrorNumberTooBig ? Verdict::undecided
                                                             : Verdict::refused;
}

std::optional<std::string> disagreement(std::string_view text) {
  const auto fault = syntaxFault(text);
  const auto faultNames = [&fault](std::string_view words) {
    return fault && fault->find(words) != std::string::npos;
  };
  const auto differs = [&fault](Verdict other) {
    return other != Verdict::undecided && other != (fault ? Verdict::refused : Verdict::accepted);
  };
  if (text.find('\0') != std::string_view::npos) {
    if (fault) return std::nullopt;
    return "a byte 0 is taken";
  }
  if (faultNames("512 levels")) return std::nullopt;
  if (!faultNames("lone surrogate") && differs(rapidjsonVerdict(text)))
    return "RapidJSON disagrees; ours: " + fault.value_or("JSON");
  if (!text.starts_with("\uFEFF") && differs(nlohmannVerdict(text)))
    return "nlohmann-json disagrees; ours: " + fault.value_or("JSON");
  return std::nullopt;
}

}  // namespace korrin::test
