// German: nothing that the panels and the questions about files say is left in English, and the
// window speaks it.

#include "editor/languages/language.h"

#include <QDirIterator>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>
#include <map>
#include <set>

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
  QDirIterator files(QString(KORRIN_SOURCE_DIR) + "/editor/" + folder, {"*.cpp"}, QDir::Files);
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

class LanguageTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void leavesNothingInEnglish() {
    const auto german = germanTexts();
    for (const char* folder : {"canvas", "dialogs", "files", "menus", "output", "panels"}) {
      const auto texts = textsIn(folder);
      QVERIFY(!texts.empty());
      for (const QString& text : texts) QVERIFY2(german.contains(text), qPrintable(text));
    }
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
