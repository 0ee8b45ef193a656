#pragma once

// The fields of what is selected, one item or many.

#include <QWidget>

#include "editor/panels/field_form.h"
#include "editor/plot/open_plot.h"

class QLabel;
class QScrollArea;

namespace korrin::editor {

class Inspector : public QWidget {
  Q_OBJECT

 public:
  /// The plot must outlive it.
  explicit Inspector(OpenPlot& plot, QWidget* parent = nullptr);

  /// The widget for a field, by the key that documents have for it.
  QWidget* editor(std::string_view key) const;

 private:
  void refresh();
  void refreshInTime();
  void take(std::size_t field, const QVariant& value);

  OpenPlot& plot_;
  QLabel* heading_;
  QLabel* hint_;
  QScrollArea* area_;
  FieldForm* form_;
  bool isStale_ = false;
};

}  // namespace korrin::editor
