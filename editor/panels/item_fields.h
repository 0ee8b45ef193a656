#pragma once

// The fields of an item as an inspector shows them.

#include <functional>
#include <string_view>
#include <vector>

#include "korrin/model/project.h"

#include "editor/panels/field_form.h"

namespace korrin::editor {

struct ItemField {
  std::string_view key;  ///< The field's key in documents.
  FormField form;
  std::function<QVariant(const PlotItem&, const KorrinProject&)> read;
  std::function<void(PlotItem&, const QVariant&, const KorrinProject&)> write;
};

std::vector<ItemField> itemFields();

}  // namespace korrin::editor
