#pragma once

// The fields of a plot's metadata, stage and export settings as forms show them.

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "korrin/commands/document_command.h"

#include "editor/panels/field_form.h"

namespace korrin::editor {

struct DetailField {
  std::string_view key;  ///< The field's key in documents.
  FormField form;
  std::function<QVariant(const KorrinProject&)> read;
  /// The command that gives the field a value; nothing where it has it.
  std::function<std::optional<DocumentCommand>(const KorrinProject&, const QVariant&,
                                               const Environment&)>
      write;
};

struct DetailSection {
  QString title;
  std::vector<DetailField> fields;
};

std::vector<DetailSection> detailSections();

}  // namespace korrin::editor
