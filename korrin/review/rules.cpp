#include "korrin/review/rules.h"

#include <array>
#include <string>
#include <type_traits>
#include <utility>

#include "korrin/preflight/preflight_findings.h"
#include "korrin/preflight/stage_bounds.h"
#include "korrin/review/plot_lookup.h"

namespace korrin {
namespace {

using enum PreflightRule;
using enum PreflightSeverity;

constexpr std::array descriptions = {
    RuleDescription{duplicateInputChannel, error, "Duplicate input channel",
                    "Two or more rows of the input list claim one console channel. Only one line "
                    "can be patched into it, so one source stays silent at the line check.",
                    "Give each row a channel of its own, or leave it without a channel until the "
                    "patch is decided."},
    RuleDescription{duplicateMonitorMix, error, "Duplicate monitor mix",
                    "Two or more rows of the monitor list claim one mix number. The monitor "
                    "engineer cannot tell which performer hears which mix.",
                    "Give each mix a number of its own, or leave it without a number until the "
                    "mixes are decided."},
    RuleDescription{
        incompleteInput, warning, "Input source is missing",
        "A row of the input list does not say what is plugged in. The crew can neither "
        "choose the microphone nor label the line.",
        "Write the source, such as \"Kick In\". Where the row is linked to a symbol, the "
        "symbol's label often says it."},
    RuleDescription{unplacedInput, information, "Input is not placed",
                    "A row of the input list is linked to no symbol, so the drawing does not show "
                    "where the line starts.",
                    "Link the row to the symbol of its source. A line that starts off the stage, "
                    "such as playback at the desk, may stay without one."},
    RuleDescription{
        unplacedMonitor, information, "Monitor mix is not placed",
        "A monitor mix is linked to no symbol, so the drawing does not show where the "
        "performer listens.",
        "Link the mix to its monitor. A mix for in-ear receivers may stay without one."},
    RuleDescription{
        monitorWithoutOutput, warning, "Monitor output is missing",
        "A monitor mix does not say which console output feeds it. Nobody can patch it.",
        "Write the output, such as \"Out 1\"."},
    RuleDescription{
        missingItemLabel, information, "Symbol label is empty",
        "A symbol shows its label, but the label is blank. The crew sees a shape and has "
        "to guess what stands there.",
        "Write a label, or hide it where the symbol speaks for itself."},
    RuleDescription{invalidPlotReference, error, "Link to a missing symbol",
                    "A row of the inputs, monitor mixes or equipment is linked to a symbol that is "
                    "no longer in the plot.",
                    "Link the row to another symbol, or remove the link."},
    RuleDescription{
        itemOutsideStage, warning, "Symbol is outside the stage",
        "A symbol reaches beyond the edge of the stage, not counting its rotation. What "
        "it stands for would hang over the edge, or the stage is drawn too small.",
        "Move the symbol inside, or correct the size of the stage or of the symbol."},
    RuleDescription{
        invalidEquipmentQuantity, error, "Invalid equipment quantity",
        "A line of the equipment asks for none of it, or for fewer than none. The venue "
        "cannot tell whether it is needed.",
        "Write how many are needed, or remove the line."},
    RuleDescription{missingAsset, error, "Symbol asset is missing",
                    "The artwork of a symbol is neither built in nor part of the plot. The symbol "
                    "prints as an empty frame.",
                    "Import the image again, or choose another symbol."},
};

constexpr std::array refusals = {
    ValidationDescription{DocumentValidationError::duplicateIdentifiers, "duplicateIdentifiers",
                          "Duplicate identifiers",
                          "Two records of one list carry the same identifier. An edit could change "
                          "the wrong one, so the plot is not safe to open.",
                          "Give one of the two another identifier in the document, or go back to a "
                          "revision from before the damage."},
    ValidationDescription{DocumentValidationError::invalidGeometry, "invalidGeometry",
                          "Invalid dimensions",
                          "A size, position, rotation, grid spacing or label scale is not a number "
                          "that a stage can have, such as a stage without width or a symbol a "
                          "thousand kilometres away.",
                          "Correct the number in the document. Sizes lie above 0 and up to one "
                          "million millimetres, positions within one million of the centre, label "
                          "scales between 0 and 100."},
    ValidationDescription{
        DocumentValidationError::invalidImage, "invalidImage", "Invalid image",
        "The bytes of an embedded image are no image or PDF that can be read.",
        "Export the image again as PNG, JPEG or PDF without a password, and import "
        "that file."},
    ValidationDescription{
        DocumentValidationError::imageTooLarge, "imageTooLarge", "Image too large",
        "An embedded image, or all of them together, would take more pixels than a "
        "program can safely draw.",
        "Scale the image down. A symbol on a plot seldom needs more than 2,000 "
        "pixels along an edge."},
};

// Calls `visit(index)` for the records of the list that have the identifier, until it returns true.
struct Scan {
  template <class Record, class Visit>
  void operator()(List<Record> KorrinProject::*list, const UUID& id, Visit visit) const {
    for (std::size_t index = 0; const Record& record : project.*list) {
      if (record.id == id && visit(index)) return;
      ++index;
    }
  }

  const KorrinProject& project;
};

// The same by an index.
struct LookUp {
  template <class Record, class Visit>
  void operator()(List<Record> KorrinProject::*list, const UUID& id, Visit visit) const {
    for (const auto& entry : ids.places(keyOf(list), id))
      if (visit(entry.second)) return;
  }

  const revision::IdentityIndex& ids;
};

// Finds what an issue is about.
template <class Seek>
class SubjectSearch {
 public:
  SubjectSearch(const PreflightIssue& issue, const KorrinProject& project, Seek seek)
      : issue_(issue), project_(project), seek_(seek) {}

  std::optional<IssueSubject> run() const {
    switch (issue_.rule) {
      case duplicateInputChannel:
        return findNumber(inputs, &InputChannel::channel, findings::repeatedChannel);
      case duplicateMonitorMix:
        return findNumber(mixes, &MonitorMix::number, findings::repeatedMix);
      case incompleteInput:
        return find(inputs, &InputChannel::source,
                    [](const InputChannel& input) { return input.source.isBlank(); });
      case unplacedInput:
        return findLink(inputs, false);
      case unplacedMonitor:
        return findLink(mixes, false);
      case monitorWithoutOutput:
        return find(mixes, &MonitorMix::outputPatch,
                    [](const MonitorMix& mix) { return mix.outputPatch.isBlank(); });
      case missingItemLabel:
        return find(items, &PlotItem::label, [](const PlotItem& item) {
          return item.style.labelVisible && item.label.isBlank();
        });
      case itemOutsideStage:
        return find(items, &PlotItem::position, [this](const PlotItem& item) {
          return reachesBeyond(project_.stage.size, item);
        });
      case missingAsset:
        return find(items, &PlotItem::assetID, [](const PlotItem&) { return true; });
      case invalidEquipmentQuantity:
        return find(equipment, &EquipmentRequirement::quantity,
                    [](const EquipmentRequirement& line) { return line.quantity < 1; });
      case invalidPlotReference:
        break;
    }
    if (issue_.title == findings::inputWithLostSymbol.title) return findLink(inputs, true);
    if (issue_.title == findings::mixWithLostSymbol.title) return findLink(mixes, true);
    if (issue_.title == findings::equipmentWithLostSymbol.title) return findLink(equipment, true);
    // A host may have put the title into another language.
    std::optional<IssueSubject> subject = findLink(inputs, true);
    if (!subject) subject = findLink(mixes, true);
    if (!subject) subject = findLink(equipment, true);
    return subject;
  }

 private:
  template <class Record>
  struct Place {
    ProjectList list;
    List<Record> KorrinProject::*records;
  };
  static constexpr Place<PlotItem> items = {ProjectList::items, &KorrinProject::items};
  static constexpr Place<InputChannel> inputs = {ProjectList::inputs, &KorrinProject::inputs};
  static constexpr Place<MonitorMix> mixes = {ProjectList::monitorMixes,
                                              &KorrinProject::monitorMixes};
  static constexpr Place<EquipmentRequirement> equipment = {ProjectList::equipmentRequirements,
                                                            &KorrinProject::equipmentRequirements};

  // The first record with the identifier that the finding fits, or else the first with it.
  template <class Record, class Value, class Fits>
  std::optional<IssueSubject> find(const Place<Record>& place, Value Record::*field,
                                   Fits fits) const {
    const std::optional<UUID>& id =
        std::is_same_v<Record, PlotItem> ? issue_.relatedID : issue_.recordID;
    if (!id) return std::nullopt;
    std::optional<std::size_t> found;
    seek_(place.records, *id, [&](std::size_t index) {
      const bool isMeant = fits((project_.*place.records)[index]);
      if (isMeant || !found) found = index;
      return isMeant;
    });
    if (!found) return std::nullopt;
    return IssueSubject{.list = place.list, .index = *found, .field = keyOf(field)};
  }

  // The numbers of a list repeat in several groups at once; the title says which one is meant.
  template <class Record>
  std::optional<IssueSubject> findNumber(const Place<Record>& place,
                                         std::optional<std::int64_t> Record::*number,
                                         const findings::Finding& finding) const {
    return find(place, number, [&](const Record& record) {
      return record.*number &&
             issue_.title == std::string(finding.title) + std::to_string(*(record.*number));
    });
  }

  template <class Record>
  std::optional<IssueSubject> findLink(const Place<Record>& place, bool isLinked) const {
    return find(place, &Record::plotItemID, [isLinked](const Record& record) {
      return record.plotItemID.has_value() == isLinked;
    });
  }

  const PreflightIssue& issue_;
  const KorrinProject& project_;
  Seek seek_;
};

}  // namespace

std::span<const RuleDescription> preflightRules() { return descriptions; }

std::span<const ValidationDescription> validationRules() { return refusals; }

std::optional<IssueSubject> subjectOf(const PreflightIssue& issue, const KorrinProject& project) {
  return SubjectSearch(issue, project, Scan{project}).run();
}

struct IssueSubjects::Index {
  explicit Index(KorrinProject plot) : project(std::move(plot)), ids(project) {}

  KorrinProject project;
  revision::IdentityIndex ids;
};

IssueSubjects::IssueSubjects(KorrinProject project)
    : index_(std::make_shared<const Index>(std::move(project))) {}

std::optional<IssueSubject> IssueSubjects::operator()(const PreflightIssue& issue) const {
  return fixes::subjectOf(issue, index_->project, index_->ids);
}

namespace fixes {

std::optional<IssueSubject> subjectOf(const PreflightIssue& issue, const KorrinProject& project,
                                      const revision::IdentityIndex& ids) {
  return SubjectSearch(issue, project, LookUp{ids}).run();
}

}  // namespace fixes
}  // namespace korrin
