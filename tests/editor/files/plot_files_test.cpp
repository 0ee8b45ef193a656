// Opening and saving as a user does it, questions and answers included.

#include "editor/files/plot_files.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "korrin/coding/json.h"
#include "korrin/model/document_coding.h"
#include "korrin/templates/korrin_template.h"

#include "editor/files/paths.h"
#include "editor/files/recent_files.h"
#include "editor/main_window.h"
#include "tests/editor/support/answers.h"
#include "tests/editor/support/hands.h"
#include "tests/editor/support/settings.h"

namespace korrin::editor {
namespace {

using test::Answer;

KorrinProject trio() { return KorrinProject::template_(KorrinTemplateID::powerTrio); }

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& content) {
  QFile file(path);
  QVERIFY(file.open(QFile::WriteOnly));
  file.write(content);
}

QByteArray documentOf(const KorrinProject& project) {
  return QByteArray::fromStdString(encodeJSON(project, prettyPrinted));
}

KorrinProject titled(KorrinProject project, const char* title) {
  project.metadata.title = title;
  return project;
}

class PlotFilesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { test::useOwnSettings("plot-files"); }

  void init() {
    QSettings().clear();
    folder = std::make_unique<QTemporaryDir>();
    plot = std::make_unique<OpenPlot>();
    window = std::make_unique<QWidget>();
    files = new PlotFiles(*plot, window.get(), at("unsaved"));
  }

  void cleanup() {
    window.reset();
    plot.reset();
  }

  void opensSavesAndOpensAgain() {
    write(at("a.json"), documentOf(trio()));
    QVERIFY(files->open(at("a.json")));
    rename("Tonight");
    QVERIFY(!plot->history().isSaved());
    QVERIFY(files->save());
    QVERIFY(plot->history().isSaved());
    QVERIFY(files->open(at("a.json")));
    QCOMPARE(plot->project().metadata.title, Text("Tonight"));
    QCOMPARE(recentFiles(), QStringList{at("a.json")});
  }

  void neverOffersToReplaceANewerPlot() {
    KorrinProject newer = trio();
    newer.schemaVersion = 2;
    newer.minimumReaderVersion = 2;
    const QByteArray content = documentOf(newer);
    write(at("newer.json"), content);
    Answer opening("newerDocument", "ok");
    QVERIFY(!files->open(at("newer.json")));
    QVERIFY(opening.wasAsked());
    Answer saving("newerDocument", "ok");
    QVERIFY(!files->saveTo(at("newer.json")));
    QVERIFY(saving.wasAsked());
    QCOMPARE(contentOf(at("newer.json")), content);
    QVERIFY(plot->file() == nullptr);
  }

  void saysWhereAFileIsNoPlot() {
    write(at("bad.json"), "{\n  \"schemaVersion\": 1,");
    QString text;
    Answer answer("unreadableDocument", [&](QWidget& box) {
      text = static_cast<QMessageBox&>(box).informativeText();
      static_cast<QMessageBox&>(box).accept();
    });
    QVERIFY(!files->open(at("bad.json")));
    QVERIFY2(text.contains("2"), qPrintable(text));
  }

  void showsThePictureOfAPlotThatIsNotSafe() {
    KorrinProject unsafe = trio();
    unsafe.stage.size.width = -1;
    write(at("unsafe.json"), documentOf(unsafe));
    Answer looking("unsafeDocument", "look");
    Answer picture("picture", [](QWidget& dialog) { dialog.close(); });
    QVERIFY(!files->open(at("unsafe.json")));
    QVERIFY(looking.wasAsked());
    QVERIFY(picture.wasAsked());
  }

  void namesUnknownEntriesBeforeTheFirstSave() {
    QByteArray content = documentOf(trio());
    content.insert(content.indexOf('{') + 1, "\"glow\": 1,");
    write(at("a.json"), content);
    QVERIFY(files->open(at("a.json")));
    QString text;
    Answer refusal("unknownKeys", [&](QWidget& box) {
      text = static_cast<QMessageBox&>(box).informativeText();
      static_cast<QMessageBox&>(box).reject();
    });
    QVERIFY(!files->save());
    QVERIFY2(text.contains("glow"), qPrintable(text));
    QCOMPARE(contentOf(at("a.json")), content);
    Answer consent("unknownKeys", "save");
    QVERIFY(files->save());
    QVERIFY(!contentOf(at("a.json")).contains("glow"));
    rename("Again");
    Answer never("unknownKeys", "cancel");
    QVERIFY(files->save());
    QVERIFY(!never.wasAsked());
  }

  void asksWhenTheFileWasChangedMeanwhile() {
    write(at("a.json"), documentOf(trio()));
    QVERIFY(files->open(at("a.json")));
    rename("Mine");
    const QByteArray theirs = documentOf(titled(trio(), "Theirs"));
    write(at("a.json"), theirs);
    Answer refusal("changedOnDisk", "cancel");
    QVERIFY(!files->save());
    QCOMPARE(contentOf(at("a.json")), theirs);
    Answer consent("changedOnDisk", "overwrite");
    QVERIFY(files->save());
    QVERIFY(contentOf(at("a.json")).contains("Mine"));
  }

  void doesNotOfferToReplaceWhatANewerProgramWroteMeanwhile() {
    write(at("a.json"), documentOf(trio()));
    QVERIFY(files->open(at("a.json")));
    rename("Mine");
    KorrinProject newer = trio();
    newer.minimumReaderVersion = 2;
    write(at("a.json"), documentOf(newer));
    Answer told("newerDocument", "ok");
    QTimer::singleShot(300, this, [] {
      if (QWidget* dialog = QApplication::activeModalWidget()) dialog->close();
    });
    QVERIFY(!files->save());
    QVERIFY(told.wasAsked());
    QCOMPARE(contentOf(at("a.json")), documentOf(newer));
  }

  void asksBeforeUnsavedChangesGo() {
    rename("Mine");
    Answer refusal("unsavedChanges", "cancel");
    QVERIFY(!files->mayForget());
    QVERIFY(refusal.wasAsked());
    Answer consent("unsavedChanges", "discard");
    QVERIFY(files->mayForget());
  }

  void savesWhatIsBeingTyped() {
    MainWindow main;
    main.plot().begin(trio(), DocumentFile(toPath(at("typed.json"))));
    main.show();
    QVERIFY(test::activate(main));
    auto* mainFiles = main.findChild<PlotFiles*>();
    main.canvas().showItem(main.plot().project().items[0].id);
    main.canvas().editLabel();
    test::type("Cajon");
    QVERIFY(mainFiles->save());
    QCOMPARE(main.plot().project().items[0].label, Text("Cajon"));
    QVERIFY(contentOf(at("typed.json")).contains("Cajon"));

    // What was typed counts as unsaved when the window closes.
    main.canvas().editLabel();
    test::type("Bongos");
    Answer refusal("unsavedChanges", "cancel");
    QVERIFY(!main.close());
    QVERIFY(refusal.wasAsked());
    QCOMPARE(main.plot().project().items[0].label, Text("Bongos"));
    QVERIFY(mainFiles->save());
  }

  void saysWhatToDoWhenItCannotSave() {
    write(at("a.json"), documentOf(trio()));
    QVERIFY(files->open(at("a.json")));
    rename("Mine");
    // No file can be made in what is no folder.
    write(at("no folder"), "");
    QString text;
    Answer refusal("notSaved", [&](QWidget& box) {
      text = static_cast<QMessageBox&>(box).informativeText();
      static_cast<QMessageBox&>(box).reject();
    });
    QVERIFY(!files->saveTo(at("no folder/a.json")));
    QVERIFY(refusal.wasAsked());
    QVERIFY2(text.contains("no folder") && text.contains("another name"), qPrintable(text));
    QVERIFY(!plot->history().isSaved());
    QCOMPARE(plot->file()->path(), toPath(at("a.json")));

    // Saved elsewhere, the plot is the one that lies there.
    Answer elsewhere("notSaved", "saveElsewhere");
    Answer naming("saveAs", [this](QWidget& widget) {
      auto& dialog = static_cast<QFileDialog&>(widget);
      dialog.selectFile(at("b.json"));
      QMetaObject::invokeMethod(&dialog, "accept");
    });
    QVERIFY(files->saveTo(at("no folder/a.json")));
    QVERIFY(naming.wasAsked());
    QVERIFY(plot->history().isSaved());
    QCOMPARE(plot->file()->path(), toPath(at("b.json")));
    QVERIFY(contentOf(at("b.json")).contains("Mine"));
  }

  void saysThatACrashWouldLoseTheEdits() {
    write(at("a.json"), documentOf(trio()));
    // The copy cannot be written where a folder bears its name.
    const QString copy = pathText(recoveryFileFor(toPath(at("a.json"))));
    QVERIFY(QDir().mkpath(copy + "/occupied"));
    QVERIFY(files->open(at("a.json")));
    QSignalSpy said(files, &PlotFiles::said);
    rename("Mine");
    QVERIFY(!files->safetyCopy().flush());
    QCOMPARE(said.count(), 1);
    QVERIFY(said[0][0].toString().contains("Save the plot"));
    QVERIFY(QDir(copy).removeRecursively());
    rename("Mine again");
    QVERIFY(files->safetyCopy().flush());
    QCOMPARE(said.count(), 1);
  }

  void keepsWhatACrashLeftUntilItIsKeptElsewhere() {
    rename("Unsaved");
    files->safetyCopy().flush();
    crash();
    // The place for the next plot without a file is taken by a folder.
    const QString next = pathText(recoveryFileFor(toPath(at("unsaved/unsaved-2.json"))));
    const QString first = pathText(recoveryFileFor(toPath(at("unsaved/unsaved-1.json"))));
    QVERIFY(QFile::exists(first));
    plot->begin(KorrinProject::newDocument());
    QVERIFY(QDir().mkpath(next + "/occupied"));
    Answer answer("recovery", "recover");
    files->start("");
    QCOMPARE(plot->project().metadata.title, Text("Unsaved"));
    QVERIFY(QFile::exists(first));
  }

  void recoversAPlotAfterACrash() {
    write(at("a.json"), documentOf(trio()));
    QVERIFY(files->open(at("a.json")));
    QTest::qWait(20);  // The recovery must be newer than the file.
    rename("Unsaved");
    files->safetyCopy().flush();
    crash();
    Answer answer("recovery", "recover");
    QVERIFY(files->open(at("a.json")));
    QVERIFY(answer.wasAsked());
    QCOMPARE(plot->project().metadata.title, Text("Unsaved"));
    QVERIFY(!plot->history().isSaved());
    QVERIFY(files->save());
    Answer never("recovery", "cancel");
    QVERIFY(files->open(at("a.json")));
    QVERIFY(!never.wasAsked());
  }

  void recoversAPlotWithoutAFile() {
    rename("Unsaved");
    files->safetyCopy().flush();
    crash();
    Answer answer("recovery", "recover");
    files->start("");
    QCOMPARE(plot->project().metadata.title, Text("Unsaved"));
    QVERIFY(!plot->history().isSaved());
    QVERIFY(files->saveTo(at("saved.json")));
    QCOMPARE(files->safetyCopy().leftBehind().size(), std::size_t{0});
  }

  void forgetsWhatTheUserGaveUp() {
    rename("Unsaved");
    files->safetyCopy().flush();
    files->safetyCopy().forget();
    crash();
    QVERIFY(files->safetyCopy().leftBehind().empty());
  }

  void warnsOfAFileThatAnotherWindowHasOpen() {
    write(at("a.json"), documentOf(trio()));
    QVERIFY(files->open(at("a.json")));
    OpenPlot other;
    PlotFiles otherFiles(other, window.get(), at("unsaved"));
    Answer refusal("openElsewhere", "cancel");
    QVERIFY(!otherFiles.open(at("a.json")));
    QVERIFY(refusal.wasAsked());
  }

  void beginsWithATemplate() {
    Answer answer("templateChooser", [](QWidget& dialog) {
      auto* list = dialog.findChild<QAbstractItemView*>();
      QTest::keyClick(list, Qt::Key_Right);
      QTest::keyClick(list, Qt::Key_Right);
      dialog.findChild<QAbstractButton*>("create")->click();
    });
    QVERIFY(files->begin());
    QCOMPARE(plot->project().items.size(), trio().items.size());
    QCOMPARE(plot->project().metadata.title, trio().metadata.title);
  }

  void keepsAWindowOpenUntilTheUserDecides() {
    MainWindow main;
    main.show();
    ProjectMetadata metadata = main.plot().project().metadata;
    metadata.title = "Mine";
    main.plot().perform("Rename", DocumentCommand::replaceMetadata(metadata));
    Answer refusal("unsavedChanges", "cancel");
    QVERIFY(!main.close());
    Answer consent("unsavedChanges", "discard");
    QVERIFY(main.close());
  }

 private:
  QString at(const char* name) const { return folder->filePath(name); }

  void rename(const char* title) {
    ProjectMetadata metadata = plot->project().metadata;
    metadata.title = title;
    QVERIFY(plot->perform("Rename", DocumentCommand::replaceMetadata(metadata)));
  }

  // A window goes without being asked, and another one comes.
  void crash() {
    cleanup();
    plot = std::make_unique<OpenPlot>();
    window = std::make_unique<QWidget>();
    files = new PlotFiles(*plot, window.get(), at("unsaved"));
  }

  std::unique_ptr<QTemporaryDir> folder;
  std::unique_ptr<OpenPlot> plot;
  std::unique_ptr<QWidget> window;
  PlotFiles* files = nullptr;
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::PlotFilesTest)
#include "plot_files_test.moc"
