#pragma once

// JSON Schema (draft 2020-12) of records, from their field tables and, for what is written about
// them, from the page that describes them.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include <nlohmann/json.hpp>

#include "korrin/coding/coding_options.h"
#include "korrin/foundation/enumeration.h"
#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"

#include "schema/names.h"
#include "schema/page.h"
#include "terminal/exit_code.h"

namespace korrin::host {

/// How a field that is absent stands in the text.
enum class AbsentFields {
  leftOut,  ///< Not at all; null says the same.
  null,     ///< As null; every key is there.
};

/// Says of every type what a reader of it accepts, and collects the definitions that this needs.
class SchemaBuilder {
 public:
  using Json = nlohmann::ordered_json;

  /// Descriptions are taken from the first page that has them; the first of all is about the root.
  SchemaBuilder(std::vector<Page> pages, AbsentFields absentFields, DateStrategy dates)
      : pages_(std::move(pages)), absentFields_(absentFields), dates_(dates) {}

  /// The schema of texts that hold one `Root`. Throws std::logic_error when the pages lack a
  /// description.
  template <class Root>
  Json schemaOf(std::string_view id) {
    Json schema = {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
                   {"$id", id},
                   {"title", pages_.front().title()},
                   {"description", opening("Schema")}};
    schema.update(of(Type<Root>()));
    schema["$defs"] = std::move(definitions_);
    return schema;
  }

 private:
  template <class T>
  struct Type {};

  Json of(Type<Text>) const { return {{"type", "string"}}; }
  Json of(Type<bool>) const { return {{"type", "boolean"}}; }
  Json of(Type<double>);
  Json of(Type<std::int64_t>);
  Json of(Type<std::size_t>) const { return {{"type", "integer"}, {"minimum", 0}}; }
  Json of(Type<UUID>);
  Json of(Type<Instant>);
  Json of(Type<ExitCode>) const;

  template <class Number, Number number>
  Json of(Type<std::integral_constant<Number, number>>) const {
    return {{"const", number}};
  }

  template <RawValueEnumeration Enumeration>
  Json of(Type<Enumeration>) {
    return defined(nameOf<Enumeration>, [this] {
      Json words = Json::array();
      for (const auto& row : CaseTable<Enumeration>::cases) words.push_back(row.rawValue);
      return Json{{"description", row("Enumerations", nameOf<Enumeration>).back()},
                  {"type", "string"},
                  {"enum", std::move(words)}};
    });
  }

  template <class Value>
  Json of(Type<std::optional<Value>>) {
    return eitherOf({of(Type<Value>()), Json{{"type", "null"}}});
  }

  template <class... Value>
  Json of(Type<std::variant<Value...>>) {
    return eitherOf({of(Type<Value>())...});
  }

  template <class Element>
  Json of(Type<List<Element>>) {
    return arrayOf(of(Type<Element>()));
  }
  template <class Element>
  Json of(Type<std::vector<Element>>) {
    return arrayOf(of(Type<Element>()));
  }

  template <RecordType Record>
  Json of(Type<Record>) {
    return defined(nameOf<Record>, [this] {
      Json required = Json::array();
      Json properties = Json::object();
      forEachField<Record>([&](const auto& field) {
        using Value = typename std::remove_cvref_t<decltype(field)>::ValueType;
        Json property = {{"description", row(nameOf<Record>, field.key).back()}};
        property.update(of(Type<Value>()));
        properties[std::string(field.key)] = std::move(property);
        if (!mayBeMissing(Type<Value>())) required.push_back(field.key);
      });
      // Keys that are not listed are passed over by the reader, so nothing is said against them.
      return Json{{"description", opening(nameOf<Record>)},
                  {"type", "object"},
                  {"required", std::move(required)},
                  {"properties", std::move(properties)}};
    });
  }

  template <class Value>
  bool mayBeMissing(Type<Value>) const {
    return false;
  }
  template <class Value>
  bool mayBeMissing(Type<std::optional<Value>>) const {
    return absentFields_ == AbsentFields::leftOut;
  }

  /// A reference to the definition of that name, which is made where there is none yet.
  template <class Make>
  Json defined(std::string_view name, Make&& make) {
    const std::string key(name);
    if (!definitions_.contains(key)) {
      definitions_[key] = nullptr;  // so that what a record holds stands behind it
      Json definition = make();
      definitions_[key] = std::move(definition);
    }
    return {{"$ref", "#/$defs/" + key}};
  }

  const std::string& opening(std::string_view heading) const;
  const PageRow& row(std::string_view heading, std::string_view name) const;

  static Json eitherOf(std::vector<Json> schemas);
  static Json arrayOf(Json items);

  std::vector<Page> pages_;
  AbsentFields absentFields_;
  DateStrategy dates_;
  Json definitions_ = Json::object();
};

}  // namespace korrin::host
