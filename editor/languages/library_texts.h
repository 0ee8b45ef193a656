#pragma once

// What the libraries say, in the user's language. They speak English: findings, fixes, templates
// and symbols reach the window as sentences with the names of a plot's records in them.

#include <QString>
#include <QStringList>
#include <string_view>

namespace korrin::editor {

/// The sentence in the user's language; as it is where it is none that is known. What stands in
/// quotation marks is the plot's own and stays.
QString inUsersLanguage(const QString& sentence);
QString inUsersLanguage(std::string_view sentence);

/// Whether this is a sentence that is known.
bool isKnown(const QString& sentence);

/// All sentences and words that are known, with %1 to %3 for what varies.
QStringList librarySentences();

}  // namespace korrin::editor
