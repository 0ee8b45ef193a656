#include <algorithm>
#include <map>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "korrin/review/difference.h"
#include "korrin/review/record_walk.h"
#include "korrin/review/sentence_names.h"
#include "korrin/review/words.h"

namespace korrin {
namespace {

using namespace revision;

constexpr DecodingOptions anyNumber = {.nonFinite = NonFinite::strings};

/// The value that a difference holds; nothing where it holds none, or none of this type.
template <class Value>
std::optional<Value> valueIn(const std::string& json) {
  if (json.empty()) return std::nullopt;
  try {
    return decodeJSONValue<Value>(json, anyNumber);
  } catch (const DecodingError&) {
    return std::nullopt;
  }
}

template <class Value>
struct WithoutOptional {
  using Type = Value;
};
template <class Value>
struct WithoutOptional<std::optional<Value>> {
  using Type = Value;
};

/// A sentence about one difference.
class Sentence {
 public:
  Sentence(const Difference& difference, const RecordNames& before, const RecordNames& after)
      : difference_(difference), before_(before), after_(after) {}

  std::string text() const {
    std::string sentence;
    forEachField<KorrinProject>([&](const auto& field) {
      if (field.key == difference_.list) sentence = about(field);
    });
    return sentence.empty() ? plain() : sentence;
  }

 private:
  template <class Field>
  std::string about(const Field& field) const {
    using Value = ValueOf<Field>;
    if constexpr (isList<Value>) {
      return aboutRecord(field);
    } else if constexpr (isWalked<Value>) {
      return std::string(nameOfPart(difference_.list)) + aboutField<Value>(difference_.field);
    } else {
      return "Document" + changeOf<Value>(difference_.list);
    }
  }

  static std::string nameOfPart(std::string_view key) {
    if (key == "metadata") return "Plot";
    if (key == "exportSettings") return "Printed pages";
    return capitalized(wordsOf(key));
  }

  template <class Field>
  std::string aboutRecord(const Field& field) const {
    using Record = typename ValueOf<Field>::value_type;
    switch (difference_.kind) {
      case DifferenceKind::added:
        return nameFrom<Record>(difference_.after, field) + " added";
      case DifferenceKind::removed:
        return nameFrom<Record>(difference_.before, field) + " removed";
      case DifferenceKind::moved:
        return name(field) + " moved from place " + place(difference_.before) + " to " +
               place(difference_.after);
      case DifferenceKind::changed:
        break;
    }
    return name(field) + aboutField<Record>(difference_.field);
  }

  /// The name that people know from the former plot, where it has the record.
  template <class Field>
  std::string name(const Field& field) const {
    if (auto name = before_.nameIn(field, difference_.id)) return *std::move(name);
    if (auto name = after_.nameIn(field, difference_.id)) return *std::move(name);
    return nameOfUnknown(difference_.list, difference_.id);
  }
  template <class Record, class Field>
  std::string nameFrom(const std::string& json, const Field& field) const {
    const auto record = valueIn<Record>(json);
    return record ? nameOf(*record) : name(field);
  }

  /// Places count from 1 for people.
  static std::string place(const std::string& text) {
    const auto number = valueIn<std::int64_t>(text);
    const bool isPlace = number && *number >= 0 && *number < INT64_MAX;
    return isPlace ? std::to_string(*number + 1) : shown(text);
  }

  /// What goes on behind the record's name, the blank or colon included.
  template <class Record>
  std::string aboutField(std::string_view path) const {
    const std::size_t dot = path.find('.');
    const std::string_view first = path.substr(0, dot);
    std::string result;
    forEachField<Record>([&](const auto& field) {
      if (field.key != first) return;
      using Value = ValueOf<decltype(field)>;
      if constexpr (isWalked<Value>) {
        if (dot != std::string_view::npos) result = aboutField<Value>(path.substr(dot + 1));
      } else if (dot == std::string_view::npos) {
        result = changeOf<Value>(field.key);
      }
    });
    return result.empty() ? plainChange(wordsOf(path)) : result;
  }

  template <class Declared>
  std::string changeOf(std::string_view key) const {
    using Value = typename WithoutOptional<Declared>::Type;
    const auto former = valueIn<Value>(difference_.before);
    const auto present = valueIn<Value>(difference_.after);
    const bool isReadable = former.has_value() != difference_.before.empty() &&
                            present.has_value() != difference_.after.empty();
    if (!isReadable) return plainChange(wordsOf(key));

    if constexpr (std::is_same_v<Value, bool>) {
      if (present) return truthOf(key, *present);
    }
    if constexpr (std::is_same_v<Value, StagePoint>) {
      const std::string movement =
          former && present ? movementText(*former, *present, after_.audienceEdge()) : "";
      if (!movement.empty()) return " moved " + movement;
    }
    if constexpr (std::is_same_v<Value, List<UUID>>) {
      if (former && present) return membershipOf(key, *former, *present);
    }
    return changeInWords(wordsOf(key), wordsFor(former, key, before_, after_),
                         wordsFor(present, key, after_, before_), former, present);
  }

  /// "changed from ... to ...", or what fits a value that was not there, or is no more.
  template <class Value>
  std::string changeInWords(const std::string& words, std::string from, std::string to,
                            const std::optional<Value>& former,
                            const std::optional<Value>& present) const {
    if constexpr (std::is_same_v<Value, Text>) {
      if (former && present) {
        auto [a, b] = shownApart(*former, *present);
        from = '"' + a + '"';
        to = '"' + b + '"';
      }
    }
    const std::string start = ": " + words;
    const bool hadNothing = isNothing(former);
    const bool hasNothing = isNothing(present);
    if (hadNothing && hasNothing) return start + (present ? " left blank" : " removed");
    if (hadNothing) return start + " set to " + to;
    if (hasNothing) return start + " removed, was " + from;
    return start + " changed from " + from + " to " + to;
  }
  template <class Value>
  static bool isNothing(const std::optional<Value>& value) {
    if constexpr (std::is_same_v<Value, Text>)
      return !value || value->empty();
    else
      return !value;
  }

  template <class Value>
  static std::string wordsFor(const std::optional<Value>& value, std::string_view key,
                              const RecordNames& names, const RecordNames& otherNames) {
    if (!value) return {};
    if constexpr (std::is_same_v<Value, Text>)
      return quoted(*value);
    else if constexpr (std::is_same_v<Value, double>)
      return measureText(key, *value);
    else if constexpr (std::is_same_v<Value, std::int64_t>)
      return std::to_string(*value);
    else if constexpr (std::is_same_v<Value, UUID>)
      return names.nameReferredTo(key, *value, otherNames);
    else if constexpr (std::is_same_v<Value, Instant>)
      return dateText(valueIn<Text>(jsonOf(*value)).value_or(Text()).str());
    else if constexpr (std::is_same_v<Value, StagePoint>)
      return "(" + numberText(value->x) + " mm, " + numberText(value->y) + " mm)";
    else if constexpr (std::is_same_v<Value, StageSize>)
      return lengthText(value->width) + " x " + lengthText(value->height);
    else if constexpr (RawValueEnumeration<Value>)
      return wordsOf(rawValue(*value));
    else
      return shown(jsonOf(*value));
  }

  /// Who joined a group and who left it.
  std::string membershipOf(std::string_view key, const List<UUID>& former,
                           const List<UUID>& present) const {
    std::vector<UUID> had = former.toVector();
    std::vector<UUID> has = present.toVector();
    std::sort(had.begin(), had.end());
    std::sort(has.begin(), has.end());
    const bool areTheSame = had == has;
    // A member that is listed less often has not left.
    had.erase(std::unique(had.begin(), had.end()), had.end());
    has.erase(std::unique(has.begin(), has.end()), has.end());
    std::vector<UUID> joined;
    std::vector<UUID> left;
    std::set_difference(has.begin(), has.end(), had.begin(), had.end(), std::back_inserter(joined));
    std::set_difference(had.begin(), had.end(), has.begin(), has.end(), std::back_inserter(left));
    if (joined.empty() && left.empty())
      return ": " + wordsOf(key) +
             (areTheSame ? " in another order" : " listed more or less often");
    std::string text = ": ";
    if (!joined.empty()) text += namesOf(key, joined, after_, before_) + " joined";
    if (!joined.empty() && !left.empty()) text += ", ";
    if (!left.empty()) text += namesOf(key, left, before_, after_) + " left";
    return text;
  }

  static std::string namesOf(std::string_view key, const std::vector<UUID>& ids,
                             const RecordNames& names, const RecordNames& otherNames) {
    constexpr std::size_t most = 4;
    const std::size_t named = std::min(ids.size(), most);
    std::string text;
    for (std::size_t i = 0; i < named; ++i) {
      if (i > 0) text += i + 1 == ids.size() ? " and " : ", ";
      text += names.nameReferredTo(key, ids[i], otherNames);
    }
    if (named < ids.size()) text += " and " + std::to_string(ids.size() - named) + " more";
    return text;
  }

  /// For values that are not what the field holds.
  std::string plainChange(const std::string& words) const {
    auto [from, to] = shownApart(difference_.before, difference_.after);
    std::string text = ":";
    if (!words.empty()) text += " " + shown(words);
    if (difference_.before.empty()) return text + " set to " + to;
    if (difference_.after.empty()) return text + " removed, was " + from;
    return text + " changed from " + from + " to " + to;
  }

  /// For a list that no project has.
  std::string plain() const {
    return nameOfUnknown(difference_.list, difference_.id) + plainChange(difference_.field);
  }

  const Difference& difference_;
  const RecordNames& before_;
  const RecordNames& after_;
};

}  // namespace

struct DifferenceSentences::Index {
  Index(KorrinProject former, KorrinProject present)
      : before(std::move(former)),
        after(std::move(present)),
        identitiesBefore(before),
        identitiesAfter(after) {}

  KorrinProject before;
  KorrinProject after;
  IdentityIndex identitiesBefore;
  IdentityIndex identitiesAfter;
};

DifferenceSentences::DifferenceSentences(KorrinProject before, KorrinProject after)
    : index_(std::make_shared<const Index>(std::move(before), std::move(after))) {}

std::string DifferenceSentences::operator()(const Difference& difference) const {
  return Sentence(difference, RecordNames(index_->before, &index_->identitiesBefore),
                  RecordNames(index_->after, &index_->identitiesAfter))
      .text();
}

std::string sentenceFor(const Difference& difference, const KorrinProject& before,
                        const KorrinProject& after) {
  return Sentence(difference, RecordNames(before), RecordNames(after)).text();
}

}  // namespace korrin
