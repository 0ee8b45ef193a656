// The editor is killed in the middle of work and started again: what it had kept is what it opens.

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "korrin/session/document_file.h"
#include "korrin/templates/korrin_template.h"

#include "editor/files/paths.h"
#include "editor/files/safety_copy.h"
#include "tests/editor/support/plots.h"

namespace korrin::editor {
namespace {

using namespace test;

constexpr int patience = 60'000;  // milliseconds, for a machine that is busy

KorrinProject trio() { return KorrinProject::template_(KorrinTemplateID::powerTrio, repeatable()); }

class DrivenEditor {
 public:
  DrivenEditor(const QString& home, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_HOME", home + "/data");
    environment.insert("XDG_CONFIG_HOME", home + "/config");
    process_.setProcessEnvironment(environment);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(KORRIN_DRIVEN_EDITOR, arguments);
  }

  ~DrivenEditor() { kill(); }

  /// Asks for something and returns the plot as it is after that.
  KorrinProject ask(const char* what) {
    process_.write(what);
    process_.write("\n");
    while (!process_.canReadLine())
      if (!process_.waitForReadyRead(patience)) qFatal("the editor does not answer");
    return decodeJSON<KorrinProject>(process_.readLine().toStdString());
  }

  /// No signal that a program could catch.
  void kill() {
    process_.kill();
    process_.waitForFinished(patience);
  }

 private:
  QProcess process_;
};

class RecoveryTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { home = std::make_unique<QTemporaryDir>(); }

  void takesUpAPlotWhereTheEditorWasKilled() {
    const QString path = home->filePath("tonight.json");
    const std::filesystem::path place = toPath(path);
    DocumentFile(place).save(trio());
    KorrinProject last = trio();
    {
      DrivenEditor editor(home->path(), {path});
      for (int i = 0; i < 3; ++i) last = editor.ask("edit");
      QVERIFY(timeless(last) != timeless(trio()));
      QTRY_VERIFY_WITH_TIMEOUT(keptAt(place) == last, patience);
      editor.kill();
    }
    DrivenEditor editor(home->path(), {path});
    QVERIFY(areEqual(timeless(editor.ask("document")), timeless(last)));
    // The way back is open, and the file is as it was.
    QVERIFY(areEqual(timeless(editor.ask("undo")), timeless(trio())));
    QVERIFY(areEqual(std::get<OpenedDocument>(DocumentFile(place).open()).project, trio()));
  }

  void losesNoMoreThanWasNotKeptYet() {
    const QString path = home->filePath("tonight.json");
    const std::filesystem::path place = toPath(path);
    DocumentFile(place).save(trio());
    std::vector<KorrinProject> states;
    {
      DrivenEditor editor(home->path(), {path});
      states.push_back(editor.ask("edit"));
      QVERIFY(timeless(states.front()) != timeless(trio()));
      QTRY_VERIFY_WITH_TIMEOUT(keptAt(place) == states.front(), patience);
      for (int i = 0; i < 20; ++i) states.push_back(editor.ask("edit"));
      editor.kill();
    }
    // Whether one of the later states was written is the clock's to say; a torn one never is.
    const std::optional<KorrinProject> kept = keptAt(place);
    QVERIFY(kept);
    QVERIFY(std::find(states.begin(), states.end(), *kept) != states.end());
    DrivenEditor editor(home->path(), {path});
    QVERIFY(areEqual(timeless(editor.ask("document")), timeless(*kept)));
  }

  void takesUpAPlotThatWasNeverSaved() {
    const std::filesystem::path place =
        toPath(home->filePath("data/Korrin/korrin-editor/unsaved/unsaved-1.json"));
    KorrinProject last = trio();
    {
      DrivenEditor editor(home->path(), {});
      for (int i = 0; i < 3; ++i) last = editor.ask("edit");
      QVERIFY(!last.items.empty());
      QTRY_VERIFY_WITH_TIMEOUT(keptAt(place) == last, patience);
      editor.kill();
    }
    DrivenEditor editor(home->path(), {});
    QVERIFY(areEqual(timeless(editor.ask("document")), timeless(last)));
  }

 private:
  static std::optional<KorrinProject> keptAt(const std::filesystem::path& document) {
    std::optional<Recovery> recovery = recoveryOf(document);
    if (!recovery) return std::nullopt;
    return std::move(recovery->project);
  }

  std::unique_ptr<QTemporaryDir> home;
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::RecoveryTest)
#include "recovery_test.moc"
