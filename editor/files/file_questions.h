#pragma once

// What the user is told and asked about files. Every question names the file, says what the answers
// do, and has an answer that does nothing as the one for Escape.

#include <QString>
#include <QStringList>
#include <string_view>

#include "korrin/session/autosave.h"
#include "korrin/session/opening.h"

class QWidget;

namespace korrin::editor {

/// What to do with unsaved changes.
enum class UnsavedAnswer { save, discard, cancel };
/// What to do with a file that somebody else has changed.
enum class ChangedAnswer { overwrite, saveElsewhere, cancel };
/// What to do with what a crash left behind.
enum class RecoveryAnswer { recover, discard, cancel };

/// A text of a file in one line of a window: control characters are shown as such.
QString plain(const QString& text);

/// What the library says of a failure, on one line and with a full stop.
QString sentenceOf(std::string_view remark);

/// Something failed, in a sentence of the library's or the system's.
void tellFailure(QWidget* parent, const QString& heading, const QString& sentence);

/// The plot is for a newer version. There is nothing to choose.
void tellNewer(QWidget* parent, const QString& path, const DocumentVersions& versions);

/// The file holds no plot.
void tellUnreadable(QWidget* parent, const QString& path, const DecodingError& error);

/// The plot breaks a rule that editing relies on: says which, what that means and how to mend it,
/// and shows the plot's picture on demand.
void tellUnsafe(QWidget* parent, const QString& path, const UnsafeDocument& document);

/// Names what saving would drop. Returns whether to save all the same.
bool askToDrop(QWidget* parent, const QString& path, const UnknownKeys& keys);

/// The plot could not be saved, for the reason in this sentence. Returns whether to save it under
/// another name.
bool askToSaveElsewhere(QWidget* parent, const QString& sentence);

/// Returns whether files of these names, which are there already, may go.
bool askToReplace(QWidget* parent, const QStringList& names);

UnsavedAnswer askAboutUnsaved(QWidget* parent, const QString& name);
ChangedAnswer askAboutChanged(QWidget* parent, const QString& path);
RecoveryAnswer askAboutRecovery(QWidget* parent, const QString& name, Instant notedAt);

/// Returns whether to open a file that another window has open.
bool askToOpenTwice(QWidget* parent, const QString& path);

}  // namespace korrin::editor
