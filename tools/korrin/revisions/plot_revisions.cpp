#include "revisions/plot_revisions.h"

#include <utility>

#include <nlohmann/json.hpp>

#include "korrin/review/item_changes.h"

#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "terminal/display_text.h"

namespace korrin::host {
namespace {

using Json = nlohmann::ordered_json;

/// The project without a record: what a plot is compared with that was not there before.
KorrinProject withoutRecords(KorrinProject project) {
  forEachField<KorrinProject>([&project](const auto& field) {
    using Value = typename std::decay_t<decltype(field)>::ValueType;
    if constexpr (requires(Value value) { value.clear(); }) (project.*field.member).clear();
  });
  return project;
}

Json valueOf(const std::string& json) { return json.empty() ? Json(nullptr) : Json::parse(json); }

bool isNothing(const std::string& path) { return path == "/dev/null"; }

}  // namespace

Revision readRevision(const std::string& path, DateStrategy dates) {
  if (isNothing(path)) return {path, std::nullopt};
  const std::string bytes = readFile(path);
  if (bytes.empty()) return {inputName(path), std::nullopt};
  return {inputName(path), decodeDocument(bytes, dates)};
}

RevisionReport::RevisionReport(Revision before, Revision after)
    : before_(std::move(before)),
      after_(std::move(after)),
      isNew_(!before_.project && after_.project),
      isGone_(before_.project && !after_.project) {
  if (!before_.project) before_.project = withoutRecords(after_.project.value_or(KorrinProject{}));
  if (!after_.project) after_.project = withoutRecords(*before_.project);
  differences_ = differences(*before_.project, *after_.project);
}

void RevisionReport::print(std::ostream& out) const {
  if (isNew_) out << "The plot is new.\n";
  if (isGone_) out << "The plot is gone.\n";
  if (isEmpty()) out << "No difference.\n";
  const DifferenceSentences sentences(*before_.project, *after_.project);
  std::string_view list;
  for (const Difference& one : differences_) {
    if (one.list != list) out << headingOf(one.list) << '\n';
    list = one.list;
    out << "  " << printable(sentences(one)) << '\n';
  }
}

std::string RevisionReport::json() const {
  const DifferenceSentences sentences(*before_.project, *after_.project);
  Json report = {{"before", printable(before_.name)},
                 {"after", printable(after_.name)},
                 {"differences", Json::array()}};
  for (const Difference& one : differences_)
    report["differences"].push_back({{"kind", rawValue(one.kind)},
                                     {"list", one.list},
                                     {"id", one.id},
                                     {"field", one.field},
                                     {"before", valueOf(one.before)},
                                     {"after", valueOf(one.after)},
                                     {"sentence", sentences(one)}});
  return report.dump(2, ' ', false, Json::error_handler_t::replace);
}

RevisionMarks marksSince(const KorrinProject& before, const KorrinProject& after) {
  const std::vector<Difference> all = differences(before, after);
  ItemChanges changes = itemChanges(all, before);
  RevisionMarks marks{.added = std::move(changes.added),
                      .changed = std::move(changes.changed),
                      .moved = std::move(changes.moved),
                      .gone = std::move(changes.gone)};
  const DifferenceSentences sentences(before, after);
  for (const Difference& one : all) marks.sentences.emplace_back(sentences(one));
  return marks;
}

std::string headingOf(std::string_view list) {
  std::string heading;
  for (const char c : list) {
    const bool isUpper = c >= 'A' && c <= 'Z';
    if (isUpper) heading += ' ';
    heading += isUpper ? static_cast<char>(c - 'A' + 'a') : c;
  }
  if (!heading.empty()) heading[0] = static_cast<char>(heading[0] - 'a' + 'A');
  return heading;
}

}  // namespace korrin::host
