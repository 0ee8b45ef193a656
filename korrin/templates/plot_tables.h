#pragma once

// Starting documents as tables: a row for each item and each line of the lists. A line names the
// item that shows it by the item's label.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "korrin/model/project.h"

namespace korrin::templates {

struct ItemRow {
  PlotItemKind kind;
  std::string_view assetID;
  StagePoint position;
  StageSize size;
  double rotationDegrees;
  std::string_view label;
};

/// Whether a microphone or DI box is fed through its cable.
enum class Phantom : bool { off, on };

struct InputRow {
  std::int64_t channel;
  std::string_view source;
  std::string_view microphoneOrDI;
  std::string_view stand;
  Phantom phantomPower;
  std::string_view notes;
  std::string_view plotItem;
};

struct MixRow {
  std::int64_t number;
  std::string_view name;
  std::string_view type;
  std::string_view outputPatch;
  std::string_view notes;
  std::string_view plotItem;
};

struct EquipmentRow {
  std::string_view category;
  std::string_view item;
  std::int64_t quantity;
  std::string_view suppliedBy;
  std::string_view notes;
  std::string_view plotItem;
};

struct NoteRow {
  std::string_view title;
  std::string_view body;
};

/// What is particular to one document; the rest is common to all and stands in `build`.
struct PlotTables {
  std::string_view title;
  std::string_view artist;
  std::string_view venue;
  std::string_view contactEmail;
  std::string_view stageName;
  StageSize stageSize;
  std::span<const ItemRow> items;
  std::span<const InputRow> inputs;
  std::span<const MixRow> monitorMixes;
  std::span<const EquipmentRow> equipment;
  std::span<const NoteRow> notes;
};

/// Whether every row has the label of exactly one item as `name`.
template <class Row>
consteval bool nameOneItem(std::span<const Row> rows, std::string_view Row::*name,
                           std::span<const ItemRow> items) {
  for (const Row& row : rows) {
    std::size_t named = 0;
    for (const ItemRow& item : items) named += item.label == row.*name ? 1 : 0;
    if (named != 1) return false;
  }
  return true;
}

/// Whether no two items share a label and every line names an item's.
consteval bool linksResolve(const PlotTables& tables) {
  return nameOneItem(tables.items, &ItemRow::label, tables.items) &&
         nameOneItem(tables.inputs, &InputRow::plotItem, tables.items) &&
         nameOneItem(tables.monitorMixes, &MixRow::plotItem, tables.items) &&
         nameOneItem(tables.equipment, &EquipmentRow::plotItem, tables.items);
}

const PlotTables& soloAcousticTables();
const PlotTables& powerTrioTables();
const PlotTables& electronicDuoTables();
const PlotTables& exampleTables();

/// The document that the tables describe. Reads the clock for `createdAt` and for `modifiedAt`,
/// then makes the identifiers of the layer, the items, the inputs, the mixes, the equipment lines
/// and the notes, each list in its order. The tables' links must resolve.
KorrinProject build(const PlotTables& tables, const Environment& environment);

}  // namespace korrin::templates
