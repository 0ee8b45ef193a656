#pragma once

// Forms for what a plot says about itself: who and what it is for, its stage, how it is printed.

#include <QWidget>

#include "editor/panels/field_form.h"
#include "editor/plot/open_plot.h"

namespace korrin::editor {

struct DetailField;

class DetailsPanel : public QWidget {
  Q_OBJECT

 public:
  /// The plot must outlive it.
  explicit DetailsPanel(OpenPlot& plot, QWidget* parent = nullptr);
  ~DetailsPanel() override;

  /// The widget for a field, by the key that documents have for it.
  QWidget* editor(std::string_view key) const;

 private:
  struct Section {
    std::vector<DetailField> fields;
    FieldForm* form;
  };

  void refresh();
  void take(const DetailField& field, const QVariant& value);

  OpenPlot& plot_;
  std::vector<Section> sections_;
};

}  // namespace korrin::editor
