#pragma once

// Peers' JSON values behind the one face that mirror_reading.h asks for.

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>
#include <simdjson.h>

namespace korrin::benchmarks {

/// A value of nlohmann's tree, by reference.
class NlohmannNode {
 public:
  explicit NlohmannNode(const nlohmann::json& value) : value_(&value) {}

  NlohmannNode at(std::string_view key) const { return NlohmannNode(value_->at(key)); }
  std::optional<NlohmannNode> find(std::string_view key) const {
    const auto found = value_->find(key);
    if (found == value_->end() || found->is_null()) return std::nullopt;
    return NlohmannNode(*found);
  }
  const std::string& text() const { return value_->get_ref<const std::string&>(); }
  bool boolean() const { return value_->get_ref<const bool&>(); }
  double number() const {
    if (!value_->is_number()) throw std::runtime_error("not a number");
    return value_->get<double>();
  }
  std::int64_t integer() const {
    if (!value_->is_number_integer()) throw std::runtime_error("not an integer");
    return value_->get<std::int64_t>();
  }
  template <class Visit>
  void elements(Visit visit) const {
    for (const auto& element : value_->get_ref<const nlohmann::json::array_t&>())
      visit(NlohmannNode(element));
  }

 private:
  const nlohmann::json* value_;
};

/// A value of simdjson's DOM, which lives in its parser.
class SimdjsonNode {
 public:
  explicit SimdjsonNode(simdjson::dom::element value) : value_(value) {}

  SimdjsonNode at(std::string_view key) const { return SimdjsonNode(value_.at_key(key).value()); }
  std::optional<SimdjsonNode> find(std::string_view key) const {
    simdjson::dom::element found;
    if (value_.at_key(key).get(found) != simdjson::SUCCESS || found.is_null()) return std::nullopt;
    return SimdjsonNode(found);
  }
  std::string_view text() const { return value_.get_string().value(); }
  bool boolean() const { return value_.get_bool().value(); }
  double number() const { return value_.get_double().value(); }
  std::int64_t integer() const { return value_.get_int64().value(); }
  template <class Visit>
  void elements(Visit visit) const {
    const simdjson::dom::array array = value_.get_array().value();
    for (const simdjson::dom::element element : array) visit(SimdjsonNode(element));
  }

 private:
  simdjson::dom::element value_;
};

}  // namespace korrin::benchmarks
