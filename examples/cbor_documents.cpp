// Documents in another syntax: CBOR (RFC 8949) through libcbor. The records' field tables say what
// there is to write; all that is added here is how each kind of value looks. No record is named.
//
// A host that reads such documents from strangers also limits their size and nesting, as the
// library's own reader does for JSON.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <cbor.h>
#include <korrin/korrin.h>

using namespace korrin;

namespace {

struct Release {
  void operator()(cbor_item_t* item) const { cbor_decref(&item); }
};
using Item = std::unique_ptr<cbor_item_t, Release>;

void require(bool holds, std::string_view expectation) {
  if (!holds) throw std::runtime_error("not so: " + std::string(expectation));
}

// Takes over what libcbor has made.
Item made(cbor_item_t* item) {
  require(item != nullptr, "there is memory for an item");
  return Item(item);
}

// How a kind of value is written and read.
template <class Value>
struct Syntax;

template <>
struct Syntax<bool> {
  static Item write(bool value) { return made(cbor_build_bool(value)); }
  static bool read(cbor_item_t* item) {
    require(cbor_is_bool(item), "a Boolean stands here");
    return cbor_get_bool(item);
  }
};

template <>
struct Syntax<double> {
  static Item write(double value) { return made(cbor_build_float8(value)); }
  static double read(cbor_item_t* item) {
    require(cbor_isa_float_ctrl(item) && cbor_float_get_width(item) == CBOR_FLOAT_64,
            "a double stands here");
    return cbor_float_get_float8(item);
  }
};

// A negative n is held as -1 - n, so that every integer of 64 bits fits.
template <>
struct Syntax<std::int64_t> {
  static Item write(std::int64_t value) {
    return made(value < 0 ? cbor_build_negint64(static_cast<std::uint64_t>(-1 - value))
                          : cbor_build_uint64(static_cast<std::uint64_t>(value)));
  }
  static std::int64_t read(cbor_item_t* item) {
    require(cbor_is_int(item), "an integer stands here");
    const std::uint64_t magnitude = cbor_get_int(item);
    require(magnitude <= std::numeric_limits<std::int64_t>::max(), "an integer fits 64 bits");
    const auto value = static_cast<std::int64_t>(magnitude);
    return cbor_isa_negint(item) ? -1 - value : value;
  }
};

std::string_view textOf(cbor_item_t* item) {
  require(cbor_isa_string(item) && cbor_string_is_definite(item), "a text stands here");
  return {reinterpret_cast<const char*>(cbor_string_handle(item)), cbor_string_length(item)};
}
Item textItem(std::string_view text) { return made(cbor_build_stringn(text.data(), text.size())); }

template <>
struct Syntax<Text> {
  static Item write(const Text& text) { return textItem(text); }
  static Text read(cbor_item_t* item) { return Text(textOf(item)); }
};

template <>
struct Syntax<UUID> {
  static Item write(const UUID& id) {
    return made(cbor_build_bytestring(id.bytes().data(), id.bytes().size()));
  }
  static UUID read(cbor_item_t* item) {
    UUID::Bytes bytes{};
    require(cbor_isa_bytestring(item) && cbor_bytestring_is_definite(item) &&
                cbor_bytestring_length(item) == bytes.size(),
            "16 bytes stand here");
    std::copy_n(cbor_bytestring_handle(item), bytes.size(), bytes.begin());
    return UUID(bytes);
  }
};

// Nanoseconds since 1970.
template <>
struct Syntax<Instant> {
  static Item write(Instant instant) {
    return Syntax<std::int64_t>::write(instant.time_since_epoch().count());
  }
  static Instant read(cbor_item_t* item) {
    return Instant(std::chrono::nanoseconds(Syntax<std::int64_t>::read(item)));
  }
};

template <RawValueEnumeration Enumeration>
struct Syntax<Enumeration> {
  static Item write(Enumeration value) { return textItem(rawValue(value)); }
  static Enumeration read(cbor_item_t* item) {
    const std::optional<Enumeration> value = fromRawValue<Enumeration>(textOf(item));
    require(value.has_value(), "a case stands here");
    return *value;
  }
};

template <class Element>
struct Syntax<List<Element>> {
  static Item write(const List<Element>& list) {
    Item array = made(cbor_new_definite_array(list.size()));
    for (const Element& element : list) {
      const Item item = Syntax<Element>::write(element);
      require(cbor_array_push(array.get(), item.get()), "there is room in the array");
    }
    return array;
  }
  static List<Element> read(cbor_item_t* item) {
    require(cbor_isa_array(item), "a list stands here");
    List<Element> list;
    for (std::size_t i = 0; i < cbor_array_size(item); ++i)
      list.push_back(Syntax<Element>::read(cbor_array_handle(item)[i]));
    return list;
  }
};

template <class Value>
constexpr bool isOptional = false;
template <class Value>
constexpr bool isOptional<std::optional<Value>> = true;

// A map from the fields' keys. An optional that is absent is left out.
template <RecordType Record>
struct Syntax<Record> {
  static Item write(const Record& record) {
    Item map = made(cbor_new_indefinite_map());
    forEachField<Record>([&]<class Value>(const Field<Record, Value>& field) {
      const Value& value = record.*field.member;
      if constexpr (!isOptional<Value>)
        add(map.get(), field.key, Syntax<Value>::write(value));
      else if (value)
        add(map.get(), field.key, Syntax<typename Value::value_type>::write(*value));
    });
    return map;
  }
  static Record read(cbor_item_t* item) {
    require(cbor_isa_map(item), "a record stands here");
    Record record{};
    forEachField<Record>([&]<class Value>(const Field<Record, Value>& field) {
      cbor_item_t* const value = find(item, field.key);
      require(value != nullptr || isOptional<Value>, field.key);
      if constexpr (!isOptional<Value>)
        record.*field.member = Syntax<Value>::read(value);
      else if (value != nullptr)
        record.*field.member = Syntax<typename Value::value_type>::read(value);
    });
    return record;
  }

 private:
  static void add(cbor_item_t* map, std::string_view key, const Item& value) {
    const Item name = textItem(key);
    require(cbor_map_add(map, {.key = name.get(), .value = value.get()}), "there is room");
  }
  static cbor_item_t* find(cbor_item_t* map, std::string_view key) {
    for (std::size_t i = 0; i < cbor_map_size(map); ++i)
      if (const cbor_pair& pair = cbor_map_handle(map)[i]; textOf(pair.key) == key)
        return pair.value;
    return nullptr;
  }
};

std::vector<unsigned char> encodeCBOR(const KorrinProject& project) {
  const Item item = Syntax<KorrinProject>::write(project);
  unsigned char* bytes = nullptr;
  std::size_t capacity = 0;
  const std::size_t size = cbor_serialize_alloc(item.get(), &bytes, &capacity);
  require(size != 0, "there is memory for the document");
  const std::unique_ptr<unsigned char, decltype(&std::free)> owner(bytes, &std::free);
  return {bytes, bytes + size};
}

KorrinProject decodeCBOR(const std::vector<unsigned char>& bytes) {
  cbor_load_result result{};
  const Item item(cbor_load(bytes.data(), bytes.size(), &result));
  require(item != nullptr && result.read == bytes.size(), "the bytes are one CBOR item");
  return Syntax<KorrinProject>::read(item.get());
}

// JSON tells texts apart that only look the same, and zeros by their sign; comparison does not.
void expectRoundTrip(std::string_view name, const KorrinProject& project) {
  const std::vector<unsigned char> bytes = encodeCBOR(project);
  const KorrinProject decoded = decodeCBOR(bytes);
  const std::string json = encodeJSON(project);
  require(decoded == project && encodeJSON(decoded) == json, name);
  std::cout << name << ": " << bytes.size() << " bytes of CBOR for " << json.size() << " of JSON\n";
}

// What templates do not hold: extremes, and texts of several spellings.
KorrinProject extremes() {
  KorrinProject project = KorrinProject::example();
  project.metadata.eventDate = Instant::max();
  project.metadata.artist = "Zoe\u0308 \U0001F941";
  project.layers.edit(0).zIndex = std::numeric_limits<std::int64_t>::min();
  project.equipmentRequirements.edit(0).quantity = std::numeric_limits<std::int64_t>::max();
  PlotItem& item = project.items.edit(0);
  item.position = {.x = -0.0, .y = std::nextafter(0.1, 1)};
  item.rotationDegrees = std::numeric_limits<double>::denorm_min();
  item.riserHeightMillimeters = std::numeric_limits<double>::max();
  item.groupID = UUID::random();
  item.style.tintHex = "#3366CC";
  project.groups.push_back({.id = *item.groupID, .name = "", .itemIDs = {item.id}});
  project.assetManifest.push_back(
      {.sha256 = "", .filename = "logo.png", .mediaType = "image/png", .byteCount = -1});
  return project;
}

}  // namespace

int main() {
  for (const KorrinTemplate& entry : KorrinTemplate::all())
    expectRoundTrip(title(entry.id), entry.project);
  expectRoundTrip("The example", KorrinProject::example());
  expectRoundTrip("Extremes", extremes());

  try {
    decodeCBOR({0xA0});  // an empty map
    return 1;
  } catch (const std::runtime_error& error) {
    std::cout << "A missing key is noticed: " << error.what() << '\n';
  }
}
