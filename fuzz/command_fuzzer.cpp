// A session of edits read from bytes: a project, then commands, groupings and alignments on it.
// Every command keeps the laws; in the end the session is undone, last edit first, and redone.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "korrin/foundation/precondition.h"
#include "korrin/geometry/korrin_geometry.h"

#include "fuzz/choices.h"
#include "tests/support/laws.h"
#include "tests/support/random_edits.h"
#include "tests/support/sample_project.h"

namespace korrin::fuzz {
namespace {

using testing::AssertionResult;

void require(const AssertionResult& law) { precondition(law, law.message()); }

class Session {
 public:
  explicit Session(std::span<const std::uint8_t> bytes)
      : choices_(bytes),
        edits_([this](int limit) { return choices_.below(limit); }),
        project_(edits_.project()) {}

  void run() {
    for (int count = 1 + choices_.below(4); count > 0; --count) edit();
    undoAndRedo();
  }

 private:
  struct Edit {
    KorrinProject before;
    DocumentCommand inverse;
  };

  void edit() {
    switch (choices_.below(8)) {
      case 0:
        if (const auto command =
                project_.groupingCommand(edits_.identifiers(project_), environment_))
          perform(*command);
        return;
      case 1:
        return perform(DocumentCommand::replaceItems(alignedItems()));
      case 2:
        return tryInsert();
      default:
        return perform(edits_.reversibleCommand(project_));
    }
  }

  void perform(const DocumentCommand& command) {
    require(test::changesWhatItSays(project_, command));
    require(test::undoes(project_, command));
    require(test::redoes(project_, command));
    const KorrinProject before = project_;
    session_.push_back({before, command.apply(project_, environment_).inverse});
  }

  // Items that are there already come up, too, which an undo takes away; so nothing is kept.
  void tryInsert() {
    const DocumentCommand insert = edits_.anyInsert();
    require(test::changesWhatItSays(project_, insert));
    require(test::redoes(project_, insert));
  }

  List<PlotItem> alignedItems() {
    const IDSet selection = edits_.identifiers(project_);
    List<PlotItem> items;
    for (const PlotItem& item : project_.items)
      if (selection.contains(item.id)) items.push_back(item);
    const ItemAlignment alignment =
        allCases<ItemAlignment>()[static_cast<std::size_t>(choices_.below(8))];
    const List<PlotItem> aligned = KorrinGeometry::applying(alignment, items);
    precondition(aligned.size() == items.size(), "an alignment changes the number of items");
    const bool isHorizontal =
        alignment < ItemAlignment::top || alignment == ItemAlignment::distributeHorizontally;
    const auto coordinate = isHorizontal ? &StagePoint::x : &StagePoint::y;
    List<PlotItem> otherwise = aligned;
    for (std::size_t i = 0; i < items.size(); ++i)
      otherwise.edit(i).position.*coordinate = items[i].position.*coordinate;
    precondition(otherwise == items, "an alignment changes more than one coordinate");
    return aligned;
  }

  void undoAndRedo() {
    const KorrinProject last = project_;
    std::vector<DocumentCommand> redos;
    for (auto edit = session_.rbegin(); edit != session_.rend(); ++edit) {
      redos.push_back(edit->inverse.apply(project_, environment_).inverse);
      precondition(isRestored(edit->before), "undoing a session does not restore the project");
    }
    for (auto redo = redos.rbegin(); redo != redos.rend(); ++redo)
      redo->apply(project_, environment_);
    precondition(isRestored(last), "redoing a session gives another project");
  }

  bool isRestored(const KorrinProject& former) const {
    return test::withModifiedAt(project_, former.metadata.modifiedAt) == former;
  }

  Choices choices_;
  test::RandomEdits edits_;
  test::TestEnvironment environment_;
  KorrinProject project_;
  std::vector<Edit> session_;
};

}  // namespace
}  // namespace korrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korrin::fuzz::Session(std::span(data, size)).run();
  return 0;
}
