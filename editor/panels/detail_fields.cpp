#include "editor/panels/detail_fields.h"

#include <QCoreApplication>
#include <QDateTime>

#include "korrin/session/structural_edits.h"

#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("DetailFields", text); }

using Kind = FormField::Kind;

QVariant toVariant(const Text& text) { return toQString(text); }
QVariant toVariant(double number) { return number; }
QVariant toVariant(bool truth) { return truth; }
QVariant toVariant(AudienceEdge edge) { return int(edge); }
QVariant toVariant(PaperSize size) { return int(size); }
QVariant toVariant(const std::optional<Instant>& instant) {
  if (!instant) return {};
  const auto since = std::chrono::floor<std::chrono::milliseconds>(instant->time_since_epoch());
  return QDateTime::fromMSecsSinceEpoch(since.count());
}

void assign(Text& text, const QVariant& value) { text = toText(value.toString()); }
void assign(double& number, const QVariant& value) { number = value.toDouble(); }
void assign(bool& truth, const QVariant& value) { truth = value.toBool(); }
void assign(AudienceEdge& edge, const QVariant& value) { edge = AudienceEdge(value.toInt()); }
void assign(PaperSize& size, const QVariant& value) { size = PaperSize(value.toInt()); }
void assign(std::optional<Instant>& instant, const QVariant& value) {
  // Years far off do not fit an instant, and no show is played in them.
  const QDateTime date = value.toDateTime();
  if (!date.isValid())
    instant.reset();
  else if (date.date().year() > 1700 && date.date().year() < 2200)
    instant = Instant(std::chrono::milliseconds(date.toMSecsSinceEpoch()));
}

std::optional<DocumentCommand> replacing(const KorrinProject&, ProjectMetadata metadata,
                                         const Environment&) {
  return DocumentCommand::replaceMetadata(std::move(metadata));
}
std::optional<DocumentCommand> replacing(const KorrinProject&, StageDefinition stage,
                                         const Environment&) {
  return DocumentCommand::replaceStage(std::move(stage));
}
std::optional<DocumentCommand> replacing(const KorrinProject& project, ExportSettings settings,
                                         const Environment& environment) {
  return exportSettingsCommand(project, settings, environment);
}

// A field of one of the plot's records, which `find` finds in the record to read and to write.
template <class Record, class Find>
DetailField field(std::string_view key, Record KorrinProject::*record, FormField form, Find find) {
  return {.key = key,
          .form = std::move(form),
          .read = [=](const KorrinProject& project) { return toVariant(find(project.*record)); },
          .write = [=](const KorrinProject& project, const QVariant& value,
                       const Environment& environment) -> std::optional<DocumentCommand> {
            Record changed = project.*record;
            assign(find(changed), value);
            if (changed == project.*record) return std::nullopt;
            return replacing(project, std::move(changed), environment);
          }};
}

template <class Record, class Value>
DetailField field(Record KorrinProject::*record, Value Record::*member, FormField form) {
  return field(
      keyOf(member), record, std::move(form), [member](auto& one) -> auto& { return one.*member; });
}

DetailSection metadata() {
  constexpr auto record = &KorrinProject::metadata;
  return {.title = tr("Plot"),
          .fields = {
              field(record, &ProjectMetadata::title, {.label = tr("Title")}),
              field(record, &ProjectMetadata::artist, {.label = tr("Artist")}),
              field(record, &ProjectMetadata::venue, {.label = tr("Venue")}),
              field(record, &ProjectMetadata::eventDate,
                    {.label = tr("Date"), .kind = Kind::date, .mayBeAbsent = true}),
              field(record, &ProjectMetadata::preparedBy, {.label = tr("Prepared by")}),
              field(record, &ProjectMetadata::contactEmail, {.label = tr("E-mail")}),
              field(record, &ProjectMetadata::revision, {.label = tr("Revision")}),
          }};
}

DetailSection stage() {
  constexpr auto record = &KorrinProject::stage;
  const FormField length{.label = {}, .kind = Kind::number, .unit = "mm", .minimum = 1};
  const auto labelled = [&](const QString& label, double minimum, double step) {
    FormField form = length;
    form.label = label;
    form.minimum = minimum;
    form.step = step;
    return form;
  };
  return {.title = tr("Stage"),
          .fields = {
              field(record, &StageDefinition::name, {.label = tr("Name")}),
              field(
                  "width", record, labelled(tr("Width"), 1, 500),
                  [](auto& one) -> auto& { return one.size.width; }),
              field(
                  "height", record, labelled(tr("Depth"), 1, 500),
                  [](auto& one) -> auto& { return one.size.height; }),
              field(record, &StageDefinition::audienceEdge,
                    {.label = tr("Audience"),
                     .kind = Kind::choice,
                     .choices = {tr("At the top"), tr("To the right"), tr("At the bottom"),
                                 tr("To the left")}}),
              field(record, &StageDefinition::gridSpacingMillimeters, labelled(tr("Grid"), 0, 50)),
              field(record, &StageDefinition::showGrid,
                    {.label = tr("Grid is shown"), .kind = Kind::check}),
              field(record, &StageDefinition::showDimensions,
                    {.label = tr("Dimensions are shown"), .kind = Kind::check}),
          }};
}

DetailSection output() {
  constexpr auto record = &KorrinProject::exportSettings;
  const auto check = [](const QString& label) {
    return FormField{.label = label, .kind = Kind::check};
  };
  return {.title = tr("Sheets"),
          .fields = {
              field(record, &ExportSettings::paperSize,
                    {.label = tr("Paper"), .kind = Kind::choice, .choices = {"A4", tr("Letter")}}),
              field(record, &ExportSettings::includeInputList, check(tr("With the inputs"))),
              field(record, &ExportSettings::includeMonitorMixes, check(tr("With the mixes"))),
              field(record, &ExportSettings::includeEquipment, check(tr("With the equipment"))),
              field(record, &ExportSettings::includeNotes, check(tr("With the notes"))),
          }};
}

}  // namespace

std::vector<DetailSection> detailSections() { return {metadata(), stage(), output()}; }

}  // namespace korrin::editor
