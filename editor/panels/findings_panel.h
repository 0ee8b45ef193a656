#pragma once

// The findings of preflight and audit, with the ways to the spot, to a fix and to a waiver.

#include <QTimer>
#include <QWidget>
#include <vector>

#include "editor/panels/findings.h"
#include "editor/panels/plot_waivers.h"
#include "editor/plot/open_plot.h"

class QCheckBox;
class QLabel;
class QMenu;
class QPushButton;
class QTreeWidget;

namespace korrin::editor {

class FindingsPanel : public QWidget {
  Q_OBJECT

 public:
  /// The plot must outlive it.
  explicit FindingsPanel(OpenPlot& plot, QWidget* parent = nullptr);

  const std::vector<Finding>& findings() const { return findings_; }
  /// How many are open.
  int openCount() const;
  PlotWaivers& waivers() { return *waivers_; }
  /// Looks at the plot at once and not a moment after the last edit.
  void refresh();
  /// The fixes of the current finding, as the menu offers them.
  QMenu& fixMenu() { return *fixMenu_; }

 Q_SIGNALS:
  /// The user wants to see what a finding is about.
  void spotAskedFor(const korrin::editor::Finding& finding);
  void openCountChanged(int count);
  void said(const QString& sentence);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void build();
  void later();
  void fill();
  const Finding* current() const;
  void updateButtons();
  void listFixes();
  void jump();
  void waive();
  void revoke();

  OpenPlot& plot_;
  PlotWaivers* waivers_;
  std::vector<Finding> findings_;
  QTimer timer_;
  QTreeWidget* list_;
  QLabel* summary_;
  QLabel* preview_;
  QPushButton* jump_;
  QPushButton* fix_;
  QMenu* fixMenu_;
  QPushButton* waive_;
  QCheckBox* showsWaived_;
};

}  // namespace korrin::editor
