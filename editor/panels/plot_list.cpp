#include "editor/panels/plot_list.h"

#include <QLocale>
#include <memory>

#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("PlotList", text); }

QVariant toVariant(const Text& text) { return toQString(text); }
QVariant toVariant(std::int64_t number) { return qlonglong(number); }
QVariant toVariant(bool value) { return value; }
QVariant toVariant(const UUID& id) { return QString::fromStdString(id.text()); }
template <class Value>
QVariant toVariant(const std::optional<Value>& value) {
  return value ? toVariant(*value) : QVariant();
}

bool fromVariant(const QVariant& value, Text& text) {
  text = toText(value.toString());
  return true;
}

bool fromVariant(const QVariant& value, std::int64_t& number) {
  bool isNumber = false;
  const qlonglong read = value.typeId() == QMetaType::QString
                             ? QLocale().toLongLong(value.toString().trimmed(), &isNumber)
                             : value.toLongLong(&isNumber);
  if (isNumber) number = read;
  return isNumber;
}

// What spreadsheets say for yes and no.
bool fromVariant(const QVariant& value, bool& truth) {
  if (value.typeId() != QMetaType::QString) {
    truth = value.toBool();
    return true;
  }
  const QString word = value.toString().trimmed().toLower();
  const bool isYes = QStringList{"1",
                                 "x",
                                 "yes",
                                 "y",
                                 "true",
                                 "on",
                                 "+48",
                                 "+48v",
                                 "48v",
                                 "✓",
                                 "ja",
                                 "wahr",
                                 tr("yes").toLower()}
                         .contains(word);
  const bool isNo =
      QStringList{"", "0", "-", "no", "n", "false", "off", "nein", "falsch", tr("no").toLower()}
          .contains(word);
  if (isYes || isNo) truth = isYes;
  return isYes || isNo;
}

bool fromVariant(const QVariant& value, UUID& id) {
  const auto read = UUID::fromText(value.toString().toStdString());
  if (read) id = *read;
  return read.has_value();
}

template <class Value>
bool fromVariant(const QVariant& value, std::optional<Value>& optional) {
  if (value.toString().trimmed().isEmpty()) {
    optional.reset();
    return true;
  }
  Value read{};
  if (!fromVariant(value, read)) return false;
  optional = read;
  return true;
}

template <class Value>
constexpr ListColumn::Kind kindOf() {
  using enum ListColumn::Kind;
  if constexpr (std::is_same_v<Value, Text>) return text;
  if constexpr (std::is_same_v<Value, bool>) return check;
  if constexpr (std::is_same_v<Value, std::optional<UUID>>) return link;
  return number;
}

template <class Record>
class RecordList : public PlotList {
 public:
  RecordList(List<Record> KorrinProject::*list, DocumentCommand (*replace)(List<Record>),
             Record fresh, const QString& name, const QString& edit)
      : list_(list), replace_(replace), fresh_(std::move(fresh)) {
    key = keyOf(list);
    title = name;
    editName = edit;
  }

  template <class Value>
  RecordList& with(const QString& name, int width, Value Record::*member) {
    columns.push_back({
        .key = keyOf(member),
        .title = name,
        .width = width,
        .kind = kindOf<Value>(),
        .read = [list = list_, member](
                    const KorrinProject& project,
                    std::size_t row) { return toVariant((project.*list)[row].*member); },
        .write =
            [list = list_, member](KorrinProject& project, std::size_t row, const QVariant& value) {
              Value read = (project.*list)[row].*member;
              if (!fromVariant(value, read)) return false;
              (project.*list).edit(row).*member = std::move(read);
              return true;
            },
    });
    return *this;
  }

  std::size_t size(const KorrinProject& project) const override { return (project.*list_).size(); }
  UUID idOf(const KorrinProject& project, std::size_t row) const override {
    return (project.*list_)[row].id;
  }
  void insert(KorrinProject& project, std::size_t row, UUID id) const override {
    Record record = fresh_;
    record.id = id;
    (project.*list_).insert(row, std::move(record));
  }
  void remove(KorrinProject& project, std::size_t row) const override {
    (project.*list_).erase(row);
  }
  void move(KorrinProject& project, std::size_t from, std::size_t to) const override {
    (project.*list_).move(from, to);
  }
  DocumentCommand replacing(const KorrinProject& project) const override {
    return replace_(project.*list_);
  }

 private:
  List<Record> KorrinProject::*list_;
  DocumentCommand (*replace_)(List<Record>);
  Record fresh_;
};

const PlotList* inputs() {
  static const auto list =
      RecordList<InputChannel>(&KorrinProject::inputs, &DocumentCommand::replaceInputs, {},
                               tr("Inputs"), tr("Change Inputs"))
          .with(tr("Channel"), 9, &InputChannel::channel)
          .with(tr("Source"), 22, &InputChannel::source)
          .with(tr("Microphone or DI"), 20, &InputChannel::microphoneOrDI)
          .with(tr("Stand"), 14, &InputChannel::stand)
          .with(tr("+48 V"), 8, &InputChannel::phantomPower)
          .with(tr("Notes"), 26, &InputChannel::notes)
          .with(tr("Symbol"), 20, &InputChannel::plotItemID);
  return &list;
}

const PlotList* mixes() {
  static const auto list =
      RecordList<MonitorMix>(&KorrinProject::monitorMixes, &DocumentCommand::replaceMonitorMixes,
                             {}, tr("Monitor Mixes"), tr("Change Mixes"))
          .with(tr("Mix"), 9, &MonitorMix::number)
          .with(tr("Name"), 22, &MonitorMix::name)
          .with(tr("Type"), 14, &MonitorMix::type)
          .with(tr("Output"), 14, &MonitorMix::outputPatch)
          .with(tr("Notes"), 30, &MonitorMix::notes)
          .with(tr("Symbol"), 20, &MonitorMix::plotItemID);
  return &list;
}

const PlotList* equipment() {
  static const auto list = RecordList<EquipmentRequirement>(&KorrinProject::equipmentRequirements,
                                                            &DocumentCommand::replaceEquipment,
                                                            {.id = {},
                                                             .category = {},
                                                             .item = {},
                                                             .quantity = 1,
                                                             .suppliedBy = {},
                                                             .notes = {},
                                                             .plotItemID = {}},
                                                            tr("Equipment"), tr("Change Equipment"))
                               .with(tr("Quantity"), 9, &EquipmentRequirement::quantity)
                               .with(tr("Item"), 26, &EquipmentRequirement::item)
                               .with(tr("Category"), 14, &EquipmentRequirement::category)
                               .with(tr("Supplied by"), 14, &EquipmentRequirement::suppliedBy)
                               .with(tr("Notes"), 26, &EquipmentRequirement::notes)
                               .with(tr("Symbol"), 20, &EquipmentRequirement::plotItemID);
  return &list;
}

const PlotList* notes() {
  static const auto list =
      RecordList<ProjectNote>(&KorrinProject::notes, &DocumentCommand::replaceNotes, {},
                              tr("Notes"), tr("Change Notes"))
          .with(tr("Title"), 22, &ProjectNote::title)
          .with(tr("Text"), 90, &ProjectNote::body);
  return &list;
}

}  // namespace

const ListColumn* PlotList::linkColumn() const {
  for (const ListColumn& column : columns)
    if (column.kind == ListColumn::Kind::link) return &column;
  return nullptr;
}

std::optional<std::size_t> PlotList::rowOf(const KorrinProject& project, const UUID& id) const {
  for (std::size_t row = 0; row < size(project); ++row)
    if (idOf(project, row) == id) return row;
  return std::nullopt;
}

const std::vector<const PlotList*>& plotLists() {
  static const std::vector<const PlotList*> lists = {inputs(), mixes(), equipment(), notes()};
  return lists;
}

const PlotList* plotListNamed(std::string_view key) {
  for (const PlotList* list : plotLists())
    if (list->key == key) return list;
  return nullptr;
}

}  // namespace korrin::editor
