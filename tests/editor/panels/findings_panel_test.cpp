// The list of findings: what it shows, the way to the spot, fixes and waivers.

#include "editor/panels/findings_panel.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QInputDialog>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "korrin/templates/korrin_template.h"

#include "editor/files/paths.h"
#include "editor/plot/qt_texts.h"
#include "tests/editor/support/answers.h"

namespace korrin::editor {
namespace {

// A plot with an error in its second input, which has the channel of the first, and with a note.
KorrinProject flawed() {
  KorrinProject project = KorrinProject::template_(KorrinTemplateID::powerTrio);
  project.inputs.edit(1).channel = project.inputs[0].channel;
  project.inputs.edit(2).plotItemID.reset();
  return project;
}

class FindingsPanelTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    plot = std::make_unique<OpenPlot>();
    plot->begin(flawed());
    panel = std::make_unique<FindingsPanel>(*plot);
    panel->resize(900, 300);
    panel->show();
    list = panel->findChild<QTreeWidget*>();
  }

  void cleanup() {
    panel.reset();
    plot.reset();
  }

  void showsTheMostSeriousFirst() {
    QCOMPARE(list->topLevelItemCount(), panel->openCount());
    QVERIFY(panel->openCount() >= 2);
    for (std::size_t i = 1; i < panel->findings().size(); ++i)
      QVERIFY(panel->findings()[i - 1].severity <= panel->findings()[i].severity);
  }

  void mendsAFindingFromItsMenu() {
    const int before = panel->openCount();
    list->setCurrentItem(list->topLevelItem(0));
    panel->fixMenu().popup(QPoint());
    QVERIFY(!panel->fixMenu().actions().empty());
    QAction* fix = panel->fixMenu().actions().front();
    QVERIFY(fix->isEnabled());
    const QString sentence = fix->toolTip();
    fix->trigger();
    panel->fixMenu().close();
    QVERIFY(panel->openCount() < before);
    QCOMPARE(toQString(*plot->history().undoName()), sentence);
    plot->undo();
    panel->refresh();
    QCOMPARE(panel->openCount(), before);
  }

  void saysWhichRowOrSymbolAFindingIsAbout() {
    KorrinProject project = flawed();
    project.inputs.edit(0).source = "Kick";
    project.inputs.edit(1).source = "Snare";
    project.items.edit(0).position.x = 90'000;
    project.items.edit(0).label = "DRUMS";
    plot->begin(project);
    panel->refresh();
    QStringList duplicates;
    bool isSymbolNamed = false;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
      const QTreeWidgetItem& row = *list->topLevelItem(i);
      if (row.text(1).startsWith("Duplicate input channel")) duplicates += row.text(2);
      isSymbolNamed |= row.text(2) == "DRUMS";
    }
    duplicates.sort();  // findings of one rule stand in the order of their identifiers
    QCOMPARE(duplicates, (QStringList{"Row 1: Kick", "Row 2: Snare"}));
    QVERIFY(isSymbolNamed);
  }

  void asksForTheSpot() {
    QSignalSpy spots(panel.get(), &FindingsPanel::spotAskedFor);
    list->setCurrentItem(list->topLevelItem(0));
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(spots.size(), 1);
  }

  void looksAgainAMomentAfterAnEdit() {
    QSignalSpy counts(panel.get(), &FindingsPanel::openCountChanged);
    plot->perform("Mend", DocumentCommand::replaceInputs({}));
    QVERIFY(counts.wait(60'000));
    QVERIFY(panel->openCount() < int(flawed().inputs.size()));
  }

  void leavesADragAlone() {
    QSignalSpy counts(panel.get(), &FindingsPanel::openCountChanged);
    plot->beginGesture("Mend");
    plot->perform("", DocumentCommand::replaceInputs({}));
    QVERIFY(!counts.wait(600));
    plot->endGesture();
    QVERIFY(counts.wait(60'000));
  }

  void acceptsAFindingForAReasonAndKeepsItBesideThePlot() {
    QTemporaryDir folder;
    const QString path = folder.filePath("night.json");
    DocumentFile file(toPath(path));
    file.save(plot->project());
    const KorrinProject project = plot->project();
    plot->begin(project, file);
    panel->refresh();
    const int before = panel->openCount();
    accept("The venue knows");
    QCOMPARE(panel->openCount(), before - 1);
    QVERIFY(QFile::exists(folder.filePath("night.waivers.json")));

    // Another window finds the waiver.
    OpenPlot other;
    FindingsPanel otherPanel(other);
    other.begin(project, file);
    otherPanel.refresh();
    QCOMPARE(otherPanel.openCount(), before - 1);

    panel->findChild<QCheckBox*>()->setChecked(true);
    list->setCurrentItem(list->topLevelItem(list->topLevelItemCount() - 1));
    button("Open Again")->click();
    QCOMPARE(panel->openCount(), before);
  }

  void takesWaiversAlongToAnotherFile() {
    accept("The venue knows");
    QTemporaryDir folder;
    DocumentFile file(toPath(folder.filePath("night.json")));
    plot->setFile(file);
    QVERIFY(QFile::exists(folder.filePath("night.waivers.json")));
  }

  void leavesAFileOfWaiversThatIsNoneAlone() {
    QTemporaryDir folder;
    QFile damaged(folder.filePath("night.waivers.json"));
    QVERIFY(damaged.open(QFile::WriteOnly));
    damaged.write("precious");
    damaged.close();
    QSignalSpy sentences(panel.get(), &FindingsPanel::said);
    plot->begin(flawed(), DocumentFile(toPath(folder.filePath("night.json"))));
    panel->refresh();
    QCOMPARE(sentences.size(), 1);
    accept("The venue knows");
    QVERIFY(damaged.open(QFile::ReadOnly));
    QCOMPARE(damaged.readAll(), QByteArray("precious"));
  }

  void acceptsNothingWithoutAReason() {
    const int before = panel->openCount();
    accept("  ");
    QCOMPARE(panel->openCount(), before);
  }

 private:
  QAbstractButton* button(const QString& text) const {
    for (auto* one : panel->findChildren<QAbstractButton*>())
      if (QString(one->text()).remove('&').startsWith(text)) return one;
    return nullptr;
  }

  void accept(const QString& reason) {
    list->setCurrentItem(list->topLevelItem(0));
    test::Answer answer("waiverReason", [&](QWidget& dialog) {
      static_cast<QInputDialog&>(dialog).setTextValue(reason);
      static_cast<QInputDialog&>(dialog).accept();
    });
    button("Accept")->click();
    QVERIFY(answer.wasAsked());
  }

  std::unique_ptr<OpenPlot> plot;
  std::unique_ptr<FindingsPanel> panel;
  QTreeWidget* list = nullptr;
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::FindingsPanelTest)
#include "findings_panel_test.moc"
