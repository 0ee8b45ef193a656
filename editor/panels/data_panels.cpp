#include "editor/panels/data_panels.h"

#include <QCoreApplication>
#include <QDockWidget>
#include <map>

#include "editor/dialogs/compare_dialog.h"
#include "editor/main_window.h"
#include "editor/panels/changes_panel.h"
#include "editor/panels/details_panel.h"
#include "editor/panels/findings_panel.h"
#include "editor/panels/history_panel.h"
#include "editor/panels/inspector.h"
#include "editor/panels/layers_panel.h"
#include "editor/panels/list_panel.h"
#include "editor/panels/row_drag.h"
#include "editor/plot/comparison.h"

namespace korrin::editor {
namespace {

// Selects what can be selected of the items and brings all of them into sight.
void showItems(MainWindow& window, const IDSet& ids) {
  QRectF place;
  const KorrinProject& project = window.plot().project();
  project.items.forEachCandidate(ids, [&](std::size_t, const PlotItem& item) {
    if (!ids.contains(item.id)) return;
    const QPointF half(item.size.width / 2, item.size.height / 2);
    const QPointF centre(item.position.x, item.position.y);
    place |= QRectF(centre - half, centre + half);
  });
  window.plot().select(ids);
  if (!place.isNull()) window.canvas().ensureVisible(place, 80, 80);
}

void raise(QDockWidget* dock) {
  dock->show();
  dock->raise();
}

class DataPanels : public QObject {
  Q_DECLARE_TR_FUNCTIONS(DataPanels)

 public:
  explicit DataPanels(MainWindow& window) : QObject(&window), window_(window) {
    // Fields want height, lists want width.
    window_.setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    addRight();
    addLists();
    addFindings();
    addChanges();
    raise(lists_.at(keyOf(&KorrinProject::inputs)).dock);
    window_.canvas().acceptOnItems(DraggedRows::mimeType,
                                   [this](const QByteArray& bytes, const UUID& item) {
                                     if (const auto rows = draggedRows(bytes))
                                       link(window_.plot(), *rows, item);
                                   });
  }

 private:
  void addRight() {
    OpenPlot& plot = window_.plot();
    inspector_ = new Inspector(plot);
    inspectorDock_ =
        window_.addPanel(tr("Selection"), "selection", inspector_, Qt::RightDockWidgetArea);
    QDockWidget* details = window_.addPanel(tr("Plot and Stage"), "details", new DetailsPanel(plot),
                                            Qt::RightDockWidgetArea);
    auto* layers = new LayersPanel(plot);
    QObject::connect(layers, &LayersPanel::said, &window_, &MainWindow::say);
    QDockWidget* layersDock =
        window_.addPanel(tr("Layers"), "layers", layers, Qt::RightDockWidgetArea);
    QDockWidget* history =
        window_.addPanel(tr("History"), "history", new HistoryPanel(plot), Qt::RightDockWidgetArea);
    window_.tabifyDockWidget(inspectorDock_, details);
    window_.tabifyDockWidget(layersDock, history);
    inspectorDock_->raise();
    layersDock->raise();
    window_.resizeDocks({inspectorDock_, layersDock}, {300, 300}, Qt::Horizontal);
    window_.resizeDocks({inspectorDock_, layersDock}, {520, 220}, Qt::Vertical);
  }

  void addLists() {
    QDockWidget* before = nullptr;
    for (const PlotList* list : plotLists()) {
      auto* panel = new ListPanel(window_.plot(), *list);
      const QString name = QString::fromUtf8(list->key.data(), qsizetype(list->key.size()));
      QDockWidget* dock = window_.addPanel(list->title, name, panel, Qt::BottomDockWidgetArea);
      if (before != nullptr) window_.tabifyDockWidget(before, dock);
      before = dock;
      lists_[list->key] = {panel, dock};
      connect(panel, &ListPanel::said, &window_, &MainWindow::say);
      connect(panel, &ListPanel::itemAskedFor, this,
              [this](const UUID& id) { showItems(window_, {id}); });
    }
    window_.resizeDocks({before}, {230}, Qt::Vertical);
  }

  void addFindings() {
    auto* findings = new FindingsPanel(window_.plot());
    QDockWidget* dock =
        window_.addPanel(tr("Findings"), "findings", findings, Qt::BottomDockWidgetArea);
    window_.tabifyDockWidget(lists_.begin()->second.dock, dock);
    const auto showCount = [dock](int count) {
      dock->setWindowTitle(count == 0 ? tr("Findings") : tr("Findings (%1)").arg(count));
    };
    showCount(findings->openCount());
    connect(findings, &FindingsPanel::openCountChanged, dock, showCount);
    connect(findings, &FindingsPanel::said, &window_, &MainWindow::say);
    connect(findings, &FindingsPanel::spotAskedFor, this,
            [this](const Finding& finding) { showSpot(finding); });
  }

  // Out of the way until something is compared.
  void addChanges() {
    auto* changes = new ChangesPanel(window_.plot());
    QDockWidget* dock =
        window_.addPanel(tr("Changes"), "changes", changes, Qt::BottomDockWidgetArea);
    window_.tabifyDockWidget(lists_.begin()->second.dock, dock);
    dock->hide();
    Comparison& comparison = window_.plot().comparison();
    connect(&comparison, &Comparison::changed, dock, [dock, &comparison, wasOn = false]() mutable {
      const auto count = qulonglong(comparison.changes().size());
      dock->setWindowTitle(count == 0 ? tr("Changes") : tr("Changes (%1)").arg(count));
      if (comparison.isOn() && !wasOn) raise(dock);
      wasOn = comparison.isOn();
    });
    connect(changes, &ChangesPanel::fileAskedFor, &window_,
            [this] { askToCompare(window_.plot(), &window_); });
    connect(changes, &ChangesPanel::itemAskedFor, this,
            [this](const UUID& id) { showItems(window_, {id}); });
  }

  void showSpot(const Finding& finding) {
    // What follows may look at the plot again and make the list of findings anew.
    const auto subject = finding.subject;
    showItems(window_, IDSet(finding.items));
    if (!subject) return;
    if (subject->list == ProjectList::items) {
      if (subject->index >= window_.plot().project().items.size()) return;
      showItems(window_, {window_.plot().project().items[subject->index].id});
      raise(inspectorDock_);
      if (QWidget* editor = inspector_->editor(subject->field)) editor->setFocus();
      return;
    }
    const auto list = lists_.find(rawValue(subject->list));
    if (list == lists_.end()) return;
    raise(list->second.dock);
    list->second.panel->showCell(subject->index, subject->field);
  }

  struct List {
    ListPanel* panel;
    QDockWidget* dock;
  };

  MainWindow& window_;
  Inspector* inspector_ = nullptr;
  QDockWidget* inspectorDock_ = nullptr;
  std::map<std::string_view, List> lists_;
};

}  // namespace

void addDataPanels(MainWindow& window) { new DataPanels(window); }

}  // namespace korrin::editor
