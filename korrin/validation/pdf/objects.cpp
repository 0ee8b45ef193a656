#include "korrin/validation/pdf/objects.h"

#include <algorithm>
#include <limits>

#include "korrin/validation/pdf/stream_data.h"

namespace korrin::pdf {

std::optional<ObjectHeader> takeObjectHeader(Scanner& scanner) {
  const auto number = scanner.takeCount();
  const auto generation = scanner.takeCount();
  if (!number || !generation || *number > std::numeric_limits<std::uint32_t>::max() ||
      !scanner.takeKeyword("obj"))
    return std::nullopt;
  return ObjectHeader{static_cast<std::uint32_t>(*number), *generation};
}

std::optional<Scanner> Objects::open(std::uint32_t number) {
  if (!budget_->payForLookUp()) return std::nullopt;
  const ObjectPlace place = table_->find(number);
  if (place.kind == ObjectPlace::Kind::compressed) return openCompressed(place, number);
  if (place.kind == ObjectPlace::Kind::ordinary)
    if (auto object = openOrdinaryAt(place.offset, number)) return std::move(object->scanner);
  if (place.kind == ObjectPlace::Kind::missing) damaged_ = true;
  return std::nullopt;
}

std::optional<Objects::Ordinary> Objects::openOrdinary(std::uint32_t number) {
  if (!budget_->payForLookUp()) return std::nullopt;
  const ObjectPlace place = table_->find(number);
  if (place.kind != ObjectPlace::Kind::ordinary) return std::nullopt;
  return openOrdinaryAt(place.offset, number);
}

std::optional<Objects::Ordinary> Objects::openOrdinaryAt(std::size_t offset, std::uint32_t number) {
  Scanner scanner(file_, *budget_, offset);
  const auto header = takeObjectHeader(scanner);
  if (!header || header->number != number) {
    damaged_ = true;
    return std::nullopt;
  }
  return Ordinary{std::move(scanner), number, header->generation};
}

std::optional<Scanner> Objects::at(Place place) {
  if (place.container == 0) return inFile(place);
  const Container* const container = load(place.container);
  if (container == nullptr) return std::nullopt;
  return Scanner(container->bytes, place.container, *budget_, place.offset);
}

Value Objects::valueAt(Place place) {
  auto scanner = at(place);
  return scanner ? readValueHead(*scanner).value_or(Value{}) : Value{};
}

Value Objects::resolve(Value value) {
  for (std::size_t hops = 0; value.kind == Value::Kind::reference; ++hops) {
    if (hops == limits::referenceChain) {
      budget_->exhaust();
      return {};
    }
    auto scanner = open(value.reference);
    if (!scanner) return {};
    value = readValueHead(*scanner).value_or(Value{});
  }
  return value;
}

Value Objects::resolveOrdinary(const Value& value) {
  if (value.kind != Value::Kind::reference) return value;
  auto object = openOrdinary(value.reference);
  if (!object) return {};
  const Value target = readValueHead(object->scanner).value_or(Value{});
  return target.kind == Value::Kind::reference ? Value{} : target;
}

std::optional<Objects::Container> Objects::unpack(Ordinary stream, bool headerOnly) {
  const auto [count, first, length, filter, parameters] =
      readEntries(stream.scanner,
                  std::array<std::string_view, 5>{"N", "First", "Length", "Filter", "DecodeParms"});
  Container container;
  container.number = stream.number;
  container.count = resolveOrdinary(count).asSize().value_or(0);
  container.first = resolveOrdinary(first).asSize().value_or(0);
  if (container.first == 0) return std::nullopt;
  const std::size_t wanted = headerOnly ? container.first : std::numeric_limits<std::size_t>::max();
  const StreamKey key{decryption_ ? &*decryption_ : nullptr, stream.number, stream.generation};
  auto bytes = readStreamData(*this, stream.scanner, {length, filter, parameters}, key, wanted);
  if (!bytes) return std::nullopt;
  if (bytes->size() < limits::keptContainerBytes) bytes->shrink_to_fit();
  container.bytes = std::make_shared<const Bytes>(std::move(*bytes));
  return container;
}

// Documents go back and forth between small object streams, which therefore stay unpacked. All
// that would exceed the limits goes before the next one is unpacked, the one longest unused first,
// so that two large ones are never held at the same time.
const Objects::Container* Objects::load(std::uint32_t number) {
  const auto known = std::find_if(containers_.begin(), containers_.end(),
                                  [&](const Container& c) { return c.number == number; });
  if (known != containers_.end()) {
    std::rotate(known, known + 1, containers_.end());
    return &containers_.back();
  }
  std::size_t bytes = 0;
  for (const Container& container : containers_) bytes += container.bytes->capacity();
  auto kept = containers_.begin();
  for (; kept != containers_.end(); ++kept) {
    const auto count = static_cast<std::size_t>(containers_.end() - kept);
    if (bytes <= limits::keptContainerBytes && count <= limits::keptContainers) break;
    bytes -= kept->bytes->capacity();
  }
  containers_.erase(containers_.begin(), kept);
  auto stream = openOrdinary(number);
  auto container = stream ? unpack(std::move(*stream), false) : std::nullopt;
  if (!container) {
    damaged_ = true;
    return nullptr;
  }
  containers_.push_back(std::move(*container));
  return &containers_.back();
}

std::optional<Scanner> Objects::openCompressed(const ObjectPlace& place, std::uint32_t number) {
  const Container* const container = load(place.container);
  if (container == nullptr) return std::nullopt;
  Scanner scanner(container->bytes, place.container, *budget_, 0);
  std::optional<std::size_t> offset;
  for (std::size_t i = 0; i < container->count; ++i) {
    const auto entryNumber = scanner.takeCount();
    const auto entryOffset = scanner.takeCount();
    if (!entryNumber || !entryOffset) break;
    if (*entryNumber != number) continue;
    offset = asOffset(*entryOffset);
    if (i == place.index) break;
  }
  if (!offset) {
    damaged_ = true;
    return std::nullopt;
  }
  scanner.moveTo(container->first + *offset);
  return scanner;
}

std::optional<Value> Objects::objectAround(Place place) {
  const Container* const container = load(place.container);
  if (container == nullptr) return std::nullopt;
  Scanner scanner(container->bytes, place.container, *budget_, 0);
  std::optional<std::uint32_t> nearest;
  std::size_t nearestOffset = 0;
  for (std::size_t i = 0; i < container->count; ++i) {
    const auto number = scanner.takeCount();
    const auto offset = scanner.takeCount();
    if (!number || !offset || *number > std::numeric_limits<std::uint32_t>::max()) break;
    if (container->first + *offset > place.offset || *offset < nearestOffset) continue;
    nearest = static_cast<std::uint32_t>(*number);
    nearestOffset = asOffset(*offset);
  }
  return nearest ? std::optional(Value::referenceTo(*nearest)) : std::nullopt;
}

std::optional<Objects::ObjectStreamHead> Objects::openObjectStreamHead(const Ordinary& stream) {
  auto container = unpack(stream, true);
  if (!container) return std::nullopt;
  return ObjectStreamHead{Scanner(container->bytes, container->number, *budget_, 0),
                          container->count};
}

}  // namespace korrin::pdf
