#pragma once

// The lists of a plot as tables of texts. A list says by a table of columns how each field is read
// and written; models and panels know no more than that.

#include <QCoreApplication>
#include <QString>
#include <QVariant>
#include <functional>
#include <optional>
#include <vector>

#include "korrin/commands/document_command.h"

namespace korrin::editor {

/// A field of each row.
struct ListColumn {
  enum class Kind { text, number, check, link };

  std::string_view key;  ///< The field's key in documents.
  QString title;
  int width;  ///< In characters, to begin with.
  Kind kind;
  std::function<QVariant(const KorrinProject&, std::size_t row)> read;
  /// Returns whether the value means something to this field. Where it does not, nothing is done.
  std::function<bool(KorrinProject&, std::size_t row, const QVariant&)> write;
};

/// One list of a plot. What changes a row does so in a copy of the plot, which costs no allocation;
/// `replacing` then makes the one command of it.
class PlotList {
 public:
  virtual ~PlotList() = default;

  virtual std::size_t size(const KorrinProject& project) const = 0;
  virtual UUID idOf(const KorrinProject& project, std::size_t row) const = 0;
  virtual void insert(KorrinProject& project, std::size_t row, UUID id) const = 0;
  virtual void remove(KorrinProject& project, std::size_t row) const = 0;
  virtual void move(KorrinProject& project, std::size_t from, std::size_t to) const = 0;
  /// The command that gives a plot this one's list.
  virtual DocumentCommand replacing(const KorrinProject& project) const = 0;

  /// Whether rows can be linked to items.
  bool hasLinks() const { return linkColumn() != nullptr; }
  const ListColumn* linkColumn() const;
  /// The row with the identifier.
  std::optional<std::size_t> rowOf(const KorrinProject& project, const UUID& id) const;

  std::string_view key;  ///< The list's key in documents.
  QString title;
  QString editName;  ///< What a menu calls an edit of it.
  std::vector<ListColumn> columns;
};

/// The lists of a plot, in the order of their panels. They live as long as the program.
const std::vector<const PlotList*>& plotLists();

/// The list with this key; null where there is none.
const PlotList* plotListNamed(std::string_view key);

}  // namespace korrin::editor
