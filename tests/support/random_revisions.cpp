#include "tests/support/random_revisions.h"

#include <limits>
#include <type_traits>

#include "korrin/review/record_walk.h"

namespace korrin::test {
namespace {

// Identifiers stay: a record with another one is another record.
template <class Field>
bool isIdentity(const Field& field) {
  return field.key == "id" || field.key == "sha256";
}

}  // namespace

template <class Value>
void RandomRevisions::change(Value& value, const Value& donor) {
  if constexpr (std::is_same_v<Value, double>) {
    constexpr double strange[] = {0.0, -0.0, std::numeric_limits<double>::quiet_NaN(),
                                  std::numeric_limits<double>::infinity()};
    value = chance_(8) == 0 ? strange[chance_(4)] : donor + chance_(3);
  } else if constexpr (RecordType<Value>) {
    constexpr std::size_t count = std::tuple_size_v<decltype(fieldsOf<Value>())>;
    const std::size_t chosen = below(count);
    std::size_t place = 0;
    forEachField<Value>([&](const auto& field) {
      if (place++ == chosen && !isIdentity(field)) change(value.*field.member, donor.*field.member);
    });
  } else {
    value = donor;
  }
}

template <class Record>
void RandomRevisions::edit(List<Record>& list, const List<Record>& donor) {
  switch (chance_(5)) {
    case 0:
      if (!list.empty()) list.erase(below(list.size()));
      return;
    case 1:
      if (!donor.empty()) list.insert(below(list.size() + 1), donor[below(donor.size())]);
      return;
    case 2: {
      if (list.empty()) return;
      const std::size_t from = below(list.size());
      const Record record = list[from];
      list.erase(from);
      list.insert(below(list.size() + 1), record);
      return;
    }
    default:
      if (list.empty() || donor.empty()) return;
      change(list.edit(below(list.size())), donor[below(donor.size())]);
  }
}

KorrinProject RandomRevisions::revised(KorrinProject project) {
  for (int count = chance_(6); count > 0; --count) {
    const KorrinProject donor = edits_.project();
    // The lists of items and groups come up more often than the others.
    const std::size_t chosen = below(24);
    std::size_t place = 0;
    forEachField<KorrinProject>([&](const auto& field) {
      using Value = typename std::decay_t<decltype(field)>::ValueType;
      const bool isChosen = place == chosen || (chosen >= 13 && field.key == "items") ||
                            (chosen >= 20 && field.key == "groups");
      ++place;
      if (!isChosen) return;
      if constexpr (revision::isList<Value>)
        edit(project.*field.member, donor.*field.member);
      else
        change(project.*field.member, donor.*field.member);
    });
  }
  project.metadata.modifiedAt += std::chrono::seconds(chance_(5));
  return project;
}

}  // namespace korrin::test
