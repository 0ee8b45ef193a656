#pragma once

// The lists that a venue's crew works from. The order of a list is the order in which it is
// printed. A row may be linked to the plot item that shows it; a link may dangle, and numbers may
// repeat: preflight reports both.

#include <cstdint>
#include <optional>

#include "korrin/foundation/record.h"
#include "korrin/foundation/search_key.h"
#include "korrin/foundation/text.h"

#pragma GCC visibility push(default)

namespace korrin {

/// One row of the input list.
struct InputChannel {
  UUID id;                              ///< No other input of a valid project has it.
  std::optional<std::int64_t> channel;  ///< Console channel; absent while none is assigned.
  Text source;                          ///< What is plugged in.
  Text microphoneOrDI;                  ///< Microphone model or DI box.
  Text stand;                           ///< The stand required; empty for none.
  bool phantomPower;                    ///< Whether the channel needs phantom power.
  Text notes;                           ///< Such as "Pre-EQ".
  std::optional<UUID> plotItemID;  ///< The item that shows the source; absent while not placed.

  friend bool operator==(const InputChannel&, const InputChannel&) = default;
};

template <>
constexpr auto fieldsOf<InputChannel>() {
  return std::tuple{
      Field{"id", &InputChannel::id},
      Field{"channel", &InputChannel::channel},
      Field{"source", &InputChannel::source},
      Field{"microphoneOrDI", &InputChannel::microphoneOrDI},
      Field{"stand", &InputChannel::stand},
      Field{"phantomPower", &InputChannel::phantomPower},
      Field{"notes", &InputChannel::notes},
      Field{"plotItemID", &InputChannel::plotItemID},
  };
}
static_assert(tableIsComplete<InputChannel>);
template <>
inline constexpr auto searchKey<InputChannel> = &InputChannel::plotItemID;

/// One monitor mix.
struct MonitorMix {
  UUID id;                             ///< No other mix of a valid project has it.
  std::optional<std::int64_t> number;  ///< Mix number; absent while none is assigned.
  Text name;                           ///< Whom or what the mix is for, such as "Keys".
  Text type;                           ///< Kind of monitor, such as "Wedge".
  Text outputPatch;                    ///< The console output that feeds it, such as "Out 1".
  Text notes;                          ///< What is in the mix, such as "Keys and lead vocal".
  std::optional<UUID> plotItemID;      ///< The monitor's symbol; absent while not placed.

  friend bool operator==(const MonitorMix&, const MonitorMix&) = default;
};

template <>
constexpr auto fieldsOf<MonitorMix>() {
  return std::tuple{
      Field{"id", &MonitorMix::id},
      Field{"number", &MonitorMix::number},
      Field{"name", &MonitorMix::name},
      Field{"type", &MonitorMix::type},
      Field{"outputPatch", &MonitorMix::outputPatch},
      Field{"notes", &MonitorMix::notes},
      Field{"plotItemID", &MonitorMix::plotItemID},
  };
}
static_assert(tableIsComplete<MonitorMix>);
template <>
inline constexpr auto searchKey<MonitorMix> = &MonitorMix::plotItemID;

/// One line of equipment to be provided.
struct EquipmentRequirement {
  UUID id;                         ///< No other line of equipment of a valid project has it.
  Text category;                   ///< Such as "Power" or "Staging".
  Text item;                       ///< What is needed, such as "Clean 230 V power".
  std::int64_t quantity;           ///< How many; preflight reports values below 1.
  Text suppliedBy;                 ///< Who provides it, such as "Venue".
  Text notes;                      ///< Such as "With ground lift".
  std::optional<UUID> plotItemID;  ///< The item that shows it; absent when none does.

  friend bool operator==(const EquipmentRequirement&, const EquipmentRequirement&) = default;
};

template <>
constexpr auto fieldsOf<EquipmentRequirement>() {
  return std::tuple{
      Field{"id", &EquipmentRequirement::id},
      Field{"category", &EquipmentRequirement::category},
      Field{"item", &EquipmentRequirement::item},
      Field{"quantity", &EquipmentRequirement::quantity},
      Field{"suppliedBy", &EquipmentRequirement::suppliedBy},
      Field{"notes", &EquipmentRequirement::notes},
      Field{"plotItemID", &EquipmentRequirement::plotItemID},
  };
}
static_assert(tableIsComplete<EquipmentRequirement>);
template <>
inline constexpr auto searchKey<EquipmentRequirement> = &EquipmentRequirement::plotItemID;

/// A free note to the venue.
struct ProjectNote {
  UUID id;     ///< No other note of a valid project has it.
  Text title;  ///< Such as "Soundcheck".
  Text body;   ///< Any length, line breaks included.

  friend bool operator==(const ProjectNote&, const ProjectNote&) = default;
};

template <>
constexpr auto fieldsOf<ProjectNote>() {
  return std::tuple{
      Field{"id", &ProjectNote::id},
      Field{"title", &ProjectNote::title},
      Field{"body", &ProjectNote::body},
  };
}
static_assert(tableIsComplete<ProjectNote>);

}  // namespace korrin

#pragma GCC visibility pop
