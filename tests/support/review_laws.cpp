#include "tests/support/review_laws.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "korrin/model/document_coding.h"
#include "korrin/review/difference.h"
#include "korrin/review/merge.h"
#include "korrin/review/record_walk.h"
#include "korrin/validation/document_validation.h"

#include "tests/support/laws.h"
#include "tests/support/random_revisions.h"

namespace korrin::test {
namespace {

using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

constexpr EncodingOptions anyNumber = {.nonFinite = NonFinite::strings};

std::string written(const KorrinProject& project) { return encodeJSON(project, anyNumber); }
std::string writtenButModifiedAt(const KorrinProject& project) {
  return written(withModifiedAt(project, {}));
}
KorrinProject unshared(const KorrinProject& project) {
  return decodeJSON<KorrinProject>(written(project), {.nonFinite = NonFinite::strings});
}

template <class Visit>
void forEachList(Visit visit) {
  forEachField<KorrinProject>([&](const auto& field) {
    if constexpr (revision::isList<typename std::decay_t<decltype(field)>::ValueType>) visit(field);
  });
}

template <class Record>
std::string identityOf(const Record& record) {
  return record.id.text();
}
std::string identityOf(const AssetManifestEntry& entry) { return entry.sha256.str(); }

/// A record by its identity and how many with the same one stand before it.
using Name = std::pair<std::string, int>;

template <class Record>
std::vector<Name> namesOf(const List<Record>& list) {
  std::map<std::string, int> counts;
  std::vector<Name> names;
  for (const Record& record : list) {
    const std::string id = identityOf(record);
    names.emplace_back(id, counts[id]++);
  }
  return names;
}

std::size_t placeIn(const std::vector<Name>& names, const Name& name) {
  return static_cast<std::size_t>(std::ranges::find(names, name) - names.begin());
}

// By comparing each with each: the length of the longest row of records in the same order.
std::size_t longestCommonOrder(const std::vector<Name>& before, const std::vector<Name>& after) {
  std::vector<std::size_t> places;
  for (const Name& name : after)
    if (const std::size_t place = placeIn(before, name); place < before.size())
      places.push_back(place);
  std::vector<std::size_t> longest(places.size(), 1);
  for (std::size_t i = 0; i < places.size(); ++i)
    for (std::size_t j = 0; j < i; ++j)
      if (places[j] < places[i]) longest[i] = std::max(longest[i], longest[j] + 1);
  return longest.empty() ? 0 : *std::ranges::max_element(longest);
}

struct Counts {
  std::size_t added = 0;
  std::size_t removed = 0;
  std::size_t moved = 0;
  std::multiset<std::string> changed;  // identities

  friend bool operator==(const Counts&, const Counts&) = default;
};

template <class Record>
Counts expectedCounts(const List<Record>& before, const List<Record>& after) {
  const std::vector<Name> former = namesOf(before);
  const std::vector<Name> present = namesOf(after);
  Counts counts;
  std::size_t common = 0;
  for (std::size_t i = 0; i < present.size(); ++i) {
    const std::size_t place = placeIn(former, present[i]);
    if (place == former.size()) {
      ++counts.added;
      continue;
    }
    ++common;
    // Written, so that a NaN is itself; texts of random projects have one spelling each.
    Record a = before[place];
    Record b = after[i];
    if (a != b && encodeJSON(a, anyNumber) != encodeJSON(b, anyNumber))
      counts.changed.insert(present[i].first);
  }
  counts.removed = former.size() - common;
  counts.moved = common - longestCommonOrder(former, present);
  return counts;
}

Counts countsOf(const std::vector<Difference>& all, std::string_view list) {
  Counts counts;
  std::string changed;
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (all[i].list != list) continue;
    counts.added += all[i].kind == DifferenceKind::added;
    counts.removed += all[i].kind == DifferenceKind::removed;
    counts.moved += all[i].kind == DifferenceKind::moved;
  }
  return counts;
}

// The records with a changed field, each once however many fields changed. Neighbours with one
// identity are not told apart.
std::set<std::string> changedIn(const std::vector<Difference>& all, std::string_view list) {
  std::set<std::string> ids;
  for (const Difference& one : all)
    if (one.list == list && one.kind == DifferenceKind::changed) ids.insert(one.id);
  return ids;
}

std::vector<Difference> butMoves(std::vector<Difference> all) {
  std::erase_if(all, [](const Difference& one) { return one.kind == DifferenceKind::moved; });
  std::ranges::sort(all, {}, [](const Difference& one) {
    return std::tie(one.list, one.id, one.field, one.kind, one.before, one.after);
  });
  return all;
}

bool holdsNaN(const KorrinProject& project) { return !(project == project); }

std::string told(const Difference& one) {
  return std::string(rawValue(one.kind)) + " " + one.list + " " + one.id + " " + one.field + ": " +
         one.before + " -> " + one.after;
}

AssertionResult isFit(const std::string& sentence) {
  if (sentence.empty()) return AssertionFailure() << "a difference has no sentence";
  for (const char c : sentence)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
      return AssertionFailure() << "control character in " << sentence;
  return AssertionSuccess();
}

template <class Record>
bool hasRepeated(const List<Record>& list) {
  const std::vector<Name> names = namesOf(list);
  return std::ranges::any_of(names, [](const Name& name) { return name.second > 0; });
}

bool hasRepeated(const KorrinProject& project) {
  bool has = false;
  forEachList([&](const auto& field) { has = has || hasRepeated(project.*field.member); });
  return has;
}

std::map<std::string, int> identifierCounts(const KorrinProject& project) {
  std::map<std::string, int> counts;
  forEachList([&](const auto& field) {
    if (field.key == "assetManifest") return;
    for (const auto& record : project.*field.member) ++counts[identityOf(record)];
  });
  return counts;
}

bool passesValidation(const KorrinProject& project) {
  try {
    DocumentValidation::validate(project);
    return true;
  } catch (const DocumentValidationError&) {
    return false;
  }
}

bool isConcerned(const Difference& one, const std::vector<MergeConflict>& conflicts) {
  return std::ranges::any_of(conflicts, [&](const MergeConflict& conflict) {
    return conflict.list == one.list && conflict.id == one.id &&
           (conflict.field.empty() || one.field.empty() || conflict.field == one.field);
  });
}

// Every edit of a side is in the result or in a conflict; the result has no edit of its own.
AssertionResult losesNoEdit(const KorrinProject& base, const KorrinProject& ours,
                            const KorrinProject& theirs, const MergeResult& result) {
  const auto isIn = [](const std::vector<Difference>& all, const Difference& one) {
    return std::ranges::find(all, one) != all.end();
  };
  const auto mine = butMoves(differences(base, ours));
  const auto other = butMoves(differences(base, theirs));
  const auto both = butMoves(differences(base, result.project));
  for (const auto* side : {&mine, &other})
    for (const Difference& one : *side)
      if (!isIn(both, one) && !isConcerned(one, result.conflicts))
        return AssertionFailure() << "lost: " << told(one);
  for (const Difference& one : both)
    if (!isIn(mine, one) && !isIn(other, one) && !isConcerned(one, result.conflicts))
      return AssertionFailure() << "nobody's edit: " << told(one);
  return AssertionSuccess();
}

// The records that stood in the base, in their order, and all others sorted.
template <class Record>
List<Record> withAdditionsSorted(const List<Record>& list, const List<Record>& base) {
  const std::vector<Name> known = namesOf(base);
  const std::vector<Name> names = namesOf(list);
  std::vector<Record> records;
  std::vector<Record> additions;
  for (std::size_t i = 0; i < list.size(); ++i)
    (placeIn(known, names[i]) < known.size() ? records : additions).push_back(list[i]);
  std::ranges::sort(additions, {}, [](const Record& record) { return identityOf(record); });
  records.insert(records.end(), additions.begin(), additions.end());
  return records;
}

std::string comparable(const KorrinProject& project, const KorrinProject& base) {
  KorrinProject sorted = project;
  forEachList([&](const auto& field) {
    sorted.*field.member = withAdditionsSorted(project.*field.member, base.*field.member);
  });
  return written(sorted);
}

}  // namespace

AssertionResult differencesAreRight(const KorrinProject& before, const KorrinProject& after) {
  for (const KorrinProject* project : {&before, &after})
    if (!differences(*project, *project).empty() ||
        !differences(*project, unshared(*project)).empty())
      return AssertionFailure() << "a project differs from itself: " << written(*project);

  const std::vector<Difference> all = differences(before, after);
  if (!holdsNaN(before) && !holdsNaN(after) &&
      all.empty() != (withModifiedAt(before, {}) == withModifiedAt(after, {})))
    return AssertionFailure() << all.size() << " differences";

  AssertionResult law = AssertionSuccess();
  forEachList([&](const auto& field) {
    Counts expected = expectedCounts(before.*field.member, after.*field.member);
    const std::set<std::string> changed(expected.changed.begin(), expected.changed.end());
    expected.changed.clear();
    if (changedIn(all, field.key) != changed)
      law = AssertionFailure() << "other records of " << field.key << " are changed";
    if (countsOf(all, field.key) != expected)
      law = AssertionFailure() << "other records of " << field.key << " come, go or move";
  });
  if (!law) return law;

  if (butMoves(all) != butMoves(differences(unshared(before), unshared(after))))
    return AssertionFailure() << "what is shared makes a difference";
  const DifferenceSentences sentences(before, after);
  for (const Difference& one : all) {
    const std::string sentence = sentenceFor(one, before, after);
    if (const auto fit = isFit(sentence); !fit) return fit;
    if (sentences(one) != sentence) return AssertionFailure() << "two sentences: " << sentence;
    if (sentenceFor(one, {}, {}).empty()) return AssertionFailure() << "no sentence: " << told(one);
  }
  return AssertionSuccess();
}

AssertionResult mergeIsRight(const KorrinProject& base, const KorrinProject& ours,
                             const KorrinProject& theirs) {
  for (const KorrinProject* side : {&ours, &theirs}) {
    for (const MergeResult& result :
         {merge(base, *side, base), merge(base, base, *side), merge(base, *side, *side),
          merge(unshared(base), unshared(*side), unshared(base)),
          merge(unshared(base), unshared(base), unshared(*side))}) {
      if (!result.conflicts.empty())
        return AssertionFailure() << "a single edit conflicts in " << result.conflicts[0].list;
      if (writtenButModifiedAt(result.project) != writtenButModifiedAt(*side))
        return AssertionFailure() << "a single edit gives\n"
                                  << written(result.project) << "\ninstead of\n"
                                  << written(*side);
    }
  }

  const MergeResult result = merge(base, ours, theirs);
  if (result.project.metadata.modifiedAt !=
      std::max(ours.metadata.modifiedAt, theirs.metadata.modifiedAt))
    return AssertionFailure() << "modifiedAt is not the later one";
  const MergeResult apart = merge(unshared(base), unshared(ours), unshared(theirs));
  if (written(apart.project) != written(result.project) || apart.conflicts != result.conflicts)
    return AssertionFailure() << "what is shared makes a difference";

  const MergeResult exchanged = merge(base, theirs, ours);
  if (exchanged.conflicts.size() != result.conflicts.size() &&
      (result.conflicts.empty() || exchanged.conflicts.empty()))
    return AssertionFailure() << "one side's conflict is not the other's";
  if (result.conflicts.empty() &&
      comparable(result.project, base) != comparable(exchanged.project, base))
    return AssertionFailure() << "exchanged sides give\n"
                              << written(exchanged.project) << "\ninstead of\n"
                              << written(result.project);

  const auto inResult = identifierCounts(result.project);
  const auto inBase = identifierCounts(base);
  const auto inOurs = identifierCounts(ours);
  const auto inTheirs = identifierCounts(theirs);
  const auto isRepeated = [](const std::map<std::string, int>& counts, const std::string& id) {
    const auto found = counts.find(id);
    return found != counts.end() && found->second > 1;
  };
  for (const auto& [id, count] : inResult)
    if (count > 1 && !isRepeated(inBase, id) && !isRepeated(inOurs, id) &&
        !isRepeated(inTheirs, id))
      return AssertionFailure() << id << " stands " << count << " times";
  if (passesValidation(base) && passesValidation(ours) && passesValidation(theirs) &&
      !passesValidation(result.project))
    return AssertionFailure() << "the result does not pass validation";

  // With repeated identifiers a removal renumbers those behind it; what was whose edit is no longer
  // a question of single differences.
  if (hasRepeated(base) || hasRepeated(ours) || hasRepeated(theirs)) return AssertionSuccess();
  return losesNoEdit(base, ours, theirs, result);
}

}  // namespace korrin::test
