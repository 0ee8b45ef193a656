#include "editor/languages/language.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace korrin::editor {
namespace {

// A text means the same wherever it stands, so that one list does for all classes. Qt's own texts,
// whose contexts are Qt's classes, have a list of their own.
class EditorTexts : public QTranslator {
 public:
  using QTranslator::QTranslator;

  QString translate(const char* context, const char* source, const char*, int) const override {
    const bool isOfQt =
        context != nullptr && context[0] == 'Q' && context[1] >= 'A' && context[1] <= 'Z';
    return isOfQt ? QString() : QTranslator::translate("Editor", source);
  }
};

}  // namespace

void speak(const QLocale& locale, QApplication& application) {
  QLocale::setDefault(locale);
  if (locale.language() != QLocale::German) return;
  auto* ofQt = new QTranslator(&application);
  if (ofQt->load(locale, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(ofQt);
  auto* ours = new EditorTexts(&application);
  if (ours->load(":/languages/german.qm")) QApplication::installTranslator(ours);
}

}  // namespace korrin::editor
