// German: nothing that the window or, through it, the libraries say is left in English.

#include "editor/languages/language.h"

#include <QDirIterator>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>
#include <limits>
#include <map>
#include <set>
#include <utility>

#include "korrin/drawing/symbol_catalogue.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/audit.h"
#include "korrin/review/fixes.h"
#include "korrin/review/rules.h"
#include "korrin/templates/korrin_template.h"

#include "editor/languages/library_texts.h"
#include "editor/main_window.h"
#include "editor/panels/plot_list.h"

namespace korrin::editor {
namespace {

QString contentOf(const QString& path) {
  QFile file(path);
  return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

std::map<QString, QString> germanTexts() {
  QXmlStreamReader reader(contentOf(QString(KORRIN_SOURCE_DIR) + "/editor/languages/german.ts"));
  std::map<QString, QString> texts;
  QString source;
  while (!reader.atEnd()) {
    reader.readNext();
    if (!reader.isStartElement()) continue;
    if (reader.name() == u"source") source = reader.readElementText();
    if (reader.name() == u"translation") texts[source] = reader.readElementText();
  }
  return texts;
}

// Every text that a source file of the folder hands to a translator.
std::set<QString> textsIn(const QString& folder) {
  static const QRegularExpression call("\\btr\\(\\s*((?:\"(?:[^\"\\\\]|\\\\.)*\"\\s*)+)");
  static const QRegularExpression literal("\"((?:[^\"\\\\]|\\\\.)*)\"");
  std::set<QString> texts;
  QDirIterator files(QString(KORRIN_SOURCE_DIR) + "/editor" + folder, {"*.cpp"}, QDir::Files);
  while (files.hasNext()) {
    auto calls = call.globalMatch(contentOf(files.next()));
    while (calls.hasNext()) {
      QString text;
      auto literals = literal.globalMatch(calls.next().captured(1));
      while (literals.hasNext()) text += literals.next().captured(1);
      texts.insert(text);
    }
  }
  return texts;
}

// A plot in which every rule finds something.
KorrinProject flawedPlot() {
  KorrinProject project = KorrinProject::example();
  const UUID gone = UUID::random();
  const auto fill = [](auto& list, std::size_t count) {
    while (list.size() < count) {
      list.push_back(list[0]);
      list.edit(list.size() - 1).id = UUID::random();
    }
  };
  fill(project.items, 10);
  fill(project.inputs, 7);
  fill(project.monitorMixes, 3);
  fill(project.equipmentRequirements, 2);
  auto& inputs = project.inputs;
  inputs.edit(1).channel = inputs[0].channel;
  inputs.edit(2).source = "";
  inputs.edit(3).plotItemID.reset();
  inputs.edit(4).plotItemID = gone;
  inputs.edit(5).channel = 0;
  auto& mixes = project.monitorMixes;
  mixes.edit(1).number = mixes[0].number;
  mixes.edit(0).outputPatch = "";
  mixes.edit(1).plotItemID.reset();
  mixes.edit(2).plotItemID = gone;
  auto& lines = project.equipmentRequirements;
  lines.edit(0).quantity = 0;
  lines.edit(1).plotItemID = gone;
  auto& items = project.items;
  items.edit(0).label = "";
  items.edit(1).position.x = 90'000;
  items.edit(2).assetID = "nowhere";
  items.edit(3).layerID = gone;
  items.edit(4).groupID = gone;
  items.edit(5).riserHeightMillimeters = std::numeric_limits<double>::infinity();
  items.edit(6).style.tintHex = "red";
  // As high as the stage, and turned.
  items.edit(7).size = {.width = 2'000, .height = project.stage.size.height};
  items.edit(7).position = {.x = 0, .y = 0};
  items.edit(7).rotationDegrees = 10;
  PlotLayer hidden = project.layers[0];
  hidden.id = UUID::random();
  hidden.isVisible = false;
  project.layers.push_back(hidden);
  items.edit(8).layerID = hidden.id;
  items.edit(9).groupID.reset();
  const UUID member = items[9].id;
  const auto group = [](const char* name, List<UUID> ids) {
    return PlotGroup{.id = UUID::random(), .name = name, .itemIDs = std::move(ids)};
  };
  project.groups.push_back(group("one-sided", {member}));
  project.groups.push_back(group("unknown", {gone}));
  project.groups.push_back(group("twice", {member, member}));
  project.groups.push_back(group("empty", {}));
  inputs.edit(6).id = items[6].id;
  const AssetManifestEntry asset = {.sha256 = std::string(64, 'a'),
                                    .filename = "logo.png",
                                    .mediaType = "image/png",
                                    .byteCount = 1};
  project.assetManifest = {asset, asset};
  project.schemaVersion = 2;
  return project;
}

void expectKnown(std::string_view sentence) {
  const QString text = QString::fromUtf8(sentence.data(), qsizetype(sentence.size()));
  QVERIFY2(isKnown(text), qPrintable(text));
}

class LanguageTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void leavesNothingInEnglish() {
    const auto german = germanTexts();
    for (const char* folder :
         {"", "/canvas", "/dialogs", "/files", "/menus", "/output", "/panels"}) {
      const auto texts = textsIn(folder);
      QVERIFY2(!texts.empty() || *folder == 0, folder);
      for (const QString& text : texts) QVERIFY2(german.contains(text), qPrintable(text));
    }
  }

  void leavesNothingOfTheLibrariesInEnglish() {
    const auto german = germanTexts();
    for (const QString& text : librarySentences())
      QVERIFY2(german.contains(text), qPrintable(text));
    for (const Symbol& symbol : builtInSymbols()) expectKnown(symbol.name);
    for (const KorrinTemplate& one : KorrinTemplate::all()) {
      expectKnown(title(one.id));
      expectKnown(summary(one.id));
    }
  }

  void knowsEverySentenceAboutAFlawedPlot() {
    const KorrinProject project = flawedPlot();
    std::set<PreflightRule> rules;
    FixFinder fixes(project);
    int fixCount = 0;
    for (const PreflightIssue& issue : PreflightEngine::inspect(project, builtInAssetIDs())) {
      rules.insert(issue.rule);
      expectKnown(issue.title.str());
      expectKnown(issue.detail.str());
      for (const Fix& fix : fixes(issue)) expectKnown(fix.title.str()), ++fixCount;
    }
    QCOMPARE(rules.size(), preflightRules().size());
    std::set<AuditRule> audited;
    for (const AuditFinding& finding : audit(project)) {
      audited.insert(finding.rule);
      expectKnown(finding.title.str());
      expectKnown(finding.detail.str());
      for (const Fix& fix : fixes(finding)) expectKnown(fix.title.str()), ++fixCount;
    }
    QCOMPARE(audited.size(), auditRules().size());
    QVERIFY2(fixCount > 25, qPrintable(QString::number(fixCount)));
  }

  void leavesWhatIsThePlotsOwn() {
    speak(QLocale(QLocale::German), *qApp);
    QCOMPARE(inUsersLanguage(QString("Give input 7 \"Link %1 to Power\" channel 9")),
             QString("Eingang 7 \"Link %1 to Power\": Kanal 9 zuweisen"));
    QCOMPARE(inUsersLanguage(QString("Add an output patch for input 3.")),
             QString("Tragen Sie einen Ausgang für input 3 ein."));
    QCOMPARE(inUsersLanguage(QString("Hide the label of microphone at x 0 mm, y 500 mm")),
             QString("Mikrofon bei x 0 mm, y 500 mm: Beschriftung ausblenden"));
    QCOMPARE(inUsersLanguage(QString("One identifier stands in symbols, inputs and notes.")),
             QString("Dieselbe Kennung steht in: Symbole, Eingänge und Notizen."));
    QCOMPARE(inUsersLanguage(QString("A sentence of tomorrow")), QString("A sentence of tomorrow"));
  }

  void keepsThePlacesForWhatIsFilledIn() {
    for (const auto& [english, german] : germanTexts()) {
      QVERIFY(!german.isEmpty());
      for (const QString place : {"%1", "%2", "%3"})
        QVERIFY2(english.contains(place) == german.contains(place), qPrintable(english));
    }
  }

  void speaksGerman() {
    speak(QLocale(QLocale::German), *qApp);
    MainWindow window;
    QCOMPARE(window.fileMenu().title(), QString("&Datei"));
    QCOMPARE(plotListNamed("inputs")->title, QString("Eingänge"));
  }
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::LanguageTest)
#include "language_test.moc"
