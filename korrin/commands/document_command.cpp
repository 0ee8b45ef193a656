#include "korrin/commands/document_command.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "korrin/commands/apply_cases.h"
#include "korrin/commands/replaced_parts.h"

namespace korrin {
namespace {

// Applies a compound and all that is nested in it. The way back up is kept here and not on the
// machine's stack, which a deep nesting would exhaust.
class CompoundApplication {
 public:
  CompoundApplication(KorrinProject& project, const Environment& environment)
      : project_(project), environment_(environment) {}

  CommandResult run(const Compound& outermost) {
    enter(outermost);
    for (;;) {
      Level& level = levels_.back();
      if (level.applied < level.compound->commands.size()) {
        const DocumentCommand& command = level.compound->commands[level.applied++];
        std::visit([this](const auto& payload) { step(payload); }, command.payload());
      } else {
        std::reverse(level.inverses.begin(), level.inverses.end());
        DocumentCommand inverse = DocumentCommand::compound(std::move(level.inverses));
        levels_.pop_back();
        if (levels_.empty()) return {.inverse = std::move(inverse), .changes = std::move(changes_)};
        levels_.back().inverses.push_back(std::move(inverse));
      }
    }
  }

 private:
  // A compound that has been entered and not yet left.
  struct Level {
    const Compound* compound;
    std::size_t applied;
    std::vector<DocumentCommand> inverses;  // in the order of application
  };

  void enter(const Compound& compound) {
    Level& level = levels_.emplace_back(Level{.compound = &compound, .applied = 0, .inverses = {}});
    level.inverses.reserve(compound.commands.size());
  }

  void step(const Compound& nested) { enter(nested); }
  template <class Case>
  void step(const Case& payload) {
    CommandResult result = applyCase(payload, project_, environment_);
    levels_.back().inverses.push_back(std::move(result.inverse));
    changes_.merge(std::move(result.changes));
  }

  KorrinProject& project_;
  const Environment& environment_;
  std::vector<Level> levels_;
  // Union and or do not care how the sub-results are bracketed: one sum serves all levels.
  ChangeSet changes_ = {
      .changedItemIDs = {}, .affectsTechnicalData = false, .affectsDocumentStructure = false};
};

CommandResult applyCase(const Compound& compound, KorrinProject& project,
                        const Environment& environment) {
  // Whatever fails halfway has changed a copy, which costs no allocation.
  KorrinProject next = project;
  CommandResult result = CompoundApplication(next, environment).run(compound);
  project = std::move(next);
  return result;
}

}  // namespace

DocumentCommand::DocumentCommand(Payload payload) : storage_(new Storage(std::move(payload))) {}

// Commands that go with their compound join a queue instead of being destroyed from within its
// destruction, which for a deep nesting would exhaust the machine's stack.
void DocumentCommand::Storage::destroy(Storage* storage) noexcept {
  while (storage != nullptr) {
    Storage* const current = storage;
    storage = current->nextToDestroy_;
    if (Compound* const compound = std::get_if<Compound>(&current->payload_)) {
      for (DocumentCommand& command : compound->commands) {
        if (Storage* const orphan = command.storage_.giveUp()) {
          orphan->nextToDestroy_ = storage;
          storage = orphan;
        }
      }
    }
    delete current;
  }
}

CommandResult DocumentCommand::apply(KorrinProject& project, const Environment& environment) const {
  return std::visit([&](const auto& payload) { return applyCase(payload, project, environment); },
                    payload());
}

}  // namespace korrin
