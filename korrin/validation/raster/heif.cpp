#include <bitset>

#include "korrin/validation/raster/byte_view.h"
#include "korrin/validation/raster/readers.h"
#include "korrin/validation/raster/step_budget.h"

// A HEIF file is a tree of boxes. The way to the size: ftyp says that it is one; meta/pitm names
// the primary item; meta/iprp/ipma lists the numbers of that item's properties; meta/iprp/ipco
// holds the properties, of which the one called ispe is the size.

namespace korrin::raster {
namespace {

constexpr std::uint32_t heifBrands[] = {
    tag("mif1"), tag("mif2"), tag("msf1"), tag("miaf"), tag("heic"), tag("heix"),
    tag("heim"), tag("heis"), tag("hevc"), tag("hevx"), tag("avif"), tag("avis"),
};
constexpr std::uint32_t avifBrands[] = {tag("avif"), tag("avis")};
constexpr std::uint64_t maximumBrands = 256;

struct Box {
  std::uint32_t type;
  ByteView content;
};

// The next box of `boxes`; nothing at their end, or when the box does not lie inside.
std::optional<Box> nextBox(ByteView& boxes) noexcept {
  if (boxes.size() == 0) return std::nullopt;
  const std::uint64_t available = boxes.size();
  std::uint64_t length = boxes.u32();
  const std::uint32_t type = boxes.u32();
  if (length == 1) {
    length = boxes.u64();
  } else if (length == 0) {
    length = available;
  }
  const std::uint64_t headerLength = available - boxes.size();
  if (!boxes.ok() || length < headerLength) return std::nullopt;
  const ByteView content = boxes.take(length - headerLength);
  if (!boxes.ok()) return std::nullopt;
  return Box{.type = type, .content = content};
}

// The content of the first box of that type.
std::optional<ByteView> findBox(ByteView boxes, std::uint32_t type, StepBudget& budget) noexcept {
  while (budget.spend()) {
    const auto box = nextBox(boxes);
    if (!box) break;
    if (box->type == type) return box->content;
  }
  return std::nullopt;
}

bool hasBrand(Bytes bytes, std::span<const std::uint32_t> wanted) noexcept {
  ByteView file(bytes);
  const auto box = nextBox(file);
  if (!box || box->type != tag("ftyp")) return false;
  ByteView brands = box->content;
  for (std::uint64_t i = 0; i < maximumBrands && brands.size() >= 4; ++i) {
    const std::uint32_t brand = brands.u32();
    const bool isVersion = i == 1;
    if (isVersion) continue;
    for (const std::uint32_t known : wanted)
      if (brand == known) return true;
  }
  return false;
}

struct FullBoxHeader {
  std::uint32_t version;
  std::uint32_t flags;
};

FullBoxHeader readFullBoxHeader(ByteView& content) noexcept {
  return {.version = content.u8(), .flags = content.u24()};
}

std::optional<std::uint32_t> primaryItem(ByteView meta, StepBudget& budget) noexcept {
  auto content = findBox(meta, tag("pitm"), budget);
  if (!content) return std::nullopt;
  const FullBoxHeader header = readFullBoxHeader(*content);
  const std::uint32_t item = header.version == 0 ? content->u16() : content->u32();
  if (!content->ok()) return std::nullopt;
  return item;
}

// Which properties belong to an item, by their place in the ipco box, counted from one. Properties
// are numbered with 15 bits at most.
using Properties = std::bitset<0x8000>;

// Adds what one ipma box associates with `item`; false when the box is damaged.
bool addAssociations(ByteView content, std::uint32_t item, StepBudget& budget,
                     Properties& properties) noexcept {
  const FullBoxHeader header = readFullBoxHeader(content);
  const bool isWide = (header.flags & 1) != 0;
  const std::uint32_t entries = content.u32();
  for (std::uint32_t entry = 0; entry < entries; ++entry) {
    if (!content.ok() || !budget.spend()) return false;
    const std::uint32_t entryItem = header.version == 0 ? content.u16() : content.u32();
    const std::uint32_t associations = content.u8();
    ByteView numbers = content.take(associations * (isWide ? 2u : 1u));
    if (entryItem != item) continue;
    // The uppermost bit says whether the property is essential.
    while (numbers.size() > 0)
      properties.set(isWide ? numbers.u16() & 0x7FFF : numbers.u8() & 0x7F);
  }
  return content.ok();
}

std::optional<Properties> propertiesOf(std::uint32_t item, ByteView iprp,
                                       StepBudget& budget) noexcept {
  Properties properties;
  while (budget.spend()) {
    const auto box = nextBox(iprp);
    if (!box) return properties;
    if (box->type == tag("ipma") && !addAssociations(box->content, item, budget, properties))
      return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace

bool isHeif(Bytes file) noexcept { return hasBrand(file, heifBrands); }
bool isAvif(Bytes file) noexcept { return hasBrand(file, avifBrands); }

std::optional<PixelSize> heifSize(Bytes file) noexcept {
  StepBudget budget;
  auto meta = findBox(ByteView(file), tag("meta"), budget);
  if (!meta) return std::nullopt;
  readFullBoxHeader(*meta);
  const auto item = primaryItem(*meta, budget);
  const auto iprp = findBox(*meta, tag("iprp"), budget);
  if (!item || !iprp) return std::nullopt;
  const auto properties = propertiesOf(*item, *iprp, budget);
  auto ipco = findBox(*iprp, tag("ipco"), budget);
  if (!properties || !ipco) return std::nullopt;

  std::optional<PixelSize> size;
  for (std::size_t number = 1; number < properties->size(); ++number) {
    if (!budget.spend()) return std::nullopt;
    auto box = nextBox(*ipco);
    if (!box) break;
    if (box->type != tag("ispe") || !properties->test(number)) continue;
    readFullBoxHeader(box->content);
    const PixelSize stored{.width = box->content.u32(), .height = box->content.u32()};
    // An item has one size. With two, decoders disagree about which counts.
    if (!box->content.ok() || size) return std::nullopt;
    size = stored;
  }
  return size;
}

}  // namespace korrin::raster
