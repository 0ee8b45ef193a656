#pragma once

// What differs between two states of a project, value by value, and each difference in words.
//
// Records are told apart by their identifiers, manifest entries by their digests. Where a list
// holds an identifier several times, the first goes with the first, the second with the second, and
// so on. A position and a size are one value each; a list inside a record, such as the members of a
// group, is one value.
//
// Storage that both projects share is not walked: for two states of one plot the time follows what
// was edited. For two plots that share nothing it is O(n log n) at worst and linear while the
// records stand in one order. Texts are compared by canonical equivalence, 0 equals -0, and every
// not-a-number value equals every other: a project never differs from itself.

#include <memory>
#include <string>
#include <vector>

#include "korrin/foundation/enumeration.h"
#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// What became of a record or of one of its values.
enum class DifferenceKind {
  added,    ///< The record stands in `after` alone.
  removed,  ///< The record stands in `before` alone.
  moved,    ///< The record stands in another order among those that both have.
  changed,  ///< One value is another.
};

template <>
struct CaseTable<DifferenceKind> {
  static constexpr std::array cases = {
      Case{DifferenceKind::added, "added"},
      Case{DifferenceKind::removed, "removed"},
      Case{DifferenceKind::moved, "moved"},
      Case{DifferenceKind::changed, "changed"},
  };
};

/// One difference between two projects. Values are compact JSON, as in a document; numbers that are
/// not finite are the strings "Infinity", "-Infinity" and "NaN". All parts come from the documents
/// and may hold any character.
struct Difference {
  DifferenceKind kind;  ///< Says what `before` and `after` hold.
  std::string list;     ///< The project's key, such as "items", "metadata" or "schemaVersion".
  /// The record's identifier in its canonical form, or a manifest entry's digest; empty for what
  /// stands in no list.
  std::string id;
  /// The keys down to the value, joined by dots, such as "style.labelScale"; empty for a whole
  /// record and for a value of the project itself.
  std::string field;
  /// The value, the whole removed record, or the place of a moved one counted from 0. Empty where
  /// there was none.
  std::string before;
  /// The value, the whole added record, or the place of a moved one counted from 0. Empty where
  /// there is none.
  std::string after;

  friend bool operator==(const Difference&, const Difference&) = default;
};

/// What is compared.
struct DifferenceOptions {
  bool modifiedAt = false;  ///< Whether the instant of the last edit counts.
};

/// All differences, in the project's field order. Within a list they stand in the order of `after`;
/// removed records follow what they stood behind. Of one record the move comes first, then the
/// fields in their order. `moved` names the fewest records whose move explains the order. Empty
/// exactly when the projects are equal but for what `options` leave out and for not-a-number
/// values.
std::vector<Difference> differences(const KorrinProject& before, const KorrinProject& after,
                                    const DifferenceOptions& options = {});

/// The difference as a crew says it, on one line and without a full stop:
///
///     Input 7 "Bass DI": microphone or DI changed from "DI" to "Active DI"
///     "MIX 2" moved 0.40 m to the right and 0.15 m towards the audience
///     "MIX 2" moved from place 3 to 1
///
/// The projects give the names; right and audience are those of the drawing of `after`. Places are
/// counted from 1. Control characters and those that reorder or hide text stand as "\n" or
/// "\u{202E}"; long texts are cut to the part that differs. A difference that does not fit the
/// projects gets a plainer sentence. Looks for the record in its list: for many differences use
/// `DifferenceSentences`.
std::string sentenceFor(const Difference& difference, const KorrinProject& before,
                        const KorrinProject& after);

/// `sentenceFor` for many differences of two projects: finds each record in O(log n).
class DifferenceSentences {
 public:
  /// Keeps the projects and makes an index of their identifiers in O(n log n).
  DifferenceSentences(KorrinProject before, KorrinProject after);
  /// What `sentenceFor` returns.
  std::string operator()(const Difference& difference) const;

 private:
  struct Index;
  std::shared_ptr<const Index> index_;
};

}  // namespace korrin

#pragma GCC visibility pop
