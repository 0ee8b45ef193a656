#pragma once

// The starting documents that a host offers for a new plot. Each is a complete plot whose input,
// mix and equipment lines point at the items that show them; it passes validation and gives
// preflight nothing to report when all its symbols are known. See also `KorrinProject::template_`
// and `KorrinProject::example`, which are defined here.

#include <string_view>
#include <vector>

#include "korrin/foundation/enumeration.h"
#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Which starting document.
enum class KorrinTemplateID {
  soloAcoustic,
  powerTrio,
  electronicDuo,
  fivePieceBand,
};

template <>
struct CaseTable<KorrinTemplateID> {
  static constexpr std::array cases = {
      Case{KorrinTemplateID::soloAcoustic, "solo_acoustic"},
      Case{KorrinTemplateID::powerTrio, "power_trio"},
      Case{KorrinTemplateID::electronicDuo, "electronic_duo"},
      Case{KorrinTemplateID::fivePieceBand, "five_piece_band"},
  };
};

/// The name that a chooser shows, such as "Power Trio". Aborts for a value that is no case, as do
/// the two functions below.
std::string_view title(KorrinTemplateID id);

/// One line on what the document holds.
std::string_view summary(KorrinTemplateID id);

/// The name of the symbol image that a chooser shows; what image that is, is the host's business.
std::string_view systemImage(KorrinTemplateID id);

/// A starting document and its name.
struct KorrinTemplate {
  KorrinTemplateID id;    ///< Which one it is.
  KorrinProject project;  ///< For looking at; plots begin from fresh ones.

  /// All templates in the order of their identifiers. Built on first use, from the system's clock
  /// and identifiers, and the same list ever after, so a host that opens one of these more than
  /// once makes a fresh one with `KorrinProject::template_` instead. First uses may race.
  static const std::vector<KorrinTemplate>& all();

  friend bool operator==(const KorrinTemplate&, const KorrinTemplate&) = default;
};

template <>
constexpr auto fieldsOf<KorrinTemplate>() {
  return std::tuple{Field{"id", &KorrinTemplate::id}, Field{"project", &KorrinTemplate::project}};
}
static_assert(tableIsComplete<KorrinTemplate>);
template <>
inline constexpr bool standsInDocuments<KorrinTemplate> = false;

}  // namespace korrin

#pragma GCC visibility pop
