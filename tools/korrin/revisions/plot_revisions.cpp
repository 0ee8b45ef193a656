#include "revisions/plot_revisions.h"

#include <map>
#include <set>
#include <utility>

#include <nlohmann/json.hpp>

#include "korrin/model/stacking.h"

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
  std::map<UUID, const PlotItem*> former;
  for (const PlotItem* item : visibleItemsInStackingOrder(before)) former.emplace(item->id, item);
  const DifferenceSentences sentences(before, after);
  RevisionMarks marks;
  const std::vector<Difference> all = differences(before, after);
  const auto isMove = [](const Difference& one) { return one.field == "position"; };
  // One mark an item: a moved one is marked as moved, whatever else changed.
  std::set<std::string> marked;
  std::set<std::string> moved;
  for (const Difference& one : all)
    if (isMove(one)) moved.insert(one.id);
  for (const Difference& one : all) {
    marks.sentences.emplace_back(sentences(one));
    const auto id = UUID::fromText(one.id);
    if (one.list != "items" || !id || one.kind == DifferenceKind::moved) continue;
    if (moved.contains(one.id) && !isMove(one)) continue;
    if (!marked.insert(one.id).second) continue;
    const auto found = former.find(*id);
    if (one.kind == DifferenceKind::added)
      marks.added.push_back(*id);
    else if (one.kind == DifferenceKind::changed && !isMove(one))
      marks.changed.push_back(*id);
    else if (found != former.end())
      (isMove(one) ? marks.moved : marks.gone).push_back(*found->second);
  }
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
