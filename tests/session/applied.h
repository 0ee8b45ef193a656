#pragma once

// A plot after a command, and an item in it.

#include <optional>

#include <gtest/gtest.h>

#include "korrin/commands/document_command.h"

#include "tests/support/sample_project.h"

namespace korrin::test {

inline KorrinProject after(KorrinProject project, const std::optional<DocumentCommand>& command) {
  if (command) command->apply(project, TestEnvironment());
  return project;
}

inline const PlotItem& itemOf(const KorrinProject& project, UUID id) {
  for (const PlotItem& item : project.items)
    if (item.id == id) return item;
  ADD_FAILURE() << "there is no item " << id.text();
  return project.items[0];
}

}  // namespace korrin::test
