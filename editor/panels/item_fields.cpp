#include "editor/panels/item_fields.h"

#include <QCoreApplication>
#include <algorithm>

#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("ItemFields", text); }

using Kind = FormField::Kind;

// The fields that items of one type have, by a function that finds one in an item: for reading and
// for writing alike.
template <class Find>
ItemField number(std::string_view key, FormField form, Find find) {
  form.kind = Kind::number;
  return {
      .key = key,
      .form = std::move(form),
      .read = [find](const PlotItem& item, const KorrinProject&) { return QVariant(find(item)); },
      .write = [find](PlotItem& item, const QVariant& value,
                      const KorrinProject&) { find(item) = value.toDouble(); }};
}

template <class Find>
ItemField check(std::string_view key, const QString& label, Find find) {
  return {
      .key = key,
      .form = {.label = label, .kind = Kind::check},
      .read = [find](const PlotItem& item, const KorrinProject&) { return QVariant(find(item)); },
      .write = [find](PlotItem& item, const QVariant& value,
                      const KorrinProject&) { find(item) = value.toBool(); }};
}

ItemField label() {
  return {.key = "label",
          .form = {.label = tr("Label")},
          .read = [](const PlotItem& item,
                     const KorrinProject&) { return QVariant(toQString(item.label)); },
          .write = [](PlotItem& item, const QVariant& value,
                      const KorrinProject&) { item.label = toText(value.toString()); }};
}

ItemField kind() {
  return {
      .key = "kind",
      .form = {.label = tr("Kind"),
               .kind = Kind::choice,
               .choices = {tr("Microphone"), tr("Monitor"), tr("Amplifier"), tr("Instrument"),
                           tr("Performer"), tr("Riser"), tr("Power"), tr("Furniture"),
                           tr("Other")}},
      .read = [](const PlotItem& item, const KorrinProject&) { return QVariant(int(item.kind)); },
      .write = [](PlotItem& item, const QVariant& value,
                  const KorrinProject&) { item.kind = PlotItemKind(value.toInt()); }};
}

// Its choices are the plot's layers, in their order.
ItemField layer() {
  return {.key = "layerID",
          .form = {.label = tr("Layer"), .kind = Kind::choice},
          .read =
              [](const PlotItem& item, const KorrinProject& project) {
                const auto layer =
                    std::find_if(project.layers.begin(), project.layers.end(),
                                 [&](const PlotLayer& one) { return one.id == item.layerID; });
                return QVariant(
                    layer == project.layers.end() ? -1 : int(layer - project.layers.begin()));
              },
          .write =
              [](PlotItem& item, const QVariant& value, const KorrinProject& project) {
                const auto place = std::size_t(value.toInt());
                if (place < project.layers.size()) item.layerID = project.layers[place].id;
              }};
}

ItemField riserHeight() {
  return {.key = "riserHeightMillimeters",
          .form = {.label = tr("Riser height"),
                   .kind = Kind::number,
                   .unit = "mm",
                   .minimum = 0,
                   .mayBeAbsent = true},
          .read =
              [](const PlotItem& item, const KorrinProject&) {
                return item.riserHeightMillimeters ? QVariant(*item.riserHeightMillimeters)
                                                   : QVariant();
              },
          .write =
              [](PlotItem& item, const QVariant& value, const KorrinProject&) {
                item.riserHeightMillimeters =
                    value.isValid() ? std::optional(value.toDouble()) : std::nullopt;
              }};
}

ItemField tint() {
  return {.key = "tintHex",
          .form = {.label = tr("Colour"), .kind = Kind::colour, .mayBeAbsent = true},
          .read =
              [](const PlotItem& item, const KorrinProject&) {
                return item.style.tintHex ? QVariant(toQString(*item.style.tintHex)) : QVariant();
              },
          .write =
              [](PlotItem& item, const QVariant& value, const KorrinProject&) {
                item.style.tintHex =
                    value.isValid() ? std::optional(toText(value.toString())) : std::nullopt;
              }};
}

}  // namespace

std::vector<ItemField> itemFields() {
  const FormField millimetres{.label = {}, .unit = "mm", .decimals = 1};
  const auto length = [&](const QString& label, double minimum) {
    FormField form = millimetres;
    form.label = label;
    form.minimum = minimum;
    return form;
  };
  // Each function serves for items to read and for items to change.
  return {
      label(),
      kind(),
      number(
          "x", length(tr("To the right"), -1e9),
          [](auto& item) -> auto& { return item.position.x; }),
      number(
          "y", length(tr("Down"), -1e9), [](auto& item) -> auto& { return item.position.y; }),
      number(
          "width", length(tr("Width"), 1), [](auto& item) -> auto& { return item.size.width; }),
      number(
          "height", length(tr("Depth"), 1), [](auto& item) -> auto& { return item.size.height; }),
      number(
          "rotationDegrees", {.label = tr("Turned by"), .unit = "°", .step = 15, .decimals = 1},
          [](auto& item) -> auto& { return item.rotationDegrees; }),
      riserHeight(),
      layer(),
      tint(),
      number(
          "labelScale",
          {.label = tr("Label size"), .minimum = 0, .maximum = 100, .step = 0.1, .decimals = 2},
          [](auto& item) -> auto& { return item.style.labelScale; }),
      check(
          "labelVisible", tr("Label is shown"),
          [](auto& item) -> auto& { return item.style.labelVisible; }),
      check(
          "isFlippedHorizontally", tr("Left and right exchanged"),
          [](auto& item) -> auto& { return item.isFlippedHorizontally; }),
      check(
          "isFlippedVertically", tr("Front and back exchanged"),
          [](auto& item) -> auto& { return item.isFlippedVertically; }),
      check(
          "isLocked", tr("Locked"), [](auto& item) -> auto& { return item.isLocked; }),
  };
}

}  // namespace korrin::editor
