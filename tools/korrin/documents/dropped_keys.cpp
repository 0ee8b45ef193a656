#include "documents/dropped_keys.h"

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include <nlohmann/json.hpp>

#include "korrin/model/project.h"

#include "terminal/words.h"

namespace korrin::host {
namespace {

constexpr std::size_t mostKeysNamed = 5;

/// What a field holds, seen through `std::optional` and `List`.
template <class T>
struct Content {
  using Type = T;
  static constexpr std::string_view suffix = "";
};
template <class T>
struct Content<std::optional<T>> : Content<T> {};
template <class T>
struct Content<List<T>> {
  using Type = typename Content<T>::Type;
  static constexpr std::string_view suffix = "[]";
};

/// Adds the paths of all keys of a record and of the records inside it, such as
/// "items[].style.labelScale".
template <class Record>
void addKeyPaths(const std::string& prefix, std::set<std::string>& paths) {
  forEachField<Record>([&]<class Value>(const Field<Record, Value>& field) {
    const std::string path = prefix + std::string(field.key);
    paths.insert(path);
    using Inner = typename Content<Value>::Type;
    if constexpr (RecordType<Inner>)
      addKeyPaths<Inner>(path + std::string(Content<Value>::suffix) + ".", paths);
  });
}

/// Walks over a document and counts its unknown keys. Nothing inside an unknown value counts.
class KeyCounter : public nlohmann::json_sax<nlohmann::json> {
 public:
  KeyCounter() { addKeyPaths<KorrinProject>("", known_); }

  const std::map<std::string, std::size_t>& unknown() const { return unknown_; }

  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool start_object(std::size_t) override { return open(false); }
  bool end_object() override { return close(); }
  bool start_array(std::size_t) override { return open(true); }
  bool end_array() override { return close(); }
  bool key(string_t& name) override {
    const Container& object = open_.back();
    value_ = {};
    if (!object.content.isKnown) return true;
    value_.path = object.content.path + name;
    value_.isKnown = known_.contains(value_.path);
    if (!value_.isKnown) ++unknown_[value_.path];
    return true;
  }
  bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) override {
    return false;
  }

 private:
  struct Place {
    std::string path;
    bool isKnown = false;
  };
  struct Container {
    bool isArray;
    Place content;  // of an array's elements, or what the paths of an object's keys begin with
  };

  bool open(bool isArray) {
    Place place = !open_.empty() && open_.back().isArray ? open_.back().content : value_;
    // The path of an unknown value may be as long as the document; no other must begin with it.
    if (!place.isKnown)
      place.path.clear();
    else if (isArray)
      place.path += "[]";
    else if (!open_.empty())
      place.path += ".";
    open_.push_back({isArray, std::move(place)});
    return true;
  }
  bool close() {
    open_.pop_back();
    return true;
  }

  std::set<std::string> known_;
  std::map<std::string, std::size_t> unknown_;
  std::vector<Container> open_;
  Place value_{"", true};  // of the value that comes next in an object
};

}  // namespace

std::string droppedKeysSentence(std::string_view document) {
  KeyCounter counter;
  const std::string sentence = "writing drops keys that the format does not know";
  // The only numbers that stop this parser in a document that decodes stand in unknown values.
  if (!nlohmann::json::sax_parse(document, &counter)) return sentence;
  if (counter.unknown().empty()) return {};
  std::vector<std::string> keys;
  for (const auto& [path, count] : counter.unknown())
    keys.push_back(count > 1 ? path + " (" + std::to_string(count) + " times)" : path);
  return sentence + ": " + listed(keys, mostKeysNamed);
}

}  // namespace korrin::host
