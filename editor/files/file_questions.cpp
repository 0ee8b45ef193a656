#include "editor/files/file_questions.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "korrin/review/rules.h"

#include "editor/dialogs/plot_picture.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("FileQuestions", text); }

QString nameOf(const QString& path) { return plain(QFileInfo(path).fileName()); }

// A message box whose name tests and scripts go by. Its texts are plain: a file's name is no
// markup.
class Question : public QMessageBox {
 public:
  Question(QWidget* parent, const QString& name, Icon icon, const QString& heading,
           const QString& text)
      : QMessageBox(parent) {
    setObjectName(name);
    setWindowTitle(QCoreApplication::applicationName());
    setIcon(icon);
    setTextFormat(Qt::PlainText);
    setText(heading);
    setInformativeText(text);
  }

  QPushButton* add(const QString& name, const QString& text, ButtonRole role) {
    QPushButton* button = addButton(text, role);
    button->setObjectName(name);
    return button;
  }

  QPushButton* addCancel() {
    QPushButton* button = addButton(Cancel);
    button->setObjectName("cancel");
    setEscapeButton(button);
    return button;
  }

  // The name of the button that was pressed; empty when the box was closed otherwise.
  QString answer() {
    exec();
    return clickedButton() != nullptr ? clickedButton()->objectName() : QString();
  }
};

void showPicture(QWidget* parent, const KorrinProject& project) {
  QDialog dialog(parent);
  dialog.setObjectName("picture");
  dialog.setWindowTitle(tr("Picture of the plot"));
  auto* picture = new QLabel(&dialog);
  picture->setPixmap(pictureOf(project, {900, 620}, dialog.devicePixelRatioF()));
  picture->setAccessibleName(dialog.windowTitle());
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  auto* layout = new QVBoxLayout(&dialog);
  layout->addWidget(picture, 1);
  layout->addWidget(buttons);
  dialog.exec();
}

}  // namespace

QString plain(const QString& text) {
  QString shown = text;
  for (QChar& character : shown)
    if (character.category() == QChar::Other_Control ||
        character.category() == QChar::Other_Format ||
        character.category() == QChar::Separator_Line ||
        character.category() == QChar::Separator_Paragraph)
      character = QChar::ReplacementCharacter;
  return shown;
}

QString sentenceOf(std::string_view remark) {
  const QString text = plain(QString::fromUtf8(remark.data(), qsizetype(remark.size())));
  return text.endsWith('.') ? text : text + '.';
}

void tellFailure(QWidget* parent, const QString& heading, const QString& sentence) {
  Question box(parent, "failure", QMessageBox::Warning, heading, sentence);
  box.addButton(QMessageBox::Ok)->setObjectName("ok");
  box.exec();
}

void tellNewer(QWidget* parent, const QString& path, const DocumentVersions& versions) {
  Question box(parent, "newerDocument", QMessageBox::Information,
               tr("“%1” was made by a newer version").arg(nameOf(path)),
               tr("It asks for a program that reads version %1 of the format; this one reads up to "
                  "version %2. The file is left as it is. Update this program, or ask whoever sent "
                  "the plot for an older version of it.")
                   .arg(versions.minimumReaderVersion)
                   .arg(KorrinProject::currentSchemaVersion));
  box.addButton(QMessageBox::Ok)->setObjectName("ok");
  box.exec();
}

void tellUnreadable(QWidget* parent, const QString& path, const DecodingError& error) {
  const QString place = error.line() > 0
                            ? tr("Line %1, column %2: ").arg(error.line()).arg(error.column())
                            : QString();
  Question box(parent, "unreadableDocument", QMessageBox::Warning,
               tr("“%1” is no stage plot, or is damaged").arg(nameOf(path)),
               place + plain(QString::fromUtf8(error.what())) + "\n\n" +
                   tr("The file is left as it is. Choose another one, or a backup of it."));
  box.addButton(QMessageBox::Ok)->setObjectName("ok");
  box.exec();
}

void tellUnsafe(QWidget* parent, const QString& path, const UnsafeDocument& document) {
  const auto rules = validationRules();
  const auto rule = std::find_if(rules.begin(), rules.end(), [&](const auto& description) {
    return description.code == document.error.code();
  });
  QString text = QString::fromUtf8(document.error.what());
  if (rule != rules.end())
    text += "\n\n" +
            QString::fromUtf8(rule->explanation.data(), qsizetype(rule->explanation.size())) +
            "\n\n" + QString::fromUtf8(rule->remedy.data(), qsizetype(rule->remedy.size()));
  Question box(parent, "unsafeDocument", QMessageBox::Warning,
               tr("“%1” cannot be edited as it is").arg(nameOf(path)),
               text + "\n\n" + tr("The file is left as it is. You can look at its picture."));
  box.add("look", tr("&Look at It…"), QMessageBox::ActionRole);
  QPushButton* close = box.addButton(QMessageBox::Close);
  close->setObjectName("close");
  box.setDefaultButton(close);
  if (box.answer() == "look") showPicture(parent, document.project);
}

bool askToDrop(QWidget* parent, const QString& path, const UnknownKeys& keys) {
  Question box(parent, "unknownKeys", QMessageBox::Question,
               tr("Saving would drop something from “%1”").arg(nameOf(path)),
               tr("The file holds entries that this program does not know and cannot keep; they "
                  "may come from another program. Save under another name to keep the file as it "
                  "is."));
  QString list;
  for (const std::string& key : keys.paths) list += plain(QString::fromStdString(key)) + '\n';
  if (keys.count > keys.paths.size())
    list += tr("and %1 more").arg(keys.count - keys.paths.size()) + '\n';
  // The first ones are in sight, all that are named behind a button.
  constexpr std::size_t inSight = 5;
  if (keys.paths.size() <= inSight)
    box.setInformativeText(box.informativeText() + "\n\n" + list.trimmed());
  else {
    box.setInformativeText(box.informativeText() + "\n\n" +
                           list.section('\n', 0, int(inSight) - 1) + "\n…");
    box.setDetailedText(list);
  }
  box.add("save", tr("&Save without Them"), QMessageBox::AcceptRole);
  box.setDefaultButton(box.addCancel());
  return box.answer() == "save";
}

bool askToSaveElsewhere(QWidget* parent, const QString& sentence) {
  Question box(parent, "notSaved", QMessageBox::Warning, tr("The plot was not saved"),
               sentence + "\n\n" +
                   tr("Your edits are still in this window. Save them under another name or in "
                      "another folder, or mend what is wrong and save again."));
  QPushButton* elsewhere =
      box.add("saveElsewhere", tr("Save under &Another Name…"), QMessageBox::AcceptRole);
  box.addCancel();
  box.setDefaultButton(elsewhere);
  return box.answer() == "saveElsewhere";
}

bool askToReplace(QWidget* parent, const QStringList& names) {
  Question box(parent, "replaceFiles", QMessageBox::Question,
               tr("Replace the files that are there already?"), plain(names.join("; ")));
  box.add("replace", tr("&Replace Them"), QMessageBox::DestructiveRole);
  box.setDefaultButton(box.addCancel());
  return box.answer() == "replace";
}

UnsavedAnswer askAboutUnsaved(QWidget* parent, const QString& name) {
  Question box(parent, "unsavedChanges", QMessageBox::Warning,
               tr("Save the changes to “%1”?").arg(plain(name)),
               tr("They are lost if you do not save them."));
  QPushButton* save = box.addButton(QMessageBox::Save);
  save->setObjectName("save");
  box.addButton(QMessageBox::Discard)->setObjectName("discard");
  box.addCancel();
  box.setDefaultButton(save);
  const QString answer = box.answer();
  if (answer == "save") return UnsavedAnswer::save;
  return answer == "discard" ? UnsavedAnswer::discard : UnsavedAnswer::cancel;
}

ChangedAnswer askAboutChanged(QWidget* parent, const QString& path) {
  Question box(parent, "changedOnDisk", QMessageBox::Warning,
               tr("“%1” was changed by another program").arg(nameOf(path)),
               tr("It is not what you opened or saved last. Saving replaces what the other program "
                  "wrote."));
  QPushButton* elsewhere =
      box.add("saveElsewhere", tr("Save under &Another Name…"), QMessageBox::AcceptRole);
  box.add("overwrite", tr("&Replace It"), QMessageBox::DestructiveRole);
  box.addCancel();
  box.setDefaultButton(elsewhere);
  const QString answer = box.answer();
  if (answer == "overwrite") return ChangedAnswer::overwrite;
  return answer == "saveElsewhere" ? ChangedAnswer::saveElsewhere : ChangedAnswer::cancel;
}

RecoveryAnswer askAboutRecovery(QWidget* parent, const QString& name, Instant notedAt) {
  const auto since = std::chrono::floor<std::chrono::milliseconds>(notedAt.time_since_epoch());
  const QDateTime moment = QDateTime::fromMSecsSinceEpoch(since.count());
  Question box(parent, "recovery", QMessageBox::Question,
               tr("Recover unsaved changes to “%1”?").arg(plain(name)),
               tr("The program ended unexpectedly. Changes up to %1 were kept.")
                   .arg(QLocale().toString(moment, QLocale::ShortFormat)));
  QPushButton* recover = box.add("recover", tr("&Recover"), QMessageBox::AcceptRole);
  box.add("discard", tr("&Discard Them"), QMessageBox::DestructiveRole);
  box.addCancel();
  box.setDefaultButton(recover);
  const QString answer = box.answer();
  if (answer == "recover") return RecoveryAnswer::recover;
  return answer == "discard" ? RecoveryAnswer::discard : RecoveryAnswer::cancel;
}

bool askToOpenTwice(QWidget* parent, const QString& path) {
  Question box(parent, "openElsewhere", QMessageBox::Warning,
               tr("“%1” is open in another window").arg(nameOf(path)),
               tr("Whoever saves second is asked before anything is replaced. In this window, a "
                  "crash would lose what you have not saved."));
  box.add("open", tr("&Open All the Same"), QMessageBox::AcceptRole);
  box.setDefaultButton(box.addCancel());
  return box.answer() == "open";
}

}  // namespace korrin::editor
