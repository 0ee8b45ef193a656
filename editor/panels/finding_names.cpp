#include "editor/panels/finding_names.h"

#include <QCoreApplication>
#include <QStringList>
#include <algorithm>

#include "korrin/drawing/symbol_catalogue.h"

#include "editor/files/file_questions.h"
#include "editor/languages/library_texts.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("FindingNames", text); }

constexpr int longest = 60;  // characters of one name

// The text in one short line.
QString line(const Text& text) { return plain(toQString(text).simplified().left(longest)); }

QString symbolNameOf(const PlotItem& item) {
  for (const Symbol& symbol : builtInSymbols())
    if (symbol.assetID == item.assetID.str()) return inUsersLanguage(symbol.name);
  return tr("unnamed");
}

// What somebody would call the row.
template <class Rows>
QString nameIn(const Rows& rows, std::size_t index, Text Rows::value_type::*name) {
  return index < rows.size() ? line(rows[index].*name) : QString();
}

QString rowText(const IssueSubject& subject, const KorrinProject& project) {
  QString name;
  switch (subject.list) {
    case ProjectList::items:
      return subject.index < project.items.size() ? nameOf(project.items[subject.index])
                                                  : QString();
    case ProjectList::inputs:
      name = nameIn(project.inputs, subject.index, &InputChannel::source);
      break;
    case ProjectList::monitorMixes:
      name = nameIn(project.monitorMixes, subject.index, &MonitorMix::name);
      break;
    case ProjectList::equipmentRequirements:
      name = nameIn(project.equipmentRequirements, subject.index, &EquipmentRequirement::item);
      break;
  }
  const QString row = QString::number(subject.index + 1);
  return name.isEmpty() ? tr("Row %1").arg(row) : tr("Row %1: %2").arg(row, name);
}

}  // namespace

QString nameOf(const PlotItem& item) {
  const QString label = line(item.label);
  return label.isEmpty() ? symbolNameOf(item) : label;
}

QString subjectText(const Finding& finding, const KorrinProject& project) {
  if (finding.subject) return rowText(*finding.subject, project);
  constexpr int most = 4;
  QStringList names;
  project.items.forEachCandidate(finding.items, [&](std::size_t, const PlotItem& item) {
    if (names.size() <= most && finding.items.contains(item.id)) names += nameOf(item);
  });
  if (names.size() > most) names.back() = "…";
  return names.join(", ");
}

}  // namespace korrin::editor
