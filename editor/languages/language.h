#pragma once

// The language of the window. Sources hold English; a file of texts for each other language stands
// beside this one.

class QApplication;
class QLocale;

namespace korrin::editor {

/// Lets the program speak the locale's language from now on, in what is made afterwards: German, or
/// else English.
void speak(const QLocale& locale, QApplication& application);

}  // namespace korrin::editor
