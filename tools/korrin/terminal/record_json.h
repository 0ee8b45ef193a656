#pragma once

// Records of the host as JSON, from their field tables. Unlike a document, a report holds every
// member: what is absent stands as null.

#include <optional>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include <nlohmann/json.hpp>

#include "korrin/foundation/enumeration.h"
#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"

#include "terminal/exit_code.h"

namespace korrin::host {

struct RecordJson {
  using Json = nlohmann::ordered_json;

  static Json of(const Text& value) { return value.str(); }
  static Json of(const UUID& value) { return value.text(); }
  static Json of(ExitCode value) { return static_cast<int>(value); }
  template <class Number>
  requires std::is_arithmetic_v<Number>
  static Json of(Number value) { return value; }
  template <class Number, Number number>
  static Json of(std::integral_constant<Number, number>) {
    return number;
  }
  template <RawValueEnumeration Enumeration>
  static Json of(Enumeration value) {
    return rawValue(value);
  }
  template <class Value>
  static Json of(const std::optional<Value>& value) {
    return value ? of(*value) : Json(nullptr);
  }
  template <class... Value>
  static Json of(const std::variant<Value...>& value) {
    return std::visit([](const auto& held) { return of(held); }, value);
  }
  template <class Element>
  static Json of(const std::vector<Element>& list) {
    Json array = Json::array();
    for (const Element& element : list) array.push_back(of(element));
    return array;
  }
  template <class Element>
  static Json of(const List<Element>& list) {
    return of(list.toVector());
  }
  template <RecordType Record>
  static Json of(const Record& record) {
    Json object = Json::object();
    forEachField<Record>(
        [&](const auto& field) { object[std::string(field.key)] = of(record.*field.member); });
    return object;
  }
};

}  // namespace korrin::host
