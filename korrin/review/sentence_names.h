#pragma once

// What people call the records of a plot. Not public.

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "korrin/review/identity_index.h"
#include "korrin/review/record_walk.h"

namespace korrin::revision {

/// `"MIX 2"`, `Input 7 "Bass DI"`, `Layer "Rigging"`: for use at the start of a sentence.
std::string nameOf(const PlotItem& item);
std::string nameOf(const PlotLayer& layer);
std::string nameOf(const PlotGroup& group);
std::string nameOf(const InputChannel& input);
std::string nameOf(const MonitorMix& mix);
std::string nameOf(const EquipmentRequirement& equipment);
std::string nameOf(const ProjectNote& note);
std::string nameOf(const AssetManifestEntry& asset);
/// A record that joins has a name from the start: its identifier.
template <RecordType Record>
std::string nameOf(const Record& record);

/// `Monitor mix 1234...` for a record that is in neither project.
std::string nameOfUnknown(std::string_view list, std::string_view id);

template <RecordType Record>
std::string nameOf(const Record& record) {
  return nameOfUnknown("record", textOf(identityOf(record)));
}

/// Names the records of one project. Refers to it.
class RecordNames {
 public:
  explicit RecordNames(const KorrinProject& project, const IdentityIndex* index = nullptr)
      : project_(project), index_(index) {}

  AudienceEdge audienceEdge() const { return project_.stage.audienceEdge; }

  /// What the first record of the list that has the identifier is called; nothing when none has it.
  template <class Field>
  std::optional<std::string> nameIn(const Field& field, std::string_view id) const {
    if constexpr (std::is_same_v<IdentityOf<typename ValueOf<Field>::value_type>, UUID>) {
      const auto identity = UUID::fromText(id);
      return identity ? nameOfFirst(field, *identity) : std::nullopt;
    } else {
      return nameOfFirst(field, Text(id));
    }
  }

  /// What the record is called to which a field of this key refers, such as "layerID"; where it is
  /// not in this project it is sought in the other one.
  std::string nameReferredTo(std::string_view key, const UUID& id, const RecordNames& other) const;

 private:
  template <class Field, class Identity>
  std::optional<std::string> nameOfFirst(const Field& field, const Identity& identity) const {
    const auto& list = project_.*field.member;
    if (index_ != nullptr) {
      const auto place = index_->find(field.key, identity);
      return place ? std::optional(nameOf(list[*place])) : std::nullopt;
    }
    for (const auto& record : list)
      if (identityOf(record) == identity) return nameOf(record);
    return std::nullopt;
  }

  std::optional<std::string> nameOfReferred(std::string_view key, const UUID& id) const;

  const KorrinProject& project_;
  const IdentityIndex* index_;
};

}  // namespace korrin::revision
